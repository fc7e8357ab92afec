// What the tests of arrays share.
#pragma once

#include "AutomationTest.h"

/// The elements are in one block with the descriptor; no public header names this feature.
constexpr USHORT kVector = 0x2000;

/// An array that is destroyed at its end.
class CTestArray
{
public:
    explicit CTestArray(SAFEARRAY* array) : m_array(array) {}
    CTestArray(VARTYPE type, LONG lower, ULONG count) : m_array(SafeArrayCreateVector(type, lower, count)) {}
    ~CTestArray() { EXPECT_EQ(S_OK, SafeArrayDestroy(m_array)); }
    CTestArray(const CTestArray&) = delete;
    CTestArray& operator=(const CTestArray&) = delete;
    // NOLINTNEXTLINE(google-explicit-constructor): stands wherever the raw one does
    operator SAFEARRAY*() const { return m_array; }
    SAFEARRAY* operator->() const { return m_array; }

    HRESULT Put(LONG index, void* value) const { return SafeArrayPutElement(m_array, &index, value); }
    HRESULT Get(LONG index, void* value) const { return SafeArrayGetElement(m_array, &index, value); }

private:
    SAFEARRAY* m_array;
};

inline SAFEARRAY* Create(VARTYPE type, SAFEARRAYBOUND first)
{
    return SafeArrayCreate(type, 1, &first);
}

inline SAFEARRAY* Create(VARTYPE type, SAFEARRAYBOUND first, SAFEARRAYBOUND second)
{
    SAFEARRAYBOUND bounds[] = {first, second};
    return SafeArrayCreate(type, 2, bounds);
}

inline HRESULT PutAt(SAFEARRAY* array, LONG first, LONG second, void* value)
{
    LONG indices[] = {first, second};
    return SafeArrayPutElement(array, indices, value);
}

inline HRESULT GetAt(SAFEARRAY* array, LONG first, LONG second, void* value)
{
    LONG indices[] = {first, second};
    return SafeArrayGetElement(array, indices, value);
}

inline LONG Lower(SAFEARRAY* array, UINT dimension)
{
    LONG bound = -99;
    EXPECT_EQ(S_OK, SafeArrayGetLBound(array, dimension, &bound));
    return bound;
}

inline LONG Upper(SAFEARRAY* array, UINT dimension)
{
    LONG bound = -99;
    EXPECT_EQ(S_OK, SafeArrayGetUBound(array, dimension, &bound));
    return bound;
}

/// A copy of an array, copied as the content of a variant.
inline SAFEARRAY* Copied(SAFEARRAY* array)
{
    VARIANT source{};
    VARIANT copy{};
    VARTYPE type = VT_EMPTY;
    EXPECT_EQ(S_OK, SafeArrayGetVartype(array, &type));
    V_VT(&source) = static_cast<VARTYPE>(VT_ARRAY | type);
    V_ARRAY(&source) = array;
    EXPECT_EQ(S_OK, VariantCopy(&copy, &source));
    return V_ARRAY(&copy);
}
