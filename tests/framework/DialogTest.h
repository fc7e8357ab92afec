// What the tests on the dialog of TestDialog.h share.
#pragma once

#include "TestDialog.h"

#include "DialogDriver.h"

#include <gtest/gtest.h>

#include <utility>

class DialogTest : public testing::Test
{
protected:
    /// Runs the dialog with these steps and then cancels it.
    void Run(Steps steps)
    {
        steps.push_back(Presses(IDCANCEL));
        driver.OnDialog(std::move(steps));
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
        EXPECT_EQ(CLiveWindow::Count(), 0);
    }
    void Run(DialogStep step) { Run(Steps{std::move(step)}); }

    const DialogModule module;
    const CUiState state;
    DialogDriver driver;
    TestDialog dialog;
};
