// The bookmark dialog when it opens, and the way of one bookmark through each action.
#include "BookmarkFixture.h"

namespace
{
using namespace bookmark_dialog;

class BookmarksOpen : public BookmarkFixture
{
};

/// Notes whether dialogs of this thread are visible when they are activated.
class ActivatedDialogs
{
public:
    ActivatedDialogs() : m_hook(SetWindowsHookExW(WH_CBT, &OnEvent, nullptr, GetCurrentThreadId()))
    {
        s_visible.clear();
    }
    ~ActivatedDialogs() { UnhookWindowsHookEx(m_hook); }
    ActivatedDialogs(const ActivatedDialogs&) = delete;
    ActivatedDialogs& operator=(const ActivatedDialogs&) = delete;

    static const std::vector<bool>& Visible() { return s_visible; }

private:
    static LRESULT CALLBACK OnEvent(int code, WPARAM window, LPARAM details)
    {
        wchar_t name[32] = {};
        if (code == HCBT_ACTIVATE)
            GetClassNameW(reinterpret_cast<HWND>(window), name, 32);
        if (name == std::wstring(L"#32770"))
            s_visible.push_back(IsWindowVisible(reinterpret_cast<HWND>(window)));
        return CallNextHookEx(nullptr, code, window, details);
    }

    static inline std::vector<bool> s_visible;
    HHOOK m_hook;
};

TEST_F(BookmarksOpen, WithTheBookmarksOfTheFirstProject)
{
    EXPECT_EQ(
        Show({Sees(Titled(kTitle)), Sees(Offers(kProject, {L"North", L"South"})),
              Sees(Chosen(kProject, L"North")), Sees(Headings({L"Bookmark Name", L"Component Name"})),
              Sees(InColumn(0, {L"Drill", L"Weld"})), Sees(InColumn(1, {L"Drill cell", L"Weld cell"})),
              Sees(Disabled(kOpen)), Sees(Disabled(kDelete)), Sees(Enabled(kDeleteAll)), Presses(IDCANCEL)}),
        S_OK);
}

/// The focus comes with the activation: the dialog does not ask for it while it is created.
TEST_F(BookmarksOpen, AndTakeTheFocusWhenTheyAreShown)
{
    const ActivatedDialogs activated;
    EXPECT_EQ(Show({Sees(FocusOn(kProject)), Presses(IDCANCEL)}), S_OK);
    EXPECT_EQ(activated.Visible(), std::vector<bool>{true});
}

TEST_F(BookmarksOpen, AndTheOtherProjectIsListedWhenItIsChosen)
{
    EXPECT_EQ(Show({Chooses(kProject, L"South"), Sees(InColumn(0, {L"Paint"})), Presses(IDCANCEL)}), S_OK);
}

TEST_F(BookmarksOpen, AndOpenShowsTheObjectInTheNavigator)
{
    EXPECT_EQ(Show({Selects(L"Weld"), Sees(Enabled(kOpen)), Presses(kOpen)}), S_OK);
}

TEST_F(BookmarksOpen, AndARenamedBookmarkHasItsNewName)
{
    EXPECT_EQ(Show({Selects(L"Weld"), EditsLabel(1, L"Assembly"), Types("Return"),
                    Sees(InColumn(0, {L"Assembly", L"Drill"})),
                    Sees(InColumn(1, {L"Weld cell", L"Drill cell"})), Presses(IDCANCEL)}),
              S_OK);
}

TEST_F(BookmarksOpen, AndADeletedBookmarkIsGone)
{
    ExpectBox(kDeleteTitle, kDeleteOne, IDYES);
    EXPECT_EQ(Show({Selects(L"Weld"), Presses(kDelete), Sees(InColumn(0, {L"Drill"})),
                    Sees(Disabled(kDelete)), Presses(IDCANCEL)}),
              S_OK);
}
} // namespace
