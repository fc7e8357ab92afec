// The choosers before a user who reads German: what is theirs follows the language, what is the host's stays.
#include "ProjectChoiceFixture.h"
#include "ScriptPickerFixture.h"

namespace
{
/// Before anything is translated in this program.
const bool kInGerman = SetEnvironmentVariableW(L"QPTOOLS_LANG", L"de") != 0;

class GermanProjectChoice : public ProjectChoiceFixture
{
};

TEST_F(GermanProjectChoice, TranslatesButtonsAndHeadingsButNoTextOfTheHost)
{
    ASSERT_TRUE(kInGerman);
    // All of these are texts that the catalogue has.
    Has({Child("a", L"Location"), Child("b", L"Name")});
    root->Children(L"template", found);
    NameButton(L"&Create new");
    const auto look = [](const wchar_t* heading) {
        return Steps{Sees(Titled(L"Choose")), Sees(Shows(IDCANCEL, L"Abbrechen")),
                     Sees(Shows(kCreateNew, L"&Create new")), Sees(Headings({heading, L""})),
                     Sees(InColumn(0, {L"Location", L"Name"}))};
    };
    Show(look(L"Projektname") + Steps{Presses(kCreateNew)});
    ShowEx(look(L"Vorlagenname") + Steps{Presses(IDCANCEL)}, 1);
}

TEST_F(GermanProjectChoice, TheTitleIsTheHostsEvenIfTheCatalogueHasIt)
{
    Has({});
    dialogs.OnDialog({Sees(Titled(L"Scripts")), Presses(kCreateNew)});
    LONG canceled = 0;
    EXPECT_EQ(choice->ShowDialog(root.get(), XQPComBSTR(L"Scripts"), &canceled, nullptr, 0), S_OK);
}

TEST_F(GermanProjectChoice, TranslatesBothLinesOfTheMessageAndNamesTheButton)
{
    Has({});
    root->Children(L"template", found);
    NameButton(L"Neu");
    ExpectBox(L"Information", L"W\u00e4hlen Sie entweder ein Projekt aus und dr\u00fccken Sie OK, \n"
                              L"oder dr\u00fccken Sie die Schaltfl\u00e4che 'Neu'!");
    Show({Presses(IDOK), Presses(kCreateNew)});
    ExpectBox(L"Information", L"W\u00e4hlen Sie entweder eine Vorlage aus und dr\u00fccken Sie OK, \n"
                              L"oder dr\u00fccken Sie die Schaltfl\u00e4che 'Neu'!");
    ShowEx({Presses(IDOK), Presses(IDCANCEL)}, 1);
}

TEST_F(GermanProjectChoice, TheErrorOfAnUnreadableChildHasATranslatedTitle)
{
    Has({host.Object("unreadable")});
    ExpectBox(L"Fehler", L"unexpected error reading projects.\nTrying next project ...");
    Show({Presses(kCreateNew)});
}

class GermanScriptPicker : public ScriptPickerFixture
{
};

TEST_F(GermanScriptPicker, TranslatesTitleButtonsAndHeadingsAndNoCell)
{
    const auto script = Script("Location");
    script->Set(L"languagetype", L"Name")->Set(L"creationdate", L"Scripts");
    Finds({script});
    Show({Sees(Titled(L"Skripte")), Sees(Shows(IDCANCEL, L"Abbrechen")),
          Sees(Headings({L"Name", L"Ablageort", L"Skriptsprache", L"Erstellt am", L"Ge\u00e4ndert am", L""})),
          Sees(InRow(0, {L"Location", L"Library", L"Name", L"Scripts", L"", L""})), Presses(IDCANCEL)});
}

TEST_F(GermanScriptPicker, TranslatesEveryMessage)
{
    Finds({});
    ShowMessage(L"Skript ausw\u00e4hlen", L"Keine Skripte vorhanden.");
    ShowMessage(L"Fehler", L"Unbekannter Fehler.", L"Script");
    Finds({Script("s")});
    ExpectBox(L"Skript ausf\u00fchren", L"Bitte w\u00e4hlen Sie ein Skript aus.");
    Show({SelectsNone(), Presses(IDOK), Presses(IDCANCEL)});
}

class GermanSelectDialog : public ChooserFixture
{
};

TEST_F(GermanSelectDialog, TranslatesPromptsAndTitle)
{
    ComPtr<IQPSelectDlg> dialog;
    ASSERT_EQ(module.Create(CLSID_QPSelectDlg, dialog), S_OK);
    const auto object = host.Object("object");
    const XQPComVariant caption(L"Scripts");
    const XQPComVariant prompt(L"Location");
    XQPComBSTR names[] = {L"Caption", L"Prompt0", L"Object0"};
    tagINITVALUE values[3] = {{names[0], caption}, {names[1], prompt}, {names[2], {}}};
    values[2].varValue.vt = VT_UNKNOWN;
    values[2].varValue.punkVal = static_cast<IQP_BaseDataObject*>(object.get());
    ExpectBox(L"Achtung!", L"Bitte w\u00e4hlen Sie eine Eltern-Kind-Beziehung aus.");
    dialogs.OnDialog({Sees(Titled(L"Skripte")), Sees(Shows(IDCANCEL, L"Abbrechen")),
                      Sees(Headings({L"Name", L""})), Sees(InColumn(0, Texts{L"Ablageort"})), SelectsNone(),
                      Presses(IDOK), Presses(IDCANCEL)});
    EXPECT_EQ(dialog->ShowDialog(3, values, nullptr), S_OK);
}
} // namespace
