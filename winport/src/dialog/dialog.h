// Shared by the parts of the dialog manager.
#pragma once

#include "window/window.h"

namespace winport
{
/// The state of a dialog.
class DialogState final : public Control
{
public:
    using Control::Control;
    LRESULT Handle(UINT, WPARAM, LPARAM) override { return 0; } // the class's procedure is DialogProcedure

    int defaultId = IDOK; ///< identifier of the button that Enter presses
    HWND focus = nullptr; ///< the control with the focus when the dialog was deactivated
};

/// Returns the state of a dialog, which must exist; creates it at the first call.
DialogState& StateOf(HWND dialog);

/// A class, a title or a menu in a template: a text, or a number if the text is empty.
struct TemplateText
{
    std::wstring text;
    WORD number = 0;
};

/// A dialog or a control of a template, in dialog units.
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
    const WORD* data = nullptr; ///< creation data of the control, after its size
};

struct Template
{
    TemplateItem dialog;
    std::vector<TemplateItem> controls;
};

/// Reads a template of either form. Ends the run if it names a menu or a class for the dialog.
Template ReadTemplate(LPCDLGTEMPLATEW description);

/// Moves the focus to a control as WM_NEXTDLGCTL does. The text of an edit control is selected.
void GiveFocusTo(HWND dialog, HWND control);

/// Draws `button` as the default button. Null draws the button of the default identifier so again.
void MoveDefaultLook(HWND dialog, HWND button);

/// Sends WM_GETDLGCODE to a control and returns the answer.
LRESULT DialogCode(HWND control);

/// Returns the group of a control, in order: from a control with WS_GROUP up to the next one. A group may
/// wrap around the end of the dialog.
std::vector<Window*> GroupOf(const Window& member);
} // namespace winport
