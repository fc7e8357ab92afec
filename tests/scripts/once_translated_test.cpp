// The mode of a command for a user who reads German: a script's short name is compared with the German words
// for "Once for all objects", and no longer with the English ones.
#include "ManagerFixture.h"

#include "Translation.h"

namespace
{
/// Before anything is translated in this program.
const bool kInGerman = SetEnvironmentVariableW(L"QPTOOLS_LANG", L"de") != 0;

constexpr const wchar_t* kEnglish = L"Once for all objects";
constexpr const wchar_t* kGerman = L"Einmal f\u00FCr alle Objekte";

class GermanCommands : public ManagerFixture
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(kInGerman);
        ASSERT_STREQ(CoTranslateText(kEnglish), kGerman) << "the German catalogue is not in use";
    }
};

TEST_F(GermanCommands, TheGermanWordsMeanOnceForAllObjectsAndOnlyExactly)
{
    Finds({ScriptCommand("c1", L"A", Script("s"), kGerman),
           ScriptCommand("c2", L"B", Script("s"), L"einmal f\u00FCr alle Objekte"),
           ScriptCommand("c3", L"C", Script("s"), L"Einmal f\u00FCr alle Objekte "),
           ScriptCommand("c4", L"D", Script("s"), L"Einmal f\u00FCr alle"),
           ScriptCommand("c5", L"E", Script("s"), L"Einmal fu\u0308r alle Objekte")});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(
        Rows(),
        (TextRows{
            {"A", "<s>", "0"}, {"B", "<s>", "1"}, {"C", "<s>", "1"}, {"D", "<s>", "1"}, {"E", "<s>", "1"}}));
}

TEST_F(GermanCommands, TheEnglishWordsMeanNothingAndZeroStillDoes)
{
    Finds({ScriptCommand("c1", L"A", Script("s"), kEnglish), ScriptCommand("c2", L"B", Script("s"), L"0"),
           ScriptCommand("c3", L"C", Script("s"), L"F\u00FCr jedes Objekt")});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"A", "<s>", "1"}, {"B", "<s>", "0"}, {"C", "<s>", "1"}}));
}

TEST_F(GermanCommands, AMacroRunsForEachObjectWhateverItsShortName)
{
    Finds({MacroCommand("c1", L"A", L"M1", kGerman), MacroCommand("c2", L"B", L"M2", kEnglish),
           MacroCommand("c3", L"C", L"M3", L"0"),
           MacroCommand("c4", L"D", L"M4", CoTranslateText(kEnglish))});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"A", "M1", "1"}, {"B", "M2", "1"}, {"C", "M3", "1"}, {"D", "M4", "1"}}));
}
} // namespace
