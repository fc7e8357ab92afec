#include "XInitValueWrapper.h"

#include "ComException.h"
#include "Variant.h"

#include <new>
#include <utility>

namespace
{
std::wstring_view NameOf(const wchar_t* name) noexcept
{
    return name ? std::wstring_view(name) : std::wstring_view();
}

/// Writes `target` only if the whole record was copied. Returns E_OUTOFMEMORY or the status of copying the
/// value.
HRESULT CopyRecord(std::wstring_view name, const VARIANT& value, tagINITVALUE& target) noexcept
{
    Variant copy;
    const HRESULT status = CopyResolved(value, copy);
    if (status < 0)
        return status;
    const BSTR nameCopy = SysAllocStringLen(name.data(), static_cast<UINT>(name.size()));
    if (!nameCopy)
        return E_OUTOFMEMORY;
    target = {nameCopy, copy.detach()};
    return S_OK;
}
} // namespace

XInitValueWrapper::XInitValueWrapper(ULONG count, const tagINITVALUE* values)
try
{
    if (!values)
        return;
    m_entries.reserve(count);
    m_indexes.reserve(count);
    for (const tagINITVALUE* record = values; record != values + count; ++record)
        Add({NameOf(record->bstrParamName), &record->varValue, nullptr});
}
catch (const std::bad_alloc&)
{
    ThrowOutOfMemory();
}

bool XInitValueWrapper::GetData(const wchar_t* name, VARIANT& value) const noexcept
{
    const Entry* const entry = Find(name);
    Variant copy;
    if (!entry || CopyResolved(*entry->value, copy) < 0)
        return false;
    VariantClear(&value);
    value = copy.detach();
    return true;
}

void XInitValueWrapper::SetData(const wchar_t* name, const VARIANT& value)
try
{
    const auto found = m_indexes.find(NameOf(name));
    if (found == m_indexes.end())
    {
        auto own = std::make_unique<Own>(Own{XQPComBSTR(name), XQPComVariant(value)});
        const std::wstring_view ownName = own->name.View();
        const VARIANT* const ownValue = &own->value.Value();
        Add({ownName, ownValue, std::move(own)});
        return;
    }
    Entry& entry = m_entries[found->second];
    if (entry.own)
    {
        entry.own->value = value;
        return;
    }
    entry.own = std::make_unique<Own>(Own{{}, XQPComVariant(value)});
    entry.value = &entry.own->value.Value();
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

void XInitValueWrapper::Add(Entry entry)
{
    const std::wstring_view name = entry.name;
    m_entries.push_back(std::move(entry));
    try
    {
        m_indexes.try_emplace(name, m_entries.size() - 1);
    }
    catch (...)
    {
        m_entries.pop_back();
        throw;
    }
}

const XInitValueWrapper::Entry* XInitValueWrapper::Find(const wchar_t* name) const noexcept
{
    const auto found = m_indexes.find(NameOf(name));
    return found == m_indexes.end() ? nullptr : &m_entries[found->second];
}
