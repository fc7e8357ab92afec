// What the property dialog of a script action shows when it opens, and which host calls that takes.
#include "ActionFixture.h"

namespace
{
using namespace action_dialog;

class ActionOpens : public ActionFixture
{
};

TEST_F(ActionOpens, ShowsTheRecord)
{
    EXPECT_EQ(Show({Sees(Titled(L"Script Action Properties")), Sees(Shows(kName, L"Deburr")),
                    Sees(Shows(kSequence, L"30")), Sees(Chosen(kActionType, L"Close")),
                    Sees(Chosen(kScript, L"Drill")), Sees(Chosen(kConfigType, L"cell")),
                    Sees(NoneChosen(kPlanType)), Sees(Checked(kBefore)), Sees(Unchecked(kAfter)),
                    Sees(Checked(kEnabled)), Presses(IDCANCEL)}),
              S_FALSE);
    EXPECT_EQ(Written(), "");
}

TEST_F(ActionOpens, WritesTheRecordBack)
{
    EXPECT_EQ(Show({Presses(IDOK)}), S_OK);
    EXPECT_EQ(Written(), "action.SetAttributes(m_name = BSTR 'Deburr', m_prompt = BSTR 'Ask first', "
                         "m_pScript = UNKNOWN drill, m_pType = BSTR 'cell', m_pPlanType = EMPTY, "
                         "m_actionType = I4 2, m_beforeAfter = I4 1, m_iSequence = I4 30, "
                         "m_bEnabled = I4 1)");
}

TEST_F(ActionOpens, ByOneReadOfAttributesAndNoList)
{
    Open({});
    EXPECT_TRACE(Calls{"GetType(scriptaction, null)", "scriptaction.GetAttribute(actiontype)",
                       "actiontype.GetAttributeTypeEnum()", "actiontype values.RemNext(25)",
                       "actiontype=Open.Get(name)", "actiontype=Open.Get(value)",
                       "actiontype=Close.Get(name)", "actiontype=Close.Get(value)",
                       "actiontype=Check in.Get(name)", "actiontype=Check in.Get(value)",
                       "actiontype=Check out.Get(name)", "actiontype=Check out.Get(value)",
                       "action.GetAttributes(m_name, m_prompt, m_pScript, orvoplantype, m_pType, "
                       "m_pPlanType, m_actionType, m_beforeAfter, m_iSequence, m_bEnabled)",
                       "drill.GetAttribute(m_name)", "action.HasRight(8)"});
}

TEST_F(ActionOpens, ListsOnlyWhatTheRecordHolds)
{
    Open({Sees(Offers(kScript, {L"Drill"})), Sees(Offers(kConfigType, {L"cell"})),
          Sees(Offers(kPlanType, {}))});
}

TEST_F(ActionOpens, OnARecordWithoutValues)
{
    action = host.Object("new");
    Open({Sees(Shows(kName, L"")), Sees(Shows(kSequence, L"0")), Sees(NoneChosen(kActionType)),
          Sees(NoneChosen(kScript)), Sees(NoneChosen(kConfigType)), Sees(NoneChosen(kPlanType)),
          Sees(Checked(kAfter)), Sees(Unchecked(kBefore)), Sees(Unchecked(kEnabled))});
}

TEST_F(ActionOpens, WithTheFocusOnTheName)
{
    Open({Sees(FocusOn(kName))});
}

TEST_F(ActionOpens, NeverSavesNorTouchesThePlanTypeSet)
{
    planTypes->Set(L"orvoplantypeset", L"theirs");
    EXPECT_EQ(Show({Presses(IDOK)}), S_OK);
    for (const std::string& call : host.calls)
    {
        EXPECT_EQ(call.find("Save"), std::string::npos) << call;
        EXPECT_EQ(call.find("orvoplantypeset"), std::string::npos) << call;
    }
}

TEST_F(ActionOpens, AndListsWithTheWaitCursor)
{
    const HCURSOR waiting = LoadCursorW(nullptr, IDC_WAIT);
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    int seen = 0;
    host.onCall = [&](const std::string& call) {
        // The type is got before the dialog opens.
        EXPECT_EQ(GetCursor() == waiting, call != "GetType(scriptaction, null)") << call;
        ++seen;
    };
    const DialogStep atRest = [&](DialogView&) {
        EXPECT_NE(GetCursor(), waiting);
    };
    Open({atRest, Drops(kScript), atRest, Drops(kPlanType), atRest, Drops(kConfigType), atRest});
    EXPECT_GT(seen, 30);
}

TEST_F(ActionOpens, AndKeepsNoReferenceAfterwards)
{
    const auto held = [this] {
        return host.Config().References() + host.Query().References() + References(action) +
               References(drill) + References(set) + References(project) + References(assembly);
    };
    const ULONG before = held();
    action->Set(L"orvoplantype", 1)->Set(L"m_pPlanType", assembly);
    const ULONG stored = held();
    Show({Drops(kScript), Drops(kPlanType), Drops(kConfigType), Presses(IDCANCEL)});
    EXPECT_EQ(held(), stored);
    EXPECT_EQ(stored, before + 1) << "the record's own";
}
} // namespace
