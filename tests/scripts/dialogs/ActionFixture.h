// A script action with its property dialog.
#pragma once

#include "ActionWords.h"
#include "PropertyFixture.h"

class ActionFixture : public PropertyFixture
{
protected:
    ActionFixture()
    {
        values = host.Config().Type(L"scriptaction")->Attribute(L"actiontype");
        values->Value(L"Open", 1)->Value(L"Close", 2)->Value(L"Check in", 24)->Value(L"Check out", 25);
        action->Set(L"m_name", L"Deburr")->Set(L"m_prompt", L"Ask first")->Set(L"m_pScript", drill);
        action->Set(L"m_pType", L"cell")->Set(L"m_actionType", 2)->Set(L"m_beforeAfter", 1);
        action->Set(L"m_iSequence", 30)->Set(L"m_bEnabled", 1);
    }

    HRESULT Show(Steps steps) { return PropertyFixture::Show(L"XDOScriptAction", action, std::move(steps)); }

    /// Opens the dialog, runs the steps and cancels: nothing is written.
    void Open(const Steps& steps)
    {
        EXPECT_EQ(Show(steps + Steps{Presses(IDCANCEL)}), S_FALSE);
        EXPECT_EQ(Written(), "");
    }

    /// Makes the record one of a plan type.
    void BindToPlanType(const ComPtr<MemoryObject>& planType)
    {
        action->Set(L"orvoplantype", planType)->Set(L"m_pType", L"")->Set(L"m_pPlanType", planType);
    }

    /// Whether the last write has these pairs, one after the other.
    ::testing::AssertionResult Wrote(const std::string& pairs) const
    {
        const std::string written = Written();
        return written.find(pairs) == std::string::npos ? ::testing::AssertionFailure() << written
                                                        : ::testing::AssertionSuccess();
    }

    // What is seen after a load that ended early: the rest is as in a new record.

    static Steps NoEntries()
    {
        return {Sees(Offers(action_dialog::kScript, {})), Sees(Offers(action_dialog::kConfigType, {})),
                Sees(Offers(action_dialog::kPlanType, {}))};
    }
    static Steps NoNumbers()
    {
        return {Sees(NoneChosen(action_dialog::kActionType)), Sees(Checked(action_dialog::kAfter)),
                Sees(Unchecked(action_dialog::kBefore)), Sees(Shows(action_dialog::kSequence, L"0")),
                Sees(Unchecked(action_dialog::kEnabled))};
    }
    static Steps EndsAtOnce()
    {
        return Steps{Sees(Shows(action_dialog::kName, L""))} + NoEntries() + NoNumbers();
    }
    static Steps EndsAtTheScript()
    {
        return Steps{Sees(Shows(action_dialog::kName, L"Deburr"))} + NoEntries() + NoNumbers();
    }
    static Steps EndsAtThePlanType()
    {
        return Steps{Sees(Chosen(action_dialog::kScript, L"Drill")),
                     Sees(Chosen(action_dialog::kConfigType, L"cell"))} +
               NoNumbers();
    }

    MemoryAttribute* values = nullptr; ///< of the action type
    ComPtr<MemoryObject> action = host.Object("action");
};
