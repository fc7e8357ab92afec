// What the component asks of the libraries for logging and translation, call by call.
#include "RecordedLibraries.h"

#include "QPUserActionLog.h"
#include "XQPComBSTR.h"

#include "ComPtr.h"
#include "UiState.h"

#include <gtest/gtest.h>

namespace
{

class LogCalls : public ::testing::Test
{
protected:
    LogCalls()
    {
        g_logCalls.clear();
        g_translationCalls.clear();
        CreateComObject<qptools::QPUserActionLog>(nullptr, __uuidof(IQPUserActionLog), log.putVoid());
    }

    /// Expects that all since the last time was one call for a whole text.
    void ExpectOneCall(std::wstring_view end)
    {
        ASSERT_EQ(g_logCalls.size(), 1u);
        EXPECT_EQ(g_logCalls[0].logName, L"UserActions");
        EXPECT_TRUE(std::wstring_view(g_logCalls[0].text).ends_with(end));
        EXPECT_EQ(g_logCalls[0].uiDepth, 1) << "inside the module's UI state";
        EXPECT_EQ(CUiState::Depth(), 0);
        g_logCalls.clear();
    }

    ComPtr<IQPUserActionLog> log;
};

TEST_F(LogCalls, EveryMethodWritesOnceInsideTheUiState)
{
    const unsigned entries = CUiState::Entries();
    EXPECT_EQ(log->WriteTimeStampWithInfo(XQPComBSTR(L"info")), S_OK);
    ExpectOneCall(L"\n");
    EXPECT_EQ(log->WriteLine(XQPComBSTR(L"a line")), S_OK);
    ExpectOneCall(L"a line");
    EXPECT_EQ(log->WriteUserActionInfo(nullptr, nullptr, nullptr, nullptr, nullptr), S_OK);
    ExpectOneCall(L"\n# <-- \n");
    EXPECT_EQ(log->WriteTimeStamp(), S_OK);
    ExpectOneCall(L"");
    EXPECT_EQ(CUiState::Entries() - entries, 4u);
}

TEST_F(LogCalls, ANullLineIsOneCallWithAnEmptyText)
{
    EXPECT_EQ(log->WriteLine(nullptr), S_OK);
    ASSERT_EQ(g_logCalls.size(), 1u);
    EXPECT_EQ(g_logCalls[0].text, L"");
}

TEST_F(LogCalls, OnlyTheTwoLabelsAreTranslatedAndUsedAsReturned)
{
    EXPECT_EQ(log->WriteUserActionInfo(XQPComBSTR(L"A"), XQPComBSTR(L"I"), XQPComBSTR(L"G"), XQPComBSTR(L"N"),
                                       XQPComBSTR(L"T")),
              S_OK);
    ASSERT_EQ(g_translationCalls.size(), 2u);
    EXPECT_EQ(g_translationCalls[0].text, L"Configured Name of Object: ");
    EXPECT_EQ(g_translationCalls[1].text, L"(Plan-)Type: ");
    for (const TranslationCall& call : g_translationCalls)
    {
        EXPECT_TRUE(call.changeable);
        EXPECT_TRUE(call.narrow);
        EXPECT_EQ(call.uiDepth, 1);
    }
    ASSERT_EQ(g_logCalls.size(), 1u);
    const std::wstring& text = g_logCalls[0].text;
    EXPECT_EQ(text.substr(text.find(L'\n')), L"\n# --> A\nObject ID: I\nObject GUID: G\n"
                                             L"[Configured Name of Object: ]N\n[(Plan-)Type: ]T\n# <-- \n");
}

TEST_F(LogCalls, NothingElseIsTranslated)
{
    log->WriteTimeStampWithInfo(XQPComBSTR(L"info"));
    log->WriteLine(XQPComBSTR(L"line"));
    log->WriteTimeStamp();
    EXPECT_TRUE(g_translationCalls.empty());
}

} // namespace
