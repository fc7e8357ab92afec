// Several attributes of a data object, read by one call.
#include "AttributeMap.h"

#include "MemoryHost.h"
#include "NameList.h"
#include "OddAnswer.h"
#include "ReferenceValues.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using qptools::AttributeMap;

namespace
{
using Calls = std::vector<std::string>;

constexpr HRESULT kSomeUnknown = static_cast<HRESULT>(0x8004035E);
constexpr HRESULT kSomeUnreadable = static_cast<HRESULT>(0x80040344);

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

TEST_F(AttributeRead, OfANameThatNothingEqualsTouchesNoOtherValue)
{
    map.Store(Variant::OfText(L"name"), Variant::OfNumber(1));
    Variant null;
    null.put()->vt = VT_NULL;
    map.Store(std::move(null), Variant::OfNumber(2));
    map.Store(Variant::OfObject(ComPtr<IQP_BaseDataObject>(object.get())), Variant::OfNumber(3));
    map.Store(Variant::OfObject(ComPtr<IUnknown>()), Variant::OfNumber(4));
    EXPECT_EQ(Value(L"name"), "I4 1");
    EXPECT_EQ(map.Size(), 1u);
}

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
} // namespace
