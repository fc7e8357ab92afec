// Every host call that the property dialog of a script command makes fails once, in each way a call can: the
// dialog can be left, no reference to the host is kept, and nothing is written but what was shown.
#include "CommandWords.h"
#include "PropertyFaults.h"

#include "RegisteredProgId.h"
#include "VbaLoader.h"

#include <algorithm>

namespace
{
using namespace command_dialog;

class CommandFaults : public PropertyFaults
{
protected:
    CommandFaults()
        : PropertyFaults(L"scriptcommand", L"Paint drying", L"XDOScriptCommand", kWarning,
                         {L"m_name", L"m_strPrompt", L"m_pScript", L"m_strVBAMacroName", L"m_strType",
                          L"m_pPlanType", L"m_bVisible", L"m_lUserInterfaceType", L"m_nameShort",
                          L"customizationobjectid", L"customizationobjecttype"})
    {
        // The manager keeps the loader that it has made.
        ComPtr<IQPFObject> loader;
        EXPECT_EQ(manager->GetObject(refhost::kVbaLoaderClass, 1, loader.put()), S_OK);
    }

    std::wstring WarningOf(const DialogView& view) const override
    {
        if (view.Selected(kPlanType) < 0 && view.Selected(kConfigType) < 0)
            return kNoType;
        if (view.Selected(kScript) < 0 && view.Selected(kMacro) < 0)
            return kNoScript;
        return view.IsChecked(kProperties) && view.Text(kElement).empty() ? kNoElement : L"";
    }

    /// The list opens, and the item is chosen if it is there.
    void Choose(const DialogView& view, int combo, const std::wstring& item)
    {
        if (combo == kElement && view.Text(kPlanType).empty() && view.Text(kConfigType).empty())
            boxes.Expect(kWarning, kNoType, IDOK);
        view.DropDown(combo);
        const Texts items = view.Items(combo);
        const auto found = std::find(items.begin(), items.end(), item);
        if (found != items.end())
            view.Choose(combo, static_cast<int>(found - items.begin()));
    }

    /// What is written if the identifier of the element cannot be read at OK: what is stored. Without a value
    /// it is the number 0 or an empty text.
    static std::string AtIdentifier(const Outcome& whole, const std::string& line)
    {
        if (GetParam().Fails() || GetParam().fault == refhost::Fault::NullObject)
            return With(whole.written, "customizationobjectid", "\"4\"");
        return With(whole.written, "customizationobjectid",
                    Has(line, "<configattribute ") ? "\"\"" : "\"0\"");
    }

    const RegisteredProgId progId{refhost::kVbaLoaderProgId, refhost::kVbaLoaderClass};
};

/// What comes of a call that fails while the dialog opens.
class CommandOpeningFaults : public CommandFaults
{
protected:
    Outcome AtObject(const Outcome& whole, const char* attribute, const std::wstring& withoutName) const
    {
        const Way& way = GetParam();
        // The load ends: what comes after is not shown.
        if (way.Fails())
            return {S_FALSE, kNoType, "none"};
        if (way.fault == refhost::Fault::NullObject)
            return {S_FALSE, withoutName, "none"};
        // A name without a text is an entry that clears the object.
        return {S_OK, L"", With(whole.written, attribute, "<empty>")};
    }

    /// At the first to the fourth, which is the page of the command, or behind that.
    Outcome AtPage(const Outcome& whole, const Lines& lines, std::size_t index) const
    {
        const auto at = lines.begin() + static_cast<std::ptrdiff_t>(index);
        const auto pages = std::count_if(lines.begin(), at + 1,
                                         [](const std::string& line) { return Has(line, "GetSingleNext"); });
        if (Has(*at, "GetSingleNext"))
            return GetParam().SaysSo() && pages <= 4 ? noElement : whole;
        if (!Has(*at, "workcell.drying"))
            return whole;
        const bool isListing = pages == 4;
        // Listed without a name, it is found by its number, and its name is read again.
        const bool isEmpty = GetParam().fault != refhost::Fault::NullObject && !GetParam().Fails();
        return isListing && Has(*at, "GetProperty(0)") && isEmpty ? whole : noElement;
    }

    Outcome Expected(const Outcome& whole, const Lines& lines, std::size_t index) const
    {
        const Way& way = GetParam();
        const std::string& line = lines[index];
        if (index + 1 == lines.size())
            return whole;
        if (index + 2 == lines.size())
            return {S_OK, L"", AtIdentifier(whole, line)};
        if (Has(line, "HasRight"))
            return way.SaysSo() ? Outcome{S_FALSE, L"", "none"} : whole;
        if (Has(line, "GetType(\"scriptcommand\""))
            return way.Fails() ? noType : whole;
        // A part is as good as nothing.
        if (Has(line, "::GetAttributes("))
            return noType;
        if (Has(line, "<script "))
            return AtObject(whole, "m_pScript", kNoScript);
        if (Has(line, "<plantype ") && Has(line, "m_name"))
            return AtObject(whole, "m_pPlanType", kNoType);
        return Has(line, "GetSingleNext") || Has(line, "<configpage ") ? AtPage(whole, lines, index)
                                                                       : noElement;
    }

    const Outcome noType{S_FALSE, kNoType, "none"};
    const Outcome noElement{S_FALSE, kNoElement, "none"};
};

TEST_P(CommandOpeningFaults, EveryCall)
{
    const Acts none = [](const DialogView&) {
    };
    const Outcome whole = Run(0, none);
    ASSERT_EQ(whole.status, S_OK);
    Sweep(none, 1, [&](const Lines& lines, std::size_t index, const Outcome& outcome) {
        EXPECT_EQ(outcome, Expected(whole, lines, index));
    });
}

// The lists: what is written is what the whole list leads to, or nothing.

class CommandListFaults : public CommandFaults
{
protected:
    /// Chooses in a dialog that opens normally.
    void SweepLists(const Acts& acts)
    {
        const Outcome whole = Run(0, acts);
        ASSERT_EQ(whole.status, S_OK);
        Sweep(acts, opened + 1, [&](const Lines& lines, std::size_t index, const Outcome& outcome) {
            if (outcome.status != S_OK)
            {
                EXPECT_EQ(outcome.written, "none");
                EXPECT_NE(outcome.warning, L"");
            }
            else if (index + 2 == lines.size())
                EXPECT_EQ(outcome.written, AtIdentifier(whole, lines[index]));
            else
                EXPECT_EQ(outcome, whole);
        });
    }
};

TEST_P(CommandListFaults, EveryCallOfScripts)
{
    SweepLists([this](const DialogView& view) { Choose(view, kScript, L"Check drying time"); });
}

TEST_P(CommandListFaults, EveryCallOfMacros)
{
    SweepLists([this](const DialogView& view) { Choose(view, kMacro, L"ModPaint.Mix"); });
    EXPECT_GT(keptOpen, 0u);
}

TEST_P(CommandListFaults, EveryCallOfPlanTypesAndPages)
{
    SweepLists([this](const DialogView& view) {
        Choose(view, kPlanType, L"Painting");
        Choose(view, kElement, L"Times");
    });
}

TEST_P(CommandListFaults, EveryCallOfTypesAndGroups)
{
    SweepLists([this](const DialogView& view) {
        Choose(view, kConfigType, L"machine");
        view.Click(kGroup);
        Choose(view, kElement, L"Names");
    });
}

TEST_P(CommandListFaults, EveryCallOfTypesAndAttributes)
{
    SweepLists([this](const DialogView& view) {
        Choose(view, kConfigType, L"machine");
        view.Click(kAttribute);
        Choose(view, kElement, L"Cycle time");
    });
}

INSTANTIATE_TEST_SUITE_P(Ways, CommandOpeningFaults, ::testing::ValuesIn(kWays), NameOfWay);
INSTANTIATE_TEST_SUITE_P(Ways, CommandListFaults, ::testing::ValuesIn(kWays), NameOfWay);
} // namespace
