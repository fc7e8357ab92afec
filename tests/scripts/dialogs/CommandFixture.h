// A script command with its property dialog.
#pragma once

#include "PropertyFixture.h"

class CommandFixture : public PropertyFixture
{
protected:
    static constexpr int kName = 300;
    static constexpr int kPrompt = 302;
    static constexpr int kScript = 306;
    static constexpr int kMacro = 308;
    static constexpr int kPlanType = 316;
    static constexpr int kConfigType = 318;
    static constexpr int kContextMenu = 350;
    static constexpr int kVisible = 353;
    static constexpr int kProperties = 354;
    static constexpr int kExecution = 356;
    static constexpr int kPage = 357;
    static constexpr int kGroup = 358;
    static constexpr int kAttribute = 359;
    static constexpr int kElement = 360;

    CommandFixture()
    {
        host.Config().Type(L"scriptcommand");
        cell = host.Config().types.objects.front().get();
        cell->Page(L"General", 1);
        cell->Page(L"Costs", 2);
        cell->Page(L"Internal", 3, false);
        cell->Group(L"Usage", 101);
        cell->Group(L"Limits", 102);
        cell->Attribute(L"weight");
        command->Set(L"m_name", L"Deburr")->Set(L"m_strPrompt", L"Deburr now")->Set(L"m_pScript", drill);
        command->Set(L"m_strType", L"cell")->Set(L"m_bVisible", 1)->Set(L"m_lUserInterfaceType", 3);
        command->Set(L"m_nameShort", L"0")->Set(L"customizationobjectid", L"2");
        command->Set(L"customizationobjecttype", LONG{0});
    }

    HRESULT Show(Steps steps)
    {
        return PropertyFixture::Show(L"XDOScriptCommand", command, std::move(steps));
    }

    MemoryType* cell = nullptr; ///< the type of the command's objects
    ComPtr<MemoryObject> command = host.Object("command");
};
