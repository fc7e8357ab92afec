// What the tests of automation share: a counted object, variants that clean up, and texts.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <gtest/gtest.h>

#include <string>

/// An object on the stack that counts its references, the maker's own included.
class CCountedObject : public IDispatch
{
public:
    explicit CCountedObject(bool isDispatch = true) : m_isDispatch(isDispatch) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override
    {
        const bool known =
            IsEqualIID(riid, IID_IUnknown) || (m_isDispatch && IsEqualIID(riid, IID_IDispatch));
        *object = known ? this : nullptr;
        if (known)
            AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++m_references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--m_references); }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return E_NOTIMPL;
    }

    /// The default property has the value 42, if there is one.
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                                     EXCEPINFO*, UINT*) override
    {
        ++m_calls;
        if (!m_hasValue || id != DISPID_VALUE || flags != DISPATCH_PROPERTYGET)
            return DISP_E_MEMBERNOTFOUND;
        V_VT(result) = VT_I4;
        V_I4(result) = 42;
        return S_OK;
    }

    int m_references = 1;
    int m_calls = 0;
    bool m_hasValue = false;

private:
    bool m_isDispatch;
};

/// A variant that is cleared at its end.
struct CTestVariant : VARIANT
{
    CTestVariant() { VariantInit(this); }
    ~CTestVariant() { VariantClear(this); }
    CTestVariant(CTestVariant&& other) noexcept : VARIANT(other) { VariantInit(&other); }
    CTestVariant(const CTestVariant&) = delete;
    CTestVariant& operator=(const CTestVariant&) = delete;

    CTestVariant& Clear()
    {
        VariantClear(this);
        return *this;
    }
};

inline CTestVariant OfI4(LONG value)
{
    CTestVariant result;
    V_VT(&result) = VT_I4;
    V_I4(&result) = value;
    return result;
}

inline CTestVariant OfR8(double value, VARTYPE type = VT_R8)
{
    CTestVariant result;
    V_VT(&result) = type;
    V_R8(&result) = value;
    return result;
}

inline CTestVariant OfBool(VARIANT_BOOL value)
{
    CTestVariant result;
    V_VT(&result) = VT_BOOL;
    V_BOOL(&result) = value;
    return result;
}

/// Null gives a null string.
inline CTestVariant OfText(const wchar_t* text)
{
    CTestVariant result;
    V_VT(&result) = VT_BSTR;
    V_BSTR(&result) = SysAllocString(text);
    return result;
}

inline CTestVariant OfType(VARTYPE type)
{
    CTestVariant result;
    V_VT(&result) = type;
    return result;
}

/// Takes a reference; null is allowed.
inline CTestVariant OfObject(CCountedObject* object, VARTYPE type = VT_UNKNOWN)
{
    CTestVariant result;
    V_VT(&result) = type;
    V_UNKNOWN(&result) = object;
    if (object)
        object->AddRef();
    return result;
}

/// A BSTR that is freed at its end.
class CTestText
{
public:
    CTestText() = default;
    explicit CTestText(const wchar_t* text) : m_text(SysAllocString(text)) {}
    CTestText(const wchar_t* text, UINT length) : m_text(SysAllocStringLen(text, length)) {}
    ~CTestText() { SysFreeString(m_text); }
    CTestText(const CTestText&) = delete;
    CTestText& operator=(const CTestText&) = delete;
    // NOLINTNEXTLINE(google-explicit-constructor): stands wherever the raw one does
    operator BSTR() const { return m_text; }
    BSTR* Address() { return &m_text; }

private:
    BSTR m_text = nullptr;
};

/// All characters, zeros included.
inline std::wstring Content(BSTR text)
{
    return text ? std::wstring(text, SysStringLen(text)) : std::wstring(L"(null)");
}

/// A vector of one object.
inline SAFEARRAY* ArrayWith(CCountedObject* object)
{
    SAFEARRAY* array = SafeArrayCreateVector(VT_UNKNOWN, 0, 1);
    LONG index = 0;
    EXPECT_EQ(S_OK, SafeArrayPutElement(array, &index, object));
    return array;
}

/// A reference of any type to `place`.
inline VARIANT ReferenceTo(VARTYPE type, void* place)
{
    VARIANT result;
    VariantInit(&result);
    V_VT(&result) = static_cast<VARTYPE>(type | VT_BYREF);
    V_BYREF(&result) = place;
    return result;
}
