#include "MemoryQuery.h"

#include "InterfaceAnswer.h"

HRESULT MemoryQuery::QueryInterface(REFIID iid, void** result)
{
    if (m_record.recordingQueries && iid == __uuidof(IQP_Query))
        m_record.Record("QueryInterface(IQP_Query)");
    if (iid == __uuidof(IQP_Query) || iid == __uuidof(IUnknown))
        return Give(static_cast<IQP_Query*>(this), result);
    return Refuse(result);
}

ULONG MemoryQuery::Release()
{
    const ULONG left = --m_count;
    if (left == 0)
        delete this;
    return left;
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

HRESULT MemoryQuery::GetObjectById(BSTR, IUnknown**)
{
    m_record.Record("GetObjectById()");
    return E_NOTIMPL;
}
