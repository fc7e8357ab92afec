// The configuration of a host in memory.
#include "MemoryHost.h"

#include <gtest/gtest.h>

#include <array>

namespace
{
using Lines = std::vector<std::string>;

class MemoryConfigTest : public ::testing::Test
{
protected:
    MemoryHost host;
    const ComPtr<IQPConfigFactory> factory{&host.Config()};

    /// The value of a key or member as the record writes it, with a failed status before it.
    static std::string Key(IQPConfigObject* object, const wchar_t* key, MemoryHost& host)
    {
        XQPComVariant value;
        const HRESULT status = object->Get(XQPComBSTR(key), &value);
        return (status == S_OK ? "" : "failed ") + host.Describe(value.Value());
    }
    static std::string Member(IQPConfigObject* object, int member, MemoryHost& host)
    {
        XQPComVariant value;
        const HRESULT status = object->GetProperty(member, &value);
        return (status == S_OK ? "" : "failed ") + host.Describe(value.Value());
    }
};

TEST_F(MemoryConfigTest, types_are_found_by_either_name)
{
    MemoryType* cell = host.Config().Type(L"cell", true);
    ComPtr<IQPType> type;
    EXPECT_EQ(factory->GetType(XQPComBSTR(L"cell"), nullptr, type.put()), S_OK);
    EXPECT_EQ(type.get(), cell);
    EXPECT_EQ(factory->GetType(XQPComBSTR(L"x"), XQPComBSTR(L"cell"), type.put()), S_OK);
    EXPECT_EQ(type.get(), cell);
    EXPECT_EQ(factory->GetType(XQPComBSTR(L"x"), nullptr, type.put()), E_INVALIDARG);
    EXPECT_FALSE(type);
    host.Config().typeStatus = E_FAIL;
    EXPECT_EQ(factory->GetType(XQPComBSTR(L"cell"), nullptr, type.put()), E_FAIL);
    EXPECT_EQ(type.get(), cell) << "the object comes all the same";
    EXPECT_EQ(Key(cell, L"typename", host), "BSTR 'cell'");
    EXPECT_EQ(Key(cell, L"isplantype", host), "BOOL true");
    EXPECT_EQ(host.calls, (Lines{"GetType(cell, null)", "GetType(x, cell)", "GetType(x, null)",
                                 "GetType(cell, null)", "cell.Get(typename)", "cell.Get(isplantype)"}));
}

TEST_F(MemoryConfigTest, types_come_in_batches)
{
    host.Config().Type(L"a");
    host.Config().Type(L"b");
    host.Config().types.objects.push_back({});
    host.Config().types.statuses[0] = 2;
    ComPtr<IQPTypeEnum> types;
    ASSERT_EQ(factory->GetTypeEnum(nullptr, types.put()), S_OK);
    std::array<IQPType*, 4> batch{};
    ULONG fetched = 0;
    EXPECT_EQ(types->RemNext(4, batch.data(), &fetched), 2);
    EXPECT_EQ(fetched, 3U);
    EXPECT_FALSE(batch[2]);
    for (IQPType* type : batch)
        if (type)
            type->Release();
    EXPECT_EQ(types->RemNext(4, batch.data(), &fetched), S_FALSE);
    EXPECT_EQ(host.calls, (Lines{"GetTypeEnum(null)", "types.RemNext(4)", "types.RemNext(4)"}));
}

TEST_F(MemoryConfigTest, pages_and_groups_answer_their_members)
{
    MemoryType* cell = host.Config().Type(L"cell", true);
    cell->Page(L"General", 7);
    cell->Page(L"Internal", 8, false)->Fail(6, E_FAIL);
    cell->Group(L"Usage", 102);
    ComPtr<IQPPageEnum> pages;
    ASSERT_EQ(cell->GetPageEnum(pages.put()), S_OK);
    ComPtr<IQPPage> page;
    ASSERT_EQ(pages->GetSingleNext(page.put()), S_OK);
    EXPECT_EQ(Member(page.get(), 0, host), "BSTR 'General'");
    EXPECT_EQ(Member(page.get(), 5, host), "BOOL true");
    EXPECT_EQ(Member(page.get(), 6, host), "I4 7");
    ASSERT_EQ(pages->GetSingleNext(page.put()), S_OK);
    EXPECT_EQ(Member(page.get(), 5, host), "BOOL 0");
    EXPECT_EQ(Member(page.get(), 6, host), "failed EMPTY");
    EXPECT_EQ(Member(page.get(), 99, host), "failed EMPTY");
    EXPECT_EQ(pages->GetSingleNext(page.put()), S_FALSE);
    EXPECT_FALSE(page);
    ComPtr<IQPGroupEnum> groups;
    ASSERT_EQ(cell->GetGroupEnum(groups.put()), S_OK);
    ComPtr<IQPGroup> group;
    ASSERT_EQ(groups->GetSingleNext(group.put()), S_OK);
    EXPECT_EQ(Member(group.get(), 2, host), "I4 102");
    EXPECT_EQ(Member(group.get(), 9, host), "BOOL true");
}

TEST_F(MemoryConfigTest, lists_may_be_null_or_come_with_a_status)
{
    MemoryType* cell = host.Config().Type(L"cell");
    cell->pages.null = true;
    cell->groups.status = S_FALSE;
    ComPtr<IQPPageEnum> pages;
    EXPECT_EQ(cell->GetPageEnum(pages.put()), S_OK);
    EXPECT_FALSE(pages);
    ComPtr<IQPGroupEnum> groups;
    EXPECT_EQ(cell->GetGroupEnum(groups.put()), S_FALSE);
    EXPECT_TRUE(groups);
}

TEST_F(MemoryConfigTest, types_attributes_and_values_may_be_null)
{
    MemoryType* action = host.Config().Type(L"scriptaction");
    MemoryAttribute* kind = action->Attribute(L"actiontype");
    kind->values.null = true;
    ComPtr<IQPAttributeTypeEnum> values;
    EXPECT_EQ(kind->GetAttributeTypeEnum(values.put()), S_OK);
    EXPECT_FALSE(values);
    kind->values.status = E_FAIL;
    EXPECT_EQ(kind->GetAttributeTypeEnum(values.put()), E_FAIL);
    action->attributeNull = true;
    ComPtr<IQPAttribute> attribute;
    EXPECT_EQ(action->GetAttribute(XQPComBSTR(L"actiontype"), attribute.put()), S_OK);
    EXPECT_FALSE(attribute);
    host.Config().typeNull = true;
    ComPtr<IQPType> type;
    EXPECT_EQ(factory->GetType(XQPComBSTR(L"scriptaction"), nullptr, type.put()), S_OK);
    EXPECT_FALSE(type);
    EXPECT_EQ(factory->GetType(XQPComBSTR(L"none"), nullptr, type.put()), E_INVALIDARG);
}

TEST_F(MemoryConfigTest, the_mask_chooses_attributes)
{
    MemoryType* cell = host.Config().Type(L"cell");
    cell->Attribute(L"weight", 3)->mask = 4;
    cell->Attribute(L"date", 4, 2)->mask = 2;
    ComPtr<IQPAttributeEnum> attributes;
    ASSERT_EQ(cell->GetDisplayAttributeEnum(4, attributes.put()), S_OK);
    ComPtr<IQPAttribute> attribute;
    ASSERT_EQ(attributes->GetSingleNext(attribute.put()), S_OK);
    EXPECT_EQ(Key(attribute.get(), L"attributename", host), "BSTR 'weight'");
    EXPECT_EQ(Member(attribute.get(), 3, host), "I4 3");
    EXPECT_EQ(Member(attribute.get(), 54, host), "I4 4");
    EXPECT_EQ(attributes->GetSingleNext(attribute.put()), S_FALSE);
    EXPECT_EQ(host.calls.front(), "cell.GetDisplayAttributeEnum(4)");
    EXPECT_EQ(host.calls[1], "cell attributes.GetSingleNext()");
}

TEST_F(MemoryConfigTest, an_attribute_has_configured_values)
{
    MemoryType* action = host.Config().Type(L"scriptaction");
    action->Attribute(L"actiontype")->Value(L"Create", 1)->Value(L"Check in", L"25");
    ComPtr<IQPAttribute> attribute;
    ASSERT_EQ(action->GetAttribute(XQPComBSTR(L"actiontype"), attribute.put()), S_OK);
    ComPtr<IQPAttributeTypeEnum> values;
    ASSERT_EQ(attribute->GetAttributeTypeEnum(values.put()), S_OK);
    ComPtr<IQPAttributeType> value;
    ASSERT_EQ(values->GetSingleNext(value.put()), S_OK);
    EXPECT_EQ(Key(value.get(), L"value", host), "I4 1");
    ASSERT_EQ(values->GetSingleNext(value.put()), S_OK);
    EXPECT_EQ(Key(value.get(), L"name", host), "BSTR 'Check in'");
    EXPECT_EQ(Key(value.get(), L"value", host), "BSTR '25'");
    EXPECT_EQ(action->GetAttribute(XQPComBSTR(L"none"), attribute.put()), E_INVALIDARG);
    EXPECT_EQ(host.calls, (Lines{"scriptaction.GetAttribute(actiontype)", "actiontype.GetAttributeTypeEnum()",
                                 "actiontype values.GetSingleNext()", "actiontype=Create.Get(value)",
                                 "actiontype values.GetSingleNext()", "actiontype=Check in.Get(name)",
                                 "actiontype=Check in.Get(value)", "scriptaction.GetAttribute(none)"}));
}

TEST_F(MemoryConfigTest, objects_answer_their_interfaces_and_are_counted)
{
    MemoryType* cell = host.Config().Type(L"cell");
    ComPtr<IQPConfigObject> object;
    EXPECT_EQ(object.queryFrom(cell), S_OK);
    ComPtr<IQPType> type;
    EXPECT_EQ(type.queryFrom(object.get()), S_OK);
    ComPtr<IQPPage> page;
    EXPECT_EQ(page.queryFrom(object.get()), E_NOINTERFACE);
    EXPECT_EQ(host.LiveObjects(), 1);
    cell->Page(L"General", 1);
    EXPECT_EQ(host.LiveObjects(), 2);
    EXPECT_EQ(host.Config().References(), 1U);
}
} // namespace
