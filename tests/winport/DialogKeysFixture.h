// A dialog with controls of every kind that keys reach, and one whose keys are pressed.
#pragma once

#include "DialogHost.h"

#include <gtest/gtest.h>

using Commands = std::vector<std::string>;
using Ids = std::vector<int>;

inline constexpr int kEdit = 10;
inline constexpr int kCheck = 20;
inline constexpr int kFirstRadio = 31;
inline constexpr int kSecondRadio = 32;
inline constexpr int kThirdRadio = 33;
inline constexpr int kLabel = 40;
inline constexpr int kLabelled = 41;
inline constexpr int kFirstPush = 51;
inline constexpr int kSecondPush = 52;
inline constexpr int kHidden = 60;
inline constexpr int kDisabled = 61;
inline constexpr int kNoStop = 62;

inline DialogTemplate Description()
{
    DialogTemplate description(L"Keys", kCommonDialog, 0, 0, 150, 150);
    description.Add(0x81, kEdit, L"text", ES_AUTOHSCROLL | WS_TABSTOP, 0, 0, 50, 12)
        .Add(0x80, kCheck, L"&Check", BS_AUTOCHECKBOX | WS_TABSTOP, 0, 12, 50, 12)
        .Add(0x80, kFirstRadio, L"&One", BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, 0, 24, 50, 12)
        .Add(0x80, kSecondRadio, L"&Two", BS_AUTORADIOBUTTON, 0, 36, 50, 12)
        .Add(0x80, kThirdRadio, L"T&hree", BS_AUTORADIOBUTTON, 0, 48, 50, 12)
        .Add(0x82, kLabel, L"&Label", WS_GROUP, 0, 60, 50, 12)
        .Add(0x81, kLabelled, L"", ES_AUTOHSCROLL | WS_TABSTOP, 0, 72, 50, 12)
        .Add(0x80, kFirstPush, L"&Push", WS_GROUP | WS_TABSTOP, 60, 0, 50, 12)
        .Add(0x80, kSecondPush, L"&Same", WS_TABSTOP, 60, 12, 50, 12)
        .AddHidden(0x80, kHidden, L"H&idden", WS_TABSTOP, 60, 24, 50, 12)
        .Add(0x80, kDisabled, L"&Disabled", WS_TABSTOP | WS_DISABLED, 60, 36, 50, 12)
        .Add(0x80, kNoStop, L"&No stop", 0, 60, 48, 50, 12)
        .Add(0x80, IDOK, L"OK", BS_DEFPUSHBUTTON | WS_GROUP | WS_TABSTOP, 60, 60, 50, 12)
        .Add(0x80, IDCANCEL, L"Cancel", WS_TABSTOP, 60, 72, 50, 12);
    return description;
}

class DialogKeys : public testing::Test
{
protected:
    DialogKeys() { m_host.Show(); }

    // The control that has the focus after each press.
    Ids Walk(int presses, const std::function<void()>& press) const
    {
        Ids ids;
        for (int index = 0; index < presses; ++index)
        {
            press();
            ids.push_back(m_host.Focus());
        }
        return ids;
    }

    Commands CommandsOf(const std::function<void()>& act)
    {
        m_host.Commands();
        act();
        Commands commands = m_host.Commands();
        // Notifications of edit fields do not matter here.
        std::erase_if(commands, [](const std::string& command) {
            return command.rfind("10:", 0) == 0 || command.rfind("41:", 0) == 0;
        });
        return commands;
    }

    DWORD KindOf(int id) const
    {
        return static_cast<DWORD>(GetWindowLongW(m_host.Item(id), GWL_STYLE)) & BS_TYPEMASK;
    }

    // The buttons that look like the default.
    Ids Defaults() const
    {
        Ids ids;
        for (const int id : {kFirstPush, kSecondPush, kDisabled, kNoStop, IDOK, IDCANCEL})
            if (KindOf(id) == BS_DEFPUSHBUTTON)
                ids.push_back(id);
        return ids;
    }

    bool IsChecked(int id) const
    {
        return SendDlgItemMessageW(m_host.Window(), id, BM_GETCHECK, 0, 0) == BST_CHECKED;
    }

    DialogHost m_host{Description()};
};
