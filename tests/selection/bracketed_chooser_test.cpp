// The choosers in a made-up language that puts every text in brackets: exactly which texts are translated.
#include "ProjectChoiceFixture.h"
#include "ScriptPickerFixture.h"
#include "SelectDialogFixture.h"

namespace
{
/// Before anything is translated in this program.
const bool kInBrackets = SetEnvironmentVariableW(L"QPTOOLS_LANG", L"qps") != 0;

class BracketedProjectChoice : public ProjectChoiceFixture
{
protected:
    /// The dialog's own texts are translated, once, and the host's are not.
    static Steps Look(const wchar_t* heading)
    {
        return {Sees(Titled(L"Choose")),
                Sees(Shows(IDOK, L"[OK]")),
                Sees(Shows(IDCANCEL, L"[Cancel]")),
                Sees(Shows(kCreateNew, L"A host's text")),
                Sees(Headings({heading, L""})),
                Sees(InColumn(0, {L"A host's text"}))};
    }
};

TEST_F(BracketedProjectChoice, TranslatesItsButtonsAndItsHeadingAlone)
{
    ASSERT_TRUE(kInBrackets);
    Has({Child("a", L"A host's text")});
    root->Children(L"template", found);
    NameButton(L"A host's text");
    Show(Look(L"[Project name]") + Steps{Presses(kCreateNew)});
    ShowEx(Look(L"[Template name]") + Steps{Presses(IDCANCEL)}, 1);
}

TEST_F(BracketedProjectChoice, TheTitleIsNotTranslated)
{
    Has({});
    dialogs.OnDialog({Sees(Titled(L"A caption")), Presses(kCreateNew)});
    EXPECT_EQ(choice->ShowDialog(root.get(), XQPComBSTR(L"A caption"), nullptr, nullptr, 0), S_OK);
}

TEST_F(BracketedProjectChoice, TheMessageIsTranslatedByLineButNotTheButtonsName)
{
    Has({});
    root->Children(L"template", found);
    NameButton(L"A host's text");
    ExpectBox(L"[Information]", L"[You must either select a project and choose ok, ]\n"
                                L"[or you must choose the 'A host's text' button!]");
    Show({Presses(IDOK), Presses(kCreateNew)});
    ExpectBox(L"[Information]", L"[You must either select a template and choose ok, ]\n"
                                L"[or you must choose the 'A host's text' button!]");
    ShowEx({Presses(IDOK), Presses(IDCANCEL)}, 1);
}

TEST_F(BracketedProjectChoice, TheErrorOfAnUnreadableChildHasATranslatedTitle)
{
    Has({host.Object("unreadable")});
    root->Children(L"template", host.List({host.Object("unreadable")}));
    ExpectBox(L"[Error]", L"unexpected error reading projects.\nTrying next project ...");
    Show({Presses(kCreateNew)});
    ExpectBox(L"[Error]", L"unexpected error reading templates.\nTrying next template ...");
    ShowEx({Presses(IDCANCEL)}, 1);
}

class BracketedScriptPicker : public ScriptPickerFixture
{
};

/// The title is there when the window is translated, so that it is translated twice.
TEST_F(BracketedScriptPicker, TranslatesTitleButtonsAndHeadingsAndNoCell)
{
    const auto script = Script("A host's text");
    script->Set(L"m_pDODefaultImpl", project)->Set(L"languagetype", L"A host's text");
    Finds({script});
    const wchar_t* const text = L"A host's text";
    Show({Sees(Titled(L"[[Scripts]]")), Sees(Shows(IDOK, L"[OK]")), Sees(Shows(IDCANCEL, L"[Cancel]")),
          Sees(Headings({L"[Name]", L"[Location]", L"[Script Language]", L"[Creation Date]",
                         L"[Modification Date]", L""})),
          Sees(InRow(0, {text, L"Project Lib", text, L"", L"", L""})), Presses(IDCANCEL)});
    script->Set(L"m_pDODefaultImpl", static_cast<IUnknown*>(nullptr));
    Show({Sees(InColumn(1, {L"Library"})), Presses(IDCANCEL)});
}

TEST_F(BracketedScriptPicker, TranslatesEveryMessage)
{
    Finds({});
    ShowMessage(L"[Select Script]", L"[No scripts available.]");
    ShowMessage(L"[Error]", L"[Unknown error.]", L"Script");
    Finds({Script("s")});
    ExpectBox(L"[Execute script]", L"[Please select a script.]");
    Show({SelectsNone(), Presses(IDOK), Presses(IDCANCEL)});
}

TEST_F(BracketedScriptPicker, ADialogThatFailedStaysInTheLanguageOfItsTemplate)
{
    host.Query().resultStatus = E_FAIL;
    Show({Sees(Titled(L"Orvoitems")), Sees(Shows(IDOK, L"OK")), Sees(Shows(IDCANCEL, L"Cancel")),
          Presses(IDCANCEL)});
}

class BracketedSelectDialog : public SelectDialog
{
};

/// The title is translated with the window, a prompt by itself, each once.
TEST_F(BracketedSelectDialog, TranslatesTitlePromptsButtonsAndHeadingOnce)
{
    parameters.Text(L"Caption", L"A caption").Entry(0, L"A prompt", Of(a));
    ExpectBox(L"[Attention !]", L"[Select a ParentChildRelation, please.]");
    Show({Sees(Titled(L"[A caption]")), Sees(Shows(IDOK, L"[OK]")), Sees(Shows(IDCANCEL, L"[Cancel]")),
          Sees(Headings({L"[Name]", L""})), Sees(InColumn(0, Texts{L"[A prompt]"})), SelectsNone(),
          Presses(IDOK), Presses(IDCANCEL)});
}
} // namespace
