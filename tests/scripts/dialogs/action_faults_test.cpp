// Every host call that the property dialog of a script action makes fails once, in each way a call can: the
// dialog can be left, no reference to the host is kept, and nothing is written but what was shown.
#include "PropertyPlant.h"

#include "FaultWays.h"

using refhost::Fault;
using refhost::Plant;

namespace
{
constexpr int kScript = 256;
constexpr int kPlanType = 266;
constexpr int kConfigType = 268;

const std::wstring kTitle = L"Script Action Properties Warning";
const std::wstring kNoType = L"Neither a configuration type nor a plantype selected.";
const std::wstring kNoScript = L"No script selected.";

/// What a run comes to.
struct Outcome
{
    HRESULT status = S_OK;
    std::wstring warning;
    std::string written; ///< the line of the call that writes; "none" if there is none

    bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Outcome& outcome)
{
    return stream << outcome.status << " \"" << std::string(outcome.warning.begin(), outcome.warning.end())
                  << "\" " << outcome.written;
}

bool Has(const std::string& line, const char* part)
{
    return line.find(part) != std::string::npos;
}

/// The line of a write with the object in `attribute` cleared.
std::string Cleared(const std::string& line, const std::string& attribute)
{
    const std::size_t start = line.find('<', line.find("\"" + attribute + "\" = <"));
    const std::size_t end = line.find('>', start);
    return line.substr(0, start) + "<empty>" + line.substr(end + 1);
}

class ActionFaults : public PropertyPlant, public ::testing::WithParamInterface<Way>
{
protected:
    ~ActionFaults() override { m_values.clear(); }

    /// Presses OK as far as a user can, after opening these lists; leaves with Cancel otherwise.
    Outcome Run(long long n, const std::vector<int>& lists)
    {
        Outcome outcome;
        dialogs.OnDialog({[&](DialogView& view) {
            opened = plant->Calls().Count();
            for (const int list : lists)
                view.DropDown(list);
            outcome.warning = PressOk(view);
            if (!outcome.warning.empty() || !view.IsEnabled(IDOK))
                view.Click(IDCANCEL);
        }});
        plant->Calls().Clear();
        plant->Calls().Record(true);
        plant->Calls().FailCall(n, n == 0 ? Fault::None : GetParam().fault, GetParam().status);
        const long before = Plant::LiveObjects();
        outcome.status =
            service->ShowScriptActionOrCommandDlg(manager.get(), factory.get(), query.get(), project.get(),
                                                  set.get(), action.get(), XQPComBSTR(L"XDOScriptAction"));
        EXPECT_EQ(Plant::LiveObjects(), before) << "objects of the host are left";
        EXPECT_EQ(plant->Calls().Struck(), n > 0);
        EXPECT_TRUE(dialogs.AllShown() && boxes.AllShown());
        plant->Calls().FailCall(0, Fault::None);
        plant->Calls().Record(false);
        record = plant->Calls().Calls();
        outcome.written = WrittenIn(record);
        Restore();
        return outcome;
    }

    /// Returns the warning that is due; there is none while OK is disabled.
    std::wstring PressOk(const DialogView& view)
    {
        if (!view.IsEnabled(IDOK))
            return {};
        std::wstring warning;
        if (view.Selected(kScript) < 0)
            warning = kNoScript;
        if (view.Selected(kPlanType) < 0 && view.Selected(kConfigType) < 0)
            warning = kNoType;
        if (!warning.empty())
            boxes.Expect(kTitle, warning, IDOK);
        view.Click(IDOK);
        return warning;
    }

    /// Nothing may be written but by one call.
    static std::string WrittenIn(const Lines& lines)
    {
        std::string written = "none";
        for (const std::string& line : lines)
        {
            if (!Has(line, "SetAttribute") || Has(line, "SetSearchAttribute"))
                continue;
            EXPECT_EQ(written, "none") << "a second write";
            EXPECT_TRUE(Has(line, "SetAttributes(")) << line;
            written = line;
        }
        return written;
    }

    void Keep()
    {
        for (const wchar_t* name : {L"m_name", L"m_prompt", L"m_pScript", L"m_pType", L"m_pPlanType",
                                    L"m_actionType", L"m_beforeAfter", L"m_iSequence", L"m_bEnabled"})
        {
            XQPComVariant value;
            action->GetAttribute(XQPComBSTR(name), &value);
            m_values.emplace_back(name, value);
        }
    }
    void Restore()
    {
        for (const auto& [name, value] : m_values)
            EXPECT_GE(action->SetAttribute(XQPComBSTR(name.c_str()), value.Value()), 0);
    }

    /// Fails every call from the `first` on, in turn. `predict` gets the line of the failing call.
    template <class Predict>
    void Sweep(const std::vector<int>& lists, long long first, Predict&& predict)
    {
        const Lines lines = record;
        ASSERT_GT(static_cast<long long>(lines.size()), first);
        for (long long n = first; n <= static_cast<long long>(lines.size()) && !HasFailure(); ++n)
        {
            const std::string& line = lines[static_cast<std::size_t>(n) - 1];
            SCOPED_TRACE(line);
            predict(line, Run(n, lists));
        }
    }

    /// What comes of a call that fails while the dialog opens, or of the one that writes.
    Outcome AtOpening(const Outcome& whole, const std::string& line) const
    {
        const Outcome noType{S_FALSE, kNoType, "none"};
        const Way& way = GetParam();
        if (Has(line, "::SetAttributes("))
            return whole;
        if (Has(line, "IQPConfigFactory::GetType("))
            return way.Fails() ? noType : whole;
        // A part is as good as nothing.
        if (Has(line, "::GetAttributes("))
            return noType;
        if (Has(line, "HasRight"))
            return way.SaysSo() ? Outcome{S_FALSE, L"", "none"} : whole;
        const bool isScript = Has(line, "<script ");
        if (!isScript && !Has(line, "<plantype "))
            return whole;
        // The load ends, or no entry is shown.
        if (way.Fails())
            return noType;
        if (way.fault == Fault::NullObject)
            return isScript ? Outcome{S_FALSE, kNoScript, "none"} : noType;
        // A name without a text is an entry that clears the object.
        Outcome cleared = whole;
        cleared.written = Cleared(whole.written, isScript ? "m_pScript" : "m_pPlanType");
        return cleared;
    }

    ComPtr<IQP_BaseDataObject> action = Find(L"scriptaction", L"Weld: number spots");
    Lines record;
    long long opened = 0; ///< the calls of the opening

private:
    std::vector<std::pair<std::wstring, XQPComVariant>> m_values;
};

TEST_P(ActionFaults, EveryCallOfOpeningAndOk)
{
    Keep();
    const Outcome whole = Run(0, {});
    ASSERT_EQ(whole.status, S_OK);
    ASSERT_NE(whole.written, "none");
    Sweep({}, 1, [&](const std::string& line, const Outcome& outcome) {
        EXPECT_EQ(outcome, AtOpening(whole, line));
    });
}

TEST_P(ActionFaults, EveryCallOfTheLists)
{
    Keep();
    const std::vector<int> lists = {kScript, kPlanType};
    const Outcome whole = Run(0, lists);
    ASSERT_EQ(whole.status, S_OK);
    int refused = 0;
    Sweep(lists, opened + 1, [&](const std::string&, const Outcome& outcome) {
        // The same is written, or nothing because what was selected is not listed.
        if (outcome == whole)
            return;
        ++refused;
        EXPECT_EQ(outcome, (Outcome{S_FALSE, outcome.warning, "none"}));
        EXPECT_NE(outcome.warning, L"");
    });
    EXPECT_GT(refused, 0);
    EXPECT_LT(refused, static_cast<int>(record.size()) - opened);
}

TEST_P(ActionFaults, EveryCallOfTheListOfTypes)
{
    Keep();
    // To open it deselects the plan type.
    const Outcome whole = Run(0, {kConfigType});
    ASSERT_EQ(whole, (Outcome{S_FALSE, kNoType, "none"}));
    Sweep({kConfigType}, opened + 1,
          [&](const std::string&, const Outcome& outcome) { EXPECT_EQ(outcome, whole); });
}

INSTANTIATE_TEST_SUITE_P(Ways, ActionFaults, ::testing::ValuesIn(kWays), NameOfWay);
} // namespace
