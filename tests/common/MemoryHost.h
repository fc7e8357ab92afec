// A host that lives in memory: data objects, one query and its enumerators, a configuration, an object
// manager, a macro loader, a settings service, a key store, the gateway to the server and the navigator with
// its tree expander; each answer and status of them can be set by a test, and each call read back.
#pragma once

#include "MemoryConfig.h"
#include "MemoryEnum.h"
#include "MemoryGateway.h"
#include "MemoryLoader.h"
#include "MemoryManager.h"
#include "MemoryNavigator.h"
#include "MemoryObject.h"
#include "MemoryQuery.h"
#include "MemoryRecord.h"
#include "MemorySettings.h"
#include "MemoryStore.h"

#include "ComPtr.h"

#include <string>
#include <vector>

/// Creates the objects, counts them and keeps the record of the calls. It must outlive all of them.
class MemoryHost : public MemoryRecord
{
public:
    MemoryHost();
    ~MemoryHost();

    /// A data object under a name that the record calls it by.
    ComPtr<MemoryObject> Object(std::string name);

    /// A data object with an attribute "name".
    ComPtr<MemoryObject> Named(const wchar_t* name);

    /// An object that is not a data object, but whose QueryInterface for one returns `object`.
    ComPtr<IUnknown> ReferenceTo(std::string name, const ComPtr<MemoryObject>& object);

    /// An enumerator over `objects`, in this order.
    ComPtr<MemoryEnum> List(const MemoryObjects& objects);

    /// The same with a name that the record gives each call on it: `selection.RemNext(1)`.
    ComPtr<MemoryEnum> List(const MemoryObjects& objects, const std::string& name);

    /// An object of the configured type of that name, which Config has or gets, with `children` in the list
    /// "nodes". It answers all calls of a walk over a tree; its type name is "node".
    ComPtr<MemoryObject> Node(const wchar_t* name, const wchar_t* type, const MemoryObjects& children = {});

    /// The same for a relationship, which leads to `target`, which may be null.
    ComPtr<MemoryObject> Relationship(const wchar_t* name, const wchar_t* type,
                                      const ComPtr<MemoryObject>& target, const MemoryObjects& children = {});

    /// A data object that the query finds by that identifier, such as "$12)", with the attributes "name" and
    /// "configured_name".
    ComPtr<MemoryObject> Known(const std::wstring& id, const wchar_t* name);

    /// The place of an object in the navigator's tree, as bookmarks keep it: 12 characters and the
    /// identifier.
    static std::wstring TreeString(const std::wstring& id);

    /// A view of the navigator, which the record calls by that name.
    ComPtr<MemoryView> View(const std::string& name);

    /// Makes these views, which may be null, the running ones. The record calls the enumerator "views".
    ComPtr<MemoryRunning> Views(const std::vector<ComPtr<MemoryView>>& views);

    /// Removes the children of all objects, so that those that hold each other are destroyed. The host's
    /// destructor does it too.
    void CutTrees();

    MemoryQuery& Query() noexcept { return *m_ptrQuery; }

    /// The configuration, without types at first.
    MemoryFactory& Config() noexcept { return *m_ptrFactory; }

    /// The object manager, which knows the key store, the gateway and the tree expander by their classes, and
    /// gives the macro loader for any other.
    MemoryManager& Manager() noexcept { return *m_ptrManager; }

    /// The key store, empty at first.
    MemoryStore& Store() noexcept { return *m_ptrStore; }

    /// The gateway, which gives the query.
    MemoryGateway& Gateway() noexcept { return *m_ptrGateway; }

    /// The tree expander.
    MemoryExpander& Expander() noexcept { return *m_ptrExpander; }

    /// The macro loader, with an empty reply at first.
    MemoryLoader& Loader() noexcept { return *m_ptrLoader; }

    /// The settings, of which none has a value at first.
    MemorySettings& Settings() noexcept { return *m_ptrSettings; }

private:
    ComPtr<MemoryQuery> m_ptrQuery;
    ComPtr<MemoryFactory> m_ptrFactory;
    ComPtr<MemoryLoader> m_ptrLoader;
    ComPtr<MemoryManager> m_ptrManager;
    ComPtr<MemorySettings> m_ptrSettings;
    ComPtr<MemoryStore> m_ptrStore;
    ComPtr<MemoryGateway> m_ptrGateway;
    ComPtr<MemoryExpander> m_ptrExpander;
};
