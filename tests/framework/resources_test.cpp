#include "Resources.h"

#include "TestDialog.h"

#include <gtest/gtest.h>

TEST(ResourceString, IsReadAtAnyLength)
{
    const DialogModule module;
    const CUiState state;
    EXPECT_EQ(ResourceString(33), L"twelve chars");
    EXPECT_EQ(ResourceString(48), L"A text of a hundred characters, which is longer than most, so that a "
                                  L"program reads it in two stages.");
    EXPECT_EQ(ResourceString(99), L"");
}
