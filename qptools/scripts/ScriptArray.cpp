#include "ScriptArray.h"

#include "FixedText.h"

namespace qptools
{
namespace
{
SAFEARRAY* CreateArray(ULONG rows, ULONG columns) noexcept
{
    SAFEARRAYBOUND bounds[] = {{rows, 0}, {columns, 0}};
    return SafeArrayCreate(VT_VARIANT, 2, bounds);
}
} // namespace

ScriptArray::ScriptArray(ULONG rows, ULONG columns) noexcept : m_array(CreateArray(rows, columns)) {}

HRESULT ScriptArray::PutText(LONG row, LONG column, BSTR text) noexcept
{
    static constexpr FixedText kEmpty = L"";
    VARIANT cell;
    cell.vt = VT_BSTR;
    cell.bstrVal = text ? text : static_cast<BSTR>(kEmpty);
    return Put(row, column, cell);
}

HRESULT ScriptArray::PutObject(LONG row, LONG column, IUnknown* object) noexcept
{
    VARIANT cell;
    cell.vt = VT_UNKNOWN;
    cell.punkVal = object;
    return Put(row, column, cell);
}

HRESULT ScriptArray::Put(LONG row, LONG column, VARIANT& value) noexcept
{
    LONG cell[] = {row, column};
    return SafeArrayPutElement(m_array.get(), cell, &value);
}

void ScriptArray::MoveTo(VARIANT* target) noexcept
{
    if (!target)
        return;
    VariantClear(target);
    target->vt = VT_ARRAY | VT_VARIANT;
    target->parray = m_array.detach();
}
} // namespace qptools
