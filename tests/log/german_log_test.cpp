// The log of a user who reads German: two labels follow the language, everything else stays.
#include "LogFolder.h"
#include "ModuleUnderTest.h"
#include "TimeStamps.h"
#include "XQPComBSTR.h"

#include "qptools.h"

namespace
{
/// Before anything is translated in this program.
const bool kInGerman = SetEnvironmentVariableW(L"QPTOOLS_LANG", L"de") != 0;

TEST(GermanUserActionLog, OnlyTwoLabelsAreTranslatedWithTheirTrailingBlanks)
{
    ASSERT_TRUE(kInGerman);
    const LogFolder folder;
    const ModuleUnderTest module;
    ComPtr<IQPUserActionLog> log;
    ASSERT_EQ(module.Create(CLSID_QPUserActionLog, log), S_OK);
    EXPECT_EQ(log->WriteUserActionInfo(XQPComBSTR(L"Kopie"), XQPComBSTR(L"$12"), XQPComBSTR(L"{0A}"),
                                       XQPComBSTR(L"Roboter"), XQPComBSTR(L"Schwei\u00DFen")),
              S_OK);
    EXPECT_EQ(log->WriteTimeStampWithInfo(XQPComBSTR(L"Ende")), S_OK);
    const std::string text = folder.Bytes();
    EXPECT_TRUE(HasShape(text, kTimeStampShape +
                                   "\n"
                                   "# --> Kopie\n"
                                   "Object ID: $12\n"
                                   "Object GUID: {0A}\n"
                                   "Konfigurierter Name des Objekts: Roboter\n"
                                   "(Plan-)Typ: Schwei\xC3\x9F"
                                   "en\n"
                                   "# <-- \n"
                                   "Ende at  " +
                                   kTimeStampShape + "\n"))
        << text;
}
} // namespace
