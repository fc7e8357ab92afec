// A script command with its property dialog.
#pragma once

#include "CommandWords.h"
#include "PropertyFixture.h"

#include <algorithm>

class CommandFixture : public PropertyFixture
{
protected:
    CommandFixture()
    {
        host.Config().Type(L"scriptcommand");
        cell = host.Config().types.objects[0].get();
        line = host.Config().types.objects[1].get();
        plan = host.Config().types.objects[2].get();
        cell->Page(L"General", 1);
        cell->Page(L"Costs", 2);
        cell->Page(L"Internal", 3, false);
        cell->Group(L"Usage", 101);
        cell->Group(L"Limits", 102);
        cell->Attribute(L"weight");
        plan->Page(L"Planning", 7);
        milling->Set(L"configtypename", L"plan");
        command->Set(L"m_name", L"Deburr")->Set(L"m_strPrompt", L"Deburr now")->Set(L"m_pScript", drill);
        command->Set(L"m_strType", L"cell")->Set(L"m_bVisible", 1)->Set(L"m_lUserInterfaceType", 3);
        command->Set(L"m_nameShort", L"0")->Set(L"customizationobjectid", L"2");
        command->Set(L"customizationobjecttype", LONG{0});
    }

    HRESULT Show(Steps steps)
    {
        return PropertyFixture::Show(L"XDOScriptCommand", command, std::move(steps));
    }

    /// Binds the command to the plan type "Milling" and places it on the one page of that.
    void BindToPlanType()
    {
        command->Set(L"orvoplantype", milling)->Set(L"m_pPlanType", milling)->Set(L"m_strType", L"");
        command->Set(L"customizationobjectid", L"7");
    }

    /// Replaces the script by the macro "Weld".
    void RunMacro() { command->Set(L"m_pScript", L"")->Set(L"m_strVBAMacroName", L"Weld"); }

    /// The calls after opening.
    Calls Asked() const
    {
        const auto right = std::find(host.calls.begin(), host.calls.end(), "command.HasRight(8)");
        return {right + 1, host.calls.end()};
    }

    void ExpectWarning(const wchar_t* text) { ExpectBox(command_dialog::kWarning, text); }

    // The types of the command's objects; that of the scripts and commands themselves comes last.

    MemoryType* cell = nullptr;
    MemoryType* line = nullptr;
    MemoryType* plan = nullptr; ///< a plan type
    ComPtr<MemoryObject> command = host.Object("command");
};
