// The property dialogs before a user who reads German: what is theirs follows the language, what is the
// host's stays.
#include "ActionFixture.h"
#include "CommandFixture.h"

namespace
{
using namespace command_dialog;

/// Before anything is translated in this program.
const bool kInGerman = SetEnvironmentVariableW(L"QPTOOLS_LANG", L"de") != 0;

constexpr const wchar_t* kGermanOnce = L"Einmal f\u00FCr alle Objekte";
constexpr const wchar_t* kGermanEach = L"F\u00FCr jedes Objekt";

// Texts of a host that are hard to show.

const std::wstring kLongText = std::wstring(2000, L'M') + L" ende";
constexpr const wchar_t* kRightToLeft =
    L"\u05D1\u05D3\u05D9\u05E7\u05D4 \u0645\u062B\u0642\u0628 (2) \u202E!";
constexpr const wchar_t* kChinese = L"\u5207\u524A\u30C9\u30EA\u30EB\uAC00\uACF5";

class GermanAction : public ActionFixture
{
protected:
    static constexpr int kBeforeAfter = 261;

    GermanAction() { EXPECT_TRUE(kInGerman); }
};

TEST_F(GermanAction, TranslatesItsTitleAndLabels)
{
    Show({Sees(Titled(L"Eigenschaften der Skriptaktion")), Sees(Shows(271, L"Skript")),
          Sees(Shows(272, L"Konfigurationstyp/Plantyp")), Sees(Shows(267, L"Plantyp")),
          Sees(Shows(269, L"Konfigurationstyp")), Sees(Shows(255, L"Aktionstyp")),
          Sees(Shows(264, L"Aktiviert")), Sees(Shows(kBeforeAfter, L"Vor/Nach")), Sees(Shows(262, L"Nach")),
          Sees(Shows(263, L"Vor")), Sees(Shows(260, L"Reihenfolge der Ausf\u00FChrung")),
          Sees(Shows(IDOK, L"OK")), Sees(Shows(IDCANCEL, L"Abbrechen")), Sees(Shows(273, L"Name")),
          Sees(Shows(274, L"Eigenschaften der Aktion")), Presses(IDCANCEL)});
}

/// All of these are texts that the catalogue has.
TEST_F(GermanAction, TranslatesNoTextOfTheHost)
{
    drill->Set(L"m_name", L"Script")->Set(L"name", L"Script");
    action->Set(L"m_name", L"Enabled")->Set(L"m_prompt", L"Page")->Set(L"m_pType", L"Group");
    values->values.objects[1]->Set(L"name", L"Before");
    Show({Sees(Shows(action_dialog::kName, L"Enabled")), Sees(Chosen(action_dialog::kScript, L"Script")),
          Sees(Chosen(action_dialog::kConfigType, L"Group")),
          Sees(Chosen(action_dialog::kActionType, L"Before")), Drops(action_dialog::kScript),
          Sees(Offers(action_dialog::kScript, {L"Script", L"Weld"})), Presses(IDOK)});
    EXPECT_EQ(action->ValueText(L"m_prompt"), "BSTR 'Page'");
    EXPECT_EQ(action->ValueText(L"m_pType"), "BSTR 'Group'");
}

TEST_F(GermanAction, DoesNotTranslateItsWarnings)
{
    action->Set(L"m_pType", L"");
    ExpectBox(L"Script Action Properties Warning", kNoType);
    Show({Presses(IDOK), Presses(IDCANCEL)});
    action->Set(L"m_pType", L"cell")->Set(L"m_pScript", L"");
    ExpectBox(L"Script Action Properties Warning", L"No script selected.");
    Show({Presses(IDOK), Presses(IDCANCEL)});
}

TEST_F(GermanAction, KeepsTextsThatAreHardToShow)
{
    drill->Set(L"m_name", kRightToLeft);
    weld->Set(L"name", kChinese);
    assembly->Set(L"name", kLongText.c_str());
    action->Set(L"m_name", kLongText.c_str())->Set(L"m_prompt", kRightToLeft)->Set(L"m_pType", kChinese);
    Show({Sees(Shows(action_dialog::kName, kLongText)), Sees(Chosen(action_dialog::kScript, kRightToLeft)),
          Sees(Chosen(action_dialog::kConfigType, kChinese)), Presses(IDOK)});
    EXPECT_EQ(action->ValueText(L"m_name"), "BSTR '" + Utf8Of(XQPComBSTR(kLongText.c_str())) + "'");
    EXPECT_EQ(action->ValueText(L"m_prompt"), "BSTR '" + Utf8Of(XQPComBSTR(kRightToLeft)) + "'");
    EXPECT_EQ(action->ValueText(L"m_pType"), "BSTR '" + Utf8Of(XQPComBSTR(kChinese)) + "'");
    EXPECT_EQ(Show({Chooses(action_dialog::kScript, kChinese), Chooses(action_dialog::kPlanType, kLongText),
                    Presses(IDOK)}),
              S_OK);
    EXPECT_EQ(action->ValueText(L"m_pScript"), "UNKNOWN weld");
    EXPECT_EQ(action->ValueText(L"m_pPlanType"), "UNKNOWN assembly");
}

class GermanCommand : public CommandFixture
{
protected:
    GermanCommand()
    {
        EXPECT_TRUE(kInGerman);
        host.onCall = [this](const std::string& call) {
            if (call == "SetSearchTable(vbaproject)")
                host.Query().result = host.List({});
        };
    }
    ~GermanCommand() override { host.onCall = nullptr; }
};

TEST_F(GermanCommand, TranslatesItsTitleAndLabels)
{
    Show({Sees(Titled(L"Eigenschaften des Skriptbefehls")),
          Sees(Shows(303, L"Name")),
          Sees(Shows(320, L"Men\u00FCtext")),
          Sees(Shows(321, L"Skript/VBA-Makro")),
          Sees(Shows(307, L"Skript")),
          Sees(Shows(309, L"VBA-Makro")),
          Sees(Shows(322, L"Konfigurationstyp/Plantyp")),
          Sees(Shows(317, L"Plantyp")),
          Sees(Shows(319, L"Konfigurationstyp")),
          Sees(Shows(IDCANCEL, L"Abbrechen")),
          Sees(Shows(323, L"Name/Men\u00FCtext")),
          Sees(Shows(324, L"Eigenschaften des Befehls")),
          Sees(Shows(kContextMenu, L"Im Kontextmen\u00FC anzeigen")),
          Sees(Shows(kVisible, L"Sichtbar")),
          Sees(Shows(355, L"Ausf\u00FChrung")),
          Sees(Shows(kProperties, L"Im Eigenschaftsdialog")),
          Sees(Shows(kOptions, L"Optionen (Anzeige im Eigenschaftsblatt)")),
          Sees(Shows(kElementLabel, L"Element")),
          Sees(Shows(kNameLabel, L"Name")),
          Sees(Shows(kPage, L"Seite")),
          Sees(Shows(kGroup, L"Gruppe")),
          Sees(Shows(kAttribute, L"Attribut")),
          Presses(IDCANCEL)});
}

TEST_F(GermanCommand, WritesTheExecutionModesOfItsWords)
{
    Show({Sees(Offers(kExecution, {kGermanOnce, kGermanEach})), Sees(Chosen(kExecution, kGermanOnce)),
          Presses(IDOK)});
    EXPECT_EQ(Written(), Write());
    Show({Chooses(kExecution, kGermanEach), Presses(IDOK)});
    EXPECT_EQ(Written(), Write({{"m_nameShort", "BSTR '1'"}}));
    // The dialog's own words are not what is stored.
    command->Set(L"m_nameShort", kGermanOnce);
    Show({Sees(Chosen(kExecution, kGermanEach)), Presses(IDCANCEL)});
}

/// All of these are texts that the catalogue has.
TEST_F(GermanCommand, TranslatesNoTextOfTheHost)
{
    drill->Set(L"m_name", L"Script")->Set(L"name", L"Script");
    command->Set(L"m_name", L"Visible")->Set(L"m_strPrompt", L"Prompt")->Set(L"m_strVBAMacroName", L"Group");
    cell->Page(L"Page", 4);
    command->Set(L"customizationobjectid", L"4");
    Show({Sees(Shows(kName, L"Visible")), Sees(Shows(kPrompt, L"Prompt")), Sees(Chosen(kScript, L"Script")),
          Sees(Chosen(kMacro, L"Group")), Sees(Shows(kElement, L"Page")), Drops(kElement),
          Sees(Offers(kElement, {L"Costs", L"General", L"Page"})), Presses(IDCANCEL)});
}

TEST_F(GermanCommand, DoesNotTranslateItsWarnings)
{
    ExpectWarning(kNoElement);
    ExpectWarning(kNoScript);
    ExpectWarning(kNoType);
    ExpectWarning(kNoType);
    Show({Checks(kGroup), Presses(IDOK), Drops(kMacro), Types("Escape"), Presses(IDOK), Drops(kPlanType),
          Types("Escape"), Presses(IDOK), Drops(kElement), Presses(IDCANCEL)});
}

TEST_F(GermanCommand, KeepsTextsThatAreHardToShow)
{
    drill->Set(L"m_name", kRightToLeft);
    weld->Set(L"name", kChinese);
    cell->Page(kChinese, 4);
    cell->Page(kLongText.c_str(), 5);
    cell->Page(kRightToLeft, 6);
    command->Set(L"m_name", kRightToLeft)->Set(L"m_strPrompt", kLongText.c_str());
    command->Set(L"m_strVBAMacroName", kChinese)->Set(L"customizationobjectid", L"4");
    Show({Sees(Shows(kName, kRightToLeft)), Sees(Shows(kPrompt, kLongText)),
          Sees(Chosen(kScript, kRightToLeft)), Sees(Chosen(kMacro, kChinese)),
          Sees(Shows(kElement, kChinese)), Presses(IDOK)});
    const auto text = [](const std::wstring& wide) {
        return "BSTR '" + Utf8Of(XQPComBSTR(wide.c_str())) + "'";
    };
    EXPECT_EQ(Written(), Write({{"m_name", text(kRightToLeft)},
                                {"m_strPrompt", text(kLongText)},
                                {"m_strVBAMacroName", text(kChinese)},
                                {"customizationobjectid", "BSTR '4'"}}));
    Show({Chooses(kScript, kChinese), Chooses(kElement, kLongText), Presses(IDOK)});
    EXPECT_EQ(command->ValueText(L"m_pScript"), "UNKNOWN weld");
    EXPECT_EQ(command->ValueText(L"customizationobjectid"), "BSTR '5'");
    Show({Chooses(kElement, kRightToLeft), Presses(IDOK)});
    EXPECT_EQ(command->ValueText(L"customizationobjectid"), "BSTR '6'");
}
} // namespace
