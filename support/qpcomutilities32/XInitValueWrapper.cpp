#include "XInitValueWrapper.h"

#include "ComException.h"

#include <new>
#include <string_view>
#include <utility>

namespace
{
// Writes `target` only when all of the record could be copied.
bool CopyRecord(const wchar_t* name, UINT nameLength, const VARIANT& value, tagINITVALUE& target) noexcept
{
    VARIANT copy;
    VariantInit(&copy);
    if (VariantCopy(&copy, const_cast<VARIANT*>(&value)) < 0)
        return false;
    const BSTR nameCopy = SysAllocStringLen(name, nameLength);
    if (!nameCopy)
    {
        VariantClear(&copy);
        return false;
    }
    target = {nameCopy, copy};
    return true;
}
} // namespace

XInitValueWrapper::XInitValueWrapper(ULONG count, const tagINITVALUE* values)
try
{
    for (ULONG index = 0; values && index < count; ++index)
    {
        Entry entry;
        const HRESULT status = VariantCopyInd(&entry.value, const_cast<VARIANT*>(&values[index].varValue));
        if (status == E_OUTOFMEMORY)
            ThrowOutOfMemory();
        if (status < 0)
            continue;
        entry.name = values[index].bstrParamName;
        Append(std::move(entry));
    }
}
catch (const std::bad_alloc&)
{
    ThrowOutOfMemory();
}

bool XInitValueWrapper::GetData(const wchar_t* name, VARIANT& value) const noexcept
{
    const std::size_t index = IndexOf(name);
    if (index == m_entries.size())
        return false;
    VARIANT copy;
    VariantInit(&copy);
    if (VariantCopy(&copy, const_cast<VARIANT*>(&m_entries[index].value.Value())) < 0)
        return false;
    VariantClear(&value);
    value = copy;
    return true;
}

void XInitValueWrapper::SetData(const wchar_t* name, const VARIANT& value)
try
{
    const std::size_t index = IndexOf(name);
    if (index < m_entries.size())
        m_entries[index].value = value;
    else
        Append({XQPComBSTR(name), XQPComVariant(value)});
}
catch (const std::bad_alloc&)
{
    ThrowOutOfMemory();
}

bool XInitValueWrapper::GetStruct(ULONG& count, tagINITVALUE** values) const noexcept
{
    count = 0;
    if (!values)
        return false;
    *values = nullptr;
    if (m_entries.empty())
        return true;
    auto* array = static_cast<tagINITVALUE*>(CoTaskMemAlloc(m_entries.size() * sizeof(tagINITVALUE)));
    if (!array)
        return false;
    ULONG made = 0;
    for (const Entry& entry : m_entries)
    {
        if (!CopyRecord(entry.name, static_cast<UINT>(entry.name.Length()), entry.value.Value(), array[made]))
        {
            FreeStruct(made, array);
            return false;
        }
        ++made;
    }
    count = made;
    *values = array;
    return true;
}

void XInitValueWrapper::FreeStruct(ULONG count, tagINITVALUE* values) noexcept
{
    if (!values)
        return;
    for (ULONG index = 0; index < count; ++index)
    {
        SysFreeString(values[index].bstrParamName);
        VariantClear(&values[index].varValue);
    }
    CoTaskMemFree(values);
}

void XInitValueWrapper::Append(Entry entry)
{
    // Room first, so that the last step cannot fail.
    if (m_entries.size() == m_entries.capacity())
        m_entries.reserve(2 * m_entries.size() + 8);
    m_places.emplace(std::wstring(entry.name.View()), m_entries.size());
    m_entries.push_back(std::move(entry));
}

std::size_t XInitValueWrapper::IndexOf(const wchar_t* name) const noexcept
{
    const auto found = m_places.find(std::wstring_view(name ? name : L""));
    return found == m_places.end() ? m_entries.size() : found->second;
}
