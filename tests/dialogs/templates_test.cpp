// The dialogs as they stand in the built module.
#include "DialogResource.h"

#include "ModuleUnderTest.h"

#include "Resources.h"

#include <gtest/gtest.h>

#include <commctrl.h>

namespace
{
constexpr DWORD kDialogStyle = DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU;
constexpr DWORD kChild = WS_CHILD | WS_VISIBLE;
constexpr DWORD kDefaultButton = kChild | WS_TABSTOP | BS_DEFPUSHBUTTON;
constexpr DWORD kButton = kChild | WS_TABSTOP | BS_PUSHBUTTON;
constexpr DWORD kFrame = kChild | BS_GROUPBOX;
constexpr DWORD kLabel = kChild | WS_GROUP | SS_LEFT;
constexpr DWORD kEdit = kChild | WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL;
constexpr DWORD kDropList = kChild | WS_VSCROLL | WS_TABSTOP | CBS_DROPDOWNLIST | CBS_SORT;
constexpr DWORD kCheck = kChild | WS_TABSTOP | BS_AUTOCHECKBOX;
constexpr DWORD kRadio = kChild | BS_AUTORADIOBUTTON;
constexpr DWORD kFirstRadio = kRadio | WS_GROUP | WS_TABSTOP;

class Templates : public testing::Test
{
protected:
    DialogResource Dialog(UINT number) const
    {
        const std::string_view bytes = ResourceBytes(module.Handle(), number, MAKEINTRESOURCEW(5));
        EXPECT_FALSE(bytes.empty()) << "no dialog " << number;
        return bytes.empty() ? DialogResource() : DialogResource::Read(bytes);
    }

    ModuleUnderTest module;
};

void ExpectFrame(const DialogResource& dialog, const wchar_t* title, short width, short height,
                 const wchar_t* font = L"MS Shell Dlg", DWORD style = kDialogStyle)
{
    EXPECT_EQ(dialog.title, title);
    EXPECT_EQ(dialog.width, width);
    EXPECT_EQ(dialog.height, height);
    EXPECT_EQ(dialog.style, style);
    EXPECT_EQ(dialog.exStyle, 0u);
    EXPECT_EQ(dialog.font, font);
    EXPECT_EQ(dialog.pointSize, 8);
}

using Controls = std::vector<DialogControl>;
} // namespace

TEST_F(Templates, ProjectChoice)
{
    const DialogResource dialog = Dialog(201);
    ExpectFrame(dialog, L"", 271, 180);
    EXPECT_EQ(dialog.controls, (Controls{{L"button", 1, L"OK", 191, 7, 73, 14, kDefaultButton},
                                         {L"button", 3, L"&Create new", 191, 25, 73, 14, kButton},
                                         {L"button", 2, L"Cancel", 191, 43, 73, 14, kButton},
                                         {L"button", 206, L"Static", 7, 7, 170, 169, kFrame}}));
}

TEST_F(Templates, ItemChoice)
{
    const DialogResource dialog = Dialog(204);
    ExpectFrame(dialog, L"Orvoitems", 358, 207);
    EXPECT_EQ(dialog.controls, (Controls{{L"button", 1, L"OK", 301, 7, 50, 14, kDefaultButton},
                                         {L"button", 2, L"Cancel", 301, 24, 50, 14, kButton},
                                         {L"button", 206, L"Static", 7, 7, 283, 193, kFrame}}));
}

TEST_F(Templates, ChoiceAmongGivenObjects)
{
    const DialogResource dialog = Dialog(207);
    ExpectFrame(dialog, L"Dialog", 325, 189);
    EXPECT_EQ(dialog.controls, (Controls{{L"button", 1, L"OK", 268, 7, 50, 14, kDefaultButton},
                                         {L"button", 2, L"Cancel", 268, 24, 50, 14, kButton},
                                         {L"button", 206, L"Static", 7, 7, 250, 175, kFrame}}));
}

TEST_F(Templates, ScriptAction)
{
    const DialogResource dialog = Dialog(213);
    ExpectFrame(dialog, L"Script Action Properties", 322, 254, L"MS Sans Serif");
    EXPECT_EQ(dialog.controls,
              (Controls{{L"edit", 250, L"", 91, 20, 210, 14, kEdit},
                        {L"button", 271, L"Script", 7, 48, 308, 38, kFrame},
                        {L"combo", 256, L"", 91, 62, 210, 100, kDropList},
                        {L"button", 272, L"Configuration Type/Plantype", 7, 93, 308, 57, kFrame},
                        {L"static", 267, L"Plantype", 14, 108, 65, 12, kLabel},
                        {L"combo", 266, L"", 91, 108, 210, 100, kDropList},
                        {L"static", 269, L"Configuration Type", 14, 124, 65, 12, kLabel},
                        {L"combo", 268, L"", 91, 124, 210, 100, kDropList},
                        {L"static", 255, L"Action Type", 14, 170, 65, 12, kLabel},
                        {L"combo", 254, L"", 91, 170, 210, 100, kDropList},
                        {L"button", 264, L"Enabled", 7, 232, 85, 15, kCheck | BS_LEFTTEXT},
                        {L"button", 261, L"Before/After", 174, 188, 127, 30, kFrame},
                        {L"button", 262, L"After", 253, 200, 31, 10, kFirstRadio},
                        {L"button", 263, L"Before", 189, 200, 37, 10, kRadio},
                        {L"static", 260, L"Processing Sequence", 13, 190, 73, 21, kLabel},
                        {L"edit", 251, L"", 91, 190, 43, 14, kEdit},
                        {L"button", 1, L"OK", 212, 233, 50, 14, kDefaultButton},
                        {L"button", 2, L"Cancel", 265, 233, 50, 14, kButton},
                        {L"button", 273, L"Name", 7, 6, 308, 38, kFrame},
                        {L"button", 274, L"Action Properties", 7, 156, 308, 70, kFrame}}));
}

TEST_F(Templates, ScriptCommand)
{
    const DialogResource dialog = Dialog(214);
    ExpectFrame(dialog, L"Script Command Properties", 322, 329, L"MS Sans Serif");
    EXPECT_EQ(dialog.controls,
              (Controls{{L"static", 303, L"Name", 14, 20, 65, 14, kLabel},
                        {L"edit", 300, L"", 91, 20, 210, 14, kEdit},
                        {L"static", 320, L"Prompt", 14, 38, 65, 14, kLabel},
                        {L"edit", 302, L"", 91, 38, 210, 14, kEdit},
                        {L"button", 321, L"Script/VBA Macro", 7, 68, 308, 57, kFrame},
                        {L"static", 307, L"Script", 14, 82, 65, 12, kLabel},
                        {L"combo", 306, L"", 91, 82, 210, 100, kDropList},
                        {L"static", 309, L"VBA Macro", 14, 98, 65, 12, kLabel},
                        {L"combo", 308, L"", 91, 98, 210, 100, kDropList},
                        {L"button", 322, L"Configuration Type/Plantype", 7, 128, 308, 57, kFrame},
                        {L"static", 317, L"Plantype", 14, 143, 65, 12, kLabel},
                        {L"combo", 316, L"", 91, 143, 210, 100, kDropList},
                        {L"static", 319, L"Configuration Type", 14, 159, 65, 12, kLabel},
                        {L"combo", 318, L"", 91, 159, 210, 100, kDropList},
                        {L"button", 1, L"OK", 212, 308, 50, 14, kDefaultButton},
                        {L"button", 2, L"Cancel", 265, 308, 50, 14, kButton},
                        {L"button", 323, L"Name/Prompt", 7, 6, 308, 58, kFrame},
                        {L"button", 324, L"Command Properties", 7, 190, 150, 91, kFrame},
                        {L"button", 350, L"Display in context menu", 14, 229, 120, 13, kCheck},
                        {L"button", 353, L"Visible", 14, 211, 82, 10, kCheck},
                        {L"static", 355, L"Script execution", 13, 289, 69, 8, kLabel},
                        {L"combo", 356, L"", 93, 287, 214, 51, kDropList},
                        {L"button", 354, L"Display in properties dialog", 14, 253, 99, 10, kCheck},
                        {L"button", 361, L"Options (Display on Properties Sheet)", 160, 190, 155, 91,
                         kFrame | WS_DISABLED},
                        {L"static", 362, L"Element", 169, 204, 28, 9, kLabel | WS_DISABLED},
                        {L"static", 363, L"Name", 168, 253, 22, 10, kLabel | WS_DISABLED},
                        {L"combo", 360, L"", 167, 264, 143, 44,
                         kChild | WS_VSCROLL | WS_TABSTOP | CBS_DROPDOWN | CBS_SORT | CBS_AUTOHSCROLL |
                             WS_DISABLED},
                        {L"button", 357, L"Page", 227, 212, 33, 10, kFirstRadio},
                        {L"button", 358, L"Group", 227, 227, 35, 10, kRadio},
                        {L"button", 359, L"Attribute", 227, 242, 42, 10, kRadio}}));
}

/// Resizable; no button is the default one.
TEST_F(Templates, Bookmarks)
{
    const DialogResource dialog = Dialog(217);
    ExpectFrame(dialog, L"Bookmark", 364, 235, L"MS Shell Dlg", kDialogStyle | WS_THICKFRAME);
    EXPECT_EQ(dialog.controls, (Controls{{L"static", -1, L"Select a Project", 7, 14, 106, 11, kLabel},
                                         {L"combo", 382, L"", 7, 26, 199, 78, kDropList},
                                         {L"static", -1, L"Select Bookmark Object", 7, 44, 117, 9, kLabel},
                                         {L"SYSLISTVIEW32", 383, L"", 7, 57, 348, 137,
                                          kChild | WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SORTASCENDING},
                                         {L"button", 384, L"Open", 66, 202, 50, 14, kButton},
                                         {L"button", 380, L"Delete", 126, 202, 50, 14, kButton},
                                         {L"button", 381, L"Delete All", 188, 202, 50, 14, kButton},
                                         {L"button", 2, L"Close", 246, 202, 50, 14, kButton}}));
}

TEST_F(Templates, TheIconOfTheBookmarks)
{
    EXPECT_NE(LoadIconW(module.Handle(), MAKEINTRESOURCEW(385)), nullptr);
}

// Two default buttons, and radio buttons in their place: the dialog shows either these or those. The resource
// compiler writes the names of window classes in capitals; case does not matter in them.
TEST_F(Templates, CopyOptions)
{
    constexpr DWORD hidden = WS_CHILD | WS_DISABLED;
    const DialogResource dialog = Dialog(379);
    ExpectFrame(dialog, L"Copy Options", 199, 209, L"Microsoft Sans Serif");
    EXPECT_EQ(
        dialog.controls,
        (Controls{
            {L"button", 372, L"Please select a copy option.", 7, 7, 185, 97, kFrame},
            {L"static", -1, L"Normal =", 14, 27, 43, 11, kLabel},
            {L"static", -1, L"Parent component only", 47, 27, 95, 10, kLabel},
            {L"static", -1, L"Deep   =", 14, 39, 42, 11, kLabel},
            {L"static", -1, L"Parent and child components", 47, 38, 145, 17, kLabel},
            {L"button", 367, L"Normal", 17, 62, 44, 15, kDefaultButton},
            {L"button", 368, L"Deep", 84, 61, 43, 15, kDefaultButton},
            {L"button", 369, L"Cancel", 143, 60, 44, 16, kButton},
            {L"button", 371, L"Advanced >>", 133, 83, 54, 15, kButton},
            {L"button", 375, L"Normal", 21, 63, 37, 11, hidden | WS_GROUP | WS_TABSTOP | BS_AUTORADIOBUTTON},
            {L"button", 376, L"Deep", 87, 62, 36, 12, hidden | BS_AUTORADIOBUTTON},
            {L"combo", 374, L"", 10, 85, 109, 58,
             hidden | WS_GROUP | WS_VSCROLL | WS_TABSTOP | CBS_DROPDOWNLIST | CBS_SORT},
            {L"SYSLISTVIEW32", 373, L"", 7, 108, 179, 66, kChild | WS_BORDER | WS_TABSTOP | LVS_REPORT},
            {L"button", 377, L"OK", 21, 180, 36, 17, kButton},
            {L"button", 378, L"Cancel", 101, 180, 38, 17, kButton}}));
}
