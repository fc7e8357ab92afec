// Copies of objects, alone and with everything below them.
#include "PlantFixture.h"

#include "PlantCore.h"

namespace
{
using refhost::CopyOption;
using Objects = std::vector<ComPtr<IQP_BaseDataObject>>;

class Copies : public SamplePlant
{
protected:
    Objects Copy(const Objects& objects, CopyOption option) const
    {
        const ComPtr<IEnumBaseDataObject> made = plant->Copy(objects, option);
        Objects copies;
        ComPtr<IQP_BaseDataObject> copy;
        while (made->GetSingleNext(copy.put()) == S_OK)
            copies.push_back(copy);
        return copies;
    }
    ComPtr<IQP_BaseDataObject> CopyOf(const ComPtr<IQP_BaseDataObject>& object, CopyOption option) const
    {
        const Objects copies = Copy({object}, option);
        EXPECT_EQ(copies.size(), 1U);
        return copies.empty() ? ComPtr<IQP_BaseDataObject>() : copies.front();
    }

    ComPtr<IQP_BaseDataObject> Node(const wchar_t* name) const { return Find(L"plannode", name); }

    static Objects Below(const ComPtr<IQP_BaseDataObject>& object)
    {
        ComPtr<IEnumBaseDataObject> nodes;
        EXPECT_EQ(object->GetChildren(Text(L"nodes"), nodes.put()), S_OK);
        Objects below;
        ComPtr<IQP_BaseDataObject> node;
        while (nodes->GetSingleNext(node.put()) == S_OK)
            below.push_back(node);
        return below;
    }
    static Names NamesBelow(const ComPtr<IQP_BaseDataObject>& object)
    {
        Names names;
        for (const ComPtr<IQP_BaseDataObject>& node : Below(object))
            names.push_back(ReadText(node.get(), L"name"));
        return names;
    }
    static ComPtr<IQP_BaseDataObject> Referred(const ComPtr<IQP_BaseDataObject>& object, const wchar_t* name)
    {
        Value value;
        ComPtr<IQP_BaseDataObject> found;
        if (Read(object.get(), name, value) == S_OK)
            found.queryFrom(value->punkVal);
        return found;
    }
    /// Whether both stand for one row: what is written by one is read by the other.
    static bool Same(const ComPtr<IQP_BaseDataObject>& one, const ComPtr<IQP_BaseDataObject>& other)
    {
        const std::wstring name = ReadText(one.get(), L"name");
        EXPECT_EQ(one->SetAttribute(Text(L"name"), Value(L"the same")), S_OK);
        const bool same = ReadText(other.get(), L"name") == L"the same";
        EXPECT_EQ(one->SetAttribute(Text(L"name"), Value(name.c_str())), S_OK);
        return same;
    }
    long long Rows(const std::string& condition) const
    {
        refhost::Statement statement(plant->Shared()->database,
                                     R"(SELECT count(*) FROM "object" WHERE )" + condition);
        statement.Step();
        return statement.Integer(0);
    }
};

TEST_F(Copies, an_object_alone_has_all_values_and_a_new_name)
{
    const auto line = Node(L"Door line");
    const auto copy = CopyOf(line, CopyOption::Flat);
    EXPECT_EQ(ReadText(copy.get(), L"name"), L"Copy of Door line");
    EXPECT_EQ(NamesBelow(copy), Names{});
    for (const wchar_t* text : {L"configtypename", L"planner", L"startdate", L"supplier", L"checkedat"})
        EXPECT_EQ(ReadText(copy.get(), text), ReadText(line.get(), text)) << text;
    for (const wchar_t* other : {L"cycletime", L"cost", L"fixed", L"automatic"})
    {
        Value here;
        Value there;
        EXPECT_EQ(Read(copy.get(), other, here), Read(line.get(), other, there)) << other;
        EXPECT_EQ(here->vt, there->vt) << other;
        EXPECT_EQ(here->lVal, there->lVal) << other;
    }
    EXPECT_TRUE(Same(Referred(copy, L"orvoproject"), Find(L"project", L"Body Plant North")));
    EXPECT_EQ(NamesBelow(line), (Names{L"Hinge cell", L"Sealing cell"})) << "the original is as it was";
}

TEST_F(Copies, stand_beside_their_originals)
{
    CopyOf(Node(L"Hinge cell"), CopyOption::Flat);
    EXPECT_EQ(NamesBelow(Node(L"Door line")), (Names{L"Hinge cell", L"Sealing cell", L"Copy of Hinge cell"}));
    CopyOf(Node(L"Door line"), CopyOption::Flat);
    EXPECT_EQ(NamesBelow(Find(L"project", L"Body Plant North")),
              (Names{L"Door line", L"Gauge store", L"Copy of Door line"}));
}

TEST_F(Copies, take_the_next_name_that_is_free)
{
    const auto line = Node(L"Door line");
    EXPECT_EQ(ReadText(CopyOf(line, CopyOption::Flat).get(), L"name"), L"Copy of Door line");
    EXPECT_EQ(ReadText(CopyOf(line, CopyOption::Deep).get(), L"name"), L"Copy of Door line (2)");
    EXPECT_EQ(ReadText(CopyOf(line, CopyOption::Flat).get(), L"name"), L"Copy of Door line (3)");
    EXPECT_EQ(ReadText(CopyOf(Node(L"Copy of Door line"), CopyOption::Flat).get(), L"name"),
              L"Copy of Copy of Door line");
}

TEST_F(Copies, take_everything_below_along)
{
    const long long before = Rows("1");
    const auto copy = CopyOf(Node(L"Door line"), CopyOption::Deep);
    EXPECT_EQ(Rows("1"), before + 12);
    EXPECT_EQ(NamesBelow(copy), (Names{L"Hinge cell", L"Sealing cell"})) << "those below keep their names";
    const Objects cells = Below(copy);
    EXPECT_EQ(NamesBelow(cells[0]),
              (Names{L"Hinge station left", L"Hinge station right", L"Hinge robot", L"Load hinges"}));
    EXPECT_EQ(NamesBelow(Below(cells[0])[0]), Names{L"Robot use"});
    EXPECT_FALSE(Same(cells[0], Node(L"Hinge cell")));
    EXPECT_TRUE(Same(cells[0], Node(L"Copy of Hinge cell"))) << "found by its key";
    EXPECT_EQ(ReadText(cells[0].get(), L"startdate"), L"2026-03-09");
    EXPECT_EQ(NamesBelow(Node(L"Hinge cell")).size(), 4U);
}

TEST_F(Copies, relationships_lead_to_copies_inside_and_to_originals_outside)
{
    CopyOf(Node(L"Door line"), CopyOption::Deep);
    const auto robot = Find(L"planrelation", L"Copy of Robot use");
    EXPECT_TRUE(Same(Referred(robot, L"relationobjecttarget"), Node(L"Copy of Hinge robot")));
    EXPECT_TRUE(Same(Referred(robot, L"relationobject1"), Node(L"Copy of Hinge station left")));
    EXPECT_TRUE(Same(Referred(robot, L"parent"), Node(L"Copy of Hinge station left")));
    const auto gauge = Find(L"planrelation", L"Copy of Gauge use");
    EXPECT_TRUE(Same(Referred(gauge, L"relationobjecttarget"), Node(L"Torque gauge"))) << "shared";
    EXPECT_TRUE(
        Same(Referred(Find(L"planrelation", L"Robot use"), L"relationobjecttarget"), Node(L"Hinge robot")));
    EXPECT_FALSE(plant->Find(L"plannode", L"Copy of Torque gauge"));
}

TEST_F(Copies, of_a_list_refer_to_each_other)
{
    const Objects copies =
        Copy({Find(L"planrelation", L"Gauge use"), Node(L"Torque gauge")}, CopyOption::Flat);
    ASSERT_EQ(copies.size(), 2U);
    EXPECT_EQ(ReadText(copies[0].get(), L"name"), L"Copy of Gauge use");
    EXPECT_TRUE(Same(Referred(copies[0], L"relationobjecttarget"), copies[1]));
    EXPECT_TRUE(Same(Referred(copies[0], L"parent"), Node(L"Sealing station")));
}

TEST_F(Copies, are_made_once_of_each_object)
{
    const auto line = Node(L"Door line");
    const auto cell = Node(L"Sealing cell");
    for (const Objects& list : {Objects{cell, line, line}, Objects{line, cell}})
    {
        const long long before = Rows("1");
        const Objects copies = Copy(list, CopyOption::Deep);
        ASSERT_EQ(copies.size(), 1U) << "the cell comes with its line";
        EXPECT_EQ(NamesBelow(copies[0]).size(), 2U);
        EXPECT_EQ(Rows("1"), before + 12);
    }
    EXPECT_EQ(Copy({cell, cell, line}, CopyOption::Flat).size(), 2U);
}

TEST_F(Copies, keep_rights_and_limits)
{
    plant->SetRights(L"plannode", L"Door line", QPRT_read);
    plant->SetLimit(L"plannode", L"Door line", L"planner", refhost::Limit::Locked);
    plant->SetRights(L"plannode", L"Hinge cell", std::nullopt);
    const auto copy = CopyOf(Node(L"Door line"), CopyOption::Deep);
    ComPtr<IQPObjectRights> rights;
    ASSERT_EQ(rights.queryFrom(copy.get()), S_OK);
    EXPECT_EQ(rights->HasRight(QPRT_read), S_OK);
    EXPECT_EQ(rights->HasRight(QPRT_change), S_FALSE);
    EXPECT_EQ(copy->SetAttribute(Text(L"planner"), Value(L"x")), E_ACCESSDENIED);
    EXPECT_EQ(rights.queryFrom(Below(copy)[0].get()), E_NOINTERFACE);
}

TEST_F(Copies, of_objects_without_a_name_are_called_by_their_key)
{
    const auto script = Find(L"script", L"unnamed-1");
    EXPECT_EQ(ReadText(CopyOf(script, CopyOption::Deep).get(), L"name"), L"Copy of unnamed-1");
    const auto type = Find(L"configtype", L"machine");
    const auto copy = CopyOf(type, CopyOption::Flat);
    EXPECT_EQ(ReadText(copy.get(), L"captionsingular"), L"Machine");
}

TEST_F(Copies, of_a_ring_end)
{
    const auto one = plant->Add(L"plannode", L"one");
    const auto two = plant->Add(L"plannode", L"two");
    EXPECT_EQ(one->SetAttribute(Text(L"parent"), Value(two)), S_OK);
    EXPECT_EQ(two->SetAttribute(Text(L"parent"), Value(one)), S_OK);
    const auto copy = CopyOf(one, CopyOption::Deep);
    const Objects below = Below(copy);
    ASSERT_EQ(below.size(), 1U);
    EXPECT_EQ(ReadText(below[0].get(), L"name"), L"two");
    EXPECT_TRUE(Same(Below(below[0])[0], copy));
}

TEST_F(Copies, may_be_deep)
{
    ComPtr<IQP_BaseDataObject> node;
    for (int level = 0; level < 3000; ++level)
    {
        const auto below = plant->Add(L"plannode", L"level " + std::to_wstring(level));
        EXPECT_EQ(below->SetAttribute(Text(L"parent"), Value(node)), S_OK);
        node = below;
    }
    CopyOf(Node(L"level 0"), CopyOption::Deep);
    EXPECT_TRUE(Same(Referred(Node(L"Copy of level 2999"), L"parent"), Node(L"Copy of level 2998")));
}

TEST_F(Copies, of_nothing_are_an_empty_list)
{
    EXPECT_EQ(Copy({}, CopyOption::Deep).size(), 0U);
}

TEST_F(Copies, that_cannot_be_made_leave_the_plant_as_it_was)
{
    const long long before = Rows("1");
    const auto other = refhost::Plant::OpenMemory();
    const auto line = Node(L"Door line");
    EXPECT_THROW(plant->Copy({line, other->Add(L"script", L"S")}, CopyOption::Deep), refhost::PlantError);
    EXPECT_THROW(plant->Copy({line, {}}, CopyOption::Deep), refhost::PlantError);
    plant->Shared()->database.Execute(
        R"(CREATE TEMP TRIGGER "full" BEFORE INSERT ON "planrelation" WHEN new."id" > 0)"
        R"( BEGIN SELECT RAISE(ABORT, 'the disk is full'); END)");
    EXPECT_THROW(plant->Copy({line}, CopyOption::Deep), refhost::PlantError);
    EXPECT_EQ(Rows("1"), before);
}

TEST_F(Copies, are_in_the_file_afterwards)
{
    const Folder folder;
    const auto file = folder.Path() / "plant.db";
    {
        const auto plantOnDisk = refhost::Plant::Open(file);
        plantOnDisk->Load(refhost::SampleFolder());
        const ComPtr<IEnumBaseDataObject> copies =
            plantOnDisk->Copy({plantOnDisk->Find(L"plannode", L"Door line")}, CopyOption::Deep);
        ComPtr<IQP_BaseDataObject> copy;
        ASSERT_EQ(copies->GetSingleNext(copy.put()), S_OK);
        EXPECT_EQ(copy->SetAttribute(Text(L"planner"), Value(L"Team south")), S_OK);
    }
    const auto again = refhost::Plant::Open(file);
    const auto copy = again->Find(L"plannode", L"Copy of Door line");
    ASSERT_TRUE(copy);
    EXPECT_EQ(ReadText(copy.get(), L"planner"), L"Team south");
    EXPECT_EQ(NamesBelow(copy), (Names{L"Hinge cell", L"Sealing cell"}));
}
} // namespace
