// The property dialogs in a made-up language that puts every text in brackets: exactly which texts are
// translated, and how often.
#include "ActionFixture.h"
#include "CommandFixture.h"

#include "WindowTexts.h"

namespace
{
using namespace command_dialog;

/// Before anything is translated in this program.
const bool kInBrackets = SetEnvironmentVariableW(L"QPTOOLS_LANG", L"qps") != 0;

/// The catalogue has it, and also with its brackets.
constexpr const wchar_t* kHostText = L"A host's text";

bool IsInBrackets(const std::wstring& text)
{
    return text.size() > 2 && text.front() == L'[' && text[1] != L'[' && text.back() == L']' &&
           text[text.size() - 2] != L']';
}

/// The title, labels, buttons and frames are translated, once each, and nothing else is.
DialogStep SeesItsOwnTextsInBrackets(const std::wstring& title, std::size_t count)
{
    return [=](DialogView& view) {
        EXPECT_EQ(view.Title(), L"[" + title + L"]");
        std::size_t own = 0;
        for (const HWND control : view.Controls())
        {
            const std::wstring text = TextOf(control);
            const std::wstring type = ClassOf(control);
            if (type == L"Button" || type == L"Static")
            {
                EXPECT_TRUE(IsInBrackets(text)) << Utf8Text(text);
                ++own;
            }
            else if (GetDlgCtrlID(control) != kExecution)
            {
                EXPECT_TRUE(text.find(L'[') == std::wstring::npos) << Utf8Text(text);
            }
        }
        EXPECT_EQ(own, count);
    };
}

class BracketedAction : public ActionFixture
{
protected:
    BracketedAction()
    {
        EXPECT_TRUE(kInBrackets);
        drill->Set(L"m_name", kHostText)->Set(L"name", kHostText);
        assembly->Set(L"m_name", kHostText)->Set(L"name", kHostText);
        values->values.objects[1]->Set(L"name", kHostText);
        host.Config().Type(kHostText);
        action->Set(L"m_name", kHostText)->Set(L"m_prompt", kHostText)->Set(L"m_pType", kHostText);
    }
};

TEST_F(BracketedAction, TranslatesItsOwnTextsAlone)
{
    Show({SeesItsOwnTextsInBrackets(L"Script Action Properties", 14),
          Sees(Chosen(action_dialog::kScript, kHostText)),
          Sees(Chosen(action_dialog::kConfigType, kHostText)),
          Sees(Chosen(action_dialog::kActionType, kHostText)), Drops(action_dialog::kScript),
          Sees(Offers(action_dialog::kScript, {kHostText, L"Weld"})), Drops(action_dialog::kConfigType),
          Sees(Chosen(action_dialog::kConfigType, kHostText)), Drops(action_dialog::kPlanType),
          Sees(Offers(action_dialog::kPlanType, {kHostText, L"Milling"})), Presses(IDCANCEL)});
}

TEST_F(BracketedAction, WritesNothingTranslated)
{
    EXPECT_EQ(Show({Presses(IDOK)}), S_OK);
    EXPECT_EQ(Written().find('['), std::string::npos);
}

TEST_F(BracketedAction, DoesNotTranslateItsWarnings)
{
    action->Set(L"m_pType", L"");
    ExpectBox(L"Script Action Properties Warning", kNoType);
    Show({Presses(IDOK), Presses(IDCANCEL)});
    action->Set(L"m_pType", L"cell")->Set(L"m_pScript", L"");
    ExpectBox(L"Script Action Properties Warning", L"No script selected.");
    Show({Presses(IDOK), Presses(IDCANCEL)});
}

class BracketedCommand : public CommandFixture
{
protected:
    BracketedCommand()
    {
        EXPECT_TRUE(kInBrackets);
        drill->Set(L"m_name", kHostText)->Set(L"name", kHostText);
        assembly->Set(L"m_name", kHostText)->Set(L"name", kHostText);
        for (const int number : {1, 2})
            cell->Page(kHostText, number + 10);
        command->Set(L"m_name", kHostText)->Set(L"m_strPrompt", kHostText);
        command->Set(L"m_strVBAMacroName", kHostText)->Set(L"customizationobjectid", L"12");
        host.Loader().Macros({kHostText, L"Weld"});
        host.onCall = [this](const std::string& call) {
            if (call == "SetSearchTable(vbaproject)")
                host.Query().result = host.List({vbaProject});
        };
    }
    ~BracketedCommand() override
    {
        host.onCall = nullptr;
        // One reference to each VBA project of a list stays open on purpose.
        host.Query().result.reset();
        vbaProject->AddRef();
        while (vbaProject->Release() > 1)
        {
        }
    }

    const ComPtr<MemoryObject> vbaProject = host.Object("vba project");
};

TEST_F(BracketedCommand, TranslatesItsOwnTextsAlone)
{
    Show({SeesItsOwnTextsInBrackets(L"Script Command Properties", 22), Sees(Chosen(kScript, kHostText)),
          Sees(Chosen(kMacro, kHostText)), Sees(Shows(kElement, kHostText)), Drops(kScript),
          Sees(Offers(kScript, {kHostText, L"Weld"})), Drops(kPlanType),
          Sees(Offers(kPlanType, {kHostText, L"Milling"})), Drops(kMacro),
          Sees(Offers(kMacro, {kHostText, L"Weld"})), Drops(kConfigType),
          Sees(Offers(kConfigType, {L"cell", L"line", L"scriptcommand"})), Presses(IDCANCEL)});
}

TEST_F(BracketedCommand, TranslatesTheExecutionModesOnce)
{
    for (int showing = 0; showing < 2; ++showing)
        Show({Sees(Offers(kExecution, {L"[Once for all objects]", L"[For each object]"})),
              Sees(Chosen(kExecution, L"[Once for all objects]")), Drops(kExecution),
              Sees(Chosen(kExecution, L"[Once for all objects]")), Presses(IDCANCEL)});
}

TEST_F(BracketedCommand, WritesNothingTranslated)
{
    EXPECT_EQ(Show({Presses(IDOK)}), S_OK);
    EXPECT_EQ(Written(), Write({{"m_name", "BSTR 'A host's text'"},
                                {"m_strPrompt", "BSTR 'A host's text'"},
                                {"m_strVBAMacroName", "BSTR 'A host's text'"},
                                {"customizationobjectid", "BSTR '12'"}}));
}

TEST_F(BracketedCommand, DoesNotTranslateItsWarnings)
{
    command->Set(L"m_strVBAMacroName", L"");
    host.Loader().Clear();
    ExpectWarning(kNoElement);
    ExpectWarning(kNoScript);
    ExpectWarning(kNoType);
    ExpectWarning(kNoType);
    Show({Checks(kGroup), Presses(IDOK), Drops(kMacro), Types("Escape"), Presses(IDOK), Drops(kPlanType),
          Types("Escape"), Presses(IDOK), Drops(kElement), Presses(IDCANCEL)});
}
} // namespace
