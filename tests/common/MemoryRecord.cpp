#include "MemoryRecord.h"

#include "Utf8.h"

#include <objbase.h>

std::string Utf8Of(BSTR text)
{
    return Utf8FromWide({text, SysStringLen(text)});
}

std::string Utf8OrNull(BSTR text)
{
    return text ? Utf8Of(text) : "null";
}

std::string TextOfGuid(REFGUID guid)
{
    wchar_t text[39] = L"";
    StringFromGUID2(guid, text, 39);
    return Utf8FromWide(text);
}

int MemoryRecord::s_depth = 0;

void MemoryRecord::Record(const std::string& call)
{
    calls.push_back(call);
    if (onCall)
        onCall(call);
}

void MemoryRecord::Name(IUnknown* object, const std::string& name)
{
    if (recording)
        m_names[object] = name;
}

void MemoryRecord::Forget(IUnknown* object)
{
    if (!m_names.empty())
        m_names.erase(object);
}

std::string MemoryRecord::NameOf(IUnknown* object) const
{
    if (!object)
        return "null";
    const auto found = m_names.find(object);
    return found == m_names.end() ? "an unknown object" : found->second;
}

std::string MemoryRecord::Describe(const VARIANT& value) const
{
    switch (value.vt)
    {
    case VT_EMPTY:
        return "EMPTY";
    case VT_BSTR:
        return value.bstrVal ? "BSTR '" + Utf8Of(value.bstrVal) + "'" : "BSTR null";
    case VT_UNKNOWN:
        return "UNKNOWN " + NameOf(value.punkVal);
    case VT_I4:
        return "I4 " + std::to_string(value.lVal);
    case VT_BOOL:
        return value.boolVal == VARIANT_TRUE ? "BOOL true" : "BOOL " + std::to_string(value.boolVal);
    default:
        return "type " + std::to_string(value.vt);
    }
}
