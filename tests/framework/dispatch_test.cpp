#include "TestComponents.h"
#include "TestLibrary.h"

#include "ComModule.h"
#include "ComPtr.h"
#include "DispatchTail.h"
#include "VtableSlot.h"

#include <oleauto.h>

#include <gtest/gtest.h>

namespace
{
class TailedComponent final : public ComObject<TailedComponent, DispatchTail<ITestNumber>>
{
public:
    HRESULT STDMETHODCALLTYPE GetNumber(LONG* number) override
    {
        *number = 5;
        return S_OK;
    }
};

/// Positions in the table: three of IUnknown, one published method, the tail.
enum Slot
{
    kGetNumber = 3,
    kGetTypeInfoCount,
    kGetTypeInfo,
    kGetIDsOfNames,
    kInvoke
};

class Dispatch : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(CreateComObject<TailedComponent>(nullptr, __uuidof(ITestNumber), number.putVoid()), S_OK);
    }

    HRESULT GetTypeInfo(UINT index, ITypeInfo** result)
    {
        return CallSlot(number.get(), kGetTypeInfo, index, LCID{0}, result);
    }
    HRESULT GetIDsOfNames(const IID& reserved, LPOLESTR* names, DISPID* ids)
    {
        return CallSlot(number.get(), kGetIDsOfNames, &reserved, names, UINT{1}, LCID{0}, ids);
    }
    HRESULT Invoke(const IID& reserved)
    {
        DISPPARAMS none = {};
        return CallSlot(number.get(), kInvoke, DISPID{1}, &reserved, LCID{0}, WORD{DISPATCH_METHOD}, &none,
                        static_cast<VARIANT*>(nullptr), static_cast<EXCEPINFO*>(nullptr),
                        static_cast<UINT*>(nullptr));
    }

    ComPtr<ITestNumber> number;
    wchar_t text[10] = L"GetNumber";
    LPOLESTR names[1] = {text};
    DISPID id = 0;
};
} // namespace

TEST_F(Dispatch, TheFourOperationsFollowThePublishedMethods)
{
    LONG value = 0;
    EXPECT_EQ(CallSlot(number.get(), kGetNumber, &value), S_OK);
    EXPECT_EQ(value, 5);
    UINT count = 99;
    EXPECT_EQ(CallSlot(number.get(), kGetTypeInfoCount, &count), S_OK);
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(CallSlot(number.get(), kGetTypeInfoCount, static_cast<UINT*>(nullptr)), E_POINTER);
}

TEST_F(Dispatch, TheObjectDoesNotAnswerForIDispatch)
{
    ComPtr<IDispatch> dispatch;
    EXPECT_EQ(dispatch.queryFrom(number.get()), E_NOINTERFACE);
    ComPtr<ITestNumber> again;
    EXPECT_EQ(again.queryFrom(number.get()), S_OK);
    EXPECT_EQ(again.get(), number.get());
}

TEST_F(Dispatch, TypeInformationHasOneIndexAndNeedsAResult)
{
    auto* info = reinterpret_cast<ITypeInfo*>(this);
    EXPECT_EQ(GetTypeInfo(1, &info), DISP_E_BADINDEX);
    EXPECT_EQ(info, nullptr);
    EXPECT_EQ(GetTypeInfo(0, nullptr), E_POINTER);
}

TEST_F(Dispatch, AReservedInterfaceThatIsNotNullIsRefused)
{
    EXPECT_EQ(GetIDsOfNames(__uuidof(IUnknown), names, &id), DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(Invoke(__uuidof(IUnknown)), DISP_E_UNKNOWNINTERFACE);
}

TEST_F(Dispatch, NamesAndResultsMustNotBeNull)
{
    EXPECT_EQ(GetIDsOfNames(IID_NULL, nullptr, &id), E_POINTER);
    EXPECT_EQ(GetIDsOfNames(IID_NULL, names, nullptr), E_POINTER);
}

TEST_F(Dispatch, WithoutATypeLibraryThePlatformsFailureIsTheAnswer)
{
    auto* info = reinterpret_cast<ITypeInfo*>(this);
    const HRESULT failure = GetTypeInfo(0, &info);
    EXPECT_LT(failure, 0);
    EXPECT_EQ(info, nullptr);
    EXPECT_EQ(GetIDsOfNames(IID_NULL, names, &id), failure);
    EXPECT_EQ(Invoke(IID_NULL), failure);
}

TEST_F(Dispatch, AnInterfaceThatTheLibraryLacksHasNoTypeInformation)
{
    const TestLibrary library;
    ObjectMapEntry classes[1] = {};
    ASSERT_EQ(ComModule::Get().Init(classes, library.Module(), &TestLibrary::kId), S_OK);
    auto* info = reinterpret_cast<ITypeInfo*>(this);
    EXPECT_EQ(GetTypeInfo(0, &info), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(info, nullptr);
    EXPECT_EQ(GetIDsOfNames(IID_NULL, names, &id), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(Invoke(IID_NULL), TYPE_E_ELEMENTNOTFOUND);
    ComModule::Get().Term();
}
