#include "XInitValueWrapper.h"

#include "ComException.h"

#include <new>
#include <utility>

namespace
{
std::wstring_view NameOf(const wchar_t* name) noexcept
{
    return name ? std::wstring_view(name) : std::wstring_view();
}

/// Writes `copy`, an uninitialised variant, in any case. Returns the status of the copying.
HRESULT CopyValue(const VARIANT& value, VARIANT& copy) noexcept
{
    VariantInit(&copy);
    return VariantCopyInd(&copy, const_cast<VARIANT*>(&value));
}

/// Writes `target` only when all of the record could be copied. Returns E_OUTOFMEMORY or the status of the
/// copying of the value.
HRESULT CopyRecord(std::wstring_view name, const VARIANT& value, tagINITVALUE& target) noexcept
{
    VARIANT copy;
    const HRESULT status = CopyValue(value, copy);
    if (status < 0)
        return status;
    const BSTR nameCopy = SysAllocStringLen(name.data(), static_cast<UINT>(name.size()));
    if (!nameCopy)
    {
        VariantClear(&copy);
        return E_OUTOFMEMORY;
    }
    target = {nameCopy, copy};
    return S_OK;
}
} // namespace

XInitValueWrapper::XInitValueWrapper(ULONG count, const tagINITVALUE* values)
try
{
    if (!values)
        return;
    m_entries.reserve(count);
    m_places.reserve(count);
    for (const tagINITVALUE* record = values; record != values + count; ++record)
    {
        m_entries.push_back({NameOf(record->bstrParamName), &record->varValue, nullptr});
        m_places.emplace(m_entries.back().name, m_entries.size() - 1);
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
    if (CopyValue(*m_entries[index].value, copy) < 0)
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
        Replace(m_entries[index], value);
    else
        Add(name, value);
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
        const HRESULT status = CopyRecord(entry.name, *entry.value, array[made]);
        if (status == E_OUTOFMEMORY)
        {
            FreeStruct(made, array);
            return false;
        }
        made += status < 0 ? 0 : 1;
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

void XInitValueWrapper::Add(const wchar_t* name, const VARIANT& value)
{
    // Room first, so that the last step cannot fail.
    if (m_entries.size() == m_entries.capacity())
        m_entries.reserve(2 * m_entries.size() + 8);
    Own& own = m_own.emplace_back(Own{XQPComBSTR(name), XQPComVariant(value)});
    const std::wstring_view ownName = own.name.View();
    try
    {
        m_places.emplace(ownName, m_entries.size());
    }
    catch (...)
    {
        m_own.pop_back();
        throw;
    }
    m_entries.push_back({ownName, &own.value.Value(), &own});
}

void XInitValueWrapper::Replace(Entry& entry, const VARIANT& value)
{
    if (entry.own)
    {
        entry.own->value = value;
        return;
    }
    entry.own = &m_own.emplace_back(Own{{}, XQPComVariant(value)});
    entry.value = &entry.own->value.Value();
}

std::size_t XInitValueWrapper::IndexOf(const wchar_t* name) const noexcept
{
    const auto found = m_places.find(NameOf(name));
    return found == m_places.end() ? m_entries.size() : found->second;
}
