// The search over a plant: one SQL statement per search.
#pragma once

#include "HostObject.h"
#include "PlantCore.h"
#include "SearchText.h"

#include "ComPtr.h"

#include "qpobjects.h"

namespace refhost
{
class HostQuery final : public HostObject<HostQuery, IQP_Query>
{
public:
    static ComPtr<IQP_Query> Make(const Core& core);

    /// E_INVALIDARG for an unknown table.
    HRESULT STDMETHODCALLTYPE SetSearchTable(BSTR table) override;

    /// 1 AND, 2 OR, 4 an opening and 8 a closing bracket, 9 a closing bracket and AND; E_INVALIDARG for
    /// others.
    HRESULT STDMETHODCALLTYPE SetSearchCatenation(LONG catenation) override;

    /// Adds "column equals value". `operation` is 1; `catenation` is the operator before the criterion: 0
    /// none, 1 AND, 2 OR. An empty value or a null reference matches rows without a value; an object of
    /// another host matches nothing. E_INVALIDARG if no table is set, and for a column, operation, operator
    /// or value type that is not valid.
    HRESULT STDMETHODCALLTYPE SetSearchAttribute(BSTR column, LONG operation, VARIANT value,
                                                 LONG catenation) override;

    /// E_FAIL for a search that the database rejects; see Plant::LastSql and LastError.
    HRESULT STDMETHODCALLTYPE GetSearchResult(IEnumBaseDataObject** result) override;

    /// 0 clears everything, any other number the criteria only.
    HRESULT STDMETHODCALLTYPE ResetSearch(LONG onlyWhereClause) override;

    /// E_INVALIDARG if no table is set or the table has no such column.
    HRESULT STDMETHODCALLTYPE SetOrderAttribute(BSTR column, LONG ascending) override;

    /// An identifier is "$" and the object's number; text from the first ")" or ";" on is ignored. S_FALSE
    /// and null if there is no such object, E_INVALIDARG for any other text.
    HRESULT STDMETHODCALLTYPE GetObjectById(BSTR id, IUnknown** object) override;

private:
    friend class HostObject<HostQuery, IQP_Query>;
    explicit HostQuery(Core core);
    ~HostQuery() = default;

    template <class Outputs, class Body, class... Arguments>
    HRESULT Call(const char* method, const Outputs& outputs, Body&& body,
                 const Arguments&... arguments) noexcept;
    const Attribute& Column(BSTR name) const;
    void AddCriterion(const Attribute& column, const VARIANT& value, Catenation before);
    ComPtr<IEnumBaseDataObject> Search();

    const Core m_core;
    SearchText m_search;
};
} // namespace refhost
