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

    /// Sets the table, which ends with a null entry, the instance handle and the library's identifier. All
    /// three are borrowed until Term. Returns E_INVALIDARG, with nothing set, if one is null; E_UNEXPECTED if
    /// Init has been called and Term has not; else S_OK.
    HRESULT Init(ObjectMapEntry* map, HINSTANCE instance, const GUID* libraryId) noexcept;

    /// Releases the cached factories and resets what Init set. Locks nothing, because it also runs while the
    /// process ends.
    void Term() noexcept;

    /// Finds the class in the table and queries its factory for `iid`; the factory is created at the first
    /// request and cached. Returns E_POINTER if `result` is null, else sets it to null first;
    /// CLASS_E_CLASSNOTAVAILABLE; E_OUTOFMEMORY; the status of the factory's QueryInterface.
    HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** result) noexcept;

    /// Registers every class of the table in its order, or `onlyClass` alone, and then the type library if
    /// `typeLibrary` is set. Stops at the first failure: all keys written so far are restored, and the status
    /// of the failed system call is returned. `report` receives the failure, except on out of memory. Returns
    /// E_UNEXPECTED without a table.
    HRESULT RegisterServer(bool typeLibrary, const CLSID* onlyClass, RegistrationReport& report) noexcept;

    /// Removes what RegisterServer adds. Continues after a failure: the first status is returned and `report`
    /// receives all failures. A key that does not exist is not a failure.
    HRESULT UnregisterServer(bool typeLibrary, const CLSID* onlyClass, RegistrationReport& report) noexcept;

    /// One lock for each live object, each LockServer(TRUE) and each factory that a client references. The
    /// count is signed and not clamped: a negative one means that a client released too often, which a debug
    /// build asserts.
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
    std::mutex m_factoryLock; ///< guards only the creation of factories
};
