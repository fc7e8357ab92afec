#include "CTranslator.h"
#include "CatalogueBytes.h"
#include "TestFolder.h"
#include "WindowTranslation.h"

#include <gtest/gtest.h>

namespace
{
const std::string kGerman = CatalogueBytes::Make({CatalogueBytes::Header(),
                                                  {"&Valve", "&Ventil"},
                                                  {"Plant", "Anlage"},
                                                  {"Pump", "Pumpe"},
                                                  {"Tank", "Tank"}});

/// A window with controls whose texts a catalogue has.
class WindowTranslation : public testing::Test
{
protected:
    WindowTranslation()
        : m_window(CreateWindowExW(0, L"Static", L"Plant", WS_POPUP, 0, 0, 300, 200, nullptr, nullptr,
                                   GetModuleHandleW(nullptr), nullptr))
    {
        WriteBytes(m_folder.Path() / "locale" / "de" / "qptools.mo", kGerman);
        CTranslator::Instance().Use((m_folder.Path() / "locale").wstring(), L"de");
    }
    ~WindowTranslation() override
    {
        DestroyWindow(m_window);
        CTranslator::Instance().UseEnvironment();
    }

    HWND Add(const wchar_t* className, const wchar_t* text, DWORD style = 0, HWND parent = nullptr) const
    {
        return CreateWindowExW(0, className, text, WS_CHILD | style, 0, 0, 50, 20, parent ? parent : m_window,
                               nullptr, GetModuleHandleW(nullptr), nullptr);
    }

    static std::wstring TextOf(HWND window)
    {
        wchar_t text[64] = {};
        GetWindowTextW(window, text, 64);
        return text;
    }

    TestFolder m_folder;
    HWND m_window;
};
} // namespace

TEST_F(WindowTranslation, TakesCaptionLabelsButtonsAndFrames)
{
    const HWND label = Add(L"Static", L"Pump");
    const HWND button = Add(L"Button", L"&Valve");
    const HWND frame = Add(L"Button", L"Plant", BS_GROUPBOX);
    CoTranslateWindow(m_window);
    EXPECT_EQ(TextOf(m_window), L"Anlage");
    EXPECT_EQ(TextOf(label), L"Pumpe");
    EXPECT_EQ(TextOf(button), L"&Ventil");
    EXPECT_EQ(TextOf(frame), L"Anlage");
}

TEST_F(WindowTranslation, LeavesWhatTheUserTypesOrChooses)
{
    const HWND edit = Add(L"Edit", L"Pump");
    const HWND combo = Add(L"ComboBox", L"", CBS_DROPDOWNLIST);
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"Pump"));
    SendMessageW(combo, CB_SETCURSEL, 0, 0);
    CoTranslateWindow(m_window);
    EXPECT_EQ(TextOf(edit), L"Pump");
    EXPECT_EQ(TextOf(combo), L"Pump");
}

TEST_F(WindowTranslation, LeavesTextsThatNoCatalogueHasAndEmptyOnes)
{
    const HWND label = Add(L"Static", L"Conveyor");
    const HWND empty = Add(L"Static", L"");
    const HWND same = Add(L"Static", L"Tank");
    CoTranslateWindow(m_window);
    EXPECT_EQ(TextOf(label), L"Conveyor");
    EXPECT_EQ(TextOf(empty), L"");
    EXPECT_EQ(TextOf(same), L"Tank");
}

TEST_F(WindowTranslation, ASecondTimeChangesNothing)
{
    const HWND label = Add(L"Static", L"Pump");
    CoTranslateWindow(m_window);
    CoTranslateWindow(m_window);
    EXPECT_EQ(TextOf(label), L"Pumpe");
}

TEST_F(WindowTranslation, NoWindowIsNoError)
{
    CoTranslateWindow(nullptr);
}
