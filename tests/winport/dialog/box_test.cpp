// Message boxes: what they show, what keys do, and which windows cannot be used behind them.
#include "BoxAnswers.h"
#include "ModalWatch.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace
{
using Ids = std::vector<int>;
using Act = std::function<void(HWND)>;

constexpr const wchar_t* kOwnerClass = L"QptoolsBoxOwner";

// Runs acts in the loop of the box that opens, each after the messages that the one before posted. A box that
// is open after the last one is destroyed.
class BoxUser : private ModalWatch
{
public:
    explicit BoxUser(std::vector<Act> acts) : m_acts(std::move(acts)) {}

private:
    void OnActivated(HWND dialog) override
    {
        if (m_box)
            return;
        m_box = dialog;
        CallLater();
    }

    void OnCall() override
    {
        MSG message;
        if (PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_POSTMESSAGE) &&
            message.message != WM_QUIT)
            return CallLater();
        if (!IsWindow(m_box))
            return;
        if (m_next == m_acts.size())
        {
            if (PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) && message.message == WM_QUIT)
                return;
            ADD_FAILURE() << "the box is still there";
            DestroyWindow(m_box);
            return;
        }
        m_acts[m_next++](m_box);
        CallLater();
    }

    std::vector<Act> m_acts;
    std::size_t m_next = 0;
    HWND m_box = nullptr;
};

int Show(UINT type, std::vector<Act> acts, HWND owner = nullptr)
{
    const BoxUser user(std::move(acts));
    return MessageBoxW(owner, L"Text", L"Title", type);
}

Act Press(int key)
{
    return [key](HWND) {
        const HWND focus = GetFocus();
        PostMessageW(focus, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        PostMessageW(focus, WM_KEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(0xC0000001));
    };
}

Act Click(int id)
{
    return [id](HWND box) {
        SendMessageW(GetDlgItem(box, id), BM_CLICK, 0, 0);
    };
}

Act CloseBox()
{
    return [](HWND box) {
        PostMessageW(box, WM_SYSCOMMAND, SC_CLOSE, 0);
    };
}

std::wstring ClassOf(HWND window)
{
    wchar_t name[64];
    GetClassNameW(window, name, 64);
    return name;
}

// From left to right.
Ids ButtonsOf(HWND box)
{
    Ids ids;
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (ClassOf(child) == L"Button" && IsWindowVisible(child))
            ids.push_back(GetDlgCtrlID(child));
    return ids;
}

int FocusIn(HWND)
{
    return GetFocus() ? GetDlgCtrlID(GetFocus()) : 0;
}

class Owner
{
public:
    Owner()
    {
        WNDCLASSW description{};
        description.lpfnWndProc = Procedure;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = kOwnerClass;
        RegisterClassW(&description); // fails from the second time on, which is as good
        window = CreateWindowExW(0, kOwnerClass, L"", WS_POPUP | WS_VISIBLE, 0, 0, 100, 100, nullptr, nullptr,
                                 description.hInstance, nullptr);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    ~Owner()
    {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        DestroyWindow(window);
    }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;

    HWND window = nullptr;
    std::function<void(UINT, WPARAM)> onMessage;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        auto* owner = reinterpret_cast<Owner*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (owner && owner->onMessage)
            owner->onMessage(message, wParam);
        return DefWindowProcW(window, message, wParam, lParam);
    }
};
} // namespace

TEST(SystemBox, HasTheButtonsOfItsKind)
{
    const std::pair<UINT, Ids> kinds[] = {{MB_OKCANCEL, {IDOK, IDCANCEL}},
                                          {MB_ABORTRETRYIGNORE, {IDABORT, IDRETRY, IDIGNORE}},
                                          {MB_YESNOCANCEL, {IDYES, IDNO, IDCANCEL}},
                                          {MB_YESNO, {IDYES, IDNO}},
                                          {MB_RETRYCANCEL, {IDRETRY, IDCANCEL}}};
    for (const auto& [kind, ids] : kinds)
        for (const int answer : ids)
        {
            Ids shown;
            EXPECT_EQ(Show(kind, {[&](HWND box) { shown = ButtonsOf(box); }, Click(answer)}), answer);
            EXPECT_EQ(shown, ids);
        }
}

TEST(SystemBox, ReturnsOkForItsOnlyButton)
{
    EXPECT_EQ(Show(MB_OK, {[](HWND box) {
                       const Ids ids = ButtonsOf(box);
                       ASSERT_EQ(ids.size(), 1u);
                       SendMessageW(GetDlgItem(box, ids[0]), BM_CLICK, 0, 0);
                   }}),
              IDOK);
}

TEST(SystemBox, ShowsTextTitleAndIcon)
{
    BoxAnswers boxes;
    const UINT icons[] = {0, MB_ICONERROR, MB_ICONQUESTION, MB_ICONWARNING, MB_ICONINFORMATION};
    for (const UINT icon : icons)
    {
        boxes.Expect(L"Title", L"Two\nlines & \"more\"", IDOK);
        MessageBoxW(nullptr, L"Two\nlines & \"more\"", L"Title", MB_OK | icon);
        EXPECT_EQ(boxes.Shown().back().icon, icon);
        EXPECT_EQ(boxes.Shown().back().buttons, MB_OK);
    }
}

TEST(SystemBox, IsTitledErrorWithoutATitle)
{
    BoxAnswers boxes;
    boxes.Expect(L"Error", L"Text", IDOK);
    EXPECT_EQ(MessageBoxW(nullptr, L"Text", nullptr, MB_OK), IDOK);
    boxes.Expect(L"Title", L"", IDOK);
    EXPECT_EQ(MessageBoxW(nullptr, nullptr, L"Title", MB_OK), IDOK);
}

TEST(SystemBox, IsADialogWithACaption)
{
    Show(MB_OKCANCEL, {[](HWND box) {
                           EXPECT_EQ(ClassOf(box), L"#32770");
                           const auto style = static_cast<DWORD>(GetWindowLongW(box, GWL_STYLE));
                           const DWORD expected = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE;
                           EXPECT_EQ(style & expected, expected);
                           EXPECT_EQ(GetActiveWindow(), box);
                       },
                       Click(IDOK)});
}

TEST(SystemBox, GivesTheFocusToItsDefaultButton)
{
    const std::tuple<UINT, UINT, int> cases[] = {{MB_YESNOCANCEL, MB_DEFBUTTON1, IDYES},
                                                 {MB_YESNOCANCEL, MB_DEFBUTTON2, IDNO},
                                                 {MB_YESNOCANCEL, MB_DEFBUTTON3, IDCANCEL},
                                                 {MB_OKCANCEL, MB_DEFBUTTON2, IDCANCEL}};
    for (const auto& [kind, place, id] : cases)
    {
        int focus = 0;
        const int answer = Show(kind | place, {[&](HWND box) { focus = FocusIn(box); }, Press(VK_RETURN)});
        EXPECT_EQ(focus, id);
        EXPECT_EQ(answer, id);
    }
}

TEST(SystemBox, IsLeftByEscapeWhereThereIsCancel)
{
    EXPECT_EQ(Show(MB_OKCANCEL, {Press(VK_ESCAPE)}), IDCANCEL);
    EXPECT_EQ(Show(MB_YESNOCANCEL, {Press(VK_ESCAPE)}), IDCANCEL);
    EXPECT_EQ(Show(MB_RETRYCANCEL, {Press(VK_ESCAPE)}), IDCANCEL);
}

TEST(SystemBox, IsLeftByItsCloseBox)
{
    EXPECT_EQ(Show(MB_YESNOCANCEL, {CloseBox()}), IDCANCEL);
}

TEST(SystemBox, IsHandledByKeys)
{
    EXPECT_EQ(Show(MB_YESNOCANCEL, {Press(VK_TAB), Press(VK_RETURN)}), IDNO);
    EXPECT_EQ(Show(MB_YESNOCANCEL, {Press(VK_RIGHT), Press(VK_RIGHT), Press(VK_SPACE)}), IDCANCEL);
    EXPECT_EQ(Show(MB_YESNOCANCEL, {Press(VK_LEFT), Press(VK_RETURN)}), IDCANCEL);
    EXPECT_EQ(Show(MB_YESNO, {Press('N')}), IDNO);
    EXPECT_EQ(Show(MB_YESNO, {Press('Y')}), IDYES);
}

TEST(SystemBox, DisablesItsOwner)
{
    const Owner owner;
    const Owner other;
    EXPECT_EQ(Show(MB_OKCANCEL,
                   {[&](HWND box) {
                        EXPECT_EQ(GetWindow(box, GW_OWNER), owner.window);
                        EXPECT_FALSE(IsWindowEnabled(owner.window));
                        EXPECT_TRUE(IsWindowEnabled(other.window));
                    },
                    Click(IDOK)},
                   owner.window),
              IDOK);
    EXPECT_TRUE(IsWindowEnabled(owner.window));
    EXPECT_EQ(GetActiveWindow(), owner.window);
}

TEST(SystemBox, EnablesItsOwnerBeforeItIsDestroyed)
{
    Owner owner;
    HWND shown = nullptr;
    bool wasThere = false;
    owner.onMessage = [&](UINT message, WPARAM wParam) {
        if (message == WM_ENABLE && wParam)
            wasThere = IsWindow(shown);
    };
    Show(MB_OK, {[&](HWND box) { shown = box; }, Press(VK_RETURN)}, owner.window);
    EXPECT_TRUE(wasThere);
    EXPECT_FALSE(IsWindow(shown));
}

TEST(SystemBox, BelongsToTheWindowAroundItsOwner)
{
    const Owner owner;
    const HWND child = CreateWindowExW(0, L"Button", L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, owner.window,
                                       nullptr, nullptr, nullptr);
    Show(MB_OKCANCEL,
         {[&](HWND box) {
              EXPECT_EQ(GetWindow(box, GW_OWNER), owner.window);
              EXPECT_FALSE(IsWindowEnabled(owner.window));
              EXPECT_TRUE(IsWindowEnabled(child));
          },
          Click(IDOK)},
         child);
}

TEST(SystemBox, DisablesNothingWithoutAnOwner)
{
    const Owner window;
    Show(MB_OKCANCEL, {[&](HWND box) {
                           EXPECT_EQ(GetWindow(box, GW_OWNER), nullptr);
                           EXPECT_TRUE(IsWindowEnabled(window.window));
                       },
                       Click(IDOK)});
}

TEST(SystemBox, DisablesAllWindowsOfTheThreadIfItIsTheTasks)
{
    const Owner one;
    const Owner two;
    const Owner disabled;
    EnableWindow(disabled.window, FALSE);
    Show(MB_OKCANCEL | MB_TASKMODAL, {[&](HWND box) {
                                          EXPECT_FALSE(IsWindowEnabled(one.window));
                                          EXPECT_FALSE(IsWindowEnabled(two.window));
                                          EXPECT_TRUE(IsWindowEnabled(box));
                                      },
                                      Click(IDOK)});
    EXPECT_TRUE(IsWindowEnabled(one.window));
    EXPECT_TRUE(IsWindowEnabled(two.window));
    EXPECT_FALSE(IsWindowEnabled(disabled.window));
}

TEST(SystemBox, GivesTheFocusBack)
{
    const Owner owner;
    const HWND child = CreateWindowExW(0, L"Button", L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, owner.window,
                                       nullptr, nullptr, nullptr);
    SetFocus(child);
    Show(MB_OK, {Press(VK_RETURN)}, owner.window);
    EXPECT_EQ(GetActiveWindow(), owner.window);
}

TEST(SystemBox, MayBeInFrontOfAnother)
{
    const Owner owner;
    int inner = 0;
    const auto open = [&](HWND box) {
        inner = Show(MB_YESNO,
                     {[&, box](HWND second) {
                          EXPECT_EQ(GetWindow(second, GW_OWNER), box);
                          EXPECT_FALSE(IsWindowEnabled(box));
                      },
                      Click(IDNO)},
                     box);
        EXPECT_TRUE(IsWindowEnabled(box));
        EXPECT_EQ(GetActiveWindow(), box);
    };
    EXPECT_EQ(Show(MB_OKCANCEL, {open, Click(IDCANCEL)}, owner.window), IDCANCEL);
    EXPECT_EQ(inner, IDNO);
}

TEST(SystemBox, RunsWhatWaitsInTheQueue)
{
    Owner owner;
    bool delivered = false;
    owner.onMessage = [&](UINT message, WPARAM) {
        delivered = delivered || message == WM_APP;
    };
    PostMessageW(owner.window, WM_APP, 0, 0);
    Show(MB_OK, {[&](HWND) { EXPECT_TRUE(delivered); }, Press(VK_RETURN)}, owner.window);
}

TEST(SystemBox, LeavesTheEndOfTheProgramToTheProgram)
{
    Show(MB_YESNO, {[](HWND) {
             PostQuitMessage(5);
         }});
    MSG message;
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 5u);
}
