#include "ArrayText.h"

#include "MemoryHost.h"

#include <array>
#include <utility>

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

std::pair<LONG, LONG> BoundsOf(SAFEARRAY* array, UINT dimension)
{
    LONG first = 0;
    LONG last = -1;
    SafeArrayGetLBound(array, dimension, &first);
    SafeArrayGetUBound(array, dimension, &last);
    return {first, last};
}

std::string ShapeText(SAFEARRAY* array)
{
    VARTYPE type = VT_EMPTY;
    SafeArrayGetVartype(array, &type);
    std::string text = type == VT_VARIANT ? "VARIANT" : "type " + std::to_string(type);
    for (UINT dimension = 1; dimension <= SafeArrayGetDim(array); ++dimension)
    {
        const auto [first, last] = BoundsOf(array, dimension);
        text += (dimension == 1 ? " " : ", ") + std::to_string(first) + ".." + std::to_string(last);
    }
    return text;
}

bool HasPairs(SAFEARRAY* array)
{
    VARTYPE type = VT_EMPTY;
    if (SafeArrayGetDim(array) != 2 || SafeArrayGetVartype(array, &type) != S_OK || type != VT_VARIANT)
        return false;
    const auto [first, last] = BoundsOf(array, 2);
    return last - first == 1;
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

std::string ArrayLine(SAFEARRAY* array, const MemoryRecord& record)
{
    if (!array)
        return "null";
    std::string text = ShapeText(array);
    if (!HasPairs(array))
        return text;
    const auto [first, last] = BoundsOf(array, 1);
    const LONG column = BoundsOf(array, 2).first;
    for (LONG row = first; row <= last; ++row)
    {
        std::array<LONG, 2> name = {row, column};
        std::array<LONG, 2> value = {row, column + 1};
        std::array<XQPComVariant, 2> cells;
        SafeArrayGetElement(array, name.data(), &cells[0]);
        SafeArrayGetElement(array, value.data(), &cells[1]);
        text += (row == first ? ": " : "; ") + record.Describe(cells[0].Value()) + " = " +
                record.Describe(cells[1].Value());
    }
    return text;
}
