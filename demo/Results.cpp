#include "Results.h"

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

static void ReadCell(const VARIANT& array, long row, long column, CVariantHolder& cell)
{
    LONG index[2] = {static_cast<LONG>(row), static_cast<LONG>(column)};
    SafeArrayGetElement(array.parray, index, cell.get());
}

std::wstring TextCell(const VARIANT& array, long row, long column)
{
    CVariantHolder cell;
    ReadCell(array, row, column, cell);
    if (cell.value().vt != VT_BSTR || !cell.value().bstrVal)
        return {};
    return {cell.value().bstrVal, SysStringLen(cell.value().bstrVal)};
}

ComPtr<IQP_BaseDataObject> ObjectCell(const VARIANT& array, long row, long column)
{
    CVariantHolder cell;
    ReadCell(array, row, column, cell);
    ComPtr<IQP_BaseDataObject> object;
    if (cell.value().vt == VT_UNKNOWN)
        object.queryFrom(cell.value().punkVal);
    return object;
}

std::wstring AttributeText(IQP_BaseDataObject* object, const wchar_t* name)
{
    if (!object)
        return {};
    CVariantHolder value;
    const BSTR attribute = SysAllocString(name);
    const HRESULT status = object->GetAttribute(attribute, value.get());
    SysFreeString(attribute);
    if (status != S_OK || VariantChangeType(value.get(), value.get(), 0, VT_BSTR) != S_OK ||
        !value.value().bstrVal)
        return {};
    return value.value().bstrVal;
}
