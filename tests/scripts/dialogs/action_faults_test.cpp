// Every host call that the property dialog of a script action makes fails once, in each way a call can: the
// dialog can be left, no reference to the host is kept, and nothing is written but what was shown.
#include "ActionWords.h"
#include "PropertyFaults.h"

namespace
{
using namespace action_dialog;

class ActionFaults : public PropertyFaults
{
protected:
    ActionFaults()
        : PropertyFaults(L"scriptaction", L"Weld: number spots", L"XDOScriptAction", kWarning,
                         {L"m_name", L"m_prompt", L"m_pScript", L"m_pType", L"m_pPlanType", L"m_actionType",
                          L"m_beforeAfter", L"m_iSequence", L"m_bEnabled"})
    {
    }

    std::wstring WarningOf(const DialogView& view) const override
    {
        if (view.Selected(kPlanType) < 0 && view.Selected(kConfigType) < 0)
            return kNoType;
        return view.Selected(kScript) < 0 ? kNoScript : L"";
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
        if (way.fault == refhost::Fault::NullObject)
            return isScript ? Outcome{S_FALSE, kNoScript, "none"} : noType;
        // A name without a text is an entry that clears the object.
        Outcome cleared = whole;
        cleared.written = With(whole.written, isScript ? "m_pScript" : "m_pPlanType", "<empty>");
        return cleared;
    }

    const Acts nothing = [](const DialogView&) {
    };
};

TEST_P(ActionFaults, EveryCallOfOpeningAndOk)
{
    const Outcome whole = Run(0, nothing);
    ASSERT_EQ(whole.status, S_OK);
    ASSERT_NE(whole.written, "none");
    Sweep(nothing, 1, [&](const Lines& lines, std::size_t index, const Outcome& outcome) {
        EXPECT_EQ(outcome, AtOpening(whole, lines[index]));
    });
}

TEST_P(ActionFaults, EveryCallOfTheLists)
{
    const Acts lists = [](const DialogView& view) {
        view.DropDown(kScript);
        view.DropDown(kPlanType);
    };
    const Outcome whole = Run(0, lists);
    ASSERT_EQ(whole.status, S_OK);
    int refused = 0;
    Sweep(lists, opened + 1, [&](const Lines&, std::size_t, const Outcome& outcome) {
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
    // Opening it deselects the plan type.
    const Acts types = [](const DialogView& view) {
        view.DropDown(kConfigType);
    };
    const Outcome whole = Run(0, types);
    ASSERT_EQ(whole, (Outcome{S_FALSE, kNoType, "none"}));
    Sweep(types, opened + 1,
          [&](const Lines&, std::size_t, const Outcome& outcome) { EXPECT_EQ(outcome, whole); });
}

INSTANTIATE_TEST_SUITE_P(Ways, ActionFaults, ::testing::ValuesIn(kWays), NameOfWay);
} // namespace
