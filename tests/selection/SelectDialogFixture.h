// The choice among given objects.
#pragma once

#include "ChooserFixture.h"
#include "Parameters.h"

#include <algorithm>
#include <functional>
#include <map>

inline constexpr wchar_t kNothingSelected[] = L"Select a ParentChildRelation, please.";

class SelectDialog : public ChooserFixture
{
protected:
    static constexpr int kFrame = 206;
    static constexpr int kList = 6666;

    SelectDialog() { EXPECT_EQ(module.Create(CLSID_QPSelectDlg, dialog), S_OK); }

    /// What was selected, by name; "untouched" if nothing was written.
    std::string Show(Steps steps, ULONG count, tagINITVALUE* values)
    {
        dialogs.OnDialog(std::move(steps));
        host.calls.clear();
        IUnknown* selected = Untouched<IUnknown>();
        EXPECT_EQ(dialog->ShowDialog(count, values, &selected), S_OK);
        EXPECT_TRUE(dialogs.AllShown()) << "no dialog came up";
        ComPtr<IUnknown> owned;
        if (selected != Untouched<IUnknown>())
            owned.attach(selected);
        std::string name = selected == Untouched<IUnknown>() ? "untouched" : host.NameOf(selected);
        Ended(name);
        return name;
    }
    std::string Show(Steps steps) { return Show(std::move(steps), parameters.Count(), parameters.Values()); }

    /// The rows' texts, in no order.
    Texts Rows(ULONG count, tagINITVALUE* values)
    {
        Texts rows;
        Show({[&](DialogView& view) { rows = view.Column(view.List(), 0); }, Presses(IDCANCEL)}, count,
             values);
        std::sort(rows.begin(), rows.end());
        return rows;
    }
    Texts Rows() { return Rows(parameters.Count(), parameters.Values()); }

    static IUnknown* Of(const ComPtr<MemoryObject>& object)
    {
        return static_cast<IQP_BaseDataObject*>(object.get());
    }

    const ComPtr<MemoryObject> a = host.Object("a");
    const ComPtr<MemoryObject> b = host.Object("b");
    const ComPtr<MemoryObject> c = host.Object("c");
    Parameters parameters;
    ComPtr<IQPSelectDlg> dialog;
};
