#include "SqlVariant.h"

#include "HostDataObject.h"
#include "HostDate.h"
#include "HostText.h"
#include "HostVariant.h"
#include "StatusError.h"

#include "Bstr.h"

#include <optional>
#include <string>
#include <string_view>

namespace refhost
{
namespace
{
long long ObjectNumber(const PlantCore& core, const Attribute& attribute, const VARIANT& value)
{
    Require(IsReference(value));
    const ComPtr<HostDataObject> object = HostDataObject::From(value.punkVal);
    Require(object && object->IsOf(core) && std::string_view(attribute.target) == object->KindOf().table);
    return object->Id();
}

SqlValue DateOf(Variant& value)
{
    const bool isDate = value.Type() == VT_DATE;
    if (!isDate)
        Become(value, VT_BSTR);
    const std::optional<std::string> date =
        isDate ? StoredDate(value->date) : StoredDate(Utf8FromWide(TextOf(value->bstrVal)));
    Require(date.has_value(), DISP_E_TYPEMISMATCH);
    return *date;
}
} // namespace

SqlValue ToColumn(const PlantCore& core, const Attribute& attribute, const VARIANT& value)
{
    Variant direct = Resolved(value);
    if (IsNothing(direct.get()))
        return {};
    switch (attribute.type)
    {
    case ColumnType::Object:
        return ObjectNumber(core, attribute, direct.get());
    case ColumnType::Number:
        Become(direct, VT_I4);
        return static_cast<long long>(direct->lVal);
    case ColumnType::Flag:
        Become(direct, VT_BOOL);
        return static_cast<long long>(direct->boolVal ? 1 : 0);
    case ColumnType::Date:
        return DateOf(direct);
    case ColumnType::Text:
        break;
    }
    Become(direct, VT_BSTR);
    return Utf8FromWide(TextOf(direct->bstrVal));
}

HRESULT ReadColumn(const Core& core, const Attribute& attribute, const Statement& row, VARIANT& value)
{
    if (row.IsNull(0))
        return S_FALSE;
    switch (attribute.type)
    {
    case ColumnType::Object:
        value.punkVal = HostDataObject::Make(core, *FindKind(attribute.target), row.Integer(0)).detach();
        value.vt = VT_UNKNOWN;
        break;
    case ColumnType::Number:
        value.lVal = static_cast<LONG>(row.Integer(0));
        value.vt = VT_I4;
        break;
    case ColumnType::Flag:
        value.boolVal = row.Integer(0) ? VARIANT_TRUE : VARIANT_FALSE;
        value.vt = VT_BOOL;
        break;
    case ColumnType::Date:
    case ColumnType::Text:
        value.bstrVal = Bstr(FromUtf8(row.Text(0))).detach();
        value.vt = VT_BSTR;
        break;
    }
    return S_OK;
}
} // namespace refhost
