// What the parts of the dialog manager ask of each other.
#pragma once

#include "window/window.h"

namespace winport
{
/// Of a dialog's window.
class DialogState final : public Control
{
public:
    using Control::Control;
    LRESULT Handle(UINT, WPARAM, LPARAM) override { return 0; } // the dialog's procedure is DefDlgProcW

    int defaultId = IDOK; ///< of the button that Enter presses
    HWND focus = nullptr; ///< what had the focus when the dialog was left
};

/// Makes it if the dialog, which lives, has none yet.
DialogState& StateOf(HWND dialog);

/// A class, a title or a menu in a template: a text, or a number if the text is empty.
struct TemplateText
{
    std::wstring text;
    WORD number = 0;
};

/// A dialog or a control of a template. Measures are in dialog units.
struct TemplateItem
{
    DWORD style = 0;
    DWORD exStyle = 0;
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    DWORD id = 0;
    TemplateText className;
    TemplateText text;
    const WORD* data = nullptr; ///< what the control gets with its creation, behind the count of its bytes
};

struct Template
{
    TemplateItem dialog;
    std::vector<TemplateItem> controls;
};

/// Reads both forms. Ends the run at a menu or a class of the dialog's own.
Template ReadTemplate(LPCDLGTEMPLATEW description);

/// The dialog's next control with the focus, as WM_NEXTDLGCTL does it. Texts in edit fields are selected.
void GiveFocusTo(HWND dialog, HWND control);

/// Makes `button` the one that looks like the default; null gives the look back to the button that Enter
/// presses.
void MoveDefaultLook(HWND dialog, HWND button);

/// What a control wants of the dialog's keys.
LRESULT DialogCode(HWND control);

/// The group of a control in its order: from one with WS_GROUP up to the next, around the end of the dialog.
std::vector<Window*> GroupOf(const Window& member);
} // namespace winport
