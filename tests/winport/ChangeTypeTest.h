// How the tests of conversions state what they expect.
#pragma once

#include "AutomationTest.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

// What a conversion gave, as text: the status if it failed, else the value.
inline std::wstring Value(const VARIANT& variant)
{
    switch (V_VT(&variant))
    {
    case VT_EMPTY:
        return L"empty";
    case VT_NULL:
        return L"null";
    case VT_I4:
        return std::to_wstring(V_I4(&variant));
    case VT_INT:
        return std::to_wstring(V_INT(&variant));
    case VT_BOOL:
        return std::to_wstring(V_BOOL(&variant));
    case VT_BSTR:
        return V_BSTR(&variant) ? L"'" + Content(V_BSTR(&variant)) + L"'" : L"(null)";
    case VT_UNKNOWN:
    case VT_DISPATCH:
        return V_UNKNOWN(&variant) ? L"object" : L"null object";
    default:
        return L"type " + std::to_wstring(V_VT(&variant));
    }
}

inline std::wstring StatusName(HRESULT status)
{
    const std::pair<HRESULT, const wchar_t*> names[] = {{DISP_E_TYPEMISMATCH, L"mismatch"},
                                                        {DISP_E_OVERFLOW, L"overflow"},
                                                        {DISP_E_BADVARTYPE, L"bad type"},
                                                        {E_NOINTERFACE, L"no interface"},
                                                        {E_INVALIDARG, L"bad argument"}};
    for (const auto& [known, name] : names)
    {
        if (known == status)
            return name;
    }
    return L"status " + std::to_wstring(status);
}

inline std::wstring Changed(const VARIANT& source, VARTYPE type)
{
    CTestVariant target;
    VARIANT from = source;
    const HRESULT status = VariantChangeType(&target, &from, 0, type);
    if (status != S_OK)
        return StatusName(status);
    EXPECT_EQ(type, V_VT(&target));
    return Value(target);
}

inline std::wstring OfBstr(const wchar_t* text, VARTYPE type)
{
    return Changed(OfText(text), type);
}

inline std::wstring OfReal(double value, VARTYPE type)
{
    return Changed(OfR8(value), type);
}

inline CTestVariant OfWhole(VARTYPE type, LONG value)
{
    CTestVariant result = OfI4(value);
    V_VT(&result) = type;
    return result;
}

constexpr VARTYPE kNumbers[] = {VT_I4, VT_INT};

// What a source becomes as I4 and INT, BOOL, BSTR.
struct Row
{
    const wchar_t* i4;
    const wchar_t* truth;
    const wchar_t* text;
};

inline void ExpectRow(const VARIANT& source, const Row& row)
{
    EXPECT_EQ(row.i4, Changed(source, VT_I4)) << Value(source);
    EXPECT_EQ(row.i4, Changed(source, VT_INT)) << Value(source);
    EXPECT_EQ(row.truth, Changed(source, VT_BOOL)) << Value(source);
    EXPECT_EQ(row.text, Changed(source, VT_BSTR)) << Value(source);
}
