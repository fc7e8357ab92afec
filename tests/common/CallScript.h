// What single calls of a double do in place of their own.
#pragma once

#include <windows.h>

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>

/// How one call differs.
struct ScriptedCall
{
    std::optional<HRESULT> status; ///< in place of its own
    bool acts = true;              ///< false: it changes nothing and leaves its outputs untouched
    bool givesNull = false;        ///< a null list or object, with its own status and count
    std::optional<ULONG> count;    ///< of a list, in place of its own; entries that it lacks are null
};

/// A call that fails and does nothing.
inline ScriptedCall Failed(HRESULT status = E_FAIL)
{
    return {.status = status, .acts = false};
}

/// The calls of one double that differ, by method and number.
///
///     host.Store().script.Set("DeleteKey", 1, Failed());
///     host.Store().script.Set("GetStringList", 0, {.givesNull = true});
class CallScript
{
public:
    /// The call of that number, from 0, of that method; of all methods of the object counted together if it
    /// is "".
    void Set(const std::string& method, std::size_t call, const ScriptedCall& scripted)
    {
        m_calls[{method, call}] = scripted;
    }

    /// Forgets what was set, and counts from 0 again.
    void Clear()
    {
        m_calls.clear();
        m_counts.clear();
    }

    /// How often that method was called.
    std::size_t Count(const std::string& method) const
    {
        const auto found = m_counts.find(method);
        return found == m_counts.end() ? 0 : found->second;
    }

    /// For the doubles. Runs `act`, which takes the ScriptedCall and returns the call's own status.
    template <class Act>
    HRESULT Run(const char* method, Act&& act)
    {
        const std::size_t ofAll = m_counts[""]++;
        const std::size_t ofMethod = m_counts[method]++;
        auto found = m_calls.find({method, ofMethod});
        if (found == m_calls.end())
            found = m_calls.find({"", ofAll});
        static const ScriptedCall plain;
        const ScriptedCall& scripted = found == m_calls.end() ? plain : found->second;
        const HRESULT own = scripted.acts ? act(scripted) : S_OK;
        return scripted.status.value_or(own);
    }

private:
    std::map<std::pair<std::string, std::size_t>, ScriptedCall> m_calls;
    std::map<std::string, std::size_t> m_counts;
};
