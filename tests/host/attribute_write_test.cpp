// Several attributes of a data object, written by one call.
#include "AttributeMap.h"

#include "MemoryHost.h"
#include "NameList.h"
#include "OddAnswer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using qptools::AttributePair;
using qptools::kAttributesRefused;

namespace
{
using Calls = std::vector<std::string>;

class AttributeWrite : public ::testing::Test
{
protected:
    /// Writes "a" = 1, "b" = 2 and so on.
    HRESULT Write(int count, bool allowSingle, LONG language, IQP_BaseDataObject* to = nullptr)
    {
        return qptools::WriteAttributePairs(to ? to : object.get(), Pairs(count), &refused, allowSingle,
                                            language);
    }

    std::vector<AttributePair> Pairs(int count) const
    {
        std::vector<AttributePair> pairs;
        for (int index = 0; index < count; ++index)
            pairs.push_back({names.Get().at(static_cast<std::size_t>(index)), Variant::OfNumber(index + 1)});
        return pairs;
    }

    const NameList names{{L"a", L"b", L"c", L"d"}};
    MemoryHost host;
    ComPtr<MemoryObject> object = host.Object("object");
    std::wstring refused = L"unchanged";
};

TEST_F(AttributeWrite, OfNoPairIsNoCall)
{
    EXPECT_EQ(Write(0, true, 0), S_OK);
    EXPECT_EQ(Write(0, false, 9), S_OK);
    EXPECT_EQ(host.calls, Calls{});
    EXPECT_EQ(refused, L"unchanged");
}

TEST_F(AttributeWrite, OfOnePairReversesTheLanguages)
{
    EXPECT_EQ(Write(1, true, 0), S_OK);
    EXPECT_EQ(Write(1, true, 9), S_OK);
    EXPECT_EQ(host.calls,
              (Calls{"object.SetAttributeMultiLingual(a, 0, I4 1)", "object.SetAttribute(a, I4 1)"}));
    EXPECT_EQ(refused, L"unchanged");
}

TEST_F(AttributeWrite, OfOnePairThatFailsNamesIt)
{
    object->RefuseWrite(L"a", E_ACCESSDENIED);
    for (const LONG language : {0, 9})
    {
        refused.clear();
        EXPECT_EQ(Write(1, true, language), E_ACCESSDENIED);
        EXPECT_EQ(refused, L"a");
        EXPECT_EQ(qptools::WriteAttributePairs(object.get(), Pairs(1), nullptr, true, language),
                  E_ACCESSDENIED);
    }
}

TEST_F(AttributeWrite, OfOnePairIsAListIfThatIsNotAllowed)
{
    EXPECT_EQ(Write(1, false, 0), S_OK);
    EXPECT_EQ(host.calls, Calls{"object.SetAttributes(a = I4 1)"});
}

TEST_F(AttributeWrite, OfSeveralPairsKeepsTheirOrder)
{
    EXPECT_EQ(Write(3, true, 0), S_OK);
    EXPECT_EQ(host.calls, Calls{"object.SetAttributes(a = I4 1, b = I4 2, c = I4 3)"});
    EXPECT_EQ(refused, L"unchanged");
}

TEST_F(AttributeWrite, OfSeveralPairsInALanguageIsTheOtherCall)
{
    EXPECT_EQ(Write(2, true, 1031), S_OK);
    EXPECT_EQ(host.calls, Calls{"object.SetAttributesMultiLingual(a = I4 1, b = I4 2; language 1031)"});
}

TEST_F(AttributeWrite, ThatFailsNamesNothing)
{
    object->writeStatus = E_ACCESSDENIED;
    for (const LONG language : {0, 9})
    {
        EXPECT_EQ(Write(2, true, language), E_ACCESSDENIED);
        EXPECT_EQ(refused, L"unchanged");
    }
}

TEST_F(AttributeWrite, NamesWhatWasRefused)
{
    object->RefuseWrite(L"b", E_ACCESSDENIED)->RefuseWrite(L"d", S_FALSE);
    EXPECT_EQ(Write(4, true, 0), kAttributesRefused);
    EXPECT_EQ(refused, L"\nb\nd");
    EXPECT_EQ(object->ValueText(L"a"), "I4 1");
    EXPECT_EQ(object->ValueText(L"b"), "EMPTY");
    EXPECT_EQ(Write(4, true, 9), kAttributesRefused);
    EXPECT_EQ(kAttributesRefused, static_cast<HRESULT>(0x8004082A));
}

TEST_F(AttributeWrite, NeedsNoTextForWhatWasRefused)
{
    object->RefuseWrite(L"b", E_FAIL);
    EXPECT_EQ(qptools::WriteAttributePairs(object.get(), Pairs(2), nullptr, true, 0), kAttributesRefused);
}

TEST_F(AttributeWrite, ReadsAnswersFromAnyBounds)
{
    object->RefuseWrite(L"b", E_FAIL);
    const MemoryObject::ArrayShape shapes[] = {
        {2, VT_VARIANT, 5, 0}, {2, VT_VARIANT, -2, 3}, {2, VT_VARIANT, 0, -1}};
    for (const MemoryObject::ArrayShape& shape : shapes)
    {
        object->shape = shape;
        refused.clear();
        EXPECT_EQ(Write(3, true, 0), kAttributesRefused);
        EXPECT_EQ(refused, L"\nb");
    }
}

TEST_F(AttributeWrite, WithoutAnAnswerFails)
{
    object->givesArrays = false;
    EXPECT_LT(Write(2, true, 0), 0);
    EXPECT_NE(Write(2, true, 0), kAttributesRefused);
    EXPECT_EQ(object->ValueText(L"a"), "I4 1") << "it was written all the same";
}

TEST_F(AttributeWrite, WithAnotherAnswerIsAMismatch)
{
    const MemoryObject::ArrayShape shapes[] = {
        {1, VT_VARIANT, 0, 0}, {3, VT_VARIANT, 0, 0}, {2, VT_BSTR, 0, 0}};
    for (const MemoryObject::ArrayShape& shape : shapes)
    {
        object->shape = shape;
        EXPECT_EQ(Write(2, true, 0), DISP_E_TYPEMISMATCH);
        EXPECT_EQ(refused, L"unchanged");
    }
}

TEST_F(AttributeWrite, TakesFewerResultsThanPairs)
{
    EXPECT_EQ(Write(3, true, 0, OddAnswer::Of({{L"a", E_FAIL}}).get()), kAttributesRefused);
    EXPECT_EQ(refused, L"\na");
    refused = L"unchanged";
    EXPECT_EQ(Write(3, true, 0, OddAnswer::Of({}).get()), S_OK);
    EXPECT_EQ(refused, L"unchanged");
}

TEST_F(AttributeWrite, TakesMoreResultsThanPairs)
{
    EXPECT_EQ(Write(1, false, 0, OddAnswer::Of({{L"a", 0}, {L"b", E_FAIL}}).get()), kAttributesRefused);
    EXPECT_EQ(refused, L"\n") << "there is no name for it";
}

TEST_F(AttributeWrite, NamesWhatWasSentNotWhatWasAnswered)
{
    const auto answer = OddAnswer::Of({{L"x", 0}, {L"y", E_FAIL}});
    EXPECT_EQ(Write(2, true, 0, answer.get()), kAttributesRefused);
    EXPECT_EQ(refused, L"\nb");
}

TEST_F(AttributeWrite, TakesResultsOfAnyType)
{
    object->RefuseWrite(L"b", E_FAIL);
    const auto texts = OddAnswer::Of({{L"a", L""}, {L"b", MemoryValue()}, {L"c", false}, {L"d", true}});
    EXPECT_EQ(Write(4, true, 0, texts.get()), kAttributesRefused);
    EXPECT_EQ(refused, L"\na\nd") << "a text that is there is a value that is not zero";
}
} // namespace
