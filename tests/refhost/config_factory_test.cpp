// The host's configuration: types, pages, groups, attributes and the values of these.
#include "ConfigFixture.h"

namespace
{
class Config : public ConfigPlant
{
};

TEST_F(Config, all_types_come_in_the_order_of_the_data)
{
    ComPtr<IQPTypeEnum> types;
    ASSERT_EQ(factory->GetTypeEnum(nullptr, types.put()), S_OK);
    std::vector<std::wstring> planTypes;
    std::vector<std::wstring> others;
    ComPtr<IQPType> type;
    while (types->GetSingleNext(type.put()) == S_OK)
    {
        Value isPlanType;
        EXPECT_EQ(type->Get(Text(L"isplantype"), &isPlanType.get()), S_OK);
        ASSERT_EQ(isPlanType->vt, VT_BOOL);
        (isPlanType->boolVal ? planTypes : others).push_back(KeyText(type.get(), L"typename"));
    }
    EXPECT_EQ(planTypes,
              (Names{L"orvoplantypewsc", L"orvoplantype_work", L"orvoplantype_workcell",
                     L"orvoplantype_workplace", L"planline", L"planstation", L"planresource", L"planuse"}));
    EXPECT_EQ(others, (Names{L"orvocompbase", L"dodefaultimpl", L"scriptaction", L"scriptcommand", L"machine",
                             L"robot", L"tool", L"fixture", L"conveyor", L"part"}));
}

TEST_F(Config, a_named_list_of_types_holds_that_type_or_nothing)
{
    ComPtr<IQPTypeEnum> types;
    ComPtr<IQPType> type;
    ASSERT_EQ(factory->GetTypeEnum(Text(L"robot"), types.put()), S_OK);
    ASSERT_EQ(types->GetSingleNext(type.put()), S_OK);
    EXPECT_EQ(KeyText(type.get(), L"typename"), L"robot");
    EXPECT_EQ(types->GetSingleNext(type.put()), S_FALSE);
    ASSERT_EQ(factory->GetTypeEnum(Text(L"submarine"), types.put()), S_OK);
    EXPECT_EQ(types->GetSingleNext(type.put()), S_FALSE);
    ASSERT_EQ(factory->GetTypeEnum(Text(L""), types.put()), S_OK);
    EXPECT_EQ(types->Skip(18), S_OK);
}

TEST_F(Config, a_type_is_found_by_either_name)
{
    EXPECT_EQ(KeyText(Type(L"machine").get(), L"captionsingular"), L"Machine");
    ComPtr<IQPType> type;
    EXPECT_EQ(factory->GetType(Text(L"orvoplantype"), Text(L"orvoplantype_workcell"), type.put()), S_OK);
    EXPECT_EQ(KeyText(type.get(), L"captionsingular"), L"Work cell");
    EXPECT_EQ(factory->GetType(Text(L"orvoplantype"), nullptr, type.put()), E_INVALIDARG);
    EXPECT_FALSE(type);
    EXPECT_EQ(factory->GetType(nullptr, nullptr, type.put()), E_INVALIDARG);
    EXPECT_EQ(factory->GetType(Text(L"machine"), nullptr, nullptr), E_POINTER);
    EXPECT_EQ(factory->GetTypeEnum(nullptr, nullptr), E_POINTER);
}

TEST_F(Config, a_type_is_one_object_while_it_is_held)
{
    const ComPtr<IQPType> robot = Type(L"robot");
    EXPECT_EQ(Type(L"robot").get(), robot.get());
    ComPtr<IQPType> asked;
    const ComPtr<IQP_BaseDataObject> script = Find(L"script", L"Check names");
    ASSERT_EQ(script->GetType(nullptr, Text(L"robot"), asked.put()), S_OK);
    EXPECT_EQ(asked.get(), robot.get());
    EXPECT_NE(Type(L"machine").get(), robot.get());
    const long before = refhost::Plant::LiveObjects();
    EXPECT_TRUE(Type(L"tool"));
    EXPECT_EQ(refhost::Plant::LiveObjects(), before) << "nobody holds it any more";
}

TEST_F(Config, pages_carry_a_name_a_mark_and_a_number)
{
    ComPtr<IQPPageEnum> pages;
    const ComPtr<IQPType> type = Type(L"orvoplantype_workcell");
    ASSERT_EQ(type->GetPageEnum(pages.put()), S_OK);
    EXPECT_EQ((Members<IQPPage>(pages, 0)),
              (Names{L"General", L"Times", L"Resources", L"Drying", L"Internal"}));
    EXPECT_EQ(pages->Reset(), S_OK);
    EXPECT_EQ((Members<IQPPage>(pages, 6)), (Names{L"1", L"2", L"3", L"4", L"9"}));
    EXPECT_EQ(pages->Reset(), S_OK);
    ComPtr<IQPPage> page;
    ASSERT_EQ(pages->Skip(3), S_OK);
    Value shown;
    ASSERT_EQ(pages->GetSingleNext(page.put()), S_OK);
    EXPECT_EQ(page->GetProperty(5, &shown.get()), S_OK);
    EXPECT_EQ(shown->vt, VT_BOOL);
    EXPECT_EQ(shown->boolVal, VARIANT_TRUE);
    ASSERT_EQ(pages->GetSingleNext(page.put()), S_OK);
    EXPECT_EQ(page->GetProperty(5, &shown.get()), S_OK);
    EXPECT_EQ(shown->boolVal, VARIANT_FALSE);
    EXPECT_EQ(page->GetProperty(2, &shown.get()), E_INVALIDARG) << "a member of groups";
}

TEST_F(Config, groups_inside_groups_are_listed_too)
{
    ComPtr<IQPGroupEnum> groups;
    const ComPtr<IQPType> type = Type(L"orvoplantype_workcell");
    ASSERT_EQ(type->GetGroupEnum(groups.put()), S_OK);
    EXPECT_EQ((Members<IQPGroup>(groups, 0)), (Names{L"Names", L"Usage", L"Paint", L"", L"History"}));
    EXPECT_EQ(groups->Reset(), S_OK);
    EXPECT_EQ((Members<IQPGroup>(groups, 2)), (Names{L"101", L"102", L"103", L"104", L"105"}));
    EXPECT_EQ(groups->Reset(), S_OK);
    EXPECT_EQ((Members<IQPGroup>(groups, 9)).size(), 5U);
}

TEST_F(Config, the_mask_chooses_the_attributes)
{
    const ComPtr<IQPType> type = Type(L"orvoplantype_workcell");
    const auto names = [&](LONG mask) {
        ComPtr<IQPAttributeEnum> attributes;
        EXPECT_EQ(type->GetDisplayAttributeEnum(mask, attributes.put()), S_OK);
        return Members<IQPAttribute>(attributes, 0);
    };
    EXPECT_EQ(names(7), (Names{L"name", L"cycletime", L"startdate", L"checkedat", L"fixed", L"cost"}));
    EXPECT_EQ(names(4), (Names{L"name", L"cycletime", L"startdate", L"checkedat", L"cost"}));
    EXPECT_EQ(names(1), (Names{L"name"}));
    EXPECT_EQ(names(0), Names{});
    EXPECT_EQ(names(8), Names{});
}

TEST_F(Config, an_attribute_has_two_names_and_its_codes)
{
    const ComPtr<IQPAttribute> date = Attribute(L"orvoplantype_workcell", L"startdate");
    EXPECT_EQ(KeyText(date.get(), L"attributename"), L"Start date");
    EXPECT_EQ(MemberText(date.get(), 0), L"startdate");
    EXPECT_EQ(MemberText(date.get(), 3), L"4");
    EXPECT_EQ(MemberText(date.get(), 54), L"4");
    EXPECT_EQ(MemberText(Attribute(L"orvoplantype_workcell", L"fixed").get(), 54), L"<none>");
    const ComPtr<IQPAttribute> same = Attribute(L"orvoplantype_workcell", L"Start date");
    EXPECT_EQ(MemberText(same.get(), 0), L"startdate") << "either name finds it";
    Value value;
    EXPECT_EQ(date->Get(Text(L"nothing"), &value.get()), E_INVALIDARG);
    EXPECT_EQ(date->GetProperty(99, &value.get()), E_INVALIDARG);
    EXPECT_EQ(date->Get(nullptr, &value.get()), E_INVALIDARG);
    EXPECT_EQ(date->Get(Text(L"attributename"), nullptr), E_POINTER);
    EXPECT_EQ(date->GetProperty(0, nullptr), E_POINTER);
}

TEST_F(Config, an_unknown_attribute_is_a_bad_argument)
{
    ComPtr<IQPAttribute> attribute;
    const ComPtr<IQPType> robot = Type(L"robot");
    EXPECT_EQ(robot->GetAttribute(Text(L"actiontype"), attribute.put()), E_INVALIDARG);
    EXPECT_FALSE(attribute);
    EXPECT_EQ(robot->GetAttribute(nullptr, attribute.put()), E_INVALIDARG);
    EXPECT_EQ(robot->GetAttribute(Text(L"actiontype"), nullptr), E_POINTER);
}

TEST_F(Config, the_action_types_are_a_list_of_values)
{
    const ComPtr<IQPAttribute> attribute = Attribute(L"scriptaction", L"actiontype");
    ComPtr<IQPAttributeTypeEnum> types;
    ASSERT_EQ(attribute->GetAttributeTypeEnum(types.put()), S_OK);
    Names names;
    Names values;
    ComPtr<IQPAttributeType> type;
    while (types->GetSingleNext(type.put()) == S_OK)
    {
        names.push_back(KeyText(type.get(), L"name"));
        values.push_back(KeyText(type.get(), L"value"));
    }
    EXPECT_EQ(names, (Names{L"Open", L"Create", L"Change", L"Delete", L"Copy", L"Release", L"Check out",
                            L"Check in", L"Undo check out"}));
    EXPECT_EQ(values, (Names{L"0", L"1", L"2", L"3", L"4", L"5", L"24", L"25", L"26"}));
    ASSERT_EQ(Attribute(L"scriptaction", L"sequence")->GetAttributeTypeEnum(types.put()), S_OK);
    EXPECT_EQ(types->GetSingleNext(type.put()), S_FALSE);
}

TEST_F(Config, objects_answer_the_interfaces_they_have)
{
    ComPtr<IQPPageEnum> pages;
    ComPtr<IQPPage> page;
    ASSERT_EQ(Type(L"machine")->GetPageEnum(pages.put()), S_OK);
    ASSERT_EQ(pages->GetSingleNext(page.put()), S_OK);
    ComPtr<IQPConfigObject> object;
    EXPECT_EQ(object.queryFrom(page.get()), S_OK);
    EXPECT_EQ(MemberText(object.get(), 0), L"General");
    ComPtr<IQPPage> again;
    EXPECT_EQ(again.queryFrom(object.get()), S_OK);
    ComPtr<IUnknown> unknown;
    EXPECT_EQ(unknown.queryFrom(page.get()), S_OK);
    ComPtr<IQPGroup> group;
    EXPECT_EQ(group.queryFrom(page.get()), E_NOINTERFACE);
    ComPtr<IQPType> type;
    EXPECT_EQ(type.queryFrom(Type(L"machine").get()), S_OK);
    EXPECT_EQ(object.queryFrom(type.get()), S_OK);
    ComPtr<IQPConfigFactory> same;
    EXPECT_EQ(same.queryFrom(factory.get()), S_OK);
    ComPtr<IQPGroupEnum> groups;
    EXPECT_EQ(groups.queryFrom(pages.get()), E_NOINTERFACE);
}
} // namespace
