// What tests of the plan types in the enhanced copy dialog share: the calls that a step leads to.
#pragma once

#include "CopyFixture.h"

class ChoiceFixture : public CopyFixture
{
protected:
    ChoiceFixture() { chosen = {press}; }

    /// From here on calls count for LedTo.
    DialogStep Marks()
    {
        return {"marks the calls", [this](DialogView&) {
                    m_mark = host.calls.size();
                }};
    }

    /// The steps since the last mark made exactly these calls; marks again.
    DialogStep LedTo(const Calls& expected)
    {
        return {"compares the calls", [=, this](DialogView&) {
                    const Calls made(host.calls.begin() + static_cast<std::ptrdiff_t>(m_mark),
                                     host.calls.end());
                    EXPECT_EQ(made, expected);
                    m_mark = host.calls.size();
                }};
    }
    DialogStep LedToNoCall() { return LedTo({}); }

    /// Drops the calls so far from the record and the trace: other tests record them.
    DialogStep Forgets()
    {
        return {"forgets the calls", [this](DialogView&) {
                    host.calls.clear();
                    m_mark = 0;
                }};
    }

    /// Expands the dialog; the calls of the walks are forgotten.
    Steps Expands() { return {Presses(copy_dialog::kAdvanced), Forgets()}; }

    /// Types a value into the cell of a row.
    static Steps Fills(int row, const std::wstring& text)
    {
        return OpensEditor(row) + Steps{TypesInEditor(text), Types("Return"), Sees(NoEditor())};
    }

    /// The calls that fill the grid with a type whose attributes are all offered.
    static Calls FillOf(const std::string& type, const Calls& attributes)
    {
        Calls calls = {type + ".GetDisplayAttributeEnum(4)", type + " attributes.GetSingleNext()"};
        for (const std::string& attribute : attributes)
        {
            calls.push_back(attribute + ".GetProperty(54)");
            calls.push_back(attribute + ".GetProperty(0)");
            calls.push_back(type + " attributes.GetSingleNext()");
        }
        return calls;
    }

    /// A type with attributes that are offered, and a node of it.
    ComPtr<MemoryObject> Typed(const wchar_t* type, const std::vector<const wchar_t*>& attributes)
    {
        const ComPtr<MemoryObject> node = host.Node((std::wstring(type) + L" node").c_str(), type);
        for (const wchar_t* attribute : attributes)
            host.Config().Find(type)->Attribute(attribute);
        return node;
    }

private:
    std::size_t m_mark = 0;
};
