// The enhanced copy dialog in a made-up language that puts every text in brackets: exactly which texts are
// translated, and how often.
#include "LanguageFixture.h"

namespace
{
using namespace copy_dialog;

/// Before anything is translated in this program.
const bool kInBrackets = SetEnvironmentVariableW(L"QPTOOLS_LANG", L"qps") != 0;

/// The catalogue has it, and also the mark.
constexpr const wchar_t* kHostText = L"A host's text";

class BracketedCopy : public LanguageFixture
{
protected:
    BracketedCopy()
    {
        EXPECT_TRUE(kInBrackets);
        chosen = {press};
    }

    static DialogStep SeesOwnTextsInBrackets(const wchar_t* advanced)
    {
        return SeesTexts({L"[Please select a copy option.]", L"[Normal =]", L"[Parent component only]",
                          L"[Deep   =]", L"[Parent and child components]", L"[Normal]", L"[Deep]",
                          L"[Cancel]", advanced, L"[Normal]", L"[Deep]", L"[OK]", L"[Cancel]"});
    }
};

/// The caption of the Advanced button is there when the window is translated, so that it is translated twice.
TEST_F(BracketedCopy, TranslatesItsOwnTextsInBothForms)
{
    chosen.clear();
    Open({Sees(Titled(L"[Copy Options]")), SeesOwnTextsInBrackets(L"[[Advanced >>]]"), Presses(kAdvanced),
          SeesOwnTextsInBrackets(L"[Advanced <<]"), Presses(kAdvanced),
          SeesOwnTextsInBrackets(L"[Advanced >>]"), Sees(Titled(L"[Copy Options]")), Presses(kCancel)});
}

TEST_F(BracketedCopy, TranslatesItsHeadingsOnceAndNoCell)
{
    MemoryType* type = host.Config().Find(L"Station");
    type->attributes.objects.clear();
    type->Attribute(kHostText);
    type->Set(L"captionsingular", kHostText);
    Open(Steps{Presses(kAdvanced), Sees(Headings({L"[Available attributes]", L"[Set to dynamic value]"})),
               Drops(kPlanType), Sees(Offers(kPlanType, {kHostText})), Chooses(kPlanType, kHostText),
               Sees(InRow(0, {kHostText, L""}))} +
         OpensEditor(0) +
         Steps{Sees(InRow(0, {kHostText, L"X"})), TypesInEditor(kHostText), Types("Return"),
               Sees(InRow(0, {kHostText, kHostText})), Presses(kAdvanced), Presses(kAdvanced),
               Sees(InRow(0, {kHostText, kHostText})), Sees(Chosen(kPlanType, kHostText)),
               Presses(kAdvancedOk)});
    Apply({press});
    EXPECT_EQ(press->ValueText(kHostText), Sent(kHostText));
}

/// In every language.
TEST_F(BracketedCopy, SendsTheMarkAsItIs)
{
    Open(Steps{Presses(kAdvanced), Chooses(kPlanType, L"Station")} + OpensEditor(2) +
         Steps{Types("Escape"), Sees(InRow(2, {L"Order", L"X"})), Chooses(kPlanType, L"Station"),
               Presses(kAdvancedOk)});
    Apply({press});
    EXPECT_EQ(press->ValueText(L"Order"), "BSTR 'X'");
}

TEST_F(BracketedCopy, TranslatesItsMessageOnceAndNotItsTitle)
{
    host.Config().Find(L"Station")->attributes.objects.clear();
    ExpectBox(L"qptools", L"[None of the attributes are configured for extended copy!]");
    Open({Presses(kAdvanced), Chooses(kPlanType, L"Station"), Presses(kAdvancedCancel)});
}
} // namespace
