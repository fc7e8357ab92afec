#include "XInitValueWrapper.h"

#include "BorrowedValues.h"
#include "CountedUnknown.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
// An array that the test owns, as a caller would.
class OwnArray
{
public:
    ~OwnArray()
    {
        for (tagINITVALUE& record : m_records)
        {
            SysFreeString(record.bstrParamName);
            VariantClear(&record.varValue);
        }
    }

    OwnArray& Add(const wchar_t* name, const VARIANT& value)
    {
        tagINITVALUE record{};
        record.bstrParamName = name ? SysAllocString(name) : nullptr;
        VariantInit(&record.varValue);
        VariantCopy(&record.varValue, const_cast<VARIANT*>(&value));
        m_records.push_back(record);
        return *this;
    }

    ULONG Count() const { return static_cast<ULONG>(m_records.size()); }
    tagINITVALUE* Values() { return m_records.data(); }

private:
    std::vector<tagINITVALUE> m_records;
};

std::wstring TextOf(const XInitValueWrapper& bag, const wchar_t* name)
{
    XQPComVariant value;
    return bag.GetData(name, value.Value()) ? std::wstring(value.GetString()) : std::wstring(L"(none)");
}
} // namespace

TEST(InitValueWrapper, GivesTheValueOfAName)
{
    OwnArray array;
    array.Add(L"title", XQPComVariant(L"Pumps")).Add(L"kind", XQPComVariant(L"list"));
    const XInitValueWrapper bag(array.Count(), array.Values());
    EXPECT_EQ(TextOf(bag, L"title"), L"Pumps");
    EXPECT_EQ(TextOf(bag, L"kind"), L"list");
}

TEST(InitValueWrapper, ReportsAMissingNameAndLeavesTheTargetUnchanged)
{
    OwnArray array;
    array.Add(L"title", XQPComVariant(L"Pumps"));
    const XInitValueWrapper bag(array.Count(), array.Values());
    XQPComVariant target(L"before");
    EXPECT_FALSE(bag.GetData(L"Title", target.Value())) << "names are exact";
    EXPECT_FALSE(bag.GetData(L"", target.Value()));
    EXPECT_FALSE(bag.GetData(nullptr, target.Value()));
    EXPECT_STREQ(target.GetString(), L"before");
}

TEST(InitValueWrapper, ReleasesWhatTheTargetHeld)
{
    CountedUnknown object;
    OwnArray array;
    array.Add(L"title", XQPComVariant(L"Pumps"));
    const XInitValueWrapper bag(array.Count(), array.Values());
    XQPComVariant target(ObjectReference(&object));
    EXPECT_TRUE(bag.GetData(L"title", target.Value()));
    EXPECT_EQ(object.References(), 1);
}

TEST(InitValueWrapper, HoldsNoReferenceItselfAndGivesCopies)
{
    CountedUnknown object;
    OwnArray array;
    array.Add(L"title", XQPComVariant(L"Pumps")).Add(L"object", ObjectReference(&object));
    XQPComVariant title;
    {
        const XInitValueWrapper bag(array.Count(), array.Values());
        EXPECT_EQ(object.References(), 2);
        XQPComVariant copy;
        EXPECT_TRUE(bag.GetData(L"object", copy.Value()));
        EXPECT_EQ(object.References(), 3);
        EXPECT_TRUE(bag.GetData(L"title", title.Value()));
    }
    EXPECT_EQ(object.References(), 2);
    EXPECT_NE(title.Value().bstrVal, array.Values()[0].varValue.bstrVal);
    EXPECT_STREQ(title.GetString(), L"Pumps");
}

TEST(InitValueWrapper, ACopyDoesNotDependOnTheCallersVariables)
{
    LONG number = 5;
    OwnArray array;
    VARIANT reference{};
    reference.vt = VT_I4 | VT_BYREF;
    reference.plVal = &number;
    array.Add(L"count", reference);
    const XInitValueWrapper bag(array.Count(), array.Values());
    XQPComVariant value;
    ASSERT_TRUE(bag.GetData(L"count", value.Value()));
    number = 6;
    EXPECT_EQ(value.Type(), VT_I4);
    EXPECT_EQ(value.Value().lVal, 5);
}

TEST(InitValueWrapper, ANullAddressReadsAsNoValue)
{
    VARIANT reference{};
    reference.vt = VT_BSTR | VT_BYREF;
    OwnArray array;
    array.Add(L"title", reference);
    const XInitValueWrapper bag(array.Count(), array.Values());
    XQPComVariant value(L"before");
    ASSERT_TRUE(bag.GetData(L"title", value.Value()));
    EXPECT_EQ(value.Type(), VT_EMPTY);
    ULONG count = 0;
    tagINITVALUE* values = nullptr;
    ASSERT_TRUE(bag.GetStruct(count, &values));
    ASSERT_EQ(count, 1u);
    EXPECT_EQ(values[0].varValue.vt, VT_EMPTY);
    XInitValueWrapper::FreeStruct(count, values);
}

TEST(InitValueWrapper, AValueThatReplacesOneOfTheArrayIsItsOwn)
{
    OwnArray array;
    array.Add(L"title", XQPComVariant(L"Pumps")).Add(L"kind", XQPComVariant(L"list"));
    XInitValueWrapper bag(array.Count(), array.Values());
    bag.SetData(L"title", XQPComVariant(L"Valves").Value());
    EXPECT_EQ(TextOf(bag, L"title"), L"Valves");
    bag.SetData(L"title", XQPComVariant(L"Bolts").Value());
    EXPECT_EQ(TextOf(bag, L"title"), L"Bolts");
    EXPECT_EQ(TextOf(bag, L"kind"), L"list");
    EXPECT_STREQ(array.Values()[0].varValue.bstrVal, L"Pumps") << "the caller's array is only read";
    ULONG count = 0;
    tagINITVALUE* values = nullptr;
    ASSERT_TRUE(bag.GetStruct(count, &values));
    ASSERT_EQ(count, 2u);
    EXPECT_STREQ(values[0].bstrParamName, L"title") << "in its place";
    EXPECT_STREQ(values[0].varValue.bstrVal, L"Bolts");
    XInitValueWrapper::FreeStruct(count, values);
}

TEST(InitValueWrapper, TakesTheFirstOfTwoValuesOfOneName)
{
    OwnArray array;
    array.Add(L"title", XQPComVariant(L"first")).Add(L"title", XQPComVariant(L"second"));
    XInitValueWrapper bag(array.Count(), array.Values());
    EXPECT_EQ(TextOf(bag, L"title"), L"first");
    bag.SetData(L"title", XQPComVariant(L"third").Value());
    EXPECT_EQ(TextOf(bag, L"title"), L"third");
}

TEST(InitValueWrapper, FindsEachOfManyNamesGivenOrAddedLater)
{
    constexpr int kMany = 3000;
    const auto name = [](int number) {
        return L"name" + std::to_wstring(number);
    };
    OwnArray array;
    for (int number = 0; number < kMany; ++number)
        array.Add(name(number).c_str(), XQPComVariant(std::to_wstring(number).c_str()));
    XInitValueWrapper bag(array.Count(), array.Values());
    for (int number = kMany; number < 2 * kMany; ++number)
        bag.SetData(name(number).c_str(), XQPComVariant(std::to_wstring(number).c_str()).Value());
    for (int number = 0; number < 2 * kMany; ++number)
        ASSERT_EQ(TextOf(bag, name(number).c_str()), std::to_wstring(number));
    EXPECT_EQ(TextOf(bag, name(2 * kMany).c_str()), L"(none)");
    ULONG count = 0;
    tagINITVALUE* values = nullptr;
    ASSERT_TRUE(bag.GetStruct(count, &values));
    ASSERT_EQ(count, ULONG{2 * kMany});
    for (int number = 0; number < 2 * kMany; ++number)
        ASSERT_STREQ(values[number].bstrParamName, name(number).c_str()) << "in the order of their coming";
    XInitValueWrapper::FreeStruct(count, values);
}

TEST(InitValueWrapper, TreatsANullNameAsTheEmptyName)
{
    OwnArray array;
    array.Add(nullptr, XQPComVariant(L"nameless"));
    XInitValueWrapper bag(array.Count(), array.Values());
    EXPECT_EQ(TextOf(bag, L""), L"nameless");
    EXPECT_EQ(TextOf(bag, nullptr), L"nameless");
    bag.SetData(nullptr, XQPComVariant(L"still one").Value());
    EXPECT_EQ(TextOf(bag, L""), L"still one");
}

TEST(InitValueWrapper, LeavesOutAValueThatCannotBeCopied)
{
    OwnArray array;
    array.Add(L"odd", XQPComVariant().Value()).Add(L"title", XQPComVariant(L"Pumps"));
    array.Values()[0].varValue.vt = 0x0fff;
    {
        const XInitValueWrapper bag(array.Count(), array.Values());
        EXPECT_EQ(TextOf(bag, L"odd"), L"(none)");
        EXPECT_EQ(TextOf(bag, L"title"), L"Pumps");
        ULONG count = 0;
        tagINITVALUE* values = nullptr;
        ASSERT_TRUE(bag.GetStruct(count, &values));
        ASSERT_EQ(count, 1u);
        EXPECT_STREQ(values[0].bstrParamName, L"title");
        XInitValueWrapper::FreeStruct(count, values);
    }
    array.Values()[0].varValue.vt = VT_EMPTY;
}

TEST(InitValueWrapper, IsEmptyOverNoArray)
{
    const XInitValueWrapper none(0, nullptr);
    const XInitValueWrapper null(3, nullptr);
    EXPECT_EQ(TextOf(none, L"title"), L"(none)");
    EXPECT_EQ(TextOf(null, L"title"), L"(none)");
}

TEST(InitValueWrapper, AddsAndReplaces)
{
    XInitValueWrapper bag(0, nullptr);
    bag.SetData(L"a", XQPComVariant(L"1").Value());
    bag.SetData(L"b", XQPComVariant(L"2").Value());
    bag.SetData(L"a", XQPComVariant(L"3").Value());
    EXPECT_EQ(TextOf(bag, L"a"), L"3");
    EXPECT_EQ(TextOf(bag, L"b"), L"2");
    ULONG count = 0;
    tagINITVALUE* values = nullptr;
    ASSERT_TRUE(bag.GetStruct(count, &values));
    EXPECT_EQ(count, 2u);
    XInitValueWrapper::FreeStruct(count, values);
}

TEST(InitValueWrapper, GivesItsContentsInOrderAsAnArrayOfItsOwn)
{
    CountedUnknown object;
    OwnArray array;
    array.Add(L"title", XQPComVariant(L"Pumps"))
        .Add(L"object", ObjectReference(&object))
        .Add(L"", XQPComVariant().Value());
    ULONG count = 99;
    tagINITVALUE* values = nullptr;
    {
        const XInitValueWrapper bag(array.Count(), array.Values());
        ASSERT_TRUE(bag.GetStruct(count, &values));
    }
    ASSERT_EQ(count, 3u);
    EXPECT_STREQ(values[0].bstrParamName, L"title");
    EXPECT_EQ(SysStringLen(values[0].bstrParamName), 5u);
    EXPECT_STREQ(values[0].varValue.bstrVal, L"Pumps");
    EXPECT_STREQ(values[1].bstrParamName, L"object");
    EXPECT_EQ(values[1].varValue.punkVal, &object);
    EXPECT_STREQ(values[2].bstrParamName, L"");
    EXPECT_EQ(values[2].varValue.vt, VT_EMPTY);
    EXPECT_EQ(object.References(), 3);
    XInitValueWrapper::FreeStruct(count, values);
    EXPECT_EQ(object.References(), 2);
}

TEST(InitValueWrapper, GivesNoArrayForAnEmptyBag)
{
    ULONG count = 99;
    tagINITVALUE record{};
    tagINITVALUE* values = &record;
    EXPECT_TRUE(XInitValueWrapper(0, nullptr).GetStruct(count, &values));
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(values, nullptr);
}

TEST(InitValueWrapper, RefusesANullTarget)
{
    OwnArray array;
    array.Add(L"title", XQPComVariant(L"Pumps"));
    ULONG count = 99;
    EXPECT_FALSE(XInitValueWrapper(array.Count(), array.Values()).GetStruct(count, nullptr));
    EXPECT_EQ(count, 0u);
}

TEST(InitValueWrapper, FreesAnArrayThatACalleeReturned)
{
    CountedUnknown object;
    auto* values = static_cast<tagINITVALUE*>(CoTaskMemAlloc(2 * sizeof(tagINITVALUE)));
    values[0].bstrParamName = SysAllocString(L"object");
    values[0].varValue = XQPComVariant(ObjectReference(&object)).Detach();
    values[1].bstrParamName = nullptr;
    values[1].varValue = XQPComVariant(L"text").Detach();
    EXPECT_EQ(object.References(), 2);
    XInitValueWrapper::FreeStruct(2, values);
    EXPECT_EQ(object.References(), 1);
}

TEST(InitValueWrapper, FreesNothingForANullArray)
{
    XInitValueWrapper::FreeStruct(0, nullptr);
    XInitValueWrapper::FreeStruct(7, nullptr);
}

TEST(InitValueWrapper, IsDestroyedThroughItsBase)
{
    static int destroyed = 0;
    struct Derived : XInitValueWrapper
    {
        Derived() : XInitValueWrapper(0, nullptr) {}
        ~Derived() override { ++destroyed; }
    };
    destroyed = 0;
    XInitValueWrapper* const bag = new Derived;
    delete bag;
    EXPECT_EQ(destroyed, 1);
}
