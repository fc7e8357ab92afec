#include "XScriptCommandNames.h"

#include <algorithm>
#include <map>
#include <string>
#include <unordered_map>

namespace qptools
{
namespace
{
HRESULT Compare(BSTR first, BSTR second) noexcept
{
    return VarBstrCmp(first, second, LOCALE_USER_DEFAULT, 0);
}

struct Before
{
    bool operator()(BSTR first, BSTR second) const noexcept
    {
        return Compare(first, second) == static_cast<HRESULT>(VARCMP_LT);
    }
};
using Rows = std::map<BSTR, const ScriptCommandRow*, Before>;

Bstr WithSuffix(const std::wstring& name, int number)
{
    return Bstr(name + L'(' + std::to_wstring(number) + L')');
}

/// Inserts `row` under its name or, if that is in use, under the name with a suffix. `nextSuffix` is the
/// first suffix not yet tried for this text; 1 is the name without one. A name once in use stays in use, so
/// smaller suffixes are not tried again.
void Place(ScriptCommandRow& row, const std::wstring& name, int& nextSuffix, Rows& rows)
{
    if (nextSuffix == 1)
    {
        nextSuffix = 2;
        if (rows.try_emplace(row.name.get(), &row).second)
            return;
    }
    for (;;)
    {
        Bstr candidate = WithSuffix(name, nextSuffix++);
        if (!rows.try_emplace(candidate.get(), &row).second)
            continue;
        row.name = std::move(candidate);
        return;
    }
}
} // namespace

/// A sort takes about half as long as a map, so the map is built only if two names are equal. The sort finds
/// out, because it compares any two names that end up adjacent.
std::vector<XScriptCommandNames::Named> XScriptCommandNames::InOrder()
{
    std::vector<Named> order;
    order.reserve(m_rows.size());
    for (const ScriptCommandRow& row : m_rows)
        order.push_back({row.name.get(), &row});
    bool areEqual = false;
    std::stable_sort(order.begin(), order.end(), [&areEqual](const Named& first, const Named& second) {
        const HRESULT compared = Compare(first.name, second.name);
        areEqual = areEqual || compared == static_cast<HRESULT>(VARCMP_EQ);
        return compared == static_cast<HRESULT>(VARCMP_LT);
    });
    return areEqual ? Unique() : order;
}

std::vector<XScriptCommandNames::Named> XScriptCommandNames::Unique()
{
    Rows rows;
    std::unordered_map<std::wstring, int> suffixes;
    for (ScriptCommandRow& row : m_rows)
    {
        const std::wstring name(row.name.View());
        if (row.target.Type() == VT_BSTR)
            rows.try_emplace(row.name.get()).first->second = &row;
        else
            Place(row, name, suffixes.try_emplace(name, 1).first->second, rows);
    }
    std::vector<Named> order;
    order.reserve(rows.size());
    for (const auto& [name, row] : rows)
        order.push_back({name, row});
    return order;
}
} // namespace qptools
