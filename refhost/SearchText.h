// One search as SQL, put together in the order of the calls and repaired nowhere.
#pragma once

#include "Database.h"
#include "Schema.h"

#include <string>
#include <vector>

namespace refhost
{
/// What joins a criterion or stands alone between criteria. The numbers are those of the search interface.
enum class Catenation
{
    None = 0,
    And = 1,
    Or = 2,
    Open = 4,
    Close = 8,
    CloseAnd = 9
};

/// A misplaced bracket or operator stays where it was put, so that the database refuses the search.
class SearchText
{
public:
    const Kind* Table() const { return m_table; }
    void SetTable(const Kind* table) { m_table = table; }

    /// Forgets criteria and brackets; with `all` also table and order.
    void Reset(bool all);

    void Add(Catenation catenation);

    /// "column = value"; a value of none asks for rows without a value. `before` (None, And or Or) joins the
    /// criterion to what stands before it; nothing stands before the first. None between two criteria that
    /// stand side by side means And.
    void AddCriterion(const Attribute& column, const SqlValue& value, Catenation before);

    /// A criterion that no row meets.
    void AddImpossible(const Attribute& column, Catenation before);

    /// Sorts by that column; rows with equal values keep the order in which they were made.
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
