#include "Results.h"

#include "Bstr.h"
#include "Variant.h"

long RowsOf(const VARIANT& array, long columns)
{
    if (array.vt != (VT_ARRAY | VT_VARIANT) || SafeArrayGetDim(array.parray) != 2)
        return -1;
    LONG lower[2] = {};
    LONG upper[2] = {};
    for (UINT dimension = 1; dimension <= 2; ++dimension)
    {
        if (SafeArrayGetLBound(array.parray, dimension, &lower[dimension - 1]) != S_OK ||
            SafeArrayGetUBound(array.parray, dimension, &upper[dimension - 1]) != S_OK)
            return -1;
    }
    const bool asPromised = lower[0] == 0 && lower[1] == 0 && upper[1] == columns - 1;
    return asPromised ? upper[0] + 1 : -1;
}

static Variant Cell(const VARIANT& array, long row, long column)
{
    LONG index[2] = {static_cast<LONG>(row), static_cast<LONG>(column)};
    Variant cell;
    SafeArrayGetElement(array.parray, index, cell.put());
    return cell;
}

std::wstring TextCell(const VARIANT& array, long row, long column)
{
    return std::wstring(Cell(array, row, column).View());
}

ComPtr<IQP_BaseDataObject> ObjectCell(const VARIANT& array, long row, long column)
{
    const Variant cell = Cell(array, row, column);
    ComPtr<IQP_BaseDataObject> object;
    if (cell.Type() == VT_UNKNOWN)
        object.queryFrom(cell->punkVal);
    return object;
}

std::wstring AttributeText(IQP_BaseDataObject* object, const wchar_t* name)
{
    if (!object)
        return {};
    Variant value;
    const HRESULT status = object->GetAttribute(Bstr(name).get(), value.put());
    return status == S_OK && ConvertToText(value) ? std::wstring(value.View()) : std::wstring();
}
