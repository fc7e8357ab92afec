// Every host call that the enhanced copy dialog makes fails once, in each way a call can: the dialog can be
// left, no reference to the host is kept, and nothing is written.
#include "GateSweep.h"
#include "PatientSteps.h"
#include "PropertyPlant.h"
#include "WindowTexts.h"

#include <algorithm>
#include <ostream>

namespace
{
using namespace copy_dialog;

bool Has(const std::string& line, const char* part)
{
    return line.find(part) != std::string::npos;
}

class CopyFaults : public PropertyPlant, public testing::WithParamInterface<Way>
{
protected:
    CopyFaults()
    {
        EXPECT_EQ(module.Create(CLSID_QPCopyOptDlg, copy), S_OK);
        EXPECT_EQ(Find(L"plannode", L"Sealing cell")->GetChildren(XQPComBSTR(L"nodes"), selection.put()),
                  S_OK);
    }
    ~CopyFaults() override
    {
        copy.reset();
        selection.reset();
    }

    /// Shows the dialog for the nodes of a cell, runs the steps and frees the dialog. The n-th call fails.
    /// Returns the calls.
    Lines Run(long long n, const Steps& steps)
    {
        const Lines lines = GateSweep(*plant).Run(n, GetParam(), [&] {
            dialogs.OnDialog(steps);
            EXPECT_EQ(copy->Initialize(selection.get(), factory.get()), S_OK);
            EXPECT_EQ(copy->ShowDialog(), S_OK);
            EXPECT_EQ(copy->GetButtonIDClicked(&option), S_OK);
            EXPECT_EQ(copy->DeleteObjects(), S_OK);
        });
        EXPECT_TRUE(dialogs.AllShown() && boxes.AllShown());
        for (const std::string& line : lines)
            EXPECT_FALSE(Has(line, "SetAttribute")) << line;
        return lines;
    }

    /// Notes what the list offers.
    static Steps Looks(Texts& offered)
    {
        return {Drops(kPlanType), [&](DialogView& view) { offered = view.Items(kPlanType); },
                Types("Escape")};
    }

    ComPtr<IQPCopyOptDlg> copy;
    ComPtr<IEnumBaseDataObject> selection;
    LONG option = 77;
};

// The walks.

struct Offers
{
    Texts normal;
    Texts deep;
};

/// No type is invented. A caption that was not read is empty, and a relationship that does not say what it is
/// counts as itself.
bool MayBeOffered(const std::wstring& type, const Texts& whole, const std::string& failed)
{
    return std::find(whole.begin(), whole.end(), type) != whole.end() ||
           (type.empty() && Has(failed, "captionsingular")) ||
           (type == L"Resource use" && Has(failed, "IsDerivedFromClass"));
}

TEST_P(CopyFaults, EveryCallOfBothWalks)
{
    Offers offers;
    const Steps steps = Steps{Presses(kAdvanced)} + Looks(offers.normal) + Steps{Checks(kDeepRadio)} +
                        Looks(offers.deep) + Steps{Presses(kAdvancedCancel)};
    const Lines lines = Run(0, steps);
    const Offers whole = offers;
    EXPECT_EQ(whole.normal, (Texts{L"Resource", L"Station", L"Work step"}));
    EXPECT_EQ(whole.deep, whole.normal);
    const auto isReset = [](const std::string& line) {
        return Has(line, "::Reset(");
    };
    const auto endOfDeep = std::find_if(lines.begin(), lines.end(), isReset) - lines.begin();
    const auto look = [&](const Lines&, std::size_t index, const Lines& made) {
        const bool isDeep = static_cast<std::ptrdiff_t>(index) < endOfDeep;
        EXPECT_EQ(isDeep ? offers.normal : offers.deep, whole.normal) << "of the other walk";
        EXPECT_EQ(std::count_if(made.begin(), made.end(), isReset), 2) << "both walks were made";
        EXPECT_EQ(option, -1);
        for (const std::wstring& type : isDeep ? offers.deep : offers.normal)
            EXPECT_TRUE(MayBeOffered(type, whole.deep, lines[index])) << Utf8Text(type);
    };
    GateSweep::Each(
        lines, 1, [&](long long n) { return Run(n, steps); }, look);
}

// The choice of a plan type, and a value.

struct Shown
{
    Texts names;
    Texts values;

    bool operator==(const Shown&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Shown& shown)
{
    for (std::size_t row = 0; row < shown.names.size(); ++row)
        stream << Utf8Text(shown.names[row]) << " = " << Utf8Text(shown.values[row]) << "; ";
    return stream;
}

class CopyChoiceFaults : public CopyFaults
{
protected:
    /// What is shown in the end if that call of the choice, or of the value, fails.
    Shown Expected(const Shown& whole, const Lines& lines, std::size_t index, std::size_t first) const
    {
        const std::string& line = lines[index];
        if (Has(line, "GetProperty(3)"))
            return whole;
        const auto done = static_cast<std::size_t>(
            std::count_if(lines.begin() + static_cast<std::ptrdiff_t>(first),
                          lines.begin() + static_cast<std::ptrdiff_t>(index),
                          [](const std::string& made) { return Has(made, "GetProperty(0)"); }));
        // The rows are in the reverse order of the calls.
        const std::size_t left = whole.names.size() - done;
        Shown shown = whole;
        if (Has(line, "GetProperty(0)") && !GetParam().Fails())
            shown.names[left - 1] = shown.values[left - 1] = L""; // the user finds no such row
        else if (Has(line, "GetProperty(54)") && !GetParam().Fails())
            Drop(shown, left - 1, left);
        else
            Drop(shown, 0, left);
        return shown;
    }

    static bool IsToldByABox(const Shown& shown, const std::string& line)
    {
        return shown.names.empty() && !Has(line, "GetProperty");
    }

private:
    static void Drop(Shown& shown, std::size_t first, std::size_t last)
    {
        for (Texts* texts : {&shown.names, &shown.values})
            texts->erase(texts->begin() + static_cast<std::ptrdiff_t>(first),
                         texts->begin() + static_cast<std::ptrdiff_t>(last));
    }
};

TEST_P(CopyChoiceFaults, EveryCallOfThePlanTypeAndTheValue)
{
    Shown shown;
    std::size_t first = 0;
    const Steps steps = Steps{Presses(kAdvanced),
                              [&](DialogView&) { first = static_cast<std::size_t>(plant->Calls().Count()); },
                              ChoosesIfOffered(L"Station")} +
                        EditsIfShown(L"operators", L"2") +
                        Steps{CommitsIfOpen(),
                              [&](DialogView& view) {
                                  shown = {view.Column(view.List(), 0), view.Column(view.List(), 1)};
                              },
                              Presses(kAdvancedOk)};
    const Lines lines = Run(0, steps);
    const Shown whole = shown;
    ASSERT_EQ(whole, (Shown{{L"checkedat", L"automatic", L"operators", L"name"}, {L"", L"", L"2", L""}}));
    GateSweep::Each(
        lines, static_cast<long long>(first) + 1,
        [&](long long n) {
            const auto index = static_cast<std::size_t>(n) - 1;
            if (IsToldByABox(Expected(whole, lines, index, first), lines[index]))
                boxes.Expect(L"qptools", kNoAttributes, IDOK);
            return Run(n, steps);
        },
        [&](const Lines&, std::size_t index, const Lines&) {
            EXPECT_EQ(shown, Expected(whole, lines, index, first));
            EXPECT_EQ(option, 0);
        });
}

INSTANTIATE_TEST_SUITE_P(Ways, CopyFaults, testing::ValuesIn(kWays), NameOfWay);
INSTANTIATE_TEST_SUITE_P(Ways, CopyChoiceFaults, testing::ValuesIn(kWays), NameOfWay);
} // namespace
