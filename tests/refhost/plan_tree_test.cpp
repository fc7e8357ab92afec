// What a walk over the plan calls, and what is offered for an enhanced copy.
#include "AttributeArray.h"
#include "ConfigFixture.h"

#include <fstream>
#include <utility>

namespace
{
class PlanTree : public ConfigPlant
{
protected:
    ComPtr<IEnumBaseDataObject> Nodes(const ComPtr<IQP_BaseDataObject>& object) const
    {
        ComPtr<IEnumBaseDataObject> nodes;
        EXPECT_EQ(object->GetChildren(Text(L"nodes"), nodes.put()), S_OK);
        EXPECT_TRUE(nodes);
        return nodes;
    }

    ComPtr<IQPType> TypeOf(const ComPtr<IQP_BaseDataObject>& object) const
    {
        Value config;
        Value name;
        EXPECT_EQ(Read(object.get(), L"configtypename", config), S_OK);
        name->vt = VT_BSTR;
        EXPECT_EQ(object->GetTypeName(&name->bstrVal), S_OK);
        ComPtr<IQPType> type;
        EXPECT_EQ(object->GetType(name->bstrVal, config->bstrVal, type.put()), S_OK);
        EXPECT_TRUE(type);
        return type;
    }

    /// "  name: caption" for an object and everything below it.
    void Describe(const ComPtr<IQP_BaseDataObject>& object, const std::wstring& indent, Names& lines) const
    {
        lines.push_back(indent + ReadText(object.get(), L"name") + L": " +
                        KeyText(TypeOf(object).get(), L"captionsingular"));
        const auto nodes = Nodes(object);
        ComPtr<IQP_BaseDataObject> node;
        ULONG fetched = 0;
        while (nodes->RemNext(1, node.put(), &fetched) == S_OK)
            Describe(node, indent + L"  ", lines);
    }

    /// The names of the attributes that the type offers for an enhanced copy.
    Names Offered(const wchar_t* type) const
    {
        ComPtr<IQPAttributeEnum> attributes;
        EXPECT_EQ(Type(type)->GetDisplayAttributeEnum(4, attributes.put()), S_OK);
        Names names;
        ComPtr<IQPAttribute> attribute;
        while (attributes->GetSingleNext(attribute.put()) == S_OK)
        {
            Value copyMode;
            Member(attribute.get(), 54, copyMode);
            if (copyMode->vt == VT_I4 && copyMode->lVal == 4)
                names.push_back(MemberText(attribute.get(), 0));
        }
        return names;
    }
};

TEST_F(PlanTree, is_a_line_with_its_cells)
{
    Names lines;
    Describe(Find(L"plannode", L"Door line"), L"", lines);
    EXPECT_EQ(lines, (Names{L"Door line: Line", L"  Hinge cell: Work cell",
                            L"    Hinge station left: Station", L"      Robot use: Resource use",
                            L"    Hinge station right: Station", L"    Hinge robot: Resource",
                            L"    Load hinges: Work step", L"  Sealing cell: Work cell",
                            L"    Sealing station: Station", L"      Gauge use: Resource use",
                            L"    Sealing pump: Resource", L"    Apply seal: Work step"}));
}

TEST_F(PlanTree, objects_of_one_type_give_one_pointer)
{
    const ComPtr<IQPType> left = TypeOf(Find(L"plannode", L"Hinge station left"));
    EXPECT_EQ(TypeOf(Find(L"plannode", L"Sealing station")).get(), left.get());
    EXPECT_NE(TypeOf(Find(L"plannode", L"Door line")).get(), left.get());
}

TEST_F(PlanTree, a_relationship_leads_to_a_resource)
{
    for (const auto& [relation, resource] :
         {std::pair(L"Robot use", L"Hinge robot"), std::pair(L"Gauge use", L"Torque gauge")})
    {
        const ComPtr<IQP_BaseDataObject> object = Find(L"planrelation", relation);
        EXPECT_EQ(object->IsDerivedFromClass(Text(L"XDORelationship")), S_OK);
        Value target;
        ASSERT_EQ(Read(object.get(), L"relationobjecttarget", target), S_OK);
        ComPtr<IQP_BaseDataObject> found;
        ASSERT_EQ(found.queryFrom(target->punkVal), S_OK);
        EXPECT_EQ(ReadText(found.get(), L"name"), resource);
        EXPECT_EQ(found->IsDerivedFromClass(Text(L"XDORelationship")), S_FALSE);
        EXPECT_EQ(NamesOf(Nodes(object).get()), Names{}) << "nothing stands below it";
    }
}

TEST_F(PlanTree, types_offer_attributes_for_an_enhanced_copy)
{
    EXPECT_EQ(Offered(L"planline"), (Names{L"name", L"planner", L"cycletime", L"fixed", L"startdate"}));
    EXPECT_EQ(Offered(L"orvoplantype_workcell"), (Names{L"name", L"cycletime", L"startdate", L"checkedat"}));
    EXPECT_EQ(Offered(L"planstation"), (Names{L"name", L"operators", L"automatic", L"checkedat"}));
    EXPECT_EQ(Offered(L"planresource"), (Names{L"name", L"supplier", L"cost", L"fixed", L"deliverydate"}));
    EXPECT_EQ(Offered(L"planuse"), (Names{L"name", L"share", L"note"}));
    EXPECT_EQ(Offered(L"orvoplantype_work"), Names{});
    EXPECT_EQ(MemberText(Attribute(L"planstation", L"startdate").get(), 54), L"4")
        << "its mask holds it back";
    EXPECT_EQ(MemberText(Attribute(L"planline", L"startdate").get(), 3), L"4");
    EXPECT_EQ(MemberText(Attribute(L"planstation", L"checkedat").get(), 3), L"16");
}

TEST_F(PlanTree, offered_attributes_are_written_as_texts)
{
    const ComPtr<IQP_BaseDataObject> line = Find(L"plannode", L"Door line");
    const std::pair<const wchar_t*, const wchar_t*> texts[] = {
        {L"planner", L"Team south"}, {L"cycletime", L"61"}, {L"fixed", L"0"}, {L"startdate", L"01.04.2026"}};
    Array pairs(PairArray(5));
    for (LONG row = 0; row < 4; ++row)
    {
        Put(pairs.get(), row, 0, Value(texts[row].first));
        Put(pairs.get(), row, 1, Value(texts[row].second));
    }
    Array results;
    EXPECT_EQ(line->SetAttributes(pairs.Address(), results.Fresh()), S_OK);
    EXPECT_EQ(ReadText(line.get(), L"planner"), L"Team south");
    EXPECT_EQ(ReadText(line.get(), L"startdate"), L"2026-04-01");
    Value value;
    EXPECT_EQ(Read(line.get(), L"cycletime", value), S_OK);
    EXPECT_EQ(value->lVal, 61);
    EXPECT_EQ(Read(line.get(), L"fixed", value), S_OK);
    EXPECT_EQ(value->boolVal, VARIANT_FALSE);
}

TEST_F(PlanTree, texts_that_do_not_convert_are_refused_one_by_one)
{
    const ComPtr<IQP_BaseDataObject> line = Find(L"plannode", L"Door line");
    Array pairs(PairArray(4));
    const wchar_t* const names[] = {L"cycletime", L"fixed", L"startdate", L"planner"};
    for (LONG row = 0; row < 4; ++row)
    {
        Put(pairs.get(), row, 0, Value(names[row]));
        Put(pairs.get(), row, 1, Value(L"X"));
    }
    Array results;
    EXPECT_EQ(line->SetAttributes(pairs.Address(), results.Fresh()), S_OK);
    for (LONG row = 0; row < 4; ++row)
    {
        Value result;
        Cell(results.get(), row, 1, result);
        EXPECT_EQ(result->lVal, row < 3 ? DISP_E_TYPEMISMATCH : S_OK) << row;
    }
    EXPECT_EQ(ReadText(line.get(), L"planner"), L"X");
    EXPECT_EQ(ReadText(line.get(), L"startdate"), L"2026-03-02");
}

TEST_F(PlanTree, a_date_in_sample_data_must_be_one)
{
    const Folder folder;
    std::ofstream(folder.Path() / "plannode.txt") << "name | startdate\nA | soon\n";
    try
    {
        plant->Load(folder.Path());
        ADD_FAILURE() << "it was loaded";
    }
    catch (const refhost::PlantError& error)
    {
        EXPECT_STREQ(error.what(), R"(plannode.txt:2: startdate: "soon" is no date)");
    }
}
} // namespace
