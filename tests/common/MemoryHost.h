// A host that lives in memory: data objects, one query and its enumerators, a configuration, an object
// manager, a macro loader and a settings service; each answer and status of them can be set by a test, and
// each call read back.
#pragma once

#include "MemoryConfig.h"
#include "MemoryEnum.h"
#include "MemoryLoader.h"
#include "MemoryManager.h"
#include "MemoryObject.h"
#include "MemoryQuery.h"
#include "MemoryRecord.h"
#include "MemorySettings.h"

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

    /// Removes the children of all objects, so that those that hold each other are destroyed. The host's
    /// destructor does it too.
    void CutTrees();

    MemoryQuery& Query() noexcept { return *m_ptrQuery; }

    /// The configuration, without types at first.
    MemoryFactory& Config() noexcept { return *m_ptrFactory; }

    /// The object manager, which gives the macro loader at first.
    MemoryManager& Manager() noexcept { return *m_ptrManager; }

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
};
