#include "SelectParameters.h"

void CSelectParameters::Add(const std::wstring& name, const wchar_t* text)
{
    VARIANT value{};
    value.vt = VT_BSTR;
    value.bstrVal = Keep(text);
    m_records.push_back({Keep(name.c_str()), value});
}

void CSelectParameters::Add(const std::wstring& name, IUnknown* object)
{
    VARIANT value{};
    value.vt = VT_UNKNOWN;
    value.punkVal = object;
    m_records.push_back({Keep(name.c_str()), value});
}

void CSelectParameters::AddEntry(const wchar_t* prompt, IUnknown* object)
{
    const std::wstring number = std::to_wstring(m_entries++);
    Add(L"Prompt" + number, prompt);
    Add(L"Object" + number, object);
}

BSTR CSelectParameters::Keep(const wchar_t* text)
{
    return m_texts.emplace_back(text).get();
}
