// The dialogs as they stand in the built module.
#include "DialogResource.h"

#include "ModuleUnderTest.h"

#include "Resources.h"

#include <gtest/gtest.h>

namespace
{
constexpr DWORD kDialogStyle = DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU;
constexpr DWORD kChild = WS_CHILD | WS_VISIBLE;
constexpr DWORD kDefaultButton = kChild | WS_TABSTOP | BS_DEFPUSHBUTTON;
constexpr DWORD kButton = kChild | WS_TABSTOP | BS_PUSHBUTTON;
constexpr DWORD kFrame = kChild | BS_GROUPBOX;

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

void ExpectFrame(const DialogResource& dialog, const wchar_t* title, short width, short height)
{
    EXPECT_EQ(dialog.title, title);
    EXPECT_EQ(dialog.width, width);
    EXPECT_EQ(dialog.height, height);
    EXPECT_EQ(dialog.style, kDialogStyle);
    EXPECT_EQ(dialog.exStyle, 0u);
    EXPECT_EQ(dialog.font, L"MS Shell Dlg");
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
