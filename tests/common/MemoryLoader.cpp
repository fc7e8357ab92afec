#include "MemoryLoader.h"

#include <objbase.h>

#include <algorithm>

MemoryLoader* MemoryLoader::Entry(const wchar_t* name, const MemoryValue& value)
{
    m_reply.push_back(
        {name ? std::optional<std::wstring>(name) : std::nullopt, XQPComVariant(value.Value())});
    return this;
}

MemoryLoader* MemoryLoader::Macros(std::initializer_list<const wchar_t*> names)
{
    int number = 0;
    for (const wchar_t* name : names)
        Entry((L"Macro" + std::to_wstring(++number)).c_str(), name);
    return this;
}

MemoryLoader* MemoryLoader::Clear()
{
    m_reply.clear();
    return this;
}

HRESULT MemoryLoader::QueryInterface(REFIID iid, void** result)
{
    if (iid == __uuidof(IVBALoaderManager) && !offersLoader)
        return Refuse(result);
    return CountedObject::QueryInterface(iid, result);
}

HRESULT MemoryLoader::Reserved1()
{
    m_record.Record("loader.Reserved1()");
    return E_NOTIMPL;
}

HRESULT MemoryLoader::Invoke(ULONG requestCount, struct tagINITVALUE* request, ULONG* resultCount,
                             struct tagINITVALUE** results)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record("loader.Invoke(" + RequestText(requestCount, request) + ")");
    *resultCount = count.value_or(static_cast<ULONG>(m_reply.size()));
    *results = givesArray ? Reply(*resultCount) : nullptr;
    return status;
}

std::string MemoryLoader::RequestText(ULONG requestCount, const tagINITVALUE* request) const
{
    std::string text;
    for (ULONG index = 0; index < requestCount; ++index)
    {
        const tagINITVALUE& entry = request[index];
        text += (index == 0 ? "" : ", ") + Utf8OrNull(entry.bstrParamName) + " = ";
        text += entry.varValue.vt == (VT_ARRAY | VT_VARIANT) ? ArrayText(entry.varValue.parray)
                                                             : m_record.Describe(entry.varValue);
    }
    return text;
}

std::string MemoryLoader::ArrayText(SAFEARRAY* array) const
{
    if (!array)
        return "ARRAY null";
    LONG low = 0;
    LONG high = -1;
    SafeArrayGetLBound(array, 1, &low);
    SafeArrayGetUBound(array, 1, &high);
    if (SafeArrayGetDim(array) != 1 || low != 0)
        return "ARRAY of another shape";
    std::vector<std::string> elements;
    for (LONG index = low; index <= high; ++index)
    {
        XQPComVariant element;
        SafeArrayGetElement(array, &index, &element);
        const bool object = element.Type() == VT_UNKNOWN;
        elements.push_back(object ? m_record.NameOf(element.Value().punkVal)
                                  : m_record.Describe(element.Value()));
    }
    std::sort(elements.begin(), elements.end());
    std::string text;
    for (const std::string& element : elements)
        text += (text.empty() ? "" : ", ") + element;
    return "ARRAY {" + text + "}";
}

tagINITVALUE* MemoryLoader::Reply(ULONG size) const
{
    auto* array = static_cast<tagINITVALUE*>(CoTaskMemAlloc(std::max<ULONG>(size, 1) * sizeof(tagINITVALUE)));
    for (ULONG index = 0; index < size; ++index)
    {
        array[index] = {};
        if (index >= m_reply.size())
            continue;
        const ReplyEntry& entry = m_reply[index];
        array[index].bstrParamName = entry.name ? SysAllocString(entry.name->c_str()) : nullptr;
        VariantCopy(&array[index].varValue, const_cast<VARIANT*>(&entry.value.Value()));
    }
    return array;
}
