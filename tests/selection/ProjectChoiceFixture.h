// A project choice over a root object in memory.
#pragma once

#include "ChooserFixture.h"

class ProjectChoiceFixture : public ChooserFixture
{
protected:
    static constexpr int kCreateNew = 3;
    static constexpr int kFrame = 206;
    static constexpr int kList = 202;
    static constexpr LONG kUnchanged = 77;

    /// What a call left in its results.
    struct Outcome
    {
        HRESULT status;
        LONG canceled;
        LONG create;
        std::string selected;

        bool operator==(const Outcome&) const = default;
        friend std::ostream& operator<<(std::ostream& stream, const Outcome& outcome)
        {
            return stream << std::hex << outcome.status << std::dec << " canceled " << outcome.canceled
                          << " create " << outcome.create << " " << outcome.selected;
        }
    };

    ProjectChoiceFixture() { EXPECT_EQ(module.Create(CLSID_QPProjectChoice, choice), S_OK); }

    ComPtr<MemoryObject> Child(const char* name, const wchar_t* shown)
    {
        ComPtr<MemoryObject> child = host.Object(name);
        child->Set(L"name", shown);
        return child;
    }

    /// The root's projects, or its templates, are these.
    void Has(std::vector<ComPtr<MemoryObject>> children, const wchar_t* list = L"orvoproject")
    {
        found = host.List(std::move(children));
        root->Children(list, found);
    }

    void NameButton(const wchar_t* text)
    {
        EXPECT_EQ(choice->Initialize(text ? static_cast<BSTR>(XQPComBSTR(text)) : nullptr), S_OK);
    }

    Outcome Show(Steps steps, const ComPtr<MemoryObject>& of, HWND parent = nullptr)
    {
        return Run(std::move(steps), [&](Outcome& outcome, IQP_BaseDataObject** selected) {
            return choice->ShowDialog(of.get(), title, &outcome.canceled, selected, Number(parent));
        });
    }
    Outcome Show(Steps steps) { return Show(std::move(steps), root); }

    Outcome ShowEx(Steps steps, LONG templates, const ComPtr<MemoryObject>& of, HWND parent = nullptr)
    {
        return Run(std::move(steps), [&](Outcome& outcome, IQP_BaseDataObject** selected) {
            return choice->ShowDialogEx(of.get(), title, templates, &outcome.canceled, &outcome.create,
                                        selected, Number(parent));
        });
    }
    Outcome ShowEx(Steps steps, LONG templates = 0) { return ShowEx(std::move(steps), templates, root); }

    static LONG Number(HWND window) { return static_cast<LONG>(reinterpret_cast<LONG_PTR>(window)); }

    const XQPComBSTR title{L"Choose"};
    const ComPtr<MemoryObject> root = host.Object("root");
    ComPtr<MemoryEnum> found;
    ComPtr<IQPProjectChoice> choice;

private:
    template <class Call>
    Outcome Run(Steps steps, Call&& call)
    {
        if (!steps.empty())
            dialogs.OnDialog(std::move(steps));
        host.calls.clear();
        Outcome outcome{S_OK, kUnchanged, kUnchanged, {}};
        auto* selected = Untouched<IQP_BaseDataObject>();
        outcome.status = call(outcome, &selected);
        EXPECT_TRUE(dialogs.AllShown()) << "no dialog came up";
        outcome.selected = TakeOver(selected);
        Ended(outcome);
        return outcome;
    }
};
