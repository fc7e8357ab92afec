#include "MemoryQuery.h"

namespace
{
std::wstring WithoutEnd(std::wstring_view id)
{
    return std::wstring(id.substr(0, id.find_first_of(L");")));
}
} // namespace

HRESULT MemoryQuery::QueryInterface(REFIID iid, void** result)
{
    if (m_record.recordingQueries && iid == __uuidof(IQP_Query))
        m_record.Record("QueryInterface(IQP_Query)");
    return CountedObject::QueryInterface(iid, result);
}

HRESULT MemoryQuery::ResetSearch(LONG onlyWhereClause)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record("ResetSearch(" + std::to_string(onlyWhereClause) + ")");
    return resetStatus;
}

HRESULT MemoryQuery::SetSearchTable(BSTR table)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record("SetSearchTable(" + Utf8Of(table) + ")");
    return tableStatus;
}

HRESULT MemoryQuery::SetSearchCatenation(LONG catenation)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record("SetSearchCatenation(" + std::to_string(catenation) + ")");
    return catenationStatus;
}

HRESULT MemoryQuery::SetSearchAttribute(BSTR attribute, LONG comparison, VARIANT value, LONG catenation)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
    {
        m_record.Record("SetSearchAttribute(" + Utf8Of(attribute) + ", " + std::to_string(comparison) + ", " +
                        m_record.Describe(value) + ", " + std::to_string(catenation) + ")");
    }
    return criterionStatus;
}

HRESULT MemoryQuery::SetOrderAttribute(BSTR attribute, LONG ascending)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record("SetOrderAttribute(" + Utf8Of(attribute) + ", " + std::to_string(ascending) + ")");
    return orderStatus;
}

HRESULT MemoryQuery::GetSearchResult(IEnumBaseDataObject** found)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record("GetSearchResult()");
    if (result)
    {
        result->Rewind();
        result->AddRef();
    }
    *found = result.get();
    return resultStatus;
}

HRESULT MemoryQuery::GetObjectById(BSTR id, IUnknown** object)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record("GetObjectById(" + Utf8OrNull(id) + ")");
    return script.Run("GetObjectById", [&](const ScriptedCall& scripted) {
        *object = nullptr;
        const auto found = m_objects.find(WithoutEnd({id, SysStringLen(id)}));
        if (found == m_objects.end())
            return S_FALSE;
        if (!scripted.givesNull)
            found->second.object.copyTo(object);
        return found->second.status;
    });
}

MemoryQuery* MemoryQuery::Set(std::wstring_view id, IUnknown* object, HRESULT status)
{
    m_objects[WithoutEnd(id)] = {ComPtr(object), status};
    return this;
}

MemoryQuery* MemoryQuery::Set(std::wstring_view id, const ComPtr<MemoryObject>& object, HRESULT status)
{
    return Set(id, static_cast<IQP_BaseDataObject*>(object.get()), status);
}

void MemoryQuery::Clear()
{
    result.reset();
    m_objects.clear();
}
