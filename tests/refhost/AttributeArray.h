// The arrays of GetAttributes and SetAttributes as a caller makes and reads them.
#pragma once

#include "PlantFixture.h"

#include <array>
#include <initializer_list>
#include <utility>

/// An array that is destroyed.
class Array
{
public:
    Array() = default;
    explicit Array(SAFEARRAY* array) : m_array(array) {}
    ~Array()
    {
        if (m_array)
            SafeArrayDestroy(m_array);
    }
    Array(const Array&) = delete;
    Array& operator=(const Array&) = delete;
    /// For an input.
    SAFEARRAY** Address() { return &m_array; }
    /// For an output; what it held is destroyed.
    SAFEARRAY** Fresh()
    {
        if (SAFEARRAY* old = std::exchange(m_array, nullptr))
            SafeArrayDestroy(old);
        return &m_array;
    }
    SAFEARRAY* get() const { return m_array; }

private:
    SAFEARRAY* m_array = nullptr;
};

inline SAFEARRAY* NameArray(std::initializer_list<const wchar_t*> names, LONG low = 0)
{
    SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, low, static_cast<ULONG>(names.size()));
    LONG index = low;
    for (const wchar_t* name : names)
    {
        EXPECT_EQ(SafeArrayPutElement(array, &index, Text(name)), S_OK);
        ++index;
    }
    return array;
}

inline void Put(SAFEARRAY* array, LONG row, LONG column, const Value& value)
{
    std::array<LONG, 2> index = {row, column};
    EXPECT_EQ(SafeArrayPutElement(array, index.data(), const_cast<VARIANT*>(&value.get())), S_OK);
}

inline SAFEARRAY* PairArray(ULONG rows, ULONG columns = 2, LONG lowRow = 0, LONG lowColumn = 0)
{
    std::array<SAFEARRAYBOUND, 2> bounds{};
    bounds[0].cElements = rows;
    bounds[0].lLbound = lowRow;
    bounds[1].cElements = columns;
    bounds[1].lLbound = lowColumn;
    return SafeArrayCreate(VT_VARIANT, 2, bounds.data());
}

inline LONG RowsOf(SAFEARRAY* array)
{
    LONG low = 7;
    LONG high = 7;
    EXPECT_EQ(SafeArrayGetDim(array), 2U);
    EXPECT_EQ(SafeArrayGetLBound(array, 1, &low), S_OK);
    EXPECT_EQ(SafeArrayGetUBound(array, 1, &high), S_OK);
    EXPECT_EQ(low, 0);
    LONG lowColumn = 7;
    LONG highColumn = 7;
    EXPECT_EQ(SafeArrayGetLBound(array, 2, &lowColumn), S_OK);
    EXPECT_EQ(SafeArrayGetUBound(array, 2, &highColumn), S_OK);
    EXPECT_EQ(lowColumn, 0);
    EXPECT_EQ(highColumn, 1);
    return high + 1;
}

inline void Cell(SAFEARRAY* array, LONG row, LONG column, Value& value)
{
    std::array<LONG, 2> index = {row, column};
    EXPECT_EQ(SafeArrayGetElement(array, index.data(), &value.get()), S_OK);
}

inline std::wstring NameAt(SAFEARRAY* array, LONG row)
{
    Value name;
    Cell(array, row, 0, name);
    return name->vt == VT_BSTR ? name->bstrVal : L"<no name>";
}
