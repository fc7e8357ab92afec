#include "ActiveWindow.h"
#include "BoxAnswers.h"
#include "MessageBoxes.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <functional>

TEST(MessageBoxes, ShowAPlainText)
{
    BoxAnswers boxes;
    boxes.Expect(L"Title", L"Text", IDOK);
    CoOkBox(nullptr, L"Title", L"Text", 0);
    ASSERT_TRUE(boxes.AllShown());
    EXPECT_EQ(boxes.Shown()[0].buttons, MB_OK);
    EXPECT_EQ(boxes.Shown()[0].icon, 0u);
}

TEST(MessageBoxes, ShowAnError)
{
    BoxAnswers boxes;
    boxes.Expect(L"Title", L"Text", IDOK);
    EXPECT_EQ(CoErrorBox(nullptr, L"Title", L"Text", 0), IDOK);
    ASSERT_TRUE(boxes.AllShown());
    EXPECT_EQ(boxes.Shown()[0].buttons, MB_OK);
    EXPECT_EQ(boxes.Shown()[0].icon, MB_ICONERROR);
}

TEST(MessageBoxes, ShowAnInformation)
{
    BoxAnswers boxes;
    boxes.Expect(L"Title", L"Text", IDOK);
    EXPECT_EQ(CoInfoBox(nullptr, L"Title", L"Text", 0), IDOK);
    ASSERT_TRUE(boxes.AllShown());
    EXPECT_EQ(boxes.Shown()[0].buttons, MB_OK);
    EXPECT_EQ(boxes.Shown()[0].icon, MB_ICONINFORMATION);
}

TEST(MessageBoxes, AskAQuestion)
{
    BoxAnswers boxes;
    boxes.Expect(L"Delete", L"Really?", IDYES);
    boxes.Expect(L"Delete", L"Really?", IDNO);
    EXPECT_EQ(CoYesNoBox(nullptr, L"Delete", L"Really?", 0), 6);
    EXPECT_EQ(CoYesNoBox(nullptr, L"Delete", L"Really?", 0), 7);
    ASSERT_TRUE(boxes.AllShown());
    EXPECT_EQ(boxes.Shown()[0].buttons, MB_YESNO);
    EXPECT_EQ(boxes.Shown()[0].icon, MB_ICONQUESTION);
}

TEST(MessageBoxes, ShowTextsAsTheyAre)
{
    BoxAnswers boxes;
    boxes.Expect(L"Gr\u00f6\u00dfe", L"one\ntwo %s", IDOK);
    CoOkBox(nullptr, L"Gr\u00f6\u00dfe", L"one\ntwo %s", 0);
}

TEST(MessageBoxes, TakeNullTextsForEmptyOnes)
{
    BoxAnswers boxes;
    boxes.Expect({}, {}, IDOK);
    CoErrorBox(nullptr, nullptr, nullptr, 0);
}

TEST(MessageBoxes, AreInFrontOfTheirParent)
{
    const ActiveWindow active;
    const ActiveWindow parent;
    const ActiveWindow activeAgain;
    BoxAnswers boxes;
    boxes.Expect(L"Title", L"Text", IDOK);
    CoOkBox(parent.Handle(), L"Title", L"Text", 0);
    ASSERT_TRUE(boxes.AllShown());
    EXPECT_EQ(boxes.Shown()[0].owner, parent.Handle());
}

TEST(MessageBoxes, AreInFrontOfTheActiveWindowWithoutAParent)
{
    const ActiveWindow active;
    using Box = std::function<void()>;
    const Box boxesOfEachKind[] = {[] { CoOkBox(nullptr, L"Title", L"Text", 0); },
                                   [] { CoErrorBox(nullptr, L"Title", L"Text", 0); },
                                   [] { CoYesNoBox(nullptr, L"Title", L"Text", 0); },
                                   [] {
                                       CoInfoBox(nullptr, L"Title", L"Text", 0);
                                   }};
    for (const Box& show : boxesOfEachKind)
    {
        BoxAnswers boxes;
        boxes.Expect(L"Title", L"Text", &show == &boxesOfEachKind[2] ? IDNO : IDOK);
        active.Activate();
        ASSERT_EQ(GetActiveWindow(), active.Handle());
        show();
        ASSERT_TRUE(boxes.AllShown());
        EXPECT_EQ(boxes.Shown()[0].owner, active.Handle());
    }
}

TEST(MessageBoxes, HaveNoOwnerWithoutAnyWindow)
{
    ASSERT_EQ(GetActiveWindow(), nullptr);
    BoxAnswers boxes;
    boxes.Expect(L"Title", L"Text", IDOK);
    CoOkBox(nullptr, L"Title", L"Text", 0);
    ASSERT_TRUE(boxes.AllShown());
    EXPECT_EQ(boxes.Shown()[0].owner, nullptr);
}

TEST(BoxDriver, RunsWhatIsToHappenWhileABoxIsUp)
{
    BoxAnswers boxes;
    int shown = 0;
    boxes.Expect(L"Title", L"Text", IDYES, [&] { shown = static_cast<int>(boxes.Shown().size()); });
    EXPECT_EQ(CoYesNoBox(nullptr, L"Title", L"Text", 0), IDYES);
    EXPECT_EQ(shown, 1);
}

TEST(BoxDriver, FailsATestWithAnUnexpectedBox)
{
    EXPECT_NONFATAL_FAILURE(
        {
            BoxAnswers boxes;
            EXPECT_EQ(CoYesNoBox(nullptr, L"Surprise", L"Text", 0), IDNO);
        },
        "nobody expected the box \"Surprise\" with the text \"Text\"");
}

TEST(BoxDriver, FailsATestWhoseBoxNeverCame)
{
    EXPECT_NONFATAL_FAILURE(
        {
            BoxAnswers boxes;
            boxes.Expect(L"Title", L"Text", IDOK);
            EXPECT_FALSE(boxes.AllShown());
        },
        "the box \"Title\" with the text \"Text\" was never shown");
}

TEST(BoxDriver, FailsATestWithAnotherText)
{
    EXPECT_NONFATAL_FAILURE(
        {
            BoxAnswers boxes;
            boxes.Expect(L"Title", L"Text", IDOK);
            EXPECT_EQ(CoInfoBox(nullptr, L"Title", L"Other", 0), IDOK);
        },
        "the box \"Title\" with the text \"Other\" came instead of the box \"Title\" with the text \"Text\"");
}

TEST(BoxDriver, FailsATestWhoseBoxLacksTheButton)
{
    EXPECT_NONFATAL_FAILURE(
        {
            BoxAnswers boxes;
            boxes.Expect(L"Title", L"Text", IDYES);
            EXPECT_EQ(CoInfoBox(nullptr, L"Title", L"Text", 0), IDOK);
        },
        "has no button 6");
}
