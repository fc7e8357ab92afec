// The module object: the table of classes, the instance handle, the library's identifier and the lock count.
#pragma once

#include "ObjectMap.h"

#include <windows.h>

#include <atomic>
#include <mutex>

struct RegistrationReport;

/// One per module image. Everything but Init and Term may be called on any thread.
class ComModule
{
public:
    static ComModule& Get() noexcept;

    /// Takes the table (which ends with a null entry), the instance handle and the library's identifier; all
    /// three must outlive the module object's use. Returns E_INVALIDARG, and takes nothing, if one is null;
    /// E_UNEXPECTED if it has been initialised and not terminated; else S_OK.
    HRESULT Init(ObjectMapEntry* map, HINSTANCE instance, const GUID* libraryId) noexcept;

    /// Gives the cached factories back and forgets what Init took. Runs while the process ends too, so it
    /// locks nothing.
    void Term() noexcept;

    /// Looks the class up in the table and asks its factory, which is made at the first request and kept, for
    /// `iid`. Returns E_POINTER for a null `result`, else nulls it first; CLASS_E_CLASSNOTAVAILABLE;
    /// E_OUTOFMEMORY; the status of the factory's QueryInterface.
    HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** result) noexcept;

    /// Adds every class of the table in its order, or the one of `onlyClass`, then, if asked, the type
    /// library. The first failure ends it: all keys written so far get back what they held before, and the
    /// status of the system call that failed is returned. `report` tells what failed, unless there was no
    /// memory to say so. Without a table: E_UNEXPECTED.
    HRESULT RegisterServer(bool typeLibrary, const CLSID* onlyClass, RegistrationReport& report) noexcept;

    /// Takes out what RegisterServer adds. A failure does not keep the rest from going; the first one is
    /// returned and `report` tells all. What is not there is no failure.
    HRESULT UnregisterServer(bool typeLibrary, const CLSID* onlyClass, RegistrationReport& report) noexcept;

    /// One for each live object, each LockServer(TRUE) and each factory that a client holds. The count is
    /// signed and never clamped: below 0 somebody has released what was not theirs, which a debug build
    /// asserts.
    void Lock() noexcept;
    void Unlock() noexcept;
    LONG LockCount() const noexcept { return m_lockCount.load(); }

    HINSTANCE Instance() const noexcept { return m_instance; }
    const GUID* LibraryId() const noexcept { return m_libraryId; }

private:
    HRESULT MakeFactory(ObjectMapEntry& entry) noexcept;
    HRESULT UpdateServer(Registrar& registrar, bool add, bool typeLibrary, const CLSID* onlyClass);

    ObjectMapEntry* m_map = nullptr;
    HINSTANCE m_instance = nullptr;
    const GUID* m_libraryId = nullptr;
    std::atomic<LONG> m_lockCount{0};
    std::mutex m_factoryLock; ///< guards the making of factories and nothing else
};
