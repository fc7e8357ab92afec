// What templates make: the dialog's window and its controls.
#include "DialogHost.h"

#include <gtest/gtest.h>

#include <optional>

namespace
{
constexpr LONG kScreenWidth = 1024;
constexpr LONG kScreenHeight = 768;

using Form = DialogTemplate::Form;

constexpr const wchar_t* kRecorderClass = L"QptoolsTemplateRecorder";

// What the control of the test's own class received.
struct Recorded
{
    std::vector<HFONT> fonts;
    std::optional<std::vector<WORD>> data;
    std::wstring text;
    bool created = false;
};
Recorded g_recorded;

void Record(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_SETFONT)
        g_recorded.fonts.push_back(reinterpret_cast<HFONT>(wParam));
    if (message != WM_CREATE)
        return;
    const auto& create = *reinterpret_cast<const CREATESTRUCTW*>(lParam);
    const auto* words = static_cast<const WORD*>(create.lpCreateParams);
    if (words)
        g_recorded.data.emplace(words, words + 3);
    g_recorded.text = create.lpszName ? create.lpszName : L"";
    g_recorded.created = true;
}

LRESULT CALLBACK Recorder(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    Record(message, wParam, lParam);
    return DefWindowProcW(window, message, wParam, lParam);
}

void RegisterRecorder()
{
    WNDCLASSW description{};
    description.lpfnWndProc = Recorder;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = kRecorderClass;
    RegisterClassW(&description); // fails from the second time on, which is as good
    g_recorded = {};
}

SIZE ClientSizeOf(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

RECT PlaceIn(HWND dialog, HWND control)
{
    RECT rect{};
    GetWindowRect(control, &rect);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<LPPOINT>(&rect), 2);
    return rect;
}

// Each measure of its own, as a place and a size are.
RECT Mapped(HWND dialog, int first, int second, int third, int fourth)
{
    RECT rect{first, second, third, fourth};
    MapDialogRect(dialog, &rect);
    return rect;
}

std::wstring ClassOf(HWND window)
{
    wchar_t name[64];
    GetClassNameW(window, name, 64);
    return name;
}

DWORD StyleOf(HWND window)
{
    return static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
}

DWORD ExStyleOf(HWND window)
{
    return static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE));
}

class DialogForm : public testing::TestWithParam<Form>
{
};

std::string NameOf(const testing::TestParamInfo<Form>& info)
{
    return info.param == Form::Extended ? "Extended" : "Classic";
}
} // namespace

INSTANTIATE_TEST_SUITE_P(Forms, DialogForm, testing::Values(Form::Classic, Form::Extended), NameOf);

TEST_P(DialogForm, GivesTheDialogItsTitleSizeAndStyle)
{
    const DialogHost host({L"Gr\u00f6\u00dfe", kCommonDialog, 10, 20, 123, 77, GetParam()});
    ASSERT_NE(host.Window(), nullptr);
    wchar_t title[20];
    GetWindowTextW(host.Window(), title, 20);
    EXPECT_STREQ(title, L"Gr\u00f6\u00dfe");
    const RECT size = Mapped(host.Window(), 0, 0, 123, 77);
    EXPECT_EQ(ClientSizeOf(host.Window()).cx, size.right);
    EXPECT_EQ(ClientSizeOf(host.Window()).cy, size.bottom);
    EXPECT_EQ(ClassOf(host.Window()), L"#32770");
    EXPECT_EQ(StyleOf(host.Window()), kCommonDialog | DS_3DLOOK | WS_CLIPSIBLINGS);
    EXPECT_EQ(ExStyleOf(host.Window()),
              static_cast<DWORD>(WS_EX_DLGMODALFRAME | WS_EX_WINDOWEDGE | WS_EX_CONTROLPARENT));
    EXPECT_FALSE(IsWindowVisible(host.Window()));
}

TEST_P(DialogForm, GivesEachControlItsPlaceInTheOrderOfTheTemplate)
{
    DialogTemplate description(L"Places", kCommonDialog, 0, 0, 150, 100, GetParam());
    const struct
    {
        short x, y, width, height;
    } places[] = {{0, 0, 50, 14}, {7, 7, 40, 10}, {33, 51, 1, 1}, {3, 5, 77, 13}, {2, 1, 0, 0}};
    int id = 10;
    for (const auto& [x, y, width, height] : places)
        description.Add(0x80, id++, L"", 0, x, y, width, height);
    const DialogHost host(std::move(description));
    id = 10;
    HWND control = GetWindow(host.Window(), GW_CHILD);
    for (const auto& [x, y, width, height] : places)
    {
        ASSERT_EQ(control, host.Item(id++));
        const RECT place = PlaceIn(host.Window(), control);
        const RECT expected = Mapped(host.Window(), x, y, width, height);
        EXPECT_EQ(place.left, expected.left);
        EXPECT_EQ(place.top, expected.top);
        EXPECT_EQ(place.right - place.left, expected.right);
        EXPECT_EQ(place.bottom - place.top, expected.bottom);
        control = GetWindow(control, GW_HWNDNEXT);
    }
    EXPECT_EQ(control, nullptr);
}

TEST_P(DialogForm, KnowsTheClassesByNumberAndByName)
{
    const std::pair<int, const wchar_t*> classes[] = {
        {0x80, L"Button"}, {0x81, L"Edit"}, {0x82, L"Static"}, {0x85, L"ComboBox"}};
    DialogTemplate description(L"Classes", kCommonDialog, 0, 0, 150, 100, GetParam());
    int id = 10;
    for (const auto& [number, name] : classes)
    {
        const DWORD style = number == 0x85 ? CBS_DROPDOWNLIST : 0;
        description.Add(number, id++, L"Text", style, 0, 0, 20, 10);
        description.Add(name, id++, L"Text", style, 0, 0, 20, 10);
    }
    const DialogHost host(std::move(description));
    id = 10;
    for (const auto& [number, name] : classes)
    {
        EXPECT_EQ(ClassOf(host.Item(id++)), name) << number;
        EXPECT_EQ(ClassOf(host.Item(id++)), name);
    }
    wchar_t text[10];
    EXPECT_EQ(GetWindowTextW(host.Item(10), text, 10), 4);
    EXPECT_STREQ(text, L"Text");
}

TEST_P(DialogForm, GivesEachControlItsStyles)
{
    DialogTemplate description(L"Styles", kCommonDialog, 0, 0, 150, 100, GetParam());
    description.Add(0x80, 10, L"", BS_AUTOCHECKBOX | WS_TABSTOP | WS_DISABLED, 0, 0, 20, 10)
        .AddHidden(0x80, 11, L"", WS_GROUP, 0, 0, 20, 10)
        .Add(0x82, 12, L"", SS_NOPREFIX, 0, 0, 20, 10, WS_EX_STATICEDGE);
    const DialogHost host(std::move(description));
    EXPECT_EQ(StyleOf(host.Item(10)), BS_AUTOCHECKBOX | WS_TABSTOP | WS_DISABLED | WS_CHILD | WS_VISIBLE);
    EXPECT_EQ(StyleOf(host.Item(11)), WS_GROUP | WS_CHILD);
    EXPECT_EQ(StyleOf(host.Item(12)), SS_NOPREFIX | WS_CHILD | WS_VISIBLE);
    EXPECT_EQ(ExStyleOf(host.Item(10)), static_cast<DWORD>(WS_EX_NOPARENTNOTIFY));
    EXPECT_EQ(ExStyleOf(host.Item(12)), static_cast<DWORD>(WS_EX_NOPARENTNOTIFY | WS_EX_STATICEDGE));
}

TEST_P(DialogForm, HandsDataToAControl)
{
    RegisterRecorder();
    DialogTemplate description(L"Data", kCommonDialog, 0, 0, 150, 100, GetParam());
    description.Add(kRecorderClass, 10, L"Some text", 0, 0, 0, 20, 10, 0, {7, 8, 9})
        .Add(0x80, 11, L"Behind", 0, 0, 0, 20, 10);
    const DialogHost host(std::move(description));
    ASSERT_TRUE(g_recorded.created);
    EXPECT_EQ(g_recorded.text, L"Some text");
    ASSERT_TRUE(g_recorded.data.has_value());
    EXPECT_EQ(*g_recorded.data,
              GetParam() == Form::Extended ? (std::vector<WORD>{6, 7, 8}) : (std::vector<WORD>{8, 7, 8}))
        << "the count comes first";
    EXPECT_NE(host.Item(11), nullptr);
}

TEST_P(DialogForm, HandsNoDataToAControlWithoutAny)
{
    RegisterRecorder();
    DialogTemplate description(L"Data", kCommonDialog, 0, 0, 150, 100, GetParam());
    description.Add(kRecorderClass, 10, L"", 0, 0, 0, 20, 10);
    const DialogHost host(std::move(description));
    EXPECT_TRUE(g_recorded.created);
    EXPECT_FALSE(g_recorded.data.has_value());
}

TEST_P(DialogForm, GivesTheFontToTheDialogAndItsControls)
{
    RegisterRecorder();
    DialogTemplate description(L"Font", kCommonDialog, 0, 0, 150, 100, GetParam());
    description.Add(kRecorderClass, 10, L"", 0, 0, 0, 20, 10).Add(0x80, 11, L"", 0, 0, 0, 20, 10);
    std::vector<HFONT> told;
    const auto handler = [&](HWND, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_SETFONT)
            told.push_back(reinterpret_cast<HFONT>(wParam));
        return FALSE;
    };
    const DialogHost host(std::move(description), handler);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(host.Window(), WM_GETFONT, 0, 0));
    EXPECT_NE(font, nullptr);
    EXPECT_EQ(g_recorded.fonts, std::vector<HFONT>{font});
    EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageW(host.Item(11), WM_GETFONT, 0, 0)), font);
}

TEST_P(DialogForm, GivesNoFontWithoutTheStyle)
{
    RegisterRecorder();
    DialogTemplate description(L"Font", kCommonDialog & ~DS_SETFONT, 0, 0, 150, 100, GetParam());
    description.Add(kRecorderClass, 10, L"", 0, 0, 0, 20, 10).Add(0x80, 11, L"", 0, 0, 0, 20, 10);
    const DialogHost host(std::move(description));
    ASSERT_NE(host.Window(), nullptr);
    EXPECT_TRUE(g_recorded.fonts.empty());
    EXPECT_EQ(SendMessageW(host.Item(11), WM_GETFONT, 0, 0), 0);
}

TEST_P(DialogForm, MakesNothingWhenAClassIsMissing)
{
    DialogTemplate description(L"Missing", kCommonDialog, 0, 0, 150, 100, GetParam());
    description.Add(0x80, 10, L"", 0, 0, 0, 20, 10).Add(L"QptoolsNoSuchClass", 11, L"", 0, 0, 0, 20, 10);
    bool initialized = false;
    const auto handler = [&](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR {
        return initialized = initialized || message == WM_INITDIALOG;
    };
    const DialogHost host(std::move(description), handler);
    EXPECT_EQ(host.Window(), nullptr);
    EXPECT_FALSE(initialized);
}

TEST_P(DialogForm, MayBeEmpty)
{
    const DialogHost host({L"", kCommonDialog, 0, 0, 0, 0, GetParam()});
    ASSERT_NE(host.Window(), nullptr);
    EXPECT_EQ(GetWindow(host.Window(), GW_CHILD), nullptr);
}

TEST_P(DialogForm, IsShownIfItSaysSo)
{
    bool visible = true;
    const auto handler = [&](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG)
            visible = IsWindowVisible(dialog);
        return message == WM_INITDIALOG;
    };
    const DialogHost host({L"", kCommonDialog | WS_VISIBLE, 0, 0, 100, 100, GetParam()}, handler);
    EXPECT_FALSE(visible) << "only when it is ready";
    EXPECT_TRUE(IsWindowVisible(host.Window()));
    EXPECT_EQ(GetActiveWindow(), host.Window());
}

TEST(DialogPlace, IsCountedFromTheOwner)
{
    const HWND owner = CreateWindowExW(0, L"Static", L"", WS_POPUP | WS_BORDER | WS_VISIBLE, 100, 150, 200,
                                       200, nullptr, nullptr, nullptr, nullptr);
    for (const DWORD absolute : {DWORD{0}, DWORD{DS_ABSALIGN}})
    {
        const DialogHost host({L"", kCommonDialog | absolute, 10, 20, 50, 50}, {}, owner);
        EXPECT_EQ(GetWindow(host.Window(), GW_OWNER), owner);
        POINT expected{};
        if (!absolute)
            MapWindowPoints(owner, nullptr, &expected, 1);
        const RECT units = Mapped(host.Window(), 10, 20, 0, 0);
        // The place is that of the client area.
        POINT client{};
        MapWindowPoints(host.Window(), nullptr, &client, 1);
        EXPECT_EQ(client.x, expected.x + units.left);
        EXPECT_EQ(client.y, expected.y + units.top);
    }
    DestroyWindow(owner);
}

TEST(DialogPlace, IsTheMiddleOfTheScreenIfItSaysSo)
{
    const DialogHost host({L"", kCommonDialog | DS_CENTER, 10, 20, 50, 50});
    RECT place{};
    GetWindowRect(host.Window(), &place);
    EXPECT_EQ(place.left, (kScreenWidth - (place.right - place.left)) / 2);
    EXPECT_EQ(place.top, (kScreenHeight - (place.bottom - place.top)) / 2);
}

TEST(DialogPlace, IsOnTheScreen)
{
    const DialogHost right({L"", kCommonDialog, 3000, 3000, 50, 50});
    RECT place{};
    GetWindowRect(right.Window(), &place);
    EXPECT_LE(place.right, kScreenWidth);
    EXPECT_LE(place.bottom, kScreenHeight);
    EXPECT_GT(place.bottom, 500);
    const DialogHost left({L"", kCommonDialog, -3000, -3000, 50, 50});
    GetWindowRect(left.Window(), &place);
    EXPECT_EQ(place.left, 0);
    EXPECT_EQ(place.top, 0);
}

TEST(DialogUnits, AreRounded)
{
    const DialogHost host({L"", kCommonDialog, 0, 0, 50, 50});
    const RECT base = Mapped(host.Window(), 4, 8, 0, 0);
    for (int units = -20; units < 20; ++units)
    {
        const RECT mapped = Mapped(host.Window(), units, units, 0, 0);
        const int sign = units < 0 ? -1 : 1;
        EXPECT_EQ(mapped.left, (units * base.left + sign * 2) / 4) << units;
        EXPECT_EQ(mapped.top, (units * base.top + sign * 4) / 8) << units;
    }
    RECT rect{1, 2, 3, 4};
    EXPECT_FALSE(MapDialogRect(nullptr, &rect));
    EXPECT_EQ(rect.left, 1);
}

TEST(DialogTemplates, AreNeeded)
{
    const auto ignore = [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR {
        return FALSE;
    };
    EXPECT_EQ(CreateDialogIndirectParamW(GetModuleHandleW(nullptr), nullptr, nullptr, ignore, 0), nullptr);
}

TEST(DialogTemplates, ComeFromResources)
{
    const HMODULE module = LoadLibraryW(L"wptestmodule.dll");
    ASSERT_NE(module, nullptr);
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(300), RT_DIALOG);
    ASSERT_NE(found, nullptr);
    const auto* description = static_cast<LPCDLGTEMPLATEW>(LockResource(LoadResource(module, found)));
    const auto ignore = [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR {
        return FALSE;
    };
    const HWND dialog = CreateDialogIndirectParamW(module, description, nullptr, ignore, 0);
    ASSERT_NE(dialog, nullptr);
    const std::pair<int, const wchar_t*> controls[] = {{309, L"Static"}, {301, L"Edit"},     {303, L"Button"},
                                                       {304, L"Button"}, {306, L"ComboBox"}, {307, L"Button"},
                                                       {1, L"Button"},   {2, L"Button"}};
    for (const auto& [id, name] : controls)
        EXPECT_EQ(ClassOf(GetDlgItem(dialog, id)), name) << id;
    wchar_t text[30];
    GetWindowTextW(GetDlgItem(dialog, 303), text, 30);
    EXPECT_STREQ(text, L"&Switched on");
    const RECT place = PlaceIn(dialog, GetDlgItem(dialog, 1));
    EXPECT_EQ(place.left, Mapped(dialog, 160, 7, 0, 0).left);
    DestroyWindow(dialog);
    FreeLibrary(module);
}
