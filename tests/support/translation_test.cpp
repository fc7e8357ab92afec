#include "CTranslator.h"
#include "CatalogueBytes.h"
#include "DesktopLanguage.h"
#include "TestFolder.h"
#include "Translation.h"
#include "UserLanguage.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <utility>

namespace
{
using Entries = std::vector<CatalogueBytes::Entry>;
using Names = std::vector<std::wstring>;

// Each test has catalogues and logs of its own; the destructor restores translation by the environment.
class Translation : public testing::Test
{
protected:
    ~Translation() override { CTranslator::Instance().UseEnvironment(); }

    void Put(const char* language, const std::string& bytes) const
    {
        WriteBytes(m_folder.Path() / "locale" / language / "qptools.mo", bytes);
    }

    void Use(const wchar_t* language) const
    {
        CTranslator::Instance().Use((m_folder.Path() / "locale").wstring(), language);
    }

    std::vector<std::string> LogBook() const { return ReadLines(m_folder.Path() / "logs" / "logbook.log"); }

    TestFolder m_folder;
    TestVariable m_logs{L"QPTOOLS_LOG_DIR", (m_folder.Path() / "logs").wstring()};
};

const std::string kGerman =
    CatalogueBytes::Make({CatalogueBytes::Header(), {"Pump", "Pumpe"}, {"Valve", "Ventil"}});
} // namespace

TEST_F(Translation, TranslatesIntoTheLanguage)
{
    Put("de", kGerman);
    Use(L"de");
    EXPECT_STREQ(CoTranslateText(L"Pump"), L"Pumpe");
    EXPECT_STREQ(CoTranslateText2(L"Pump"), L"Pumpe");
    EXPECT_STREQ(CoTranslateText2("Pump"), L"Pumpe");
    EXPECT_TRUE(LogBook().empty());
}

TEST_F(Translation, ReturnsATextWithoutATranslationItself)
{
    Put("de", kGerman);
    Use(L"de");
    const wchar_t* const text = L"Tank";
    EXPECT_EQ(CoTranslateText(text), text);
    EXPECT_STREQ(CoTranslateText2(text), L"Tank");
    EXPECT_STREQ(CoTranslateText2("Tank"), L"Tank");
}

TEST_F(Translation, ReturnsTheEmptyTextItself)
{
    Put("de", kGerman);
    Use(L"de");
    const wchar_t* const text = L"";
    EXPECT_EQ(CoTranslateText(text), text);
    EXPECT_STREQ(CoTranslateText2(L""), L"");
    EXPECT_STREQ(CoTranslateText2(""), L"");
}

TEST_F(Translation, NeverReturnsNull)
{
    Use(L"de");
    EXPECT_STREQ(CoTranslateText(nullptr), L"");
    EXPECT_STREQ(CoTranslateText2(static_cast<const wchar_t*>(nullptr)), L"");
    EXPECT_STREQ(CoTranslateText2(static_cast<const char*>(nullptr)), L"");
}

TEST_F(Translation, GivesTheSameAddressAgain)
{
    Put("de", kGerman);
    Use(L"de");
    EXPECT_EQ(CoTranslateText(L"Pump"), CoTranslateText(L"Pump"));
}

TEST_F(Translation, KeepsTheTextsItGaveWhenTheLanguageChanges)
{
    Put("de", kGerman);
    Put("fr", CatalogueBytes::Make({{"Pump", "Pompe"}}));
    Use(L"de");
    const wchar_t* const german = CoTranslateText(L"Pump");
    Use(L"fr");
    EXPECT_STREQ(CoTranslateText(L"Pump"), L"Pompe");
    EXPECT_EQ(CoTranslateText(L"Valve"), std::wstring(L"Valve"));
    EXPECT_STREQ(german, L"Pumpe");
}

TEST_F(Translation, LeavesAChangedTextToItsCaller)
{
    Put("de", kGerman);
    Use(L"de");
    wchar_t* const first = CoTranslateText2(L"Pump");
    first[0] = L'L';
    wchar_t* const second = CoTranslateText2(L"Pump");
    EXPECT_STREQ(second, L"Pumpe");
    EXPECT_STREQ(CoTranslateText(L"Pump"), L"Pumpe");
    second[2] = L'\0';
    EXPECT_STREQ(CoTranslateText2(L"Pump"), L"Pumpe") << "one that was cut is a changed one, too";
    EXPECT_STREQ(first, L"Lumpe");
    EXPECT_STREQ(second, L"Pu");
    first[0] = L'P';
    EXPECT_STREQ(CoTranslateText2(L"Pump"), L"Pumpe");
    wchar_t source[] = L"Tank";
    wchar_t* const untranslated = CoTranslateText2(static_cast<const wchar_t*>(source));
    untranslated[0] = L'R';
    EXPECT_STREQ(source, L"Tank");
}

TEST_F(Translation, KeepsOneChangeableTextForEachResult)
{
    Put("de", kGerman);
    Use(L"de");
    wchar_t* const pump = CoTranslateText2(L"Pump");
    wchar_t* const none = CoTranslateText2(L"");
    std::vector<wchar_t*> others;
    for (int number = 0; number < 1000; ++number)
        others.push_back(CoTranslateText2(std::to_wstring(number).c_str()));
    EXPECT_EQ(CoTranslateText2(L"Pump"), pump);
    EXPECT_EQ(CoTranslateText2("Pump"), pump);
    EXPECT_EQ(CoTranslateText2(L"Pumpe"), pump) << "another text with the same result";
    EXPECT_EQ(CoTranslateText2(""), none);
    for (std::size_t number = 0; number < others.size(); ++number)
    {
        EXPECT_EQ(others[number], std::to_wstring(number)) << "it stayed where it was";
        EXPECT_EQ(CoTranslateText2(std::to_wstring(number).c_str()), others[number]);
    }
    EXPECT_STREQ(pump, L"Pumpe");
}

TEST_F(Translation, WidensANarrowText)
{
    Put("de", CatalogueBytes::Make({{"Gr\xc3\xb6\xc3\x9f"
                                     "e",
                                     "Size"}}));
    Use(L"de");
    EXPECT_STREQ(CoTranslateText2("Gr\xc3\xb6\xc3\x9f"
                                  "e"),
                 L"Size");
    EXPECT_STREQ(CoTranslateText2("\xc3\xa4 label: "), L"\u00e4 label: ");
    EXPECT_STREQ(CoTranslateText2("\xe4 not UTF-8"), L"\u00e4 not UTF-8");
}

TEST_F(Translation, FallsBackFromARegionToItsLanguage)
{
    Put("de", kGerman);
    Put("de-AT", CatalogueBytes::Make({{"Valve", "Schieber"}}));
    Use(L"de-AT");
    EXPECT_STREQ(CoTranslateText(L"Valve"), L"Schieber");
    EXPECT_STREQ(CoTranslateText(L"Pump"), L"Pumpe");
    Use(L"de-DE");
    EXPECT_STREQ(CoTranslateText(L"Valve"), L"Ventil");
}

TEST_F(Translation, NeedsNoCatalogue)
{
    Use(L"en-US");
    const wchar_t* const text = L"Pump";
    EXPECT_EQ(CoTranslateText(text), text);
    EXPECT_TRUE(LogBook().empty()) << "a language without a catalogue is no error";
}

TEST_F(Translation, NeedsNoCatalogueInTheFolderOfALanguage)
{
    std::filesystem::create_directories(m_folder.Path() / "locale" / "de");
    Use(L"de");
    EXPECT_STREQ(CoTranslateText(L"Pump"), L"Pump");
    EXPECT_TRUE(LogBook().empty());
}

TEST_F(Translation, IgnoresADamagedCatalogueAndReportsItOnce)
{
    Put("de", kGerman.substr(0, kGerman.size() - 1));
    Use(L"de");
    EXPECT_STREQ(CoTranslateText(L"Pump"), L"Pump");
    EXPECT_STREQ(CoTranslateText(L"Valve"), L"Valve");
    const std::vector<std::string> entries = LogBook();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_NE(entries[0].find("\terror\tQPLang32\tReadCatalogue\t0\t0x8007000D\t-\tThe catalogue "),
              std::string::npos)
        << entries[0];
    EXPECT_TRUE(entries[0].ends_with("/qptools.mo is not used: a text lies outside the file")) << entries[0];
}

TEST_F(Translation, FallsBackFromADamagedCatalogueOfARegion)
{
    Put("de-DE", "nonsense");
    Put("de", kGerman);
    Use(L"de-DE");
    EXPECT_STREQ(CoTranslateText(L"Pump"), L"Pumpe");
    EXPECT_EQ(LogBook().size(), 1u);
}

TEST_F(Translation, LeavesOutACatalogueThatIsTooLarge)
{
    Put("de", kGerman);
    std::filesystem::resize_file(m_folder.Path() / "locale" / "de" / "qptools.mo", (16 << 20) + 1);
    Use(L"de");
    EXPECT_STREQ(CoTranslateText(L"Pump"), L"Pump");
    ASSERT_EQ(LogBook().size(), 1u);
    EXPECT_TRUE(LogBook()[0].ends_with("is not used: the file is too large"));
}

TEST_F(Translation, LeavesOutACatalogueThatIsADirectory)
{
    std::filesystem::create_directories(m_folder.Path() / "locale" / "de" / "qptools.mo");
    Use(L"de");
    EXPECT_STREQ(CoTranslateText(L"Pump"), L"Pump");
    EXPECT_EQ(LogBook().size(), 1u);
}

TEST_F(Translation, DoesNotLeaveTheFolderForAHostileLanguage)
{
    Put("../outside", kGerman);
    for (const wchar_t* language : {L"../outside", L"..\\outside", L"..", L"", L"de/../../outside"})
    {
        Use(language);
        EXPECT_STREQ(CoTranslateText(L"Pump"), L"Pump");
    }
}

TEST_F(Translation, FindsTheGermanCatalogueBesideTheModule)
{
    const TestVariable language(L"QPTOOLS_LANG", L"de");
    CTranslator::Instance().UseEnvironment();
    const std::pair<const wchar_t*, const wchar_t*> texts[] = {
        {L"Once for all objects", L"Einmal f\u00fcr alle Objekte"},
        {L"For each object", L"F\u00fcr jedes Objekt"},
        {L"Configured Name of Object: ", L"Konfigurierter Name des Objekts: "},
        {L"(Plan-)Type: ", L"(Plan-)Typ: "}};
    for (const auto& [text, german] : texts)
        EXPECT_STREQ(CoTranslateText(text), german);
    EXPECT_STREQ(CoTranslateText(L"Object ID: "), L"Object ID: ");
}

TEST_F(Translation, ReadsTheLanguageAtTheFirstCallAndNotAgain)
{
    const TestVariable german(L"QPTOOLS_LANG", L"de_DE.UTF-8");
    CTranslator::Instance().UseEnvironment();
    EXPECT_STREQ(CoTranslateText(L"For each object"), L"F\u00fcr jedes Objekt");
    const TestVariable english(L"QPTOOLS_LANG", L"en");
    EXPECT_STREQ(CoTranslateText(L"For each object"), L"F\u00fcr jedes Objekt");
    CTranslator::Instance().UseEnvironment();
    EXPECT_STREQ(CoTranslateText(L"For each object"), L"For each object");
}

TEST(UserLanguageName, ComesFromTheVariable)
{
    const TestVariable variable(L"QPTOOLS_LANG", L"fr-CA");
    EXPECT_EQ(UserLanguage(), L"fr-CA");
    const TestVariable tooLong(L"QPTOOLS_LANG", std::wstring(200, L'x'));
    EXPECT_EQ(UserLanguage(), L"");
}

TEST(UserLanguageName, ComesFromTheUserWithoutAVariable)
{
    const DesktopLanguage desktop;
    for (const auto& unset : {std::optional<std::wstring>(), std::optional<std::wstring>(L"")})
    {
        const TestVariable variable(L"QPTOOLS_LANG", unset);
        EXPECT_EQ(UserLanguage(), desktop.Name());
    }
}

TEST(UserLanguageName, GivesTheNamesToLookFor)
{
    EXPECT_EQ(LanguageFallbacks(L"de"), Names{L"de"});
    EXPECT_EQ(LanguageFallbacks(L"de-DE"), (Names{L"de-DE", L"de"}));
    EXPECT_EQ(LanguageFallbacks(L"de_DE"), (Names{L"de-DE", L"de"}));
    EXPECT_EQ(LanguageFallbacks(L"de_DE.UTF-8"), (Names{L"de-DE", L"de"}));
    EXPECT_EQ(LanguageFallbacks(L"de_DE@euro"), (Names{L"de-DE", L"de"}));
    EXPECT_EQ(LanguageFallbacks(L"zh-Hant-TW"), (Names{L"zh-Hant-TW", L"zh-Hant", L"zh"}));
    EXPECT_EQ(LanguageFallbacks(L"es-419"), (Names{L"es-419", L"es"}));
    EXPECT_EQ(LanguageFallbacks(L"C"), Names{L"C"});
    EXPECT_EQ(LanguageFallbacks(L""), Names{});
}

TEST(UserLanguageName, GivesNoNameForOneThatCouldLeadElsewhere)
{
    for (const wchar_t* name :
         {L"..", L"../de", L"de/x", L"de\\x", L"C:de", L"/de", L"d e", L"d\u00e4", L"de\n"})
        EXPECT_TRUE(LanguageFallbacks(name).empty());
    EXPECT_TRUE(LanguageFallbacks(std::wstring(85, L'x')).empty());
}
