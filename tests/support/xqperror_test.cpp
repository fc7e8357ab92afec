#include "TestFolder.h"
#include "XQPError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <ctime>
#include <sstream>

namespace
{
// Logs go to a folder of the test's own.
class ErrorLibrary : public testing::Test
{
protected:
    std::string Log(const char* name) const
    {
        return ReadBytes(m_folder.Path() / (std::string(name) + ".log"));
    }

    // The fields of the log book's only entry.
    std::vector<std::string> OnlyEntry() const
    {
        const std::vector<std::string> lines = ReadLines(m_folder.Path() / "logbook.log");
        EXPECT_EQ(lines.size(), 1u);
        std::vector<std::string> fields;
        std::istringstream line(lines.empty() ? "" : lines[0]);
        for (std::string field; std::getline(line, field, '\t');)
            fields.push_back(field);
        EXPECT_GE(fields.size(), 7u);
        fields.resize(8);
        return fields;
    }

    TestFolder m_folder;
    TestVariable m_directory{L"QPTOOLS_LOG_DIR", m_folder.Path().wstring()};
};

std::vector<std::string> WithoutTime(std::vector<std::string> fields)
{
    fields.erase(fields.begin());
    return fields;
}

using Fields = std::vector<std::string>;
constexpr LONG kAccessDenied = static_cast<LONG>(0x80070005);

std::wstring Repeated(std::size_t count)
{
    return std::wstring(count, L'x');
}
} // namespace

TEST_F(ErrorLibrary, AppendsATextAsItIsToTheLogNamed)
{
    XQPError::WriteLogLine(L"UserActions", L"first");
    EXPECT_EQ(Log("UserActions"), "first");
    XQPError::WriteLogLine(L"UserActions", L" second\n\nthird\r\n\t\\n%s\n");
    EXPECT_EQ(Log("UserActions"), "first second\n\nthird\r\n\t\\n%s\n");
    XQPError::WriteLogLine(L"Other", L"elsewhere");
    EXPECT_EQ(Log("Other"), "elsewhere");
    EXPECT_EQ(m_folder.Names(), (Fields{"Other.log", "UserActions.log"}));
}

TEST_F(ErrorLibrary, WritesUtf8WithoutAMark)
{
    XQPError::WriteLogLine(L"UserActions", L"Gr\u00f6\u00dfe \u20ac \u4e2d");
    EXPECT_EQ(Log("UserActions"), "Gr\xc3\xb6\xc3\x9f"
                                  "e \xe2\x82\xac \xe4\xb8\xad");
}

TEST_F(ErrorLibrary, WritesACharacterOutsideTheBasicPlaneAsFourBytes)
{
    XQPError::WriteLogLine(L"UserActions", L"\U0001F600");
    EXPECT_EQ(Log("UserActions"), "\xf0\x9f\x98\x80");
}

TEST_F(ErrorLibrary, WritesHalfACharacterAsTheReplacementCharacter)
{
    const wchar_t half[] = {L'a', 0xd83d, L'b', 0};
    XQPError::WriteLogLine(L"UserActions", half);
    EXPECT_EQ(Log("UserActions"), "a\xef\xbf\xbd"
                                  "b");
}

TEST_F(ErrorLibrary, WritesNothingForNoText)
{
    XQPError::WriteLogLine(L"UserActions", nullptr);
    XQPError::WriteLogLine(L"UserActions", L"");
    EXPECT_EQ(m_folder.Names(), Fields{});
}

TEST_F(ErrorLibrary, WritesALongTextWhole)
{
    XQPError::WriteLogLine(L"UserActions", Repeated(3000000).c_str());
    EXPECT_EQ(Log("UserActions"), std::string(3000000, 'x'));
}

TEST_F(ErrorLibrary, TakesAnyPlainFileNameForALog)
{
    const std::pair<const wchar_t*, const char8_t*> plain[] = {
        {L"a", u8"a.log"},
        {L"User Actions", u8"User Actions.log"},
        {L".hidden", u8".hidden.log"},
        {L"a.b", u8"a.b.log"},
        {L"a..", u8"a...log"},
        {L"\u00dcbersicht", u8"\u00dcbersicht.log"},
        {L"console", u8"console.log"},
        {L"com", u8"com.log"},
        {L"com10", u8"com10.log"},
        {L"comb", u8"comb.log"},
        {L"logbook2", u8"logbook2.log"},
        {L"~$'#%&{}!^=+,;[]@", u8"~$'#%&{}!^=+,;[]@.log"}};
    for (const auto& [name, file] : plain)
    {
        XQPError::WriteLogLine(name, L"x");
        EXPECT_EQ(ReadBytes(m_folder.Path() / file), "x") << reinterpret_cast<const char*>(file);
    }
    XQPError::WriteLogLine(Repeated(100).c_str(), L"x");
    EXPECT_EQ(m_folder.Names().size(), 13u);
}

TEST_F(ErrorLibrary, NotesALogNameThatIsNoPlainFileNameInTheLogBook)
{
    const std::wstring tooLong = Repeated(101);
    const std::pair<const wchar_t*, const char*> hostile[] = {
        {nullptr, ""},
        {L"", ""},
        {L".", "."},
        {L"..", ".."},
        {L"...", "..."},
        {L"../x", "../x"},
        {L"..\\x", "..\\\\x"},
        {L"a/b", "a/b"},
        {L"/etc/x", "/etc/x"},
        {L"C:\\x", "C:\\\\x"},
        {L"C:x", "C:x"},
        {L"a:stream", "a:stream"},
        {L"\\\\server\\share\\x", "\\\\\\\\server\\\\share\\\\x"},
        {L"a*", "a*"},
        {L"a?", "a?"},
        {L"a<b", "a<b"},
        {L"a>b", "a>b"},
        {L"a|b", "a|b"},
        {L"a\"b", "a\"b"},
        {L"a\nb", "a\\nb"},
        {L"a\x1f", "a\\u001f"},
        {L"a\x7f", "a\\u007f"},
        {L"con", "con"},
        {L"CON", "CON"},
        {L"Con.txt", "Con.txt"},
        {L"nul", "nul"},
        {L"nul .x", "nul .x"},
        {L"aux", "aux"},
        {L"prn", "prn"},
        {L"com1", "com1"},
        {L"COM9.a.b", "COM9.a.b"},
        {L"lpt0", "lpt0"},
        {L"lpt\u00b2", "lpt\xc2\xb2"},
        {L"conin$", "conin$"},
        {L"CONOUT$", "CONOUT$"},
        {L"logbook", "logbook"},
        {L"LogBook", "LogBook"},
        {tooLong.c_str(), nullptr}};
    for (const auto& [name, written] : hostile)
    {
        std::filesystem::remove(m_folder.Path() / "logbook.log");
        XQPError::WriteLogLine(name, L"secret");
        EXPECT_EQ(m_folder.Names(), Fields{"logbook.log"});
        const std::string shown = written ? written : std::string(101, 'x');
        EXPECT_EQ(WithoutTime(OnlyEntry()), (Fields{"error", "XQPError", "WriteLogLine", "0", "0x80070057",
                                                    "-", "No log has the name: " + shown}));
    }
}

TEST_F(ErrorLibrary, NotesALineInTheLogBook)
{
    XQPError::WriteLogLineToLogBook(L"Orvoexplorer", L"Apply", 245, L"no such attribute");
    EXPECT_EQ(WithoutTime(OnlyEntry()),
              (Fields{"note", "Orvoexplorer", "Apply", "245", "-", "-", "no such attribute"}));
}

TEST_F(ErrorLibrary, NotesAnErrorWithItsStatusInTheLogBook)
{
    XQPError::WriteErrorToLogBook(L"QPTools", L"Load", 12, L"cannot load", kAccessDenied);
    EXPECT_EQ(WithoutTime(OnlyEntry()),
              (Fields{"error", "QPTools", "Load", "12", "0x80070005", "-", "cannot load"}));
}

TEST_F(ErrorLibrary, RecordsAFailedHostCallAndReturnsTheStatus)
{
    EXPECT_EQ(XQPError::HandleComError(E_FAIL, L"QPTools", L"GetObject  failed", 99, true, false), E_FAIL);
    EXPECT_EQ(WithoutTime(OnlyEntry()),
              (Fields{"host call", "QPTools", "-", "99", "0x80004005", "true,false", "GetObject  failed"}));
}

TEST_F(ErrorLibrary, RecordsTheFlagsOfAFailedHostCallAsTheyAre)
{
    for (const bool first : {false, true})
        for (const bool second : {false, true})
        {
            std::filesystem::remove(m_folder.Path() / "logbook.log");
            XQPError::HandleComError(E_FAIL, L"s", L"m", 1, first, second);
            const std::string expected =
                std::string(first ? "true" : "false") + "," + (second ? "true" : "false");
            EXPECT_EQ(OnlyEntry()[6], expected);
        }
}

TEST_F(ErrorLibrary, RecordsAnErrorSetForTheCallerAndReturnsTheStatus)
{
    EXPECT_EQ(XQPError::SetComError(L"QPTools", L"Constructor", 7, L"no object", E_POINTER), E_POINTER);
    EXPECT_EQ(WithoutTime(OnlyEntry()),
              (Fields{"error set", "QPTools", "Constructor", "7", "0x80004003", "-", "no object"}));
}

TEST_F(ErrorLibrary, RecordsAnotherFailureWithItsFlagAndReturnsTheStatus)
{
    EXPECT_EQ(XQPError::HandleStandardError(L"QPTools", L"Open", 250, L"no view", kAccessDenied, true),
              kAccessDenied);
    EXPECT_EQ(WithoutTime(OnlyEntry()),
              (Fields{"failure", "QPTools", "Open", "250", "0x80070005", "true", "no view"}));
    std::filesystem::remove(m_folder.Path() / "logbook.log");
    EXPECT_EQ(XQPError::HandleStandardError(L"QPTools", L"Open", 250, L"no view", S_FALSE, false), S_FALSE);
    EXPECT_EQ(WithoutTime(OnlyEntry()),
              (Fields{"failure", "QPTools", "Open", "250", "0x00000001", "false", "no view"}));
}

TEST_F(ErrorLibrary, ReturnsEveryStatusItWasGiven)
{
    for (const LONG status :
         {S_OK, S_FALSE, static_cast<HRESULT>(2), E_FAIL, E_OUTOFMEMORY, static_cast<HRESULT>(-1)})
    {
        EXPECT_EQ(XQPError::HandleComError(status, L"s", L"m", 1, true, false), status);
        EXPECT_EQ(XQPError::SetComError(L"s", L"f", 1, L"m", status), status);
        EXPECT_EQ(XQPError::HandleStandardError(L"s", L"f", 1, L"m", status, true), status);
    }
}

TEST_F(ErrorLibrary, KeepsAnEntryOnOneLineWhateverItsTexts)
{
    XQPError::WriteErrorToLogBook(L"a\nb", L"c\td", 1, L"one\r\ntwo\\three\x01\x7f\u0085\u2028\u2029\u00e4",
                                  E_FAIL);
    EXPECT_EQ(WithoutTime(OnlyEntry()),
              (Fields{"error", "a\\nb", "c\\td", "1", "0x80004005", "-",
                      "one\\r\\ntwo\\\\three\\u0001\\u007f\\u0085\\u2028\\u2029\xc3\xa4"}));
}

TEST_F(ErrorLibrary, MarksAnEmptyFieldOfTheLogBook)
{
    XQPError::WriteErrorToLogBook(L"", L"", 1, L"", E_FAIL);
    EXPECT_EQ(WithoutTime(OnlyEntry()), (Fields{"error", "-", "-", "1", "0x80004005", "-", ""}));
}

TEST_F(ErrorLibrary, TakesNullTextsInTheLogBook)
{
    XQPError::WriteErrorToLogBook(nullptr, nullptr, 4294967295u, nullptr, 0);
    EXPECT_EQ(WithoutTime(OnlyEntry()), (Fields{"error", "-", "-", "4294967295", "0x00000000", "-", ""}));
}

TEST_F(ErrorLibrary, StampsAnEntryWithTheLocalTime)
{
    const std::time_t before = std::time(nullptr);
    XQPError::WriteLogLineToLogBook(L"s", L"f", 1, L"m");
    const std::time_t after = std::time(nullptr);
    const std::string stamp = OnlyEntry()[0];
    std::string shape = stamp;
    std::replace_if(
        shape.begin(), shape.end(), [](unsigned char c) { return std::isdigit(c) != 0; }, '0');
    ASSERT_EQ(shape, "0000-00-00 00:00:00.000");
    const auto text = [](std::time_t time) {
        char formatted[32];
        std::strftime(formatted, sizeof(formatted), "%Y-%m-%d %H:%M:%S", std::localtime(&time));
        return std::string(formatted);
    };
    EXPECT_GE(stamp.substr(0, 19), text(before));
    EXPECT_LE(stamp.substr(0, 19), text(after));
}

TEST_F(ErrorLibrary, LogBookTakesOneLineForEachEntry)
{
    for (int entry = 0; entry < 5; ++entry)
        XQPError::WriteLogLineToLogBook(L"s", L"f", 1, L"m\n");
    EXPECT_EQ(ReadLines(m_folder.Path() / "logbook.log").size(), 5u);
}
