#include "CallText.h"

#include "HostDataObject.h"
#include "HostText.h"
#include "HostVariant.h"

#include "Bstr.h"

#include "qptypes.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace refhost
{
namespace
{
template <class... Values>
std::string Formatted(const char* format, Values... values)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

std::string InQuotes(std::string_view text)
{
    std::string out = "\"";
    for (const char c : text)
    {
        if (c == '"' || c == '\\')
            out += '\\';
        if (c == '\n')
            out += "\\n";
        else
            out += c;
    }
    return out + '"';
}

std::string ReferenceText(IUnknown* object)
{
    if (!object)
        return "<null>";
    const ComPtr<HostDataObject> own = HostDataObject::From(object);
    return own ? own->Label() : "<object>";
}

/// The text of a value without VT_BYREF.
std::string PlainText(const VARIANT& value)
{
    switch (value.vt)
    {
    case VT_EMPTY:
        return "<empty>";
    case VT_NULL:
        return "<null value>";
    case VT_BSTR:
        return ArgumentText(value.bstrVal);
    case VT_BOOL:
        return value.boolVal ? "true" : "false";
    case VT_I4:
        return std::to_string(value.lVal);
    case VT_INT:
        return std::to_string(value.intVal);
    case VT_I2:
        return std::to_string(value.iVal);
    case VT_UI4:
        return std::to_string(value.ulVal);
    case VT_R8:
        return Formatted("%g", value.dblVal);
    case VT_ERROR:
        return Formatted("<error 0x%08X>", static_cast<unsigned>(value.scode));
    case VT_UNKNOWN:
    case VT_DISPATCH:
        return ReferenceText(value.punkVal);
    default:
        return Formatted("<type %u>", static_cast<unsigned>(value.vt));
    }
}

std::string CellText(SAFEARRAY* array, LONG row, LONG column, UINT dimensions)
{
    std::array<LONG, 2> index = {row, column};
    if (dimensions == 1)
    {
        Bstr name;
        SafeArrayGetElement(array, index.data(), name.put());
        return ArgumentText(name.get());
    }
    Variant cell;
    SafeArrayGetElement(array, index.data(), cell.put());
    return ArgumentText(cell.get());
}

std::string Joined(const std::vector<std::string>& parts, const char* before, const char* behind)
{
    std::string text = before;
    for (const std::string& part : parts)
        text += (&part == &parts.front() ? "" : ", ") + part;
    return text + behind;
}

/// The elements of an array of variants of one dimension.
std::string SetText(SAFEARRAY* array)
{
    LONG low = 0;
    LONG high = -1;
    if (SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetLBound(array, 1, &low)) ||
        FAILED(SafeArrayGetUBound(array, 1, &high)))
        return "<array>";
    std::vector<std::string> elements;
    for (LONG index = low; index <= high; ++index)
    {
        Variant element;
        SafeArrayGetElement(array, &index, element.put());
        elements.push_back(ArgumentText(element.get()));
    }
    std::sort(elements.begin(), elements.end());
    return Joined(elements, "[", "]");
}
} // namespace

std::string ArgumentList(const std::vector<std::string>& arguments)
{
    return Joined(arguments, "(", ")");
}

std::string ArgumentText(BSTR text)
{
    return text ? InQuotes(Utf8FromWide(TextOf(text))) : "null";
}

std::string ArgumentText(const VARIANT& value)
{
    if (!(value.vt & VT_BYREF))
        return PlainText(value);
    return PlainText(Resolved(value).get());
}

std::string ArgumentText(const GUID& id)
{
    std::string text = Formatted("{%08X-%04X-%04X-", static_cast<unsigned>(id.Data1),
                                 static_cast<unsigned>(id.Data2), static_cast<unsigned>(id.Data3));
    for (int i = 0; i < 8; ++i)
        text += Formatted(i == 2 ? "-%02X" : "%02X", static_cast<unsigned>(id.Data4[i]));
    return text + '}';
}

std::string ArgumentText(const ParameterBag& bag)
{
    std::vector<std::string> parameters;
    for (const tagINITVALUE* entry = bag.values; entry && entry != bag.values + bag.count; ++entry)
    {
        const bool isArray = entry->varValue.vt == (VT_ARRAY | VT_VARIANT) && entry->varValue.parray;
        parameters.push_back(Utf8FromWide(TextOf(entry->bstrParamName)) + " = " +
                             (isArray ? SetText(entry->varValue.parray) : ArgumentText(entry->varValue)));
    }
    return Joined(parameters, "{", "}");
}

std::string ArgumentText(SAFEARRAY** array)
{
    if (!array || !*array)
        return "null";
    const UINT dimensions = SafeArrayGetDim(*array);
    VARTYPE type = VT_EMPTY;
    SafeArrayGetVartype(*array, &type);
    if (dimensions != (type == VT_BSTR ? 1U : 2U) || (type != VT_BSTR && type != VT_VARIANT))
        return "<array>";
    LONG low = 0;
    LONG high = -1;
    LONG column = 0;
    SafeArrayGetLBound(*array, 1, &low);
    SafeArrayGetUBound(*array, 1, &high);
    if (dimensions == 2)
        SafeArrayGetLBound(*array, 2, &column);
    std::string text = "[";
    for (LONG row = low; row <= high; ++row)
    {
        text += row == low ? "" : ", ";
        text += CellText(*array, row, column, dimensions);
        if (dimensions == 2)
            text += " = " + CellText(*array, row, column + 1, dimensions);
    }
    return text + ']';
}
} // namespace refhost
