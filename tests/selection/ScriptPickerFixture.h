// The choice of a script over a host in memory.
#pragma once

#include "ChooserFixture.h"

#include <algorithm>
#include <functional>
#include <initializer_list>

class ScriptPickerFixture : public ChooserFixture
{
protected:
    static constexpr int kFrame = 206;

    /// What a call returned and left in its result.
    struct Outcome
    {
        HRESULT status;
        std::string selected;

        bool operator==(const Outcome&) const = default;
        friend std::ostream& operator<<(std::ostream& stream, const Outcome& outcome)
        {
            return stream << std::hex << outcome.status << std::dec << " " << outcome.selected;
        }
    };

    ScriptPickerFixture()
    {
        EXPECT_EQ(module.Create(CLSID_QPSelectOrvoItem, item), S_OK);
        project->Is(L"XDOOrvoProject");
        XQPComVariant query;
        query.Value().vt = VT_UNKNOWN;
        query.Value().punkVal = &host.Query();
        host.Query().AddRef();
        EXPECT_EQ(item->Initialize(&query.Value()), S_OK);
    }

    ComPtr<MemoryObject> Script(const char* name)
    {
        ComPtr<MemoryObject> script = host.Object(name);
        const std::string text = name;
        script->Set(L"name", std::wstring(text.begin(), text.end()).c_str());
        return script;
    }

    void Finds(std::vector<ComPtr<MemoryObject>> scripts)
    {
        host.Query().result = host.List(std::move(scripts));
    }

    Outcome Show(Steps steps, const wchar_t* kind, const ComPtr<MemoryObject>& of)
    {
        if (!steps.empty())
            dialogs.OnDialog(std::move(steps));
        host.calls.clear();
        auto* selected = Untouched<IQP_BaseDataObject>();
        const XQPComBSTR type(kind);
        const HRESULT status =
            item->ShowDialog(of.get(), kind ? static_cast<BSTR>(type) : nullptr, &selected);
        EXPECT_TRUE(dialogs.AllShown()) << "no dialog came up";
        Outcome outcome{status, TakeOver(selected)};
        Ended(outcome);
        return outcome;
    }
    Outcome Show(Steps steps) { return Show(std::move(steps), L"script", project); }

    /// The dialog ends before it is shown; the message is all that is seen of it.
    Outcome ShowMessage(const std::wstring& title, const std::wstring& text, const wchar_t* kind = L"script")
    {
        ExpectBox(title, text);
        return Show({}, kind, project);
    }

    const ComPtr<MemoryObject> project = host.Object("project");
    ComPtr<IQPSelectOrvoItem> item;
};
