// One step of a user in front of a dialog, with a name.
#pragma once

#include "Sight.h"

#include <functional>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

/// What a user does, or sees. Steps are values: a scenario is a list of them, and both drivers run such
/// lists, DialogDriver inside the process and KeyboardUser with a real keyboard. The words of Steps.h make
/// them; a callable is a step that has no word.
class DialogStep
{
public:
    using Body = std::function<void(DialogView&)>;

    /// A step of a test's own.
    template <class Callable>
    requires std::is_invocable_v<Callable&, DialogView&>
    DialogStep(Callable body) // NOLINT: tests pass lambdas
        : m_words("does what the test says"), m_body(std::move(body))
    {
    }

    /// What a user does with a mouse, or by whatever means.
    DialogStep(std::string words, Body body);

    /// Types keys. If `until` is given, the next step waits for it.
    DialogStep(std::string keys, std::optional<Sight> until, bool ends);

    /// Sees this.
    explicit DialogStep(Sight sight);

    /// For the message of a failure.
    const std::string& Words() const { return m_words; }

    // For KeyboardUser.
    /// The keys, empty for a step without.
    const std::string& Keys() const { return m_keys; }
    /// What is seen, after the keys if there are any.
    const std::optional<Sight>& Seen() const { return m_seen; }
    /// The keys end the dialog.
    bool Ends() const { return m_ends; }
    /// A word that does without the keyboard.
    bool IsByMouse() const { return m_byMouse; }

    /// Does it in the dialog. What keys lead to is not there before the step has returned.
    void Do(DialogView& view) const;

private:
    std::string m_words;
    Body m_body;
    std::string m_keys;
    std::optional<Sight> m_seen;
    bool m_ends = false;
    bool m_byMouse = false;
};

using Steps = std::vector<DialogStep>;

inline Steps operator+(Steps first, const Steps& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}
