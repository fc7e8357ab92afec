#include "XScriptCommandNames.h"

#include "ComException.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace qptools
{
namespace
{
constexpr int kFirstSuffix = 2;

/// "Name(12)", for numbers above zero.
XQPComBSTR WithSuffix(std::wstring_view name, int number)
{
    wchar_t suffix[16];
    wchar_t* first = std::end(suffix);
    *--first = L')';
    for (; number > 0; number /= 10)
        *--first = static_cast<wchar_t>(L'0' + number % 10);
    *--first = L'(';
    const std::wstring_view tail(first, static_cast<std::size_t>(std::end(suffix) - first));
    const BSTR text = SysAllocStringLen(nullptr, static_cast<UINT>(name.size() + tail.size()));
    if (!text)
        ThrowOutOfMemory();
    std::copy(tail.begin(), tail.end(), std::copy(name.begin(), name.end(), text));
    XQPComBSTR made;
    made.Attach(text);
    return made;
}

HRESULT CompareNames(BSTR first, BSTR second) noexcept
{
    return VarBstrCmp(first, second, LOCALE_USER_DEFAULT, 0);
}
} // namespace

bool XScriptCommandNames::Before::operator()(BSTR first, BSTR second) const noexcept
{
    return CompareNames(first, second) == static_cast<HRESULT>(VARCMP_LT);
}

XScriptCommandNames::XScriptCommandNames(const std::vector<ScriptCommand>& commands)
{
    if (OrderNames(commands))
        return;
    MergeEqualNames(commands);
    for (std::size_t i = 0; i < commands.size(); ++i)
        Place(commands[i], m_placeOfCommand[i]);
    MergeMadeNames();
}

/// Puts every command in the place of its name. Returns true if all names are different, and then nothing is
/// left to be done: whichever two names end up side by side were compared on the way.
bool XScriptCommandNames::OrderNames(const std::vector<ScriptCommand>& commands)
{
    m_places.reserve(commands.size());
    for (const ScriptCommand& command : commands)
        m_places.push_back({command.name.Text(), &command});
    bool allDifferent = true;
    // Stable, so that among equal names the one that came first gives the place its text.
    std::stable_sort(m_places.begin(), m_places.end(),
                     [&allDifferent](const NamedCommand& first, const NamedCommand& second) {
                         const HRESULT order = CompareNames(first.name, second.name);
                         allDifferent = allDifferent && order != static_cast<HRESULT>(VARCMP_EQ);
                         return order == static_cast<HRESULT>(VARCMP_LT);
                     });
    return allDifferent;
}

/// Leaves one free place for each different name, and notes which command it belongs to.
void XScriptCommandNames::MergeEqualNames(const std::vector<ScriptCommand>& commands)
{
    m_placeOfCommand.resize(commands.size());
    std::size_t count = 0;
    for (const NamedCommand& named : m_places)
    {
        const auto index = static_cast<std::size_t>(named.command - commands.data());
        if (count == 0 || Before()(m_places[count - 1], named))
            m_places[count++] = {named.name, nullptr};
        m_placeOfCommand[index] = count - 1;
    }
    m_places.resize(count);
}

void XScriptCommandNames::Place(const ScriptCommand& command, std::size_t place)
{
    if (!m_places[place].command || command.isMacro)
        m_places[place].command = &command;
    else
        PlaceUnderMadeName(command, place);
}

void XScriptCommandNames::PlaceUnderMadeName(const ScriptCommand& command, std::size_t ownPlace)
{
    const std::wstring_view name = command.name.View();
    const Repeats none{kFirstSuffix, m_madeNames.end()};
    Repeats& repeats = m_repeats.try_emplace(name, none).first->second;
    while (!TryPlace(command, WithSuffix(name, repeats.nextSuffix++), ownPlace, repeats))
    {
    }
}

bool XScriptCommandNames::TryPlace(const ScriptCommand& command, XQPComBSTR&& candidate, std::size_t ownPlace,
                                   Repeats& repeats)
{
    if (NamedCommand* place = FindPlace(candidate, ownPlace))
    {
        if (place->command)
            return false;
        place->name = m_placedNames.emplace_back(std::move(candidate));
        place->command = &command;
        return true;
    }
    const std::size_t before = m_madeNames.size();
    const auto made = m_madeNames.try_emplace(repeats.afterLast, std::move(candidate), &command);
    repeats.afterLast = std::next(made);
    return m_madeNames.size() > before;
}

/// The place of `name`, null without one. `likelyBefore` is the place that most likely comes right before it.
NamedCommand* XScriptCommandNames::FindPlace(BSTR name, std::size_t likelyBefore)
{
    const NamedCommand sought{name, nullptr};
    const auto begin = m_places.begin() + static_cast<std::ptrdiff_t>(likelyBefore);
    if (Before()(*begin, sought) && (begin + 1 == m_places.end() || Before()(sought, begin[1])))
        return nullptr;
    const auto place = std::lower_bound(m_places.begin(), m_places.end(), sought, Before());
    return place != m_places.end() && !Before()(sought, *place) ? &*place : nullptr;
}

void XScriptCommandNames::MergeMadeNames()
{
    if (m_madeNames.empty())
        return;
    std::vector<NamedCommand> made;
    made.reserve(m_madeNames.size());
    for (const auto& [name, command] : m_madeNames)
        made.push_back({name, command});
    std::vector<NamedCommand> all;
    all.reserve(m_places.size() + made.size());
    std::merge(m_places.begin(), m_places.end(), made.begin(), made.end(), std::back_inserter(all), Before());
    m_places = std::move(all);
}
} // namespace qptools
