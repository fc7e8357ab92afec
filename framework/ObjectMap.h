// The table that drives look-up and registration of a module's classes.
#pragma once

#include <unknwn.h>

#include <atomic>

class Registrar;

/// Makes an instance of one class: outer object or null, interface, result (see CreateComObject).
using InstanceCreator = HRESULT (*)(IUnknown* outer, REFIID iid, void** result);

/// Makes a class factory around an instance creator and asks it for an interface.
using FactoryCreator = HRESULT (*)(InstanceCreator create, REFIID iid, void** result);

/// Adds a class to the registry, or takes it out, through the registrar of the running registration.
using RegistrationFunction = HRESULT (*)(Registrar& registrar, bool add);

struct CategoryEntry;

/// One class. A table of these ends with an entry that is null throughout.
struct ObjectMapEntry
{
    const CLSID* classId;
    RegistrationFunction updateRegistry;
    FactoryCreator createFactory;
    InstanceCreator createInstance;
    std::atomic<IUnknown*> factory; ///< cached at the first request for the class, null until then
    DWORD registrationCookie;       ///< of a class object registered with the system; unused in process
    LPCWSTR (*objectDescription)();
    const CategoryEntry* (*categoryMap)();
    void (*classInit)(bool starting); ///< run when the module object starts and when it ends
};
