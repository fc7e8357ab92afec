#include "SearchText.h"

#include "PlantCore.h"

namespace refhost
{
namespace
{
const char* Words(Catenation catenation)
{
    switch (catenation)
    {
    case Catenation::And:
        return "AND";
    case Catenation::Or:
        return "OR";
    case Catenation::Open:
        return "(";
    case Catenation::Close:
        return ")";
    case Catenation::CloseAnd:
        return ") AND";
    case Catenation::None:
        break;
    }
    return "";
}
} // namespace

void SearchText::Reset(bool all)
{
    m_where.clear();
    m_afterCriterion = false;
    m_parameters.clear();
    if (!all)
        return;
    m_table = nullptr;
    m_order.clear();
}

void SearchText::Append(const std::string& text)
{
    m_where += m_where.empty() ? "" : " ";
    m_where += text;
}

void SearchText::Add(Catenation catenation)
{
    Append(Words(catenation));
    m_afterCriterion = false;
}

void SearchText::Join(Catenation before)
{
    if (m_where.empty())
        return;
    if (before != Catenation::None)
        Add(before);
    else if (m_afterCriterion)
        Add(Catenation::And);
}

void SearchText::AddCriterion(const Attribute& column, const SqlValue& value, Catenation before)
{
    Join(before);
    const bool none = std::holds_alternative<std::monostate>(value);
    Append(Quoted(column.column) + (none ? " IS NULL" : " = ?"));
    if (!none)
        m_parameters.push_back(value);
    m_afterCriterion = true;
}

void SearchText::AddImpossible(const Attribute& column, Catenation before)
{
    Join(before);
    Append(Quoted(column.column) + " = NULL");
    m_afterCriterion = true;
}

void SearchText::SetOrder(const Attribute& column, bool ascending)
{
    m_order = Quoted(column.column) + (ascending ? " ASC, " : " DESC, ");
}

std::string SearchText::Sql() const
{
    std::string sql = "SELECT \"id\" FROM " + Quoted(m_table->table);
    if (!m_where.empty())
        sql += " WHERE " + m_where;
    return sql + " ORDER BY " + m_order + "\"id\"";
}
} // namespace refhost
