// The sample plant, and how its tables are written.
#include "SearchSteps.h"

#include <fstream>
#include <set>

namespace
{
std::set<std::wstring> Distinct(refhost::Plant& plant, const wchar_t* table, const wchar_t* attribute)
{
    std::set<std::wstring> values;
    ComPtr<IEnumBaseDataObject> found;
    EXPECT_EQ(Search(plant, table).Run(found), S_OK);
    ComPtr<IQP_BaseDataObject> object;
    while (found->GetSingleNext(object.put()) == S_OK)
    {
        Value value;
        if (Read(object.get(), attribute, value) == S_OK)
        {
            value.Become(VT_BSTR);
            values.insert(value->bstrVal);
        }
    }
    return values;
}

int WithRight(refhost::Plant& plant, const wchar_t* table, HRESULT answer)
{
    int count = 0;
    ComPtr<IEnumBaseDataObject> found;
    EXPECT_EQ(Search(plant, table).Run(found), S_OK);
    ComPtr<IQP_BaseDataObject> object;
    while (found->GetSingleNext(object.put()) == S_OK)
    {
        ComPtr<IQPObjectRights> rights;
        HRESULT status = rights.queryFrom(object.get());
        status = status < 0 ? status : rights->HasRight(QPRT_execute);
        count += status == answer ? 1 : 0;
    }
    return count;
}

class Sample : public SamplePlant
{
protected:
    std::size_t Count(const wchar_t* table) { return Search(*plant, table).Found().size(); }
    Names Children(const ComPtr<IQP_BaseDataObject>& parent, const wchar_t* list)
    {
        ComPtr<IEnumBaseDataObject> children;
        EXPECT_EQ(parent->GetChildren(Text(list), children.put()), S_OK);
        return NamesOf(children.get());
    }
};

TEST_F(Sample, holds_as_much_as_its_readers_count_on)
{
    EXPECT_EQ(Count(L"project"), 4U);
    EXPECT_EQ(Count(L"plantypeset"), 3U);
    EXPECT_EQ(Count(L"plantype"), 10U);
    EXPECT_EQ(Count(L"configtype"), 18U);
    EXPECT_EQ(Count(L"configpage"), 13U);
    EXPECT_EQ(Count(L"configgroup"), 8U);
    EXPECT_EQ(Count(L"configattribute"), 35U);
    EXPECT_EQ(Count(L"configvalue"), 12U);
    EXPECT_EQ(Count(L"script"), 40U);
    EXPECT_EQ(Count(L"scriptaction"), 63U);
    EXPECT_EQ(Count(L"scriptcommand"), 69U);
    EXPECT_EQ(Count(L"vbaproject"), 4U);
    EXPECT_EQ(Count(L"vbamacro"), 9U);
    EXPECT_EQ(Count(L"orvoitem"), 7U);
    EXPECT_EQ(Count(L"orvowsc"), 2U);
    EXPECT_EQ(Count(L"orvocompbase"), 3U);
    EXPECT_EQ(Count(L"subcompitem"), 5U);
    EXPECT_EQ(Count(L"relationship"), 4U);
    EXPECT_EQ(Count(L"plannode"), 12U);
    EXPECT_EQ(Count(L"planrelation"), 2U);
}

TEST_F(Sample, has_every_kind_of_action)
{
    EXPECT_EQ(Distinct(*plant, L"scriptaction", L"actiontype"),
              (std::set<std::wstring>{L"0", L"1", L"2", L"25", L"3", L"4", L"5"}));
    EXPECT_EQ(Distinct(*plant, L"scriptaction", L"beforeafter"), (std::set<std::wstring>{L"0", L"1"}));
    EXPECT_GE(Distinct(*plant, L"scriptaction", L"sequence").size(), 5U);
    EXPECT_EQ(Search(*plant, L"scriptaction").Is(L"enabled", 0).Found().size(), 4U);
    EXPECT_EQ(Search(*plant, L"scriptaction").IsNothing(L"script").Found(),
              (Names{L"Paint: to be written", L"Robot: no script yet"}));
}

TEST_F(Sample, has_every_kind_of_command)
{
    EXPECT_EQ(Distinct(*plant, L"scriptcommand", L"userinterfacetype"),
              (std::set<std::wstring>{L"0", L"1", L"2", L"3"}));
    EXPECT_EQ(Search(*plant, L"scriptcommand").Is(L"visible", false).Found(),
              (Names{L"Weld hidden", L"Machine hidden"}));
    const ComPtr<IQP_BaseDataObject> welding = Find(L"plantype", L"Welding");
    EXPECT_EQ(Search(*plant, L"scriptcommand").Is(L"prompt", L"Check").Is(L"orvoplantype", welding).Found(),
              (Names{L"Check clamps", L"Check seams", L"Check order"}));
    EXPECT_EQ(Search(*plant, L"scriptcommand").IsNothing(L"prompt").Found().size(), 6U);
    EXPECT_EQ(Search(*plant, L"scriptcommand").Is(L"nameshort", L"Once for all objects").Found(),
              (Names{L"Weld export", L"Paint macro"}));
    EXPECT_EQ(Search(*plant, L"scriptcommand").IsNothing(L"script").IsNothing(L"vbamacroname").Found(),
              (Names{L"Robot macro unnamed"}));
}

TEST_F(Sample, has_scripts_and_commands_that_the_user_may_not_run)
{
    EXPECT_EQ(WithRight(*plant, L"script", S_FALSE), 6);
    EXPECT_EQ(WithRight(*plant, L"script", E_NOINTERFACE), 1);
    EXPECT_EQ(WithRight(*plant, L"scriptcommand", S_FALSE), 1);
    EXPECT_EQ(WithRight(*plant, L"scriptcommand", E_NOINTERFACE), 1);
    const ComPtr<IQP_BaseDataObject> nameless = Find(L"script", L"unnamed-1");
    Value name;
    EXPECT_EQ(Read(nameless.get(), L"name", name), S_FALSE);
}

TEST_F(Sample, has_records_bound_to_a_type_and_a_plan_type_at_once)
{
    for (const auto& [table, name, type] : {std::tuple(L"scriptaction", L"Part: twice bound", L"m_pType"),
                                            std::tuple(L"scriptcommand", L"Robot twice bound", L"m_strType")})
    {
        const ComPtr<IQP_BaseDataObject> record = Find(table, name);
        Value value;
        EXPECT_EQ(Read(record.get(), L"orvoplantype", value), S_FALSE)
            << "not marked as bound to a plan type";
        EXPECT_EQ(Read(record.get(), L"m_pPlanType", value), S_OK);
        EXPECT_NE(ReadText(record.get(), type), L"<none>");
    }
}

TEST_F(Sample, has_records_that_the_user_may_run_and_not_change)
{
    for (const auto& [table, name] :
         {std::pair(L"scriptaction", L"Part: fixed"), std::pair(L"scriptcommand", L"Robot fixed")})
    {
        ComPtr<IQPObjectRights> rights;
        ASSERT_EQ(rights.queryFrom(Find(table, name).get()), S_OK);
        EXPECT_EQ(rights->HasRight(QPRT_change), S_FALSE);
    }
}

TEST_F(Sample, has_every_placement_of_a_command)
{
    EXPECT_EQ(Distinct(*plant, L"scriptcommand", L"customizationobjecttype"),
              (std::set<std::wstring>{L"-1", L"0", L"1", L"2"}));
    EXPECT_EQ(Distinct(*plant, L"scriptcommand", L"customizationobjectid"),
              (std::set<std::wstring>{L"", L"4", L"12", L"42", L"102", L"131", L"999", L"cycletime",
                                      L"torqueclass"}));
    EXPECT_TRUE(Search(*plant, L"configpage").Is(L"number", 999).Found().empty());
    EXPECT_EQ(Search(*plant, L"scriptcommand").Is(L"nameshort", L"2").Found(), Names{L"Robot other mode"});
    EXPECT_EQ(Search(*plant, L"scriptcommand").Is(L"vbamacroname", L"ModRobot.Park").Found(),
              (Names{L"Robot park macro", L"Robot two ways"}));
}

TEST_F(Sample, has_macros_of_projects_and_of_none)
{
    const ComPtr<IQP_BaseDataObject> north = Find(L"project", L"Body Plant North");
    EXPECT_EQ(Search(*plant, L"vbaproject").Is(L"dodefaultimpl", north).Found(),
              (Names{L"Body shop macros", L"Paint macros"}));
    EXPECT_EQ(Search(*plant, L"vbaproject").IsNothing(L"dodefaultimpl").Found(), Names{L"Company macros"});
    EXPECT_EQ(Search(*plant, L"vbamacro").Is(L"name", L"ModWelding.CheckAll").Found().size(), 2U);
}

TEST_F(Sample, has_masters_where_they_matter)
{
    EXPECT_EQ(Distinct(*plant, L"plantypeset", L"name").size(), 3U);
    Value value;
    EXPECT_EQ(Read(Find(L"plantypeset", L"Body Shop").get(), L"master", value), S_OK);
    EXPECT_EQ(Read(Find(L"plantypeset", L"Machining").get(), L"master", value), S_FALSE);
    EXPECT_EQ(Read(Find(L"plantypeset", L"Company Standards").get(), L"master", value), S_FALSE);
    EXPECT_EQ(Read(Find(L"plantype", L"Welding").get(), L"master", value), S_OK);
    EXPECT_EQ(Read(Find(L"plantype", L"Painting").get(), L"master", value), S_FALSE);
    EXPECT_EQ(Read(Find(L"plantype", L"Measuring").get(), L"master", value), S_OK)
        << "in a set without a master";
}

TEST_F(Sample, has_trees_of_children)
{
    const ComPtr<IQP_BaseDataObject> root = Find(L"root", L"root");
    EXPECT_EQ(Children(root, L"orvoproject"),
              (Names{L"Body Plant North", L"Engine Machining South", L"Final Assembly East"}));
    EXPECT_EQ(Children(root, L"template"), (Names{L"Company Template"}));
    const ComPtr<IQP_BaseDataObject> project = Find(L"project", L"Engine Machining South");
    EXPECT_EQ(Children(project, L"orvoplantypeset"), (Names{L"Machining"}));
    EXPECT_EQ(Children(project, L"orvoplantype"), (Names{L"Turning", L"Milling", L"Measuring"}));
    EXPECT_EQ(Children(project, L"script").size(), 7U);
    EXPECT_EQ(Children(project, L"nodes"), Names{});
    EXPECT_EQ(Children(Find(L"project", L"Body Plant North"), L"nodes"),
              (Names{L"Door line", L"Gauge store"}));
    EXPECT_EQ(Children(project, L"scriptactions").size(), 14U);
    EXPECT_EQ(Children(project, L"scriptcommands").size(), 16U);
    const ComPtr<IQP_BaseDataObject> set = Find(L"plantypeset", L"Body Shop");
    EXPECT_EQ(Children(set, L"orvoplantype"), (Names{L"Welding", L"Painting", L"Assembly", L"Inspection"}));
    EXPECT_EQ(Children(set, L"scriptactions").size(), 41U);
    EXPECT_EQ(Children(set, L"scriptcommands").size(), 44U);
    const ComPtr<IQP_BaseDataObject> planType = Find(L"plantype", L"Milling");
    EXPECT_EQ(Children(planType, L"scriptactions").size(), 3U);
    EXPECT_EQ(Children(planType, L"scriptcommands").size(), 2U);
}

TEST_F(Sample, orders_actions_by_sequence_and_then_by_their_place)
{
    const ComPtr<IQP_BaseDataObject> welding = Find(L"plantype", L"Welding");
    Search search(*plant, L"scriptaction");
    search.Is(L"orvoplantype", welding).Is(L"actiontype", 1).Is(L"beforeafter", 0).Order(L"sequence");
    EXPECT_EQ(search.Found(), (Names{L"Weld: validate order", L"Weld: check clamps", L"Weld: number spots"}));
}

class TableText : public EmptyPlant
{
protected:
    void Load(const char* file, const std::string& text)
    {
        {
            std::ofstream stream(folder.Path() / file, std::ios::binary);
            stream << text;
        }
        plant->Load(folder.Path());
    }
    const Folder folder;
};

TEST_F(TableText, cells_are_trimmed_and_empty_cells_are_no_values)
{
    Load("scriptcommand.txt", "name | prompt|nameshort\n  A\t|  |0  \nB|\"\"|1\n");
    const ComPtr<IQP_BaseDataObject> first = plant->Find(L"scriptcommand", L"A");
    ASSERT_TRUE(first);
    EXPECT_EQ(ReadText(first.get(), L"prompt"), L"<none>");
    EXPECT_EQ(ReadText(first.get(), L"nameshort"), L"0");
    EXPECT_EQ(ReadText(plant->Find(L"scriptcommand", L"B").get(), L"prompt"), L"")
        << "the empty text is a value";
}

TEST_F(TableText, bars_and_backslashes_can_be_written)
{
    Load("script.txt", "name | languagetype\na\\|b | c\\\\\nd\\e | \\|\n");
    EXPECT_EQ(ReadText(plant->Find(L"script", L"a|b").get(), L"languagetype"), L"c\\");
    EXPECT_EQ(ReadText(plant->Find(L"script", L"d\\e").get(), L"languagetype"), L"|");
}

TEST_F(TableText, line_ends_byte_order_mark_and_missing_last_line_end_are_fine)
{
    Load("script.txt", "\xEF\xBB\xBF# scripts\r\nname | languagetype\r\n\r\nA | basic\r\nPr\xC3\xBC"
                       "fen |");
    EXPECT_EQ(ReadText(plant->Find(L"script", L"A").get(), L"languagetype"), L"basic");
    EXPECT_TRUE(plant->Find(L"script", L"Pr\u00FCfen"));
}

TEST_F(TableText, columns_may_be_in_any_order_and_omitted)
{
    Load("scriptaction.txt", "sequence | name\n-5 | A\n2147483647 | B\n");
    Value value;
    EXPECT_EQ(Read(plant->Find(L"scriptaction", L"A").get(), L"sequence", value), S_OK);
    EXPECT_EQ(value->lVal, -5);
    EXPECT_EQ(Read(plant->Find(L"scriptaction", L"B").get(), L"sequence", value), S_OK);
    EXPECT_EQ(value->lVal, 2147483647);
    EXPECT_EQ(Read(plant->Find(L"scriptaction", L"A").get(), L"enabled", value), S_FALSE);
}

TEST_F(TableText, a_key_names_a_row_whose_name_is_missing_or_not_the_only_one)
{
    Load("script.txt", "key | name\none | Same\ntwo | Same\nthree |\n | Four\n");
    EXPECT_EQ(ReadText(plant->Find(L"script", L"two").get(), L"name"), L"Same");
    EXPECT_EQ(ReadText(plant->Find(L"script", L"three").get(), L"name"), L"<none>");
    EXPECT_FALSE(plant->Find(L"script", L"Same"));
    EXPECT_TRUE(plant->Find(L"script", L"Four"));
}

TEST_F(TableText, references_may_point_forward_and_to_what_is_there)
{
    plant->Add(L"plantypeset", L"there");
    Load("plantypeset.txt", "name | master\nfirst | second\nsecond | there\nself | self\n");
    for (const wchar_t* name : {L"first", L"second", L"self"})
    {
        Value value;
        EXPECT_EQ(Read(plant->Find(L"plantypeset", name).get(), L"master", value), S_OK) << name;
    }
}

TEST_F(TableText, rights_are_words)
{
    Load("script.txt",
         "name | rights\nA |\nB | all\nC | none\nD | norights\nE | read   execute\nF | change\n");
    const auto may = [&](const wchar_t* name, int right) {
        ComPtr<IQPObjectRights> rights;
        const HRESULT status = rights.queryFrom(plant->Find(L"script", name).get());
        return status < 0 ? status : rights->HasRight(static_cast<QPRightType>(right));
    };
    EXPECT_EQ(may(L"A", QPRT_remove_child), S_OK);
    EXPECT_EQ(may(L"B", QPRT_take_ownership), S_OK);
    EXPECT_EQ(may(L"C", QPRT_read), S_FALSE);
    EXPECT_EQ(may(L"D", QPRT_read), E_NOINTERFACE);
    EXPECT_EQ(may(L"E", QPRT_execute), S_OK);
    EXPECT_EQ(may(L"E", QPRT_change), S_FALSE);
    EXPECT_EQ(may(L"F", QPRT_change), S_OK);
}
} // namespace
