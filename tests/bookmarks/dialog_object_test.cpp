// The bookmark dialog before it is shown.
#include "MemoryHost.h"

#include "XOpenBookmarkDlg.h"

#include <gtest/gtest.h>

namespace
{
class BookmarkDialogObject : public testing::Test
{
protected:
    ULONG Held() { return host.Manager().References(); }

    MemoryHost host;
};

TEST_F(BookmarkDialogObject, KeepsTheManagerThatItIsGiven)
{
    {
        qptools::XOpenBookmarkDlg dialog;
        EXPECT_EQ(dialog.SetObjectManager(&host.Manager()), S_OK);
        EXPECT_EQ(Held(), 1u);
        EXPECT_EQ(dialog.SetObjectManager(&host.Manager()), S_OK);
        EXPECT_EQ(Held(), 1u);
    }
    EXPECT_EQ(Held(), 0u);
    EXPECT_EQ(host.calls, std::vector<std::string>{});
}

TEST_F(BookmarkDialogObject, TakesNoManagerInPlaceOfOne)
{
    qptools::XOpenBookmarkDlg dialog;
    EXPECT_EQ(dialog.SetObjectManager(&host.Manager()), S_OK);
    EXPECT_EQ(dialog.SetObjectManager(nullptr), S_OK);
    EXPECT_EQ(Held(), 0u);
}

TEST_F(BookmarkDialogObject, ReleasesTheHostOnRequest)
{
    qptools::XOpenBookmarkDlg dialog;
    EXPECT_EQ(dialog.SetObjectManager(&host.Manager()), S_OK);
    dialog.ReleaseHost();
    EXPECT_EQ(Held(), 0u);
    dialog.ReleaseHost();
}
} // namespace
