// The dispatch operations behind the published methods of the script service.
#include "ModuleUnderTest.h"
#include "VtableSlot.h"

#include "Resources.h"
#include "qptools.h"

#include <oleauto.h>

#include <gtest/gtest.h>

namespace
{
/// Positions behind three entries of IUnknown and three published methods.
enum Slot
{
    kGetTypeInfoCount = 6,
    kGetTypeInfo,
    kGetIDsOfNames,
    kInvoke
};

class DispatchTailOfTheManager : public testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, manager), S_OK); }

    HRESULT GetTypeInfo(UINT index, ComPtr<ITypeInfo>& info)
    {
        return CallSlot(manager.get(), kGetTypeInfo, index, LCID{0}, info.put());
    }
    HRESULT GetId(const wchar_t* name, DISPID* id)
    {
        std::wstring text = name;
        LPOLESTR names[] = {text.data()};
        return CallSlot(manager.get(), kGetIDsOfNames, &IID_NULL, &names[0], UINT{1}, LCID{0}, id);
    }

    ModuleUnderTest module;
    ComPtr<IScriptActionAndCommandManager> manager;
};

/// Whether this platform has type libraries: the module's own then loads from the module.
bool HasTypeLibraries(const ModuleUnderTest& module)
{
    ComPtr<ITypeLib> library;
    return LoadTypeLibEx(ModulePath(module.Handle()).c_str(), REGKIND_NONE, library.put()) >= 0;
}
} // namespace

TEST_F(DispatchTailOfTheManager, CountsOneTypeInformation)
{
    UINT count = 99;
    EXPECT_EQ(CallSlot(manager.get(), kGetTypeInfoCount, &count), S_OK);
    EXPECT_EQ(count, 1u);
}

TEST_F(DispatchTailOfTheManager, IsReachedThroughTheInterfaceOnly)
{
    ComPtr<IDispatch> dispatch;
    EXPECT_EQ(dispatch.queryFrom(manager.get()), E_NOINTERFACE);
}

TEST_F(DispatchTailOfTheManager, GivesTheTypeInformationOfItsInterface)
{
    ComPtr<ITypeInfo> info;
    const HRESULT status = GetTypeInfo(0, info);
    if (!HasTypeLibraries(module))
    {
        EXPECT_LT(status, 0);
        EXPECT_EQ(info.get(), nullptr);
        EXPECT_EQ(GetTypeInfo(1, info), DISP_E_BADINDEX);
        return;
    }
    ASSERT_EQ(status, S_OK);
    EXPECT_NE(info.get(), nullptr);
    EXPECT_EQ(GetTypeInfo(1, info), DISP_E_BADINDEX);
}

TEST_F(DispatchTailOfTheManager, FindsItsMethodsByNameInAnyCase)
{
    DISPID first = -1;
    DISPID second = -1;
    if (!HasTypeLibraries(module))
    {
        EXPECT_LT(GetId(L"GetScriptCommands", &first), 0);
        return;
    }
    EXPECT_EQ(GetId(L"GetScriptCommands", &first), S_OK);
    EXPECT_EQ(GetId(L"getscriptsforaction", &second), S_OK);
    EXPECT_NE(first, second);
    EXPECT_EQ(GetId(L"NoSuchMethod", &first), DISP_E_UNKNOWNNAME);
}

TEST_F(DispatchTailOfTheManager, InvokeCallsTheMethod)
{
    DISPID id = 0;
    VARIANTARG arguments[7];
    for (VARIANTARG& argument : arguments)
    {
        VariantInit(&argument);
        argument.vt = VT_UNKNOWN;
        argument.punkVal = nullptr;
    }
    arguments[0].vt = VT_BSTR; // the last argument, the type name
    arguments[0].bstrVal = nullptr;
    DISPPARAMS parameters = {arguments, nullptr, 7, 0};
    EXCEPINFO exception = {};
    const bool possible = HasTypeLibraries(module);
    EXPECT_EQ(GetId(L"ShowScriptActionOrCommandDlg", &id) == S_OK, possible);
    const HRESULT status =
        CallSlot(manager.get(), kInvoke, id, &IID_NULL, LCID{0}, WORD{DISPATCH_METHOD}, &parameters,
                 static_cast<VARIANT*>(nullptr), &exception, static_cast<UINT*>(nullptr));
    // A failure of the method itself comes as an exception that carries it.
    EXPECT_EQ(status == DISP_E_EXCEPTION, possible) << status;
    EXPECT_EQ(exception.scode, possible ? E_INVALIDARG : 0);
    EXPECT_LT(status, 0);
}
