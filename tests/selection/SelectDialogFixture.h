// The choice among given objects, and parameter arrays for it.
#pragma once

#include "ChooserFixture.h"

#include <algorithm>
#include <functional>
#include <map>

inline constexpr wchar_t kNothingSelected[] = L"Select a ParentChildRelation, please.";

/// A parameter array as a host makes it.
class Parameters
{
public:
    Parameters() = default;
    ~Parameters()
    {
        for (tagINITVALUE& value : m_values)
        {
            SysFreeString(value.bstrParamName);
            VariantClear(&value.varValue);
        }
    }
    Parameters(const Parameters&) = delete;
    Parameters& operator=(const Parameters&) = delete;

    Parameters& Add(const std::wstring& name, const VARIANT& value)
    {
        m_values.push_back({SysAllocString(name.c_str()), {}});
        VariantInit(&m_values.back().varValue);
        VariantCopy(&m_values.back().varValue, const_cast<VARIANT*>(&value));
        return *this;
    }
    Parameters& Text(const std::wstring& name, const std::wstring& text)
    {
        return Add(name, XQPComVariant(text.c_str()));
    }
    Parameters& Object(const std::wstring& name, IUnknown* object, VARTYPE type = VT_UNKNOWN)
    {
        VARIANT value;
        VariantInit(&value);
        value.vt = type;
        value.punkVal = object;
        return Add(name, value);
    }
    /// The entry `number`.
    Parameters& Entry(int number, const std::wstring& prompt, IUnknown* object)
    {
        const std::wstring digits = std::to_wstring(number);
        return Text(L"Prompt" + digits, prompt).Object(L"Object" + digits, object);
    }

    ULONG Count() const { return static_cast<ULONG>(m_values.size()); }
    tagINITVALUE* Values() { return m_values.data(); }

private:
    std::vector<tagINITVALUE> m_values;
};

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
        if (selected == Untouched<IUnknown>())
            return "untouched";
        ComPtr<IUnknown> owned;
        owned.attach(selected);
        return host.NameOf(selected);
    }
    std::string Show(Steps steps) { return Show(std::move(steps), parameters.Count(), parameters.Values()); }

    /// The rows' texts, in no order.
    Texts Rows(ULONG count, tagINITVALUE* values)
    {
        Texts rows;
        Show({[&](DialogView& view) { rows = Column(view, 0); }, Presses(IDCANCEL)}, count, values);
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
