// The query of a host in memory.
#pragma once

#include "CallScript.h"
#include "CountedObject.h"
#include "MemoryEnum.h"
#include "MemoryRecord.h"

#include <map>
#include <string>
#include <string_view>

/// The host's query. It answers every search with the enumerator that it was given, and finds the objects
/// that were set by their identifiers.
class MemoryQuery final : public CountedObject<IQP_Query>
{
public:
    explicit MemoryQuery(MemoryRecord& record) : m_record(record) {}

    /// What GetSearchResult hands out, from its beginning; may be null.
    ComPtr<MemoryEnum> result;
    /// What GetSearchResult hands out, along with `result`.
    HRESULT resultStatus = S_OK;
    HRESULT resetStatus = S_OK;
    HRESULT tableStatus = S_OK;
    HRESULT criterionStatus = S_OK;
    HRESULT catenationStatus = S_OK;
    HRESULT orderStatus = S_OK;
    /// The calls of GetObjectById that differ.
    CallScript script;

    /// What GetObjectById answers for that identifier, such as "$12)"; `object` may be null. S_FALSE and null
    /// for one that was never set. An identifier ends before its first ")" or ";".
    MemoryQuery* Set(std::wstring_view id, IUnknown* object, HRESULT status = S_OK);
    MemoryQuery* Set(std::wstring_view id, const ComPtr<MemoryObject>& object, HRESULT status = S_OK);

    /// Releases all objects. For the host.
    void Clear();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;

    HRESULT STDMETHODCALLTYPE ResetSearch(LONG onlyWhereClause) override;
    HRESULT STDMETHODCALLTYPE SetSearchTable(BSTR table) override;
    HRESULT STDMETHODCALLTYPE SetSearchCatenation(LONG catenation) override;
    HRESULT STDMETHODCALLTYPE SetSearchAttribute(BSTR attribute, LONG comparison, VARIANT value,
                                                 LONG catenation) override;
    HRESULT STDMETHODCALLTYPE SetOrderAttribute(BSTR attribute, LONG ascending) override;
    HRESULT STDMETHODCALLTYPE GetSearchResult(IEnumBaseDataObject** found) override;
    HRESULT STDMETHODCALLTYPE GetObjectById(BSTR id, IUnknown** object) override;

private:
    struct ObjectAnswer
    {
        ComPtr<IUnknown> object;
        HRESULT status = S_FALSE;
    };

    ~MemoryQuery() override = default;

    MemoryRecord& m_record;
    std::map<std::wstring, ObjectAnswer> m_objects; ///< by the identifier without its end
};
