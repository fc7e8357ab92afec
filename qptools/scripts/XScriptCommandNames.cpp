#include "XScriptCommandNames.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

namespace qptools
{

namespace
{

constexpr int kFirstSuffix = 2;

XQPComBSTR WithSuffix(std::wstring_view name, int number)
{
    std::wstring text(name);
    text += L'(';
    text += std::to_wstring(number);
    text += L')';
    return {text.data(), static_cast<int>(text.size())};
}

} // namespace

bool XScriptCommandNames::Before::operator()(BSTR first, BSTR second) const noexcept
{
    return VarBstrCmp(first, second, LOCALE_USER_DEFAULT, 0) == static_cast<HRESULT>(VARCMP_LT);
}

XScriptCommandNames::XScriptCommandNames(const std::vector<ScriptCommand>& commands)
{
    OrderNames(commands);
    for (std::size_t i = 0; i < commands.size(); ++i)
        Place(commands[i], m_places[m_placeOfCommand[i]]);
}

void XScriptCommandNames::OrderNames(const std::vector<ScriptCommand>& commands)
{
    using Name = std::pair<BSTR, std::size_t>;
    std::vector<Name> names;
    names.reserve(commands.size());
    for (const ScriptCommand& command : commands)
        names.emplace_back(command.name, names.size());
    // Stable, so that among equal names the one that came first gives the place its text.
    std::stable_sort(names.begin(), names.end(),
                     [](const Name& first, const Name& second)
                     { return Before()(first.first, second.first); });

    m_placeOfCommand.resize(commands.size());
    m_places.reserve(commands.size());
    for (const auto& [name, index] : names)
    {
        if (m_places.empty() || Before()(m_places.back().name, name))
            m_places.push_back({name, nullptr});
        m_placeOfCommand[index] = m_places.size() - 1;
    }
}

void XScriptCommandNames::Place(const ScriptCommand& command, NamedCommand& place)
{
    if (!place.command || command.isMacro)
        place.command = &command;
    else
        PlaceUnderMadeName(command);
}

void XScriptCommandNames::PlaceUnderMadeName(const ScriptCommand& command)
{
    int& suffix = m_nextSuffix.try_emplace(command.name.View(), kFirstSuffix).first->second;
    while (!TryPlace(command, WithSuffix(command.name.View(), suffix++)))
    {
    }
}

bool XScriptCommandNames::TryPlace(const ScriptCommand& command, XQPComBSTR&& candidate)
{
    if (NamedCommand* place = FindPlace(candidate))
    {
        if (place->command)
            return false;
        place->name = m_placedNames.emplace_back(std::move(candidate));
        place->command = &command;
        return true;
    }
    const auto next = m_madeNames.lower_bound(candidate);
    if (next != m_madeNames.end() && !Before()(candidate, next->first))
        return false;
    m_madeNames.emplace_hint(next, std::move(candidate), &command);
    return true;
}

NamedCommand* XScriptCommandNames::FindPlace(BSTR name)
{
    const auto place =
        std::lower_bound(m_places.begin(), m_places.end(), name,
                         [](const NamedCommand& named, BSTR text) { return Before()(named.name, text); });
    return place != m_places.end() && !Before()(name, place->name) ? &*place : nullptr;
}

std::vector<NamedCommand> XScriptCommandNames::InOrder() const
{
    if (m_madeNames.empty())
        return m_places;
    std::vector<NamedCommand> made;
    made.reserve(m_madeNames.size());
    for (const auto& [name, command] : m_madeNames)
        made.push_back({name, command});
    std::vector<NamedCommand> all;
    all.reserve(m_places.size() + made.size());
    std::merge(m_places.begin(), m_places.end(), made.begin(), made.end(), std::back_inserter(all),
               [](const NamedCommand& first, const NamedCommand& second)
               { return Before()(first.name, second.name); });
    return all;
}

} // namespace qptools
