#include "ArrayText.h"

#include "MemoryHost.h"

namespace
{
bool IsTable(const VARIANT& result)
{
    if (result.vt != (VT_ARRAY | VT_VARIANT) || SafeArrayGetDim(result.parray) != 2)
        return false;
    LONG firstRow = -1;
    LONG firstColumn = -1;
    SafeArrayGetLBound(result.parray, 1, &firstRow);
    SafeArrayGetLBound(result.parray, 2, &firstColumn);
    return firstRow == 0 && firstColumn == 0;
}

LONG CountOf(const VARIANT& result, UINT dimension)
{
    LONG last = -2;
    SafeArrayGetUBound(result.parray, dimension, &last);
    return last + 1;
}
} // namespace

std::string InBrackets(std::string_view name)
{
    std::string text = "<";
    text += name;
    text += '>';
    return text;
}

std::string CellText(const VARIANT& cell, const std::function<std::string(IUnknown*)>& nameOf)
{
    switch (cell.vt)
    {
    case VT_EMPTY:
        return "-";
    case VT_BSTR:
        return Utf8Of(cell.bstrVal);
    case VT_UNKNOWN:
        return InBrackets(nameOf(cell.punkVal));
    default:
        return "type " + std::to_string(cell.vt);
    }
}

TextRows RowsOf(const VARIANT& result, const std::function<std::string(IUnknown*)>& nameOf)
{
    if (!IsTable(result))
        return {{"no table but type " + std::to_string(result.vt)}};
    TextRows rows(static_cast<std::size_t>(CountOf(result, 1)));
    const LONG columns = CountOf(result, 2);
    for (LONG row = 0; row < static_cast<LONG>(rows.size()); ++row)
    {
        for (LONG column = 0; column < columns; ++column)
        {
            LONG index[] = {row, column};
            XQPComVariant cell;
            SafeArrayGetElement(result.parray, index, &cell);
            rows[static_cast<std::size_t>(row)].push_back(CellText(cell.Value(), nameOf));
        }
    }
    return rows;
}

int ColumnsOf(const VARIANT& result)
{
    return IsTable(result) ? static_cast<int>(CountOf(result, 2)) : -1;
}
