// What the tests of the manager share: a manager on a host in memory, and ready-made actions and commands.
#pragma once

#include "ArrayText.h"
#include "CountedObject.h"
#include "SearchFixture.h"

#include "XScriptActionAndCommandManager.h"

using Row = std::vector<std::string>;

/// A dispatch object that leads to a data object.
class DispatchReference final : public CountedObject<IDispatch>
{
public:
    explicit DispatchReference(ComPtr<MemoryObject> object) : m_object(std::move(object)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override
    {
        if (iid != __uuidof(IUnknown) && iid != __uuidof(IDispatch))
            return m_object->QueryInterface(iid, result);
        return CountedObject::QueryInterface(iid, result);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override
    {
        return E_NOTIMPL;
    }

private:
    ~DispatchReference() override = default;

    ComPtr<MemoryObject> m_object;
};

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

    // Values that objects seldom have.

    static void SetNull(const ComPtr<MemoryObject>& object, const wchar_t* attribute)
    {
        VARIANT value;
        value.vt = VT_NULL;
        object->Answer(attribute, S_OK, value);
    }
    /// A reference as a dispatch pointer.
    static void SetDispatch(const ComPtr<MemoryObject>& object, const wchar_t* attribute,
                            const ComPtr<MemoryObject>& target)
    {
        const ComPtr<IDispatch> reference(new DispatchReference(target));
        VARIANT value;
        value.vt = VT_DISPATCH;
        value.pdispVal = reference.get();
        object->Answer(attribute, S_OK, value);
    }
    /// A text that is a null pointer.
    static void SetNullText(const ComPtr<MemoryObject>& object, const wchar_t* attribute)
    {
        VARIANT value;
        value.vt = VT_BSTR;
        value.bstrVal = nullptr;
        object->Answer(attribute, S_OK, value);
    }

    HRESULT GetCommands(const wchar_t* typeName = L"machine", int userInterface = 1)
    {
        host.calls.clear();
        const Bstr type(typeName);
        return manager->GetScriptCommands(&query, set.get(), type.get(), nullptr, userInterface, nullptr,
                                          &result);
    }

    HRESULT GetActions(const wchar_t* typeName = L"machine")
    {
        host.calls.clear();
        const Bstr type(typeName);
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
