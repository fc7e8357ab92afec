// One search as SQL text, assembled in the order of the calls and never corrected.
#pragma once

#include "Database.h"
#include "Schema.h"

#include <string>
#include <vector>

namespace refhost
{
/// What precedes a criterion or separates criteria. The values are those of the search interface.
enum class Catenation
{
    None = 0,
    And = 1,
    Or = 2,
    Open = 4,
    Close = 8,
    CloseAnd = 9
};

/// A misplaced bracket or operator stays where it was put, so that the database rejects the search.
class SearchText
{
public:
    const Kind* Table() const { return m_table; }
    void SetTable(const Kind* table) { m_table = table; }

    /// Clears criteria and brackets; with `all` also table and order.
    void Reset(bool all);

    void Add(Catenation catenation);

    /// "column = value", or "column IS NULL" for no value. `before` (None, And or Or) joins the criterion to
    /// what precedes it; the first criterion has none. None between two adjacent criteria means And.
    void AddCriterion(const Attribute& column, const SqlValue& value, Catenation before);

    /// A criterion that matches no row.
    void AddImpossible(const Attribute& column, Catenation before);

    /// Sorts by that column; rows with equal values keep the order of their numbers.
    void SetOrder(const Attribute& column, bool ascending);

    std::string Sql() const;
    const std::vector<SqlValue>& Parameters() const { return m_parameters; }

private:
    void Join(Catenation before);
    void Append(const std::string& text);

    const Kind* m_table = nullptr;
    std::string m_where;
    bool m_afterCriterion = false;
    std::vector<SqlValue> m_parameters;
    std::string m_order;
};
} // namespace refhost
