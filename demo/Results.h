// What the script service answered, read out of its arrays.
#pragma once

#include "ComPtr.h"

#include "qpobjects.h"

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <vector>

/// An owning variant for an out argument.
class CVariantHolder
{
public:
    CVariantHolder() { VariantInit(&m_value); }
    ~CVariantHolder() { VariantClear(&m_value); }
    CVariantHolder(const CVariantHolder&) = delete;
    CVariantHolder& operator=(const CVariantHolder&) = delete;

    VARIANT* get() { return &m_value; }
    const VARIANT& value() const { return m_value; }

private:
    VARIANT m_value;
};

/// The number of rows of a two-dimensional array of variants with `columns` columns, or -1 if it is no such
/// array.
long RowsOf(const VARIANT& array, long columns);

/// A text cell, empty for any other.
std::wstring TextCell(const VARIANT& array, long row, long column);

/// The data object of an object cell, null for any other.
ComPtr<IQP_BaseDataObject> ObjectCell(const VARIANT& array, long row, long column);

/// An attribute of a data object as text, empty without one.
std::wstring AttributeText(IQP_BaseDataObject* object, const wchar_t* name);
