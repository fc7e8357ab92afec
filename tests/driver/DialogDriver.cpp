#include "DialogDriver.h"

#include "BoxAnswers.h"
#include "BoxWindow.h"
#include "WindowTexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <exception>
#include <utility>

namespace
{
// How long a dialog may take to close once asked to, in milliseconds.
constexpr UINT kClosingBound = 2'000;

// A timer of the system, such as that of a caret. It has no public name.
constexpr UINT kSystemTimer = 0x118;

// True if the loop has posted messages to deliver, keys included, before the dialog is at rest. WM_QUIT and
// timers do not count: they are delivered last, so not while this object has a message in the queue. The same
// holds for true input.
bool IsAnythingWaiting()
{
    MSG message;
    return PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_POSTMESSAGE) &&
           message.message != WM_QUIT && message.message != WM_TIMER && message.message != kSystemTimer;
}

bool IsEndPosted()
{
    MSG message;
    return PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) && message.message == WM_QUIT;
}

// Returns false if the step did not complete.
bool RunGuarded(DialogView& view, const DialogStep& step)
{
    bool completed = false;
    const auto run = [&] {
        ASSERT_NO_FATAL_FAILURE(step.Do(view));
        completed = true;
    };
    try
    {
        run();
    }
    catch (const std::exception& thrown)
    {
        ADD_FAILURE() << "a step threw: " << thrown.what();
    }
    catch (...)
    {
        ADD_FAILURE() << "a step threw";
    }
    return completed;
}
} // namespace

DialogDriver::~DialogDriver()
{
    EXPECT_EQ(m_expected.size(), 0u) << "dialogs never came up";
    DialogView::LetGoOfKeys();
}

// The sight that keys wait for is a step of its own: the dialog is at rest again then.
void DialogDriver::OnDialog(Steps steps)
{
    Steps single;
    for (DialogStep& step : steps)
    {
        const std::optional<Sight> until = step.Keys().empty() ? std::nullopt : step.Seen();
        single.push_back(std::move(step));
        if (until)
            single.push_back(Sees(*until));
    }
    m_expected.push_back(std::move(single));
}

DialogDriver::OpenDialog* DialogDriver::Find(HWND window)
{
    const auto found = std::find_if(m_open.begin(), m_open.end(),
                                    [window](const OpenDialog& dialog) { return dialog.window == window; });
    return found == m_open.end() ? nullptr : &*found;
}

// A dialog opens once, but is activated again when one above it closes.
void DialogDriver::OnActivated(HWND dialog)
{
    if (Find(dialog))
        return;
    m_open.push_back({.window = dialog});
    Continue();
}

void DialogDriver::OnGoing(HWND window)
{
    OpenDialog* dialog = Find(window);
    if (!dialog)
        return;
    LookAtNewOnes();
    if (!dialog->box && !dialog->unexpected && dialog->closing == Closing::No)
    {
        EXPECT_EQ(dialog->done, dialog->steps.size())
            << "steps were run when the dialog \"" << Utf8Text(TextOf(window)) << "\" went";
    }
    m_open.erase(m_open.begin() + (dialog - m_open.data()));
    DialogView::LetGoOfKeys();
    Continue();
}

UINT DialogDriver::Bound() const
{
    if (m_open.empty())
        return 0;
    return m_open.back().closing == Closing::No ? m_bound : std::min(m_bound, kClosingBound);
}

// The bound starts again each time the dialog becomes the innermost.
void DialogDriver::Continue()
{
    m_waitingSince = GetTickCount64();
    SetBound(Bound());
    if (!m_open.empty() && !m_open.back().running)
        CallLater();
}

void DialogDriver::LookAtNewOnes()
{
    for (OpenDialog& dialog : m_open)
        if (!dialog.looked)
            LookAt(dialog);
}

void DialogDriver::LookAt(OpenDialog& dialog)
{
    dialog.looked = true;
    dialog.box = IsMessageBox(dialog.window);
    if (dialog.box)
    {
        if (!BoxAnswers::Listening())
            ADD_FAILURE() << "nobody expected " << Describe(ReadBox(dialog.window));
        return;
    }
    if (m_expected.empty())
    {
        ADD_FAILURE() << "nobody expected " << DialogView(dialog.window).Dump();
        dialog.unexpected = true;
        return;
    }
    dialog.steps = std::move(m_expected.front());
    m_expected.pop_front();
}

void DialogDriver::OnCall()
{
    LookAtNewOnes();
    if (m_open.empty())
        return;
    if (!IsAnythingWaiting())
    {
        DialogView::LetGoOfKeys();
        Serve(m_open.back());
    }
    else if (GetTickCount64() - m_waitingSince < Bound())
        CallLater();
    else
        OnTimeUp();
}

void DialogDriver::Serve(OpenDialog& dialog)
{
    if (dialog.running || (dialog.box && BoxAnswers::Listening()))
        return;
    if (dialog.box || dialog.unexpected || dialog.closing != Closing::No)
        CloseHarder(dialog);
    else if (dialog.done < dialog.steps.size())
        RunNextStep(dialog);
    else if (!IsEndPosted())
    {
        ADD_FAILURE() << "after its last step there still is " << DialogView(dialog.window).Dump();
        CloseHarder(dialog);
    }
}

// When the step returns, the dialog may be destroyed, and others may have opened and closed.
void DialogDriver::RunNextStep(OpenDialog& dialog)
{
    const HWND window = dialog.window;
    const std::size_t number = dialog.done++;
    const DialogStep step = std::move(dialog.steps[number]);
    dialog.running = true;
    DialogView view(window);
    bool completed = false;
    {
        SCOPED_TRACE(testing::Message() << "step " << number + 1 << " in \"" << Utf8Text(view.Title())
                                        << "\": " << step.Words());
        completed = RunGuarded(view, step);
    }
    OpenDialog* after = Find(window);
    if (after)
        after->running = false;
    if (after && !completed)
        CloseHarder(*after);
    else
        Continue();
}

// No modal loop survives the destruction of its window.
void DialogDriver::CloseHarder(OpenDialog& dialog)
{
    const HWND window = dialog.window;
    switch (
        std::exchange(dialog.closing, dialog.closing == Closing::No ? Closing::Cancelled : Closing::Closed))
    {
    case Closing::No:
        PressBoxButton(window, dialog.box ? CarefulButton(BoxButtons(window)) : IDCANCEL);
        break;
    case Closing::Cancelled:
        PostMessageW(window, WM_CLOSE, 0, 0);
        break;
    case Closing::Closed:
        DestroyWindow(window);
        break;
    }
    Continue();
}

void DialogDriver::OnTimeUp()
{
    LookAtNewOnes();
    if (m_open.empty())
        return;
    ADD_FAILURE() << "nothing comes of " << DialogView(m_open.back().window).Dump();
    CloseHarder(m_open.back());
}
