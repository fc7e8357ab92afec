// A script action with its property dialog.
#pragma once

#include "PropertyFixture.h"

class ActionFixture : public PropertyFixture
{
protected:
    static constexpr int kName = 250;
    static constexpr int kSequence = 251;
    static constexpr int kActionType = 254;
    static constexpr int kScript = 256;
    static constexpr int kAfter = 262;
    static constexpr int kBefore = 263;
    static constexpr int kEnabled = 264;
    static constexpr int kPlanType = 266;
    static constexpr int kConfigType = 268;

    ActionFixture()
    {
        values = host.Config().Type(L"scriptaction")->Attribute(L"actiontype");
        values->Value(L"Open", 1)->Value(L"Close", 2)->Value(L"Check in", 24)->Value(L"Check out", 25);
        action->Set(L"m_name", L"Deburr")->Set(L"m_prompt", L"Ask first")->Set(L"m_pScript", drill);
        action->Set(L"m_pType", L"cell")->Set(L"m_actionType", 2)->Set(L"m_beforeAfter", 1);
        action->Set(L"m_iSequence", 30)->Set(L"m_bEnabled", 1);
    }

    HRESULT Show(Steps steps) { return PropertyFixture::Show(L"XDOScriptAction", action, std::move(steps)); }

    MemoryAttribute* values = nullptr; ///< of the action type
    ComPtr<MemoryObject> action = host.Object("action");
};
