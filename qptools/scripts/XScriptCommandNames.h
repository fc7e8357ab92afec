// Gives every script command of a result a display name that is unique in it.
#pragma once

#include "ScriptCommand.h"

#include "XQPComBSTR.h"

#include <windows.h>

#include <oleauto.h>

#include <cstddef>
#include <deque>
#include <map>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qptools
{
/// A command under the name that it is shown by. The name is owned by a command of the list or by
/// XScriptCommandNames.
struct NamedCommand
{
    BSTR name = nullptr;
    const ScriptCommand* command = nullptr;
};

/// Names the commands of a list in the list's order, as if each went into a map that is sorted by display
/// name. The user's language says which name comes first and which are the same name.
///
/// - A script whose name is in use gets the first of "Name(2)", "Name(3)" ... that is not.
/// - A macro takes the place of whatever is under its name.
///
/// The names are put in order once, and every text remembers which suffix it tries next, for a name once used
/// stays used: thousands of commands of one name take little longer than as many of different names.
class XScriptCommandNames
{
public:
    /// `commands` must outlive this object. Throws std::bad_alloc and ComException(E_OUTOFMEMORY).
    explicit XScriptCommandNames(const std::vector<ScriptCommand>& commands);

    /// The commands under their names, in the order of names.
    const std::vector<NamedCommand>& InOrder() const noexcept { return m_places; }

private:
    /// The user's order of names.
    struct Before
    {
        bool operator()(BSTR first, BSTR second) const noexcept;
        bool operator()(const NamedCommand& first, const NamedCommand& second) const noexcept
        {
            return (*this)(first.name, second.name);
        }
    };
    using MadeNames = std::map<XQPComBSTR, const ScriptCommand*, Before>;

    /// How far the suffixes of one text have come.
    struct Repeats
    {
        int nextSuffix;
        MadeNames::iterator afterLast; ///< where the next made name most likely belongs
    };

    bool OrderNames(const std::vector<ScriptCommand>& commands);
    void MergeEqualNames(const std::vector<ScriptCommand>& commands);
    void Place(const ScriptCommand& command, std::size_t place);
    void PlaceUnderMadeName(const ScriptCommand& command, std::size_t ownPlace);
    bool TryPlace(const ScriptCommand& command, XQPComBSTR&& candidate, std::size_t ownPlace,
                  Repeats& repeats);
    NamedCommand* FindPlace(BSTR name, std::size_t likelyBefore);
    void MergeMadeNames();

    /// One place for each different name that a command came with, in the order of names; the command is null
    /// while the place is free. At the end the places of the made names as well.
    std::vector<NamedCommand> m_places;
    /// The place of each command's own name, by the command's index in the list.
    std::vector<std::size_t> m_placeOfCommand;
    /// Names with a suffix that no command came with.
    MadeNames m_madeNames;
    /// Names with a suffix that took a free place.
    std::deque<XQPComBSTR> m_placedNames;
    std::unordered_map<std::wstring_view, Repeats> m_repeats;
};
} // namespace qptools
