#include "HostQuery.h"

#include "HostCall.h"
#include "HostDataObject.h"
#include "HostEnumerator.h"
#include "HostText.h"
#include "HostVariant.h"
#include "ObjectId.h"
#include "SqlVariant.h"

#include <optional>

namespace refhost
{
namespace
{
/// The only supported comparison.
constexpr LONG kEquals = 1;

bool IsForeign(const PlantCore& core, const VARIANT& value)
{
    if (!IsReference(value) || !value.punkVal)
        return false;
    const ComPtr<HostDataObject> object = HostDataObject::From(value.punkVal);
    return !object || !object->IsOf(core);
}
} // namespace

HostQuery::HostQuery(Core core) : m_core(std::move(core)) {}

ComPtr<IQP_Query> HostQuery::Make(const Core& core)
{
    return ComPtr<IQP_Query>(new HostQuery(core));
}

template <class Outputs, class Body, class... Arguments>
HRESULT HostQuery::Call(const char* method, const Outputs& outputs, Body&& body,
                        const Arguments&... arguments) noexcept
{
    return HostCall(
        *m_core, method, [&] { return CallText(method, {}, arguments...); }, outputs, body);
}

const Attribute& HostQuery::Column(BSTR name) const
{
    Require(m_search.Table() != nullptr);
    const Attribute* column = m_search.Table()->FindColumn(Utf8FromWide(TextOf(name)));
    Require(column != nullptr);
    return *column;
}

HRESULT HostQuery::SetSearchTable(BSTR table)
{
    return Call(
        "IQP_Query::SetSearchTable", std::tuple(),
        [&] {
            const Kind* kind = FindKind(Utf8FromWide(TextOf(table)));
            Require(kind != nullptr);
            m_search.SetTable(kind);
            return S_OK;
        },
        table);
}

HRESULT HostQuery::SetSearchCatenation(LONG catenation)
{
    return Call(
        "IQP_Query::SetSearchCatenation", std::tuple(),
        [&] {
            Require(catenation == 1 || catenation == 2 || catenation == 4 || catenation == 8 ||
                    catenation == 9);
            m_search.Add(static_cast<Catenation>(catenation));
            return S_OK;
        },
        catenation);
}

HRESULT HostQuery::SetSearchAttribute(BSTR column, LONG operation, VARIANT value, LONG catenation)
{
    return Call(
        "IQP_Query::SetSearchAttribute", std::tuple(),
        [&] {
            const Attribute& known = Column(column);
            Require(operation == kEquals && catenation >= 0 && catenation <= 2);
            AddCriterion(known, value, static_cast<Catenation>(catenation));
            return S_OK;
        },
        column, operation, value, catenation);
}

/// A null BSTR is the empty text, not a missing value.
void HostQuery::AddCriterion(const Attribute& column, const VARIANT& value, Catenation before)
{
    const Variant direct = Resolved(value);
    const bool wantsObject = column.type == ColumnType::Object;
    Require(IsNothing(direct.get()) || IsReference(direct.get()) == wantsObject);
    if (IsForeign(*m_core, direct.get()))
        m_search.AddImpossible(column, before);
    else
        m_search.AddCriterion(column, ToColumn(*m_core, column, direct.get()), before);
}

HRESULT HostQuery::GetSearchResult(IEnumBaseDataObject** result)
{
    return Call("IQP_Query::GetSearchResult", std::tuple(Out{result}), [&] {
        *result = Search().detach();
        return S_OK;
    });
}

ComPtr<IEnumBaseDataObject> HostQuery::Search()
{
    if (!m_search.Table())
        throw PlantError("no table is set to search in");
    m_core->lastSql = m_search.Sql();
    m_core->lastError.clear();
    Statement statement(m_core->database, m_core->lastSql);
    int parameter = 0;
    for (const SqlValue& value : m_search.Parameters())
        statement.Bind(++parameter, value);
    return HostEnumerator::Make(m_core, *m_search.Table(), statement);
}

HRESULT HostQuery::ResetSearch(LONG onlyWhereClause)
{
    return Call(
        "IQP_Query::ResetSearch", std::tuple(),
        [&] {
            m_search.Reset(onlyWhereClause == 0);
            return S_OK;
        },
        onlyWhereClause);
}

HRESULT HostQuery::SetOrderAttribute(BSTR column, LONG ascending)
{
    return Call(
        "IQP_Query::SetOrderAttribute", std::tuple(),
        [&] {
            m_search.SetOrder(Column(column), ascending != 0);
            return S_OK;
        },
        column, ascending);
}

HRESULT HostQuery::GetObjectById(BSTR id, IUnknown** object)
{
    return Call(
        "IQP_Query::GetObjectById", std::tuple(Out{object}),
        [&] {
            const std::optional<long long> number = NumberOfId(Utf8FromWide(TextOf(id)));
            Require(number.has_value());
            Statement statement(m_core->database, R"(SELECT "kind" FROM "object" WHERE "id" = ?1)");
            if (!statement.Bind(1, *number).Step())
                return S_FALSE;
            *object = HostDataObject::Make(m_core, *FindKind(statement.Text(0)), *number).detach();
            return S_OK;
        },
        id);
}
} // namespace refhost
