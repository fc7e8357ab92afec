// The component's calls of the libraries for logging and translation.
#include "RecordedLibraries.h"
#include "TimeStamps.h"

#include "QPUserActionLog.h"
#include "XQPComBSTR.h"

#include "ComException.h"
#include "ComPtr.h"
#include "UiState.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace
{
class LogCalls : public ::testing::Test
{
protected:
    LogCalls()
    {
        g_logCalls.clear();
        g_translationCalls.clear();
        g_atTranslation = nullptr;
        CreateComObject<qptools::QPUserActionLog>(nullptr, __uuidof(IQPUserActionLog), log.putVoid());
    }

    /// Expects that all since the last time was one call for a whole text of this shape.
    void ExpectOneCall(const std::string& shape)
    {
        ASSERT_EQ(g_logCalls.size(), 1u);
        EXPECT_EQ(g_logCalls[0].logName, L"UserActions");
        const std::string text(g_logCalls[0].text.begin(), g_logCalls[0].text.end());
        EXPECT_TRUE(HasShape(text, shape)) << text;
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
    ExpectOneCall("info at  " + kTimeStampShape + "\n");
    EXPECT_EQ(log->WriteLine(XQPComBSTR(L"a line")), S_OK);
    ExpectOneCall("a line");
    EXPECT_EQ(log->WriteUserActionInfo(nullptr, nullptr, nullptr, nullptr, nullptr), S_OK);
    ExpectOneCall(kTimeStampShape + "\n# --> \nObject ID: \nObject GUID: \n"
                                    "[Configured Name of Object: ]\n[(Plan-)Type: ]\n# <-- \n");
    EXPECT_EQ(log->WriteTimeStamp(), S_OK);
    ExpectOneCall(kTimeStampShape);
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

/// A text with null characters inside.
XQPComBSTR WithNulls(std::wstring_view text)
{
    return {text.data(), static_cast<int>(text.size())};
}

TEST_F(LogCalls, ATextEndsAtItsFirstNullCharacterInsideABlock)
{
    using namespace std::string_view_literals;
    const XQPComBSTR cut = WithNulls(L"a\0b"sv);
    ASSERT_EQ(SysStringLen(cut), 3u);
    log->WriteLine(cut);
    ExpectOneCall("a");
    log->WriteTimeStampWithInfo(cut);
    ExpectOneCall("a at  " + kTimeStampShape + "\n");
    log->WriteUserActionInfo(cut, cut, cut, cut, cut);
    ExpectOneCall(kTimeStampShape + "\n# --> a\nObject ID: a\nObject GUID: a\n"
                                    "[Configured Name of Object: ]a\n[(Plan-)Type: ]a\n# <-- \n");
}

TEST_F(LogCalls, ATextThatBeginsWithANullCharacterIsEmpty)
{
    using namespace std::string_view_literals;
    const XQPComBSTR empty = WithNulls(L"\0b"sv);
    log->WriteLine(empty);
    ExpectOneCall("");
    log->WriteTimeStampWithInfo(empty);
    ExpectOneCall(kTimeStampShape + "\n");
}

TEST_F(LogCalls, OutOfMemoryOfEitherFormLeavesAsOneException)
{
    const std::function<void()> failures[] = {[] { throw std::bad_alloc(); },
                                              [] { throw std::length_error("too long"); },
                                              [] {
                                                  ThrowOutOfMemory();
                                              }};
    for (const auto& failure : failures)
    {
        g_atTranslation = failure;
        HRESULT status = S_OK;
        try
        {
            log->WriteUserActionInfo(nullptr, nullptr, nullptr, nullptr, nullptr);
        }
        catch (const ComException& exception)
        {
            status = exception.Status();
        }
        EXPECT_EQ(status, E_OUTOFMEMORY);
        EXPECT_EQ(CUiState::Depth(), 0);
    }
    EXPECT_TRUE(g_logCalls.empty());
}

TEST_F(LogCalls, AnyOtherFailureIsAStatusAndNotOutOfMemory)
{
    const std::function<void()> failures[] = {[] { throw std::runtime_error("other"); },
                                              [] {
                                                  throw 7;
                                              }};
    for (const auto& failure : failures)
    {
        g_atTranslation = failure;
        EXPECT_EQ(log->WriteUserActionInfo(nullptr, nullptr, nullptr, nullptr, nullptr), E_FAIL);
        EXPECT_EQ(CUiState::Depth(), 0);
    }
    EXPECT_TRUE(g_logCalls.empty());
}
} // namespace
