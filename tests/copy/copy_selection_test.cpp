// The choice of a plan type in the enhanced copy dialog: which attributes the grid shows.
#include "ChoiceFixture.h"

#include <ostream>

namespace
{
using namespace copy_dialog;

class CopySelection : public ChoiceFixture
{
protected:
    /// The attributes of a type by index.
    MemoryAttribute& Attribute(std::size_t index, const wchar_t* type = L"Station")
    {
        return *host.Config().Find(type)->attributes.objects.at(index).get();
    }

    void ExpectNoAttributes() { ExpectBox(L"qptools", kNoAttributes); }

    static inline const Calls kCell = FillOf("Cell", {"Order"});
};

// Rows.

TEST_F(CopySelection, ShowsTheAttributesInReverseOrder)
{
    Open(Expands() + Steps{Chooses(kPlanType, L"Station"),
                           LedTo(FillOf("Station", {"Order", "Mass", "Due"}) +
                                 Calls{"Drawing.GetProperty(54)", "Station attributes.GetSingleNext()"}),
                           Sees(InColumn(0, {L"Due", L"Mass", L"Order"})), Sees(InColumn(1, {L"", L"", L""})),
                           Sees(Enabled(kGrid)), Sees(NoRowSelected()), Presses(kAdvancedCancel)});
}

TEST_F(CopySelection, ShowsWhatBothTheHostAndTheAttributeOffer)
{
    const MemoryObjects both = {Typed(L"Tool", {L"offered", L"not by the host", L"not by itself"})};
    Attribute(1, L"Tool").mask = 3;
    Attribute(2, L"Tool").Set(54, 3);
    chosen = both;
    Open(Expands() +
         Steps{Chooses(kPlanType, L"Tool"), Sees(InColumn(0, {L"offered"})), Presses(kAdvancedCancel)});
}

TEST_F(CopySelection, OfTheSamePlanTypeLeavesTheRowsAlone)
{
    Open(Expands() + Steps{Chooses(kPlanType, L"Station")} + Fills(2, L"next") +
         Steps{Selects(1), Marks(), Chooses(kPlanType, L"Station"), LedToNoCall(),
               Sees(InColumn(1, {L"", L"", L"next"})), Sees(RowSelected(1)), Presses(kAdvancedCancel)});
}

TEST_F(CopySelection, OfAnotherPlanTypeAndBackRestoresTheValues)
{
    chosen = {press, cell};
    Open(Expands() + Steps{Chooses(kPlanType, L"Station")} + Fills(2, L"next") + Fills(1, L"12") +
         Steps{Marks(), Chooses(kPlanType, L"Cell"), LedTo(kCell), Sees(InColumn(0, {L"Order"})),
               Sees(InColumn(1, {L""})), Chooses(kPlanType, L"Station"),
               Sees(InColumn(0, {L"Due", L"Mass", L"Order"})), Sees(InColumn(1, {L"", L"12", L"next"})),
               Presses(kAdvancedCancel)});
}

/// The rows are expected to come in the same order each time: a value returns to its row, not to its name.
TEST_F(CopySelection, RestoresAValueInTheRowWhereItWasTyped)
{
    chosen = {press, cell};
    Open(Expands() + Steps{Chooses(kPlanType, L"Station")} + Fills(2, L"next") +
         Steps{Chooses(kPlanType, L"Cell"),
               [this](DialogView&) {
                   auto& attributes = host.Config().Find(L"Station")->attributes.objects;
                   std::swap(attributes[0], attributes[1]);
               },
               Chooses(kPlanType, L"Station"), Sees(InColumn(0, {L"Due", L"Order", L"Mass"})),
               Sees(InColumn(1, {L"", L"", L"next"})), Presses(kAdvancedCancel)});
}

TEST_F(CopySelection, OfTypesWithOneCaptionSharesTheirValues)
{
    host.Config().typeCopies = true;
    chosen = {press, lathe, Typed(L"Cell", {})};
    Open(Expands() +
         Steps{Drops(kPlanType), Sees(Offers(kPlanType, {L"Cell", L"Station", L"Station"})),
               Chooses(kPlanType, 1)} +
         Fills(2, L"shared") +
         Steps{Chooses(kPlanType, L"Cell"), Chooses(kPlanType, 2), Sees(InRow(2, {L"Order", L"shared"})),
               Presses(kAdvancedCancel)});
}

// References.

TEST_F(CopySelection, HoldsTheAttributesOfItsRowsOnly)
{
    chosen = {press, cell};
    const ComPtr<MemoryAttribute> order = host.Config().Find(L"Station")->attributes.objects[0];
    const ComPtr<MemoryAttribute> drawing = host.Config().Find(L"Station")->attributes.objects[3];
    const ULONG held = References(order);
    const auto holds = [&](ULONG more) {
        return DialogStep([&, more](DialogView&) {
            EXPECT_EQ(References(order), held + more);
            EXPECT_EQ(References(drawing), held) << "without a row";
        });
    };
    Open(Expands() + Steps{holds(0), Chooses(kPlanType, L"Station"), holds(1), Chooses(kPlanType, L"Cell"),
                           holds(0), Chooses(kPlanType, L"Station"), holds(1), Presses(kAdvanced), holds(1),
                           Presses(kAdvanced), Checks(kDeepRadio), holds(0), Chooses(kPlanType, L"Station"),
                           holds(1), Presses(kAdvancedOk)});
    EXPECT_EQ(References(order), held) << "they go with the window";
}

TEST_F(CopySelection, CountsNoReferenceForARowOfTheList)
{
    MemoryType* const station = host.Config().Find(L"Station");
    const ComPtr<MemoryType> type(station);
    const ULONG held = References(type);
    ULONG walked = 0;
    Open({Presses(kAdvanced), [&](DialogView&) { walked = References(type); }, Drops(kPlanType),
          [&](DialogView&) { EXPECT_EQ(References(type), walked); }, Types("Escape"),
          Presses(kAdvancedCancel)});
    EXPECT_EQ(walked, held + 2) << "one for each walk";
    EXPECT_EQ(copy->DeleteObjects(), S_OK);
    EXPECT_EQ(References(type), held);
}

// Without attributes.

TEST_F(CopySelection, TellsOnceThatThereAreNoAttributes)
{
    chosen = {press, gauge};
    HWND dialog = nullptr;
    ExpectNoAttributes();
    Open(Expands() + Steps{[&](DialogView& view) { dialog = view.Window(); }, Chooses(kPlanType, L"Fixture"),
                           Sees(RowCount(0)), Sees(Disabled(kGrid)), Marks(), Chooses(kPlanType, L"Fixture"),
                           LedToNoCall(), Sees(Disabled(kGrid)), Presses(kAdvancedCancel)});
    ASSERT_EQ(boxes.Shown().size(), 1u);
    const ShownBox& box = boxes.Shown().front();
    EXPECT_EQ(box.owner, dialog);
    EXPECT_EQ(box.buttons, static_cast<UINT>(MB_OK));
    EXPECT_EQ(box.icon, 0u);
}

TEST_F(CopySelection, TellsItAgainAfterAnotherPlanType)
{
    chosen = {press, gauge};
    ExpectNoAttributes();
    ExpectNoAttributes();
    Open(Expands() + Steps{Chooses(kPlanType, L"Fixture"), Sees(Disabled(kGrid)),
                           Chooses(kPlanType, L"Station"), Sees(Enabled(kGrid)), Sees(RowCount(3)),
                           Chooses(kPlanType, L"Fixture"), Sees(Disabled(kGrid)), Sees(RowCount(0)),
                           Presses(kAdvancedCancel)});
}

TEST_F(CopySelection, AnEmptyGridIsEnabledByExpandingAgain)
{
    chosen = {gauge};
    ExpectNoAttributes();
    Open(Expands() + Steps{Chooses(kPlanType, L"Fixture"), Sees(Disabled(kGrid)), Presses(kAdvanced),
                           Presses(kAdvanced), Sees(Enabled(kGrid)), Sees(RowCount(0)),
                           Presses(kAdvancedCancel)});
}

/// By an arrow key, in a closed list.
TEST_F(CopySelection, TellsItOnceByKeyboardToo)
{
    chosen = {gauge, press};
    ExpectNoAttributes();
    Open(Expands() + Steps{Drops(kPlanType), Types("Escape"), Types("Down"), Sees(Disabled(kGrid)),
                           Sees(Chosen(kPlanType, L"Fixture")), Types("Down"), Sees(RowCount(3)),
                           Sees(Chosen(kPlanType, L"Station")), Presses(kAdvancedCancel)});
}

// What the host answers.

using Type = MemoryType;
using One = MemoryAttribute;

struct HostAnswer
{
    const char* name;
    void (*give)(Type& type, One& first, One& third);
    Texts rows;   ///< from top to bottom; none is told by the box, unless an attribute failed
    Texts values; ///< in these rows
    bool failed = false;
};

std::ostream& operator<<(std::ostream& stream, const HostAnswer& answer)
{
    return stream << answer.name;
}

VARIANT Double(double number)
{
    VARIANT value{};
    value.vt = VT_R8;
    value.dblVal = number;
    return value;
}

class CopyAnswers : public ChoiceFixture, public testing::WithParamInterface<HostAnswer>
{
};

/// A type with three attributes, which all got a value before the host answers so.
TEST_P(CopyAnswers, LeadToTheseRows)
{
    const HostAnswer& answer = GetParam();
    chosen = {Typed(L"Tool", {L"first", L"second", L"third"}), press};
    Type& tool = *host.Config().Find(L"Tool");
    const auto attributes = tool.attributes.objects;
    const ULONG held = References(attributes[0]) + References(attributes[2]);
    const bool box = answer.rows.empty() && !answer.failed;
    if (box)
        ExpectBox(L"qptools", kNoAttributes);
    Open(Expands() + Steps{Chooses(kPlanType, L"Tool")} + Fills(0, L"3") + Fills(1, L"2") + Fills(2, L"1") +
         Steps{Chooses(kPlanType, L"Station"),
               [&](DialogView&) { answer.give(tool, *attributes[0], *attributes[2]); }, Forgets(),
               Chooses(kPlanType, L"Tool"), Sees(InColumn(0, answer.rows)), Sees(InColumn(1, answer.values)),
               Sees(box ? Disabled(kGrid) : Enabled(kGrid)), Marks(), Chooses(kPlanType, L"Tool"),
               LedToNoCall(), Sees(InColumn(0, answer.rows)), Presses(kAdvancedOk)});
    tool.attributes.objects = attributes;
    EXPECT_EQ(References(attributes[0]) + References(attributes[2]), held);
}

const Texts kAllRows = {L"third", L"second", L"first"};
const Texts kAllValues = {L"3", L"2", L"1"};
const Texts kFirstTwo = {L"second", L"first"};
/// Each value is in the row where it was typed, if there is one.
const Texts kTheirValues = {L"", L"2"};
const Texts kLastTwo = {L"third", L"second"};
const Texts kLastValues = {L"3", L"2"};

INSTANTIATE_TEST_SUITE_P(
    List, CopyAnswers,
    testing::Values(
        HostAnswer{"Whole", [](Type&, One&, One&) {}, kAllRows, kAllValues},
        HostAnswer{"WithAFailureAllTheSame", [](Type& type, One&, One&) { type.attributes.status = E_FAIL; },
                   kAllRows, kAllValues},
        HostAnswer{"Null", [](Type& type, One&, One&) { type.attributes.null = true; }, {}, {}},
        HostAnswer{"NullWithAFailure",
                   [](Type& type, One&, One&) {
                       type.attributes.null = true;
                       type.attributes.status = E_FAIL;
                   },
                   {},
                   {}},
        HostAnswer{"Empty", [](Type& type, One&, One&) { type.attributes.objects.clear(); }, {}, {}},
        HostAnswer{"FailsAtOnce",
                   [](Type& type, One&, One&) {
                       type.attributes.statuses = {{0, E_FAIL}};
                   },
                   {},
                   {}},
        HostAnswer{"FailsAfterTwo",
                   [](Type& type, One&, One&) {
                       type.attributes.statuses = {{2, E_FAIL}};
                   },
                   kFirstTwo, kTheirValues},
        HostAnswer{"FailsAtTheEnd",
                   [](Type& type, One&, One&) {
                       type.attributes.statuses = {{3, E_FAIL}};
                   },
                   kAllRows, kAllValues},
        HostAnswer{"SaysFalseAndGoesOn",
                   [](Type& type, One&, One&) {
                       type.attributes.statuses = {{0, S_FALSE}};
                   },
                   kAllRows, kAllValues},
        HostAnswer{
            "BeginsWithNull", [](Type& type, One&, One&) { type.attributes.objects[0] = nullptr; }, {}, {}},
        HostAnswer{"HasNullAfterTwo", [](Type& type, One&, One&) { type.attributes.objects[2] = nullptr; },
                   kFirstTwo, kTheirValues}),
    [](const auto& info) { return std::string(info.param.name); });

// Whether an attribute may be set. A failure ends all: nothing is restored then.
INSTANTIATE_TEST_SUITE_P(
    Offer, CopyAnswers,
    testing::Values(
        HostAnswer{"FailsAtOnce", [](Type&, One& first, One&) { first.Set(54, 4, E_FAIL); }, {}, {}, true},
        HostAnswer{"FailsAfterTwo", [](Type&, One&, One& third) { third.Set(54, 4, E_FAIL); }, kFirstTwo,
                   Texts{L"", L""}, true},
        HostAnswer{"SaysFalseWithoutAValue",
                   [](Type&, One& first, One&) { first.Set(54, MemoryValue(), S_FALSE); }, kLastTwo,
                   kLastValues},
        HostAnswer{"SaysFalseWithAValue", [](Type&, One& first, One&) { first.Set(54, 4, S_FALSE); },
                   kAllRows, kAllValues},
        HostAnswer{"IsNoValue", [](Type&, One& first, One&) { first.Set(54, MemoryValue()); }, kLastTwo,
                   kLastValues},
        HostAnswer{"IsAnotherNumber", [](Type&, One& first, One&) { first.Set(54, 6); }, kLastTwo,
                   kLastValues},
        HostAnswer{"IsNoNumber", [](Type&, One& first, One&) { first.Set(54, L"four"); }, kLastTwo,
                   kLastValues},
        HostAnswer{"IsATextOfTheNumber", [](Type&, One& first, One&) { first.Set(54, L"4"); }, kAllRows,
                   kAllValues},
        HostAnswer{"IsARealNumber", [](Type&, One& first, One&) { first.Set(54, Double(4)); }, kAllRows,
                   kAllValues},
        HostAnswer{"IsOfNone",
                   [](Type& type, One&, One&) {
                       for (const auto& attribute : type.attributes.objects)
                           attribute->Set(54, 1);
                   },
                   {},
                   {}}),
    [](const auto& info) { return std::string(info.param.name); });

// The name, by which a value is found.
INSTANTIATE_TEST_SUITE_P(
    Name, CopyAnswers,
    testing::Values(
        HostAnswer{
            "FailsAtOnce", [](Type&, One& first, One&) { first.Set(0, L"first", E_FAIL); }, {}, {}, true},
        HostAnswer{"FailsAfterTwo", [](Type&, One&, One& third) { third.Set(0, L"third", E_FAIL); },
                   kFirstTwo, Texts{L"", L""}, true},
        HostAnswer{"SaysFalse", [](Type&, One& first, One&) { first.Set(0, L"first", S_FALSE); }, kAllRows,
                   kAllValues},
        HostAnswer{"IsEmpty", [](Type&, One& first, One&) { first.Set(0, L""); },
                   Texts{L"third", L"second", L""}, Texts{L"3", L"2", L""}},
        HostAnswer{"IsNoValue", [](Type&, One& first, One&) { first.Set(0, MemoryValue()); },
                   Texts{L"third", L"second", L""}, Texts{L"3", L"2", L""}},
        HostAnswer{"IsANumber", [](Type&, One& first, One&) { first.Set(0, 17); },
                   Texts{L"third", L"second", L"17"}, Texts{L"3", L"2", L""}},
        HostAnswer{"IsThatOfAnother", [](Type&, One& first, One&) { first.Set(0, L"second"); },
                   Texts{L"third", L"second", L"second"}, Texts{L"3", L"2", L""}}),
    [](const auto& info) { return std::string(info.param.name); });
} // namespace
