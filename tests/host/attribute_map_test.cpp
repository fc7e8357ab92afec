// Several attributes of a data object, read and written by one call.
#include "AttributeMap.h"

#include "MemoryHost.h"
#include "OddAnswer.h"
#include "ReferenceValues.h"

#include "Bstr.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using qptools::AttributeMap;
using qptools::AttributePair;
using qptools::kAttributesRefused;

namespace
{
using Calls = std::vector<std::string>;

constexpr HRESULT kSomeUnknown = static_cast<HRESULT>(0x8004035E);
constexpr HRESULT kSomeUnreadable = static_cast<HRESULT>(0x80040344);

/// Names as the calls take them.
class NameList
{
public:
    NameList(const std::vector<const wchar_t*>& names)
    {
        for (const wchar_t* name : names)
            m_owned.emplace_back(name);
        for (const Bstr& name : m_owned)
            m_names.push_back(name.get());
    }
    const std::vector<BSTR>& Get() const { return m_names; }

private:
    std::vector<Bstr> m_owned;
    std::vector<BSTR> m_names;
};

// Reading.

class AttributeRead : public ::testing::Test
{
protected:
    HRESULT Read(const std::vector<const wchar_t*>& names, IQP_BaseDataObject* from = nullptr)
    {
        const NameList list(names);
        return qptools::ReadAttributeMap(from ? from : object.get(), list.Get(), map);
    }

    std::string Value(const wchar_t* name) const
    {
        const Bstr key(name);
        const VARIANT* value = map.Find(key.get());
        return value ? host.Describe(*value) : "missing";
    }

    MemoryHost host;
    ComPtr<MemoryObject> object = host.Object("object");
    AttributeMap map;
};

TEST_F(AttributeRead, OfNoNameIsNoCall)
{
    EXPECT_EQ(Read({}), S_OK);
    EXPECT_EQ(map.Size(), 0u);
    EXPECT_EQ(host.calls, Calls{});
}

TEST_F(AttributeRead, OfOneNameIsTheSingleCall)
{
    object->Set(L"a", 5);
    EXPECT_EQ(Read({L"a"}), S_OK);
    EXPECT_EQ(Value(L"a"), "I4 5");
    EXPECT_EQ(host.calls, Calls{"object.GetAttribute(a)"});
}

TEST_F(AttributeRead, OfOneNameWithoutAValueIsTheEmptyText)
{
    EXPECT_EQ(Read({L"a"}), S_OK);
    EXPECT_EQ(Value(L"a"), "BSTR ''");
}

TEST_F(AttributeRead, OfOneNameKeepsTheValueWhateverTheStatus)
{
    for (const HRESULT status : {S_FALSE, kSomeUnknown, E_FAIL})
    {
        object->Answer(L"a", status, MemoryValue(status == E_FAIL ? 6 : 5).Value());
        EXPECT_EQ(Read({L"a"}), status);
        EXPECT_EQ(Value(L"a"), status == E_FAIL ? "I4 6" : "I4 5");
    }
}

TEST_F(AttributeRead, OfOneNameThatFailsStoresNoValue)
{
    object->Fail(L"a", E_FAIL);
    EXPECT_EQ(Read({L"a"}), E_FAIL);
    EXPECT_EQ(Value(L"a"), "EMPTY");
}

TEST_F(AttributeRead, OfSeveralNamesIsOneCall)
{
    object->Set(L"a", 5)->Set(L"b", L"text");
    EXPECT_EQ(Read({L"b", L"a", L"c"}), S_OK);
    EXPECT_EQ(host.calls, Calls{"object.GetAttributes(b, a, c)"});
    EXPECT_EQ(Value(L"a"), "I4 5");
    EXPECT_EQ(Value(L"b"), "BSTR 'text'");
    EXPECT_EQ(Value(L"c"), "EMPTY");
    EXPECT_EQ(Value(L"d"), "missing");
}

TEST_F(AttributeRead, ResolvesReferences)
{
    LONG number = 5;
    const Bstr text(L"text");
    BSTR borrowed = text.get();
    object->Answer(L"a", S_OK, ByAddress(VT_I4, &number));
    object->Answer(L"b", S_OK, ByAddress(VT_BSTR, &borrowed));
    EXPECT_EQ(Read({L"a", L"b"}), S_OK);
    EXPECT_EQ(Value(L"a"), "I4 5");
    EXPECT_EQ(Value(L"b"), "BSTR 'text'");
    EXPECT_EQ(Read({L"a"}), S_OK);
    EXPECT_EQ(Value(L"a"), "I4 5");
}

TEST_F(AttributeRead, OfAPartTakesWhatCameAndTellsSo)
{
    for (const HRESULT status : {kSomeUnknown, kSomeUnreadable})
    {
        object->Set(L"a", 5)->Fail(L"b", E_FAIL);
        object->readStatus = status;
        EXPECT_EQ(Read({L"a", L"b"}), status);
        EXPECT_EQ(Value(L"a"), "I4 5");
        EXPECT_EQ(Value(L"b"), "missing");
        map = AttributeMap();
    }
}

TEST_F(AttributeRead, WithAnyOtherStatusTakesNothing)
{
    object->Set(L"a", 5);
    for (const HRESULT status : {S_FALSE, HRESULT{2}, E_FAIL, E_OUTOFMEMORY})
    {
        object->readStatus = status;
        EXPECT_EQ(Read({L"a", L"b"}), status);
        EXPECT_EQ(map.Size(), 0u);
    }
}

TEST_F(AttributeRead, AddsToWhatIsThere)
{
    object->Set(L"a", 5)->Set(L"b", 6);
    Read({L"a"});
    object->Set(L"a", 7);
    EXPECT_EQ(Read({L"a", L"b"}), S_OK);
    EXPECT_EQ(map.Size(), 2u);
    EXPECT_EQ(Value(L"a"), "I4 7");
}

TEST_F(AttributeRead, OfANameTwiceKeepsOne)
{
    object->Set(L"a", 5);
    EXPECT_EQ(Read({L"a", L"a"}), S_OK);
    EXPECT_EQ(map.Size(), 1u);
}

TEST_F(AttributeRead, TakesRowsFromAnyBound)
{
    object->Set(L"a", 5)->Set(L"b", 6);
    for (const LONG row : {-7, 1, 40})
    {
        map = AttributeMap();
        object->shape.firstRow = row;
        EXPECT_EQ(Read({L"a", L"b"}), S_OK);
        EXPECT_EQ(Value(L"a"), "I4 5");
        EXPECT_EQ(Value(L"b"), "I4 6");
    }
}

TEST_F(AttributeRead, TakesColumnsFromZeroOnly)
{
    object->Set(L"a", 5)->shape.firstColumn = 1;
    EXPECT_LT(Read({L"a", L"b"}), 0);
    EXPECT_EQ(map.Size(), 0u);
}

TEST_F(AttributeRead, WithoutAnArrayFails)
{
    object->givesArrays = false;
    EXPECT_LT(Read({L"a", L"b"}), 0);
    EXPECT_EQ(map.Size(), 0u);
}

TEST_F(AttributeRead, OfAnotherArrayIsAMismatch)
{
    const MemoryObject::ArrayShape shapes[] = {
        {1, VT_VARIANT, 0, 0}, {3, VT_VARIANT, 0, 0}, {2, VT_BSTR, 0, 0}};
    for (const MemoryObject::ArrayShape& shape : shapes)
    {
        object->shape = shape;
        EXPECT_EQ(Read({L"a", L"b"}), DISP_E_TYPEMISMATCH);
        EXPECT_EQ(map.Size(), 0u);
    }
}

TEST_F(AttributeRead, TakesMoreAndFewerRows)
{
    const auto more = OddAnswer::Of({{L"a", 1}, {L"b", 2}, {L"c", 3}});
    EXPECT_EQ(Read({L"a", L"b"}, more.get()), S_OK);
    EXPECT_EQ(Value(L"c"), "I4 3");
    map = AttributeMap();
    const auto fewer = OddAnswer::Of({{L"b", 2}});
    EXPECT_EQ(Read({L"a", L"b"}, fewer.get()), S_OK);
    EXPECT_EQ(map.Size(), 1u);
    map = AttributeMap();
    EXPECT_EQ(Read({L"a", L"b"}, OddAnswer::Of({}).get()), S_OK);
    EXPECT_EQ(map.Size(), 0u);
}

TEST_F(AttributeRead, TakesTheNamesOfTheAnswer)
{
    const auto others = OddAnswer::Of({{L"x", 1}, {L"a", 2}});
    EXPECT_EQ(Read({L"a", L"b"}, others.get()), S_OK);
    EXPECT_EQ(Value(L"x"), "I4 1");
    EXPECT_EQ(Value(L"a"), "I4 2");
    EXPECT_EQ(Value(L"b"), "missing");
}

// Writing.

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
