// The table that drives lookup and registration of a module's classes.
#pragma once

#include <unknwn.h>

#include <atomic>

class Registrar;

/// Creates an instance of a class; `outer` may be null (see CreateComObject).
using InstanceCreator = HRESULT (*)(IUnknown* outer, REFIID iid, void** result);

/// Creates a class factory for an instance creator and queries it for an interface.
using FactoryCreator = HRESULT (*)(InstanceCreator create, REFIID iid, void** result);

/// Adds a class to the registry or removes it, by the registrar of the current registration.
using RegistrationFunction = HRESULT (*)(Registrar& registrar, bool add);

struct CategoryEntry;

/// One class. A table of these ends with an entry of nulls.
struct ObjectMapEntry
{
    const CLSID* classId;
    RegistrationFunction updateRegistry;
    FactoryCreator createFactory;
    InstanceCreator createInstance;
    std::atomic<IUnknown*> factory; ///< cached at the first request for the class; null before
    DWORD registrationCookie;       ///< of a class object registered with the system; unused in process
    LPCWSTR (*objectDescription)();
    const CategoryEntry* (*categoryMap)();
    void (*classInit)(bool starting); ///< called by Init and Term of the module object
};
