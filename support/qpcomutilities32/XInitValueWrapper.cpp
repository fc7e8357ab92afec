#include "XInitValueWrapper.h"

#include "ComException.h"

#include <bit>
#include <functional>
#include <new>

namespace
{
/// No entry: the greatest index, which no array reaches.
constexpr std::uint32_t kFree = 0xFFFFFFFF;

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
    for (const tagINITVALUE* record = values; record != values + count; ++record)
        m_entries.push_back({NameOf(record->bstrParamName), &record->varValue, nullptr});
    MakeTable(count);
}
catch (const std::bad_alloc&)
{
    ThrowOutOfMemory();
}

bool XInitValueWrapper::GetData(const wchar_t* name, VARIANT& value) const noexcept
{
    const Entry* const entry = Find(name);
    VARIANT copy;
    if (!entry || CopyValue(*entry->value, copy) < 0)
        return false;
    VariantClear(&value);
    value = copy;
    return true;
}

void XInitValueWrapper::SetData(const wchar_t* name, const VARIANT& value)
try
{
    if (const Entry* const entry = Find(name))
        Replace(m_entries[static_cast<std::size_t>(entry - m_entries.data())], value);
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
    // Room first, so that the last steps cannot fail.
    const std::size_t count = m_entries.size() + 1;
    if (count > m_entries.capacity())
        m_entries.reserve(2 * count);
    if (2 * count > m_table.size())
        MakeTable(2 * count);
    const Own& own = m_own.emplace_back(Own{XQPComBSTR(name), XQPComVariant(value)});
    m_entries.push_back({own.name.View(), &own.value.Value(), &m_own.back()});
    Enter(count - 1);
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

const XInitValueWrapper::Entry* XInitValueWrapper::Find(const wchar_t* name) const noexcept
{
    if (m_table.empty())
        return nullptr;
    const std::uint32_t index = m_table[SlotOf(NameOf(name))];
    return index == kFree ? nullptr : &m_entries[index];
}

std::size_t XInitValueWrapper::SlotOf(std::wstring_view name) const noexcept
{
    const std::size_t last = m_table.size() - 1;
    std::size_t slot = std::hash<std::wstring_view>()(name) & last;
    while (m_table[slot] != kFree && m_entries[m_table[slot]].name != name)
        slot = (slot + 1) & last;
    return slot;
}

void XInitValueWrapper::MakeTable(std::size_t entries)
{
    std::vector<std::uint32_t> table(std::bit_ceil(2 * entries), kFree);
    m_table.swap(table);
    for (std::size_t index = 0; index < m_entries.size(); ++index)
        Enter(index);
}

/// Of two entries of one name the first stays.
void XInitValueWrapper::Enter(std::size_t index) noexcept
{
    std::uint32_t& place = m_table[SlotOf(m_entries[index].name)];
    if (place == kFree)
        place = static_cast<std::uint32_t>(index);
}
