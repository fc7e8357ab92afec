// The error information that a method leaves for its caller.
#include "AutomationTest.h"

#include <gtest/gtest.h>

namespace
{
class CErrorInfo : public IErrorInfo
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override
    {
        const bool known = IsEqualIID(riid, IID_IUnknown) || IsEqualIID(riid, IID_IErrorInfo);
        *object = known ? this : nullptr;
        if (known)
            AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++m_references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--m_references); }
    HRESULT STDMETHODCALLTYPE GetGUID(GUID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSource(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetDescription(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD*) override { return E_NOTIMPL; }

    int m_references = 1;
};
} // namespace

TEST(ErrorInfo, IsHandedOverOnce)
{
    CErrorInfo info;
    EXPECT_EQ(S_OK, SetErrorInfo(0, &info));
    EXPECT_EQ(2, info.m_references);
    IErrorInfo* out = nullptr;
    EXPECT_EQ(S_OK, GetErrorInfo(0, &out));
    EXPECT_EQ(&info, out);
    EXPECT_EQ(2, info.m_references);
    out->Release();
    out = &info;
    EXPECT_EQ(S_FALSE, GetErrorInfo(0, &out));
    EXPECT_EQ(nullptr, out);
    EXPECT_EQ(1, info.m_references);
}

TEST(ErrorInfo, IsReplacedAndTakenAway)
{
    CErrorInfo first;
    CErrorInfo second;
    EXPECT_EQ(S_OK, SetErrorInfo(0, &first));
    EXPECT_EQ(S_OK, SetErrorInfo(0, &second));
    EXPECT_EQ(1, first.m_references);
    EXPECT_EQ(2, second.m_references);
    EXPECT_EQ(S_OK, SetErrorInfo(0, nullptr));
    EXPECT_EQ(1, second.m_references);
    IErrorInfo* out = nullptr;
    EXPECT_EQ(S_FALSE, GetErrorInfo(0, &out));
}

TEST(ErrorInfo, RefusesBadArguments)
{
    IErrorInfo* out = nullptr;
    EXPECT_EQ(E_INVALIDARG, GetErrorInfo(0, nullptr));
    EXPECT_EQ(E_INVALIDARG, GetErrorInfo(1, &out));
}
