// Relations of windows: to each other, to the desktop, to their threads.
#include "WindowTrace.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{
const auto kNone = reinterpret_cast<HWND>(0x777);

class WindowTree : public ::testing::Test
{
protected:
    WindowTrace trace;
};

struct Found
{
    const WindowTrace* trace;
    std::string names;
    std::string last; ///< where to stop
};

BOOL CALLBACK Collect(HWND window, LPARAM parameter)
{
    auto& found = *reinterpret_cast<Found*>(parameter);
    const std::string name = found.trace->NameOf(window);
    if (name != "?")
        found.names += name + " ";
    return name != found.last;
}
} // namespace

TEST_F(WindowTree, ParentsAndOwnersAreTwoThings)
{
    const HWND owner = trace.Make(L"a", WS_POPUP);
    const HWND child = trace.Make(L"c", WS_CHILD, owner);
    const HWND inner = trace.Make(L"i", WS_CHILD, child);
    const HWND popup = trace.Make(L"p", WS_POPUP, inner);
    const HWND overlapped = trace.Make(L"o", WS_OVERLAPPED, owner);
    EXPECT_EQ(GetParent(child), owner);
    EXPECT_EQ(GetParent(popup), owner);
    EXPECT_EQ(GetParent(overlapped), nullptr);
    EXPECT_EQ(GetParent(owner), nullptr);
    EXPECT_EQ(GetWindow(popup, GW_OWNER), owner);
    EXPECT_EQ(GetWindow(overlapped, GW_OWNER), owner);
    EXPECT_EQ(GetWindow(child, GW_OWNER), nullptr);
    EXPECT_EQ(GetAncestor(inner, GA_PARENT), child);
    const HWND desktop = GetAncestor(popup, GA_PARENT);
    EXPECT_EQ(GetAncestor(owner, GA_PARENT), desktop);
    EXPECT_EQ(GetAncestor(inner, GA_ROOT), owner);
    EXPECT_EQ(GetAncestor(popup, GA_ROOT), popup);
    EXPECT_EQ(GetAncestor(desktop, GA_PARENT), nullptr);
    EXPECT_EQ(GetWindowLongPtrW(child, GWLP_HWNDPARENT), reinterpret_cast<LONG_PTR>(owner));
    EXPECT_EQ(GetWindowLongPtrW(popup, GWLP_HWNDPARENT), reinterpret_cast<LONG_PTR>(owner));
    EXPECT_EQ(GetParent(kNone), nullptr);
    EXPECT_EQ(GetAncestor(kNone, GA_ROOT), nullptr);
    EXPECT_EQ(GetWindow(kNone, GW_CHILD), nullptr);
}

TEST_F(WindowTree, ChildrenAreAnyDepthBeneath)
{
    const HWND outer = trace.Make(L"a", WS_POPUP);
    const HWND child = trace.Make(L"c", WS_CHILD, outer);
    const HWND inner = trace.Make(L"i", WS_CHILD, child);
    const HWND popup = trace.Make(L"p", WS_POPUP, outer);
    EXPECT_TRUE(IsChild(outer, child));
    EXPECT_TRUE(IsChild(outer, inner));
    EXPECT_FALSE(IsChild(inner, outer));
    EXPECT_FALSE(IsChild(child, child));
    EXPECT_FALSE(IsChild(outer, popup));
    EXPECT_FALSE(IsChild(outer, kNone));
}

TEST_F(WindowTree, SiblingsAreInOrder)
{
    const HWND outer = trace.Make(L"a", WS_POPUP);
    const HWND first = trace.Make(L"c", WS_CHILD, outer);
    const HWND second = trace.Make(L"d", WS_CHILD, outer);
    const HWND third = trace.Make(L"e", WS_CHILD, outer);
    EXPECT_EQ(GetWindow(outer, GW_CHILD), first);
    EXPECT_EQ(GetWindow(first, GW_HWNDNEXT), second);
    EXPECT_EQ(GetWindow(second, GW_HWNDNEXT), third);
    EXPECT_EQ(GetWindow(third, GW_HWNDNEXT), nullptr);
    EXPECT_EQ(GetWindow(first, GW_CHILD), nullptr);
}

TEST_F(WindowTree, WindowsOfAThreadAreEnumeratedFromTheTop)
{
    const HWND outer = trace.Make(L"a", WS_POPUP);
    trace.Make(L"c", WS_CHILD, outer);
    trace.Make(L"b", WS_POPUP, outer);
    Found found{&trace, "", ""};
    EXPECT_TRUE(EnumThreadWindows(GetCurrentThreadId(), Collect, reinterpret_cast<LPARAM>(&found)));
    EXPECT_EQ(found.names, "b a ");
    found = {&trace, "", "b"};
    EXPECT_FALSE(EnumThreadWindows(GetCurrentThreadId(), Collect, reinterpret_cast<LPARAM>(&found)));
    EXPECT_EQ(found.names, "b ");
}

TEST_F(WindowTree, TheDesktopIsAWindow)
{
    const HWND desktop = GetAncestor(trace.Make(L"a", WS_POPUP), GA_PARENT);
    EXPECT_TRUE(IsWindow(desktop));
    RECT rect{};
    EXPECT_TRUE(GetWindowRect(desktop, &rect));
    EXPECT_EQ(rect.right, 1024);
    EXPECT_EQ(rect.bottom, 768);
    wchar_t name[20] = L"";
    EXPECT_EQ(GetClassNameW(desktop, name, 20), 6);
    EXPECT_STREQ(name, L"#32769");
    EXPECT_EQ(GetParent(trace.Make(L"b", WS_POPUP, desktop)), nullptr);
}

TEST_F(WindowTree, HandlesAreCheckedEverywhere)
{
    EXPECT_FALSE(IsWindow(nullptr));
    EXPECT_FALSE(IsWindow(kNone));
    EXPECT_FALSE(IsWindowEnabled(kNone));
    EXPECT_FALSE(EnableWindow(kNone, TRUE));
    EXPECT_FALSE(SetWindowPos(kNone, nullptr, 0, 0, 0, 0, 0));
    EXPECT_EQ(GetWindowTextLengthW(kNone), 0);
    EXPECT_FALSE(SetWindowTextW(kNone, L"x"));
    SetLastError(0);
    EXPECT_EQ(GetWindowLongPtrW(kNone, GWLP_ID), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
}

TEST_F(WindowTree, AWindowBelongsToItsThread)
{
    const HWND window = trace.Make(L"a", WS_POPUP | WS_VISIBLE);
    ASSERT_EQ(GetActiveWindow(), window);
    std::thread([&] {
        EXPECT_TRUE(IsWindow(window));
        EXPECT_EQ(GetActiveWindow(), nullptr);
        EXPECT_EQ(GetFocus(), nullptr);
    }).join();
}

TEST_F(WindowTree, WindowsEndWithTheirThread)
{
    HWND window = nullptr;
    std::thread([&] {
        window = CreateWindowExW(0, WindowTrace::ClassName(), L"t", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                 GetModuleHandleW(nullptr), nullptr);
        EXPECT_TRUE(IsWindow(window));
    }).join();
    EXPECT_FALSE(IsWindow(window));
}
