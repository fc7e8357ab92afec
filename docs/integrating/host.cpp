// The smallest program that is a host of qptools.dll: it creates two components and asks each for something.
// It uses the SDK alone: the headers of sdk/include and the identifiers they declare.

#include <windows.h>

#include <initguid.h>

#include "qpobjects.h"
#include "qptools.h"

#include <cstdio>

// Objects of this program live as long as it runs, so their reference counts need not be kept.
template <class Interface>
class HostObject : public Interface
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override
    {
        const bool known = IsEqualIID(riid, IID_IUnknown) || IsEqualIID(riid, __uuidof(Interface));
        *object = known ? static_cast<Interface*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
};

// A plan type set that has no attribute: every read answers "no value".
class EmptyObject : public HostObject<IQP_BaseDataObject>
{
public:
    HRESULT STDMETHODCALLTYPE GetTableName(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeName(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR, VARIANT*) override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE GetAttributes(SAFEARRAY**, SAFEARRAY**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAttribute(BSTR, VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAttributes(SAFEARRAY**, SAFEARRAY**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetChildren(BSTR, IEnumBaseDataObject**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetType(BSTR, BSTR, IQPType**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetClientId(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsDerivedFromClass(BSTR) override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE SetAttributeMultiLingual(BSTR, LONG, VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAttributesMultiLingual(SAFEARRAY**, LONG, SAFEARRAY**) override
    {
        return E_NOTIMPL;
    }
};

// A search service that prints what it is asked for and finds nothing.
class PrintingQuery : public HostObject<IQP_Query>
{
public:
    HRESULT STDMETHODCALLTYPE SetSearchTable(BSTR table) override
    {
        std::printf("search table %ls\n", table);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetSearchCatenation(LONG catenation) override
    {
        std::printf("catenation   %d\n", static_cast<int>(catenation));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetSearchAttribute(BSTR attribute, LONG, VARIANT, LONG) override
    {
        std::printf("criterion    %ls\n", attribute);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetSearchResult(IEnumBaseDataObject** found) override
    {
        *found = nullptr;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE ResetSearch(LONG) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE SetOrderAttribute(BSTR attribute, LONG) override
    {
        std::printf("order by     %ls\n", attribute);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetObjectById(BSTR, IUnknown**) override { return E_NOTIMPL; }
};

static HRESULT WriteLog()
{
    IQPUserActionLog* log = nullptr;
    HRESULT status = CoCreateInstance(CLSID_QPUserActionLog, nullptr, CLSCTX_INPROC_SERVER,
                                      IID_IQPUserActionLog, reinterpret_cast<void**>(&log));
    if (FAILED(status))
        return status;
    BSTR text = SysAllocString(L"The host started.\n");
    status = log->WriteLine(text);
    SysFreeString(text);
    log->Release();
    return status;
}

static HRESULT AskForScripts()
{
    IScriptActionAndCommandManager* manager = nullptr;
    HRESULT status = CoCreateInstance(CLSID_XScriptActionAndCommandManager, nullptr, CLSCTX_INPROC_SERVER,
                                      IID_IScriptActionAndCommandManager, reinterpret_cast<void**>(&manager));
    if (FAILED(status))
        return status;
    PrintingQuery query;
    EmptyObject planTypeSet;
    VARIANT rows;
    VariantInit(&rows);
    BSTR typeName = SysAllocString(L"workplan");
    status = manager->GetScriptsForAction(&query, &planTypeSet, typeName, nullptr, 1, 0, &rows);
    std::printf("rows         %s\n", rows.vt == (VT_ARRAY | VT_VARIANT) ? "an array" : "nothing");
    SysFreeString(typeName);
    VariantClear(&rows);
    manager->Release();
    return status;
}

int main()
{
    HRESULT status = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (FAILED(status))
        return 1;
    status = WriteLog();
    if (SUCCEEDED(status))
        status = AskForScripts();
    std::printf("status       0x%08X\n", static_cast<unsigned>(status));
    CoUninitialize();
    return status == S_OK ? 0 : 1;
}
