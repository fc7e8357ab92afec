// What the tests of the manager share: a manager on a host in memory, and ready-made actions and commands.
#pragma once

#include "ArrayText.h"
#include "SearchFixture.h"

#include "XScriptActionAndCommandManager.h"

using Row = std::vector<std::string>;

class ManagerFixture : public SearchFixture
{
protected:
    ManagerFixture()
    {
        CreateComObject<qptools::XScriptActionAndCommandManager>(
            nullptr, __uuidof(IScriptActionAndCommandManager), manager.putVoid());
    }

    void Finds(std::vector<ComPtr<MemoryObject>> objects) { query.result = host.List(std::move(objects)); }

    ComPtr<MemoryObject> Script(const std::string& name)
    {
        ComPtr<MemoryObject> script = host.Object(name);
        script->Set(L"name", std::wstring(name.begin(), name.end()).c_str());
        return script;
    }

    /// A command that runs a script. Null texts are attributes without a value.
    ComPtr<MemoryObject> ScriptCommand(const std::string& name, const wchar_t* prompt,
                                       const ComPtr<MemoryObject>& script, const wchar_t* shortName = nullptr)
    {
        ComPtr<MemoryObject> command = host.Object(name);
        if (prompt)
            command->Set(L"m_strPrompt", prompt);
        if (shortName)
            command->Set(L"m_nameShort", shortName);
        command->Set(L"script", script);
        return command;
    }

    /// A command that runs a macro.
    ComPtr<MemoryObject> MacroCommand(const std::string& name, const wchar_t* prompt, const wchar_t* macro,
                                      const wchar_t* shortName = nullptr)
    {
        ComPtr<MemoryObject> command = host.Object(name);
        if (prompt)
            command->Set(L"m_strPrompt", prompt);
        if (shortName)
            command->Set(L"m_nameShort", shortName);
        if (macro)
            command->Set(L"m_strVBAMacroName", macro);
        return command;
    }

    ComPtr<MemoryObject> Action(const std::string& name, const ComPtr<MemoryObject>& script)
    {
        ComPtr<MemoryObject> action = host.Object(name);
        action->Set(L"script", script);
        return action;
    }

    HRESULT GetCommands(const wchar_t* typeName = L"machine", int userInterface = 1)
    {
        host.calls.clear();
        const BstrArgument type(typeName);
        return manager->GetScriptCommands(&query, set.get(), type.get(), nullptr, userInterface, nullptr,
                                          &result);
    }

    HRESULT GetActions(const wchar_t* typeName = L"machine")
    {
        host.calls.clear();
        const BstrArgument type(typeName);
        return manager->GetScriptsForAction(&query, set.get(), type.get(), nullptr, 7, 1, &result);
    }

    TextRows Rows() const
    {
        return RowsOf(result.Value(), [this](IUnknown* object) { return host.NameOf(object); });
    }

    /// The calls after the search.
    Calls Walked() const
    {
        const auto end = std::find(host.calls.begin(), host.calls.end(), "GetSearchResult()");
        return end == host.calls.end() ? Calls{} : Calls(end + 1, host.calls.end());
    }

    ComPtr<IScriptActionAndCommandManager> manager;
    XQPComVariant result;
};
