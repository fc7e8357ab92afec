// The enhanced copy dialog before a user who reads German: what is its own follows the language, what is the
// host's stays.
#include "LanguageFixture.h"

namespace
{
using namespace copy_dialog;

/// Before anything is translated in this program.
const bool kInGerman = SetEnvironmentVariableW(L"QPTOOLS_LANG", L"de") != 0;

class GermanCopy : public LanguageFixture
{
protected:
    GermanCopy()
    {
        EXPECT_TRUE(kInGerman);
        chosen = {press};
    }

    static DialogStep SeesGermanTexts(const wchar_t* advanced)
    {
        return SeesTexts({L"Bitte w\u00E4hlen Sie eine Kopieroption aus.", L"Normal =",
                          L"Nur die Komponente selbst", L"Tief   =", L"Mit allen untergeordneten Komponenten",
                          L"Normal", L"Tief", L"Abbrechen", advanced, L"Normal", L"Tief", L"OK",
                          L"Abbrechen"});
    }

    /// The press is of the type with this caption.
    void NamePressType(const std::wstring& caption)
    {
        host.Config().Find(L"Station")->Set(L"captionsingular", caption.c_str());
    }
};

TEST_F(GermanCopy, TranslatesItsTextsInBothForms)
{
    chosen.clear();
    Open({Sees(Titled(L"Kopieroptionen")), SeesGermanTexts(L"Erweitert >>"), Presses(kAdvanced),
          SeesGermanTexts(L"Erweitert <<"), Presses(kAdvanced), SeesGermanTexts(L"Erweitert >>"),
          Presses(kAdvanced), SeesGermanTexts(L"Erweitert <<"), Sees(Titled(L"Kopieroptionen")),
          Presses(kAdvancedCancel)});
}

TEST_F(GermanCopy, TranslatesItsHeadings)
{
    chosen.clear();
    Open({Presses(kAdvanced), Sees(Headings({L"Attribute", L"Wert f\u00FCr die Kopien"})),
          Presses(kAdvancedCancel)});
}

TEST_F(GermanCopy, TranslatesItsMessage)
{
    host.Config().Find(L"Station")->attributes.objects.clear();
    ExpectBox(L"qptools", L"F\u00FCr das erweiterte Kopieren ist kein Attribut eingerichtet!");
    Open({Presses(kAdvanced), Chooses(kPlanType, L"Station"), Sees(Disabled(kGrid)),
          Presses(kAdvancedCancel)});
}

/// All of these are texts that the catalogue has.
TEST_F(GermanCopy, TranslatesNoTextOfTheHost)
{
    NamePressType(L"Deep");
    host.Config().Find(L"Cell")->Set(L"captionsingular", L"Cancel");
    MemoryType* type = host.Config().Find(L"Station");
    type->attributes.objects.clear();
    type->Attribute(L"Visible");
    type->Attribute(L"Available attributes");
    chosen = {press, cell};
    Open(Steps{Presses(kAdvanced), Drops(kPlanType), Sees(Offers(kPlanType, {L"Cancel", L"Deep"})),
               Chooses(kPlanType, L"Deep"), Sees(InColumn(0, {L"Available attributes", L"Visible"}))} +
         OpensEditor(0) +
         Steps{TypesInEditor(L"Copy Options"), Types("Return"), Sees(InColumn(1, {L"Copy Options", L""}))} +
         OpensEditor(1) +
         Steps{Types("Escape"), Sees(InColumn(1, {L"Copy Options", L"X"})), Presses(kAdvancedOk)});
    Apply({press});
    EXPECT_EQ(press->ValueText(L"Available attributes"), "BSTR 'Copy Options'");
    EXPECT_EQ(press->ValueText(L"Visible"), "BSTR 'X'");
}

TEST_F(GermanCopy, KeepsCaptionsThatAreHardToShow)
{
    for (const std::wstring& caption : {kLongText, kRightToLeft, kChinese})
    {
        NamePressType(caption);
        Open(Steps{Presses(kAdvanced), Drops(kPlanType), Sees(Offers(kPlanType, {caption})),
                   Chooses(kPlanType, caption), Sees(InColumn(0, {L"Due", L"Mass", L"Order"}))} +
             OpensEditor(2) + Steps{TypesInEditor(L"gr\u00FCn"), Types("Return"), Presses(kAdvancedOk)});
        press->Set(L"Order", L"");
        Apply({press});
        EXPECT_EQ(press->ValueText(L"Order"), Sent(L"gr\u00FCn"));
    }
}

TEST_F(GermanCopy, KeepsAttributesAndValuesThatAreHardToShow)
{
    MemoryType* type = host.Config().Find(L"Station");
    type->attributes.objects.clear();
    for (const std::wstring& name : {kLongText, kRightToLeft, kChinese})
        type->Attribute(name.c_str());
    Open(Steps{Presses(kAdvanced), Chooses(kPlanType, L"Station"),
               Sees(InColumn(0, {kChinese, kRightToLeft, kLongText}))} +
         OpensEditor(0) + Steps{TypesInEditor(kLongText), Types("Return")} + OpensEditor(1) +
         Steps{TypesInEditor(kChinese), Types("Return")} + OpensEditor(2) +
         Steps{TypesInEditor(kRightToLeft), Types("Return"),
               Sees(InColumn(1, {kLongText, kChinese, kRightToLeft})), Presses(kAdvancedOk)});
    Apply({press});
    EXPECT_EQ(press->ValueText(kChinese.c_str()), Sent(kLongText));
    EXPECT_EQ(press->ValueText(kRightToLeft.c_str()), Sent(kChinese));
    EXPECT_EQ(press->ValueText(kLongText.c_str()), Sent(kRightToLeft));
}
} // namespace
