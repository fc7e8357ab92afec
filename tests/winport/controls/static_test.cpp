// Static texts and icons in a dialog.
#include "ControlHost.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
LRESULT Icon(LPCWSTR name)
{
    return reinterpret_cast<LRESULT>(LoadIconW(nullptr, name));
}
} // namespace

TEST(StaticText, HoldsItsText)
{
    for (const DWORD style : {DWORD{SS_LEFT}, DWORD{SS_CENTER}, DWORD{SS_RIGHT}, DWORD{SS_NOPREFIX}})
    {
        const ControlHost host(WC_STATICW, style);
        EXPECT_EQ(host.Text(), L"");
        EXPECT_TRUE(SetWindowTextW(host.Control(), L"&Name:"));
        EXPECT_EQ(host.Text(), L"&Name:");
        EXPECT_TRUE(SetWindowTextW(host.Control(), nullptr));
        EXPECT_EQ(host.Text(), L"");
    }
}

TEST(StaticText, IsNothingForTheKeyboardOrTheMouse)
{
    ControlHost host(WC_STATICW, SS_LEFT);
    EXPECT_EQ(host.Send(WM_GETDLGCODE), DLGC_STATIC);
    EXPECT_EQ(host.Send(WM_NCHITTEST, 0, MAKELPARAM(15, 15)), HTTRANSPARENT);
    host.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    host.Send(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_NE(GetFocus(), host.Control());
    EXPECT_EQ(host.Codes(), std::vector<int>{});
}

TEST(StaticText, HasNoIcon)
{
    const ControlHost host(WC_STATICW, SS_LEFT);
    EXPECT_EQ(host.Send(STM_GETICON), 0);
    EXPECT_EQ(host.Send(STM_SETICON, static_cast<WPARAM>(Icon(IDI_HAND))), 0);
    EXPECT_EQ(host.Send(STM_GETICON), 0);
}

TEST(StaticIcon, HoldsAnIcon)
{
    const ControlHost host(WC_STATICW, SS_ICON);
    EXPECT_EQ(host.Send(STM_GETICON), 0);
    EXPECT_EQ(host.Send(STM_SETICON, static_cast<WPARAM>(Icon(IDI_HAND))), 0);
    EXPECT_EQ(host.Send(STM_GETICON), Icon(IDI_HAND));
    EXPECT_EQ(host.Send(STM_SETICON, static_cast<WPARAM>(Icon(IDI_QUESTION))), Icon(IDI_HAND));
    EXPECT_EQ(host.Send(STM_GETICON), Icon(IDI_QUESTION));
    EXPECT_NE(Icon(IDI_HAND), Icon(IDI_QUESTION));
}
