// Reads the result arrays of the script service.
#pragma once

#include "ComPtr.h"

#include "qpobjects.h"

#include <windows.h>

#include <string>
#include <vector>

/// The number of rows of a two-dimensional array of variants with `columns` columns, or -1 if it is no such
/// array.
long RowsOf(const VARIANT& array, long columns);

/// The text of a cell; empty if it is not a VT_BSTR.
std::wstring TextCell(const VARIANT& array, long row, long column);

/// The data object of a cell; null if the cell is not an object.
ComPtr<IQP_BaseDataObject> ObjectCell(const VARIANT& array, long row, long column);

/// An attribute of a data object as text; empty if it has no value.
std::wstring AttributeText(IQP_BaseDataObject* object, const wchar_t* name);
