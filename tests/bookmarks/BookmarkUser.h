// What a patient user does in the bookmark dialog, as far as it lets him: for runs in which anything may
// fail.
#pragma once

#include "BookmarkSteps.h"
#include "BookmarkWords.h"
#include "DialogView.h"
#include "PatientUser.h"

#include <commctrl.h>

namespace bookmark_user
{
using namespace bookmark_dialog;

/// Of so many calls a sweep fails one: not all where windows are the system's.
inline constexpr std::size_t kEachFails = sizeof(wchar_t) == 4 ? 1 : 5;

inline bool HasRow(HWND dialog)
{
    return SendMessageW(GetDlgItem(dialog, kList), LVM_GETITEMCOUNT, 0, 0) > 0;
}

template <int Entry>
void Choose(HWND dialog)
{
    const HWND combo = GetDlgItem(dialog, kProject);
    if (SendMessageW(combo, CB_GETCOUNT, 0, 0) > Entry && SendMessageW(combo, CB_GETCURSEL, 0, 0) != Entry)
        DialogView(dialog).Choose(kProject, Entry);
}

inline void SelectFirst(HWND dialog)
{
    if (HasRow(dialog))
        DialogView(dialog).SelectRow(kList, 0);
}

inline void Rename(HWND dialog)
{
    if (!HasRow(dialog))
        return;
    const DialogView view(dialog);
    view.EditLabel(kList, 0, L"Renamed");
    view.Press(VK_RETURN);
}

inline void SortByNames(HWND dialog)
{
    DialogView view(dialog);
    ClicksHeading(0).Do(view);
}

template <int Button>
void Press(HWND dialog)
{
    if (IsWindowEnabled(GetDlgItem(dialog, Button)))
        SendMessageW(GetDlgItem(dialog, Button), BM_CLICK, 0, 0);
}

/// The dialog, or the message box that came in its place.
inline void Leave(HWND window)
{
    const HWND cancel = GetDlgItem(window, IDCANCEL);
    SendMessageW(cancel ? cancel : GetDlgItem(window, IDOK), BM_CLICK, 0, 0);
}

/// Lets arrive what was posted.
inline void Wait(HWND) {}

/// Each action once.
inline const PatientUser::Steps kAll = {
    &Choose<1>,      &Choose<0>, &SelectFirst,       &Wait, &Rename,      &Wait, &SelectFirst,  &Wait,
    &Press<kDelete>, &Wait,      &Press<kDeleteAll>, &Wait, &SelectFirst, &Wait, &Press<kOpen>, &Wait,
    &Leave};
} // namespace bookmark_user
