// Plan types that are shown again: which values come back, and what that does to the array for the copies.
#include "ValuesFixture.h"

#include <algorithm>

namespace
{
using namespace copy_dialog;

/// Besides the stations there is a plan type with the rows B and A.
class ValuesShown : public ValuesFixture
{
protected:
    ValuesShown()
    {
        m_part->Attribute(L"A");
        m_part->Attribute(L"B");
    }

    /// Leaves the plan type of the parts and comes back, with something done meanwhile.
    Steps ComesBack(std::function<void()> meanwhile = [] {}) const
    {
        return {Chooses(kPlanType, L"Station"), [meanwhile](DialogView&) { meanwhile(); },
                Chooses(kPlanType, L"Part")};
    }

    void EnterForParts(const Steps& steps) { Enter({part, press}, L"Part", steps); }

    /// The array that the part got by a Normal copy.
    std::string AppliedToPart()
    {
        Apply({part});
        return part->written;
    }

    std::vector<ComPtr<MemoryAttribute>>& Attributes() { return m_part->attributes.objects; }

private:
    MemoryType* const m_part = host.Config().Type(L"Part");

protected:
    const ComPtr<MemoryObject> part = host.Node(L"part", L"Part");
};

TEST_F(ValuesShown, TypedValuesComeBack)
{
    EnterForParts(Sets(0, L"b") + Sets(1, L"a") + ComesBack() +
                  Steps{Sees(InColumn(0, {L"B", L"A"})), Sees(InColumn(1, {L"b", L"a"}))});
    EXPECT_EQ(AppliedToPart(), "VARIANT 0..1, 0..1: BSTR 'A' = BSTR 'a'; BSTR 'B' = BSTR 'b'");
}

TEST_F(ValuesShown, AnEmptyTextComesBackAsOne)
{
    EnterForParts(OpensEditor(0) + Steps{Types("Delete", EditorShows(L"")), Types("Return")} + ComesBack() +
                  Steps{Sees(InColumn(1, {L"", L""}))});
    EXPECT_EQ(AppliedToPart(), "VARIANT 0..1, 0..1: BSTR 'B' = BSTR ''; EMPTY = EMPTY");
}

TEST_F(ValuesShown, OnceAnArrayHoldsTheValuesAlone)
{
    EnterForParts(Sets(0, L"b"));
    EXPECT_EQ(AppliedToPart(), "VARIANT 0..0, 0..1: BSTR 'B' = BSTR 'b'");
}

TEST_F(ValuesShown, AgainAnArrayHasARowForEachAttribute)
{
    EnterForParts(Sets(0, L"b") + ComesBack());
    EXPECT_EQ(AppliedToPart(), "VARIANT 0..1, 0..1: BSTR 'B' = BSTR 'b'; EMPTY = EMPTY");
}

TEST_F(ValuesShown, TwiceBeforeTheFirstValueNoRowIsEmpty)
{
    EnterForParts(ComesBack() + Sets(0, L"b"));
    EXPECT_EQ(AppliedToPart(), "VARIANT 0..0, 0..1: BSTR 'B' = BSTR 'b'");
}

TEST_F(ValuesShown, AValueFillsTheRowThatWasEmpty)
{
    EnterForParts(Sets(0, L"b") + ComesBack() + Sets(1, L"a"));
    EXPECT_EQ(AppliedToPart(), "VARIANT 0..1, 0..1: BSTR 'A' = BSTR 'a'; BSTR 'B' = BSTR 'b'");
}

TEST_F(ValuesShown, TheFirstNamedHasTheEmptyRowAtTheEndAsWell)
{
    EnterForParts(Sets(1, L"a") + ComesBack());
    EXPECT_EQ(AppliedToPart(), "VARIANT 0..1, 0..1: BSTR 'A' = BSTR 'a'; EMPTY = EMPTY");
}

TEST_F(ValuesShown, AValueComesBackInItsRowNotAtItsName)
{
    EnterForParts(Sets(0, L"b") +
                  ComesBack([this] { std::reverse(Attributes().begin(), Attributes().end()); }) +
                  Steps{Sees(InRow(0, {L"A", L"b"})), Sees(InRow(1, {L"B", L""}))});
    EXPECT_EQ(AppliedToPart(), "VARIANT 0..1, 0..1: BSTR 'B' = BSTR 'b'; EMPTY = EMPTY");
}

TEST_F(ValuesShown, AValueWhoseRowIsGoneIsNotShownButApplied)
{
    EnterForParts(Sets(1, L"a") + ComesBack([this] { Attributes().pop_back(); }) +
                  Steps{Sees(InColumn(0, {L"A"})), Sees(InColumn(1, {L""}))});
    EXPECT_EQ(AppliedToPart(), "VARIANT 0..0, 0..1: BSTR 'A' = BSTR 'a'");
}

TEST_F(ValuesShown, AValueWhoseAttributeIsGoneIsApplied)
{
    EnterForParts(Sets(0, L"b") + ComesBack([this] { Attributes().pop_back(); }) +
                  Steps{Sees(InRow(0, {L"A", L""}))});
    EXPECT_EQ(AppliedToPart(), "VARIANT 0..1, 0..1: BSTR 'B' = BSTR 'b'; EMPTY = EMPTY");
}

TEST_F(ValuesShown, ValuesComeBackWithTheOtherRadioButton)
{
    Initialize({part, press});
    Show(ShowsGrid(L"Part") + Sets(0, L"b") +
         Steps{Checks(kDeepRadio), Chooses(kPlanType, L"Part"), Sees(InColumn(1, {L"b", L""})),
               Presses(kAdvancedOk)});
    EXPECT_EQ(Clicked(), 8);
}

TEST_F(ValuesShown, TypesWithOneCaptionShareTheirValues)
{
    // Which of the two the list names first follows their addresses: both have the same rows.
    MemoryType* other = host.Config().Type(L"Other");
    other->Set(L"captionsingular", L"Part");
    other->Attribute(L"A");
    other->Attribute(L"B");
    const auto also = host.Node(L"also", L"Other");
    host.recording = false;
    Initialize({part, also});
    Show(Steps{Presses(kAdvanced), Drops(kPlanType), Sees(Offers(kPlanType, {L"Part", L"Part"})),
               Chooses(kPlanType, 0)} +
         Sets(0, L"b") + Steps{Presses(kAdvancedOk)});
    host.recording = true;
    Apply({part, also});
    EXPECT_EQ(part->written, "VARIANT 0..0, 0..1: BSTR 'B' = BSTR 'b'");
    EXPECT_EQ(also->written, part->written);
    host.calls.clear();
}
} // namespace
