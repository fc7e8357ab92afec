// A host that creates components of the module and unloads it, again and again.
#pragma once

#include "ComPtr.h"

#include "qptools.h"

#include <objbase.h>

#include <string>

/// Has the module catch an exception on this thread: a host object throws out of a call that `lookup` makes.
void HaveExceptionCaught(IQPSelectOrvoItem& lookup);

/// Finds the classes by the manifest beside the program, in a single-threaded apartment of the calling
/// thread. It never loads the module itself, so COM unloads it.
class UnloadingHost
{
public:
    UnloadingHost();
    ~UnloadingHost();
    UnloadingHost(const UnloadingHost&) = delete;
    UnloadingHost& operator=(const UnloadingHost&) = delete;

    static bool IsLoaded() { return GetModuleHandleW(L"qptools.dll") != nullptr; }

    /// Creates components one after another. The module catches an exception, translates a text, writes to
    /// the log and runs a dialog, whose window the system refuses to create unless it is `shown`.
    void Work(bool shown);

    /// Makes COM unload unused modules. Returns true if the module is unloaded.
    static bool Unload();

private:
    template <class T>
    ComPtr<T> Create(REFCLSID classId);
    void CatchException();
    void WriteLog();
    void ChooseProject();
    void CancelChoice();

    HANDLE m_context;
    ULONG_PTR m_cookie = 0;
};

/// A host's list of objects to be copied, without any, that counts the references to it.
class CountedList final : public IEnumBaseDataObject
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE RemNext(ULONG, IQP_BaseDataObject**, ULONG*) override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE Reset() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumBaseDataObject**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSingleNext(IQP_BaseDataObject**) override { return S_FALSE; }

    int references = 0;
    int exitCode = 0; ///< if not 0, the program ends with it when the last reference is released
};

/// The module loaded from a file, without COM.
class LoadedModule
{
public:
    explicit LoadedModule(const std::wstring& path);
    ~LoadedModule() { FreeLibrary(m_module); }
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    /// Creates a component on this thread, has it catch an exception and releases it.
    void CatchException() const;

    /// Creates copy options for `objects` and releases them without DeleteObjects, so that their dialog is
    /// kept.
    void KeepCopyDialog(CountedList& objects) const;

    HMODULE Handle() const { return m_module; }

private:
    template <class T>
    ComPtr<T> Create(REFCLSID classId) const;

    HMODULE m_module;
};
