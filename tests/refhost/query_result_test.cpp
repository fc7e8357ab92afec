// What a search delivers: object criteria, indirections, order, resets, and objects by identifier.
#include "SearchSteps.h"

namespace
{
/// Two plan types with a master over one of them; a script action for each and one for none.
class QueryResult : public EmptyPlant
{
protected:
    QueryResult()
    {
        EXPECT_EQ(welding->SetAttribute(Text(L"master"), Value(standard)), S_OK);
        Make(L"weld", welding, 20);
        Make(L"paint", painting, 10);
        Make(L"weld again", welding, 10);
        Make(L"for none", {}, 30);
    }

    void Make(const wchar_t* name, const ComPtr<IQP_BaseDataObject>& planType, int sequence)
    {
        const ComPtr<IQP_BaseDataObject> action = plant->Add(L"scriptaction", name);
        EXPECT_EQ(action->SetAttribute(Text(L"m_pPlanType"), Value(planType)), S_OK);
        EXPECT_EQ(action->SetAttribute(Text(L"m_iSequence"), Value(sequence)), S_OK);
    }

    Search Actions() { return {*plant, L"scriptaction"}; }

    const ComPtr<IQP_BaseDataObject> standard = plant->Add(L"plantype", L"Standard");
    const ComPtr<IQP_BaseDataObject> welding = plant->Add(L"plantype", L"Welding");
    const ComPtr<IQP_BaseDataObject> painting = plant->Add(L"plantype", L"Painting");
};

/// An object that is not the plant's.
class Stranger final : public IUnknown
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** found) override
    {
        *found = iid == IID_IUnknown ? this : nullptr;
        return *found ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
};

TEST_F(QueryResult, an_object_is_matched_by_what_it_is)
{
    EXPECT_EQ(Actions().Is(L"orvoplantype", welding).Found(), (Names{L"weld", L"weld again"}));
    const ComPtr<IQP_BaseDataObject> another = plant->Find(L"plantype", L"Welding");
    EXPECT_NE(another.get(), welding.get());
    EXPECT_EQ(Actions().Is(L"orvoplantype", another).Found(), (Names{L"weld", L"weld again"}));
}

TEST_F(QueryResult, the_value_of_an_attribute_serves_as_criterion)
{
    Value master;
    ASSERT_EQ(Read(welding.get(), L"master", master), S_OK);
    const Search search = {*plant, L"plantype"};
    ASSERT_EQ(search.query->SetSearchAttribute(Text(L"master"), 1, master, 0), S_OK);
    ComPtr<IEnumBaseDataObject> found;
    ASSERT_EQ(search.query->GetSearchResult(found.put()), S_OK);
    EXPECT_EQ(NamesOf(found.get()), (Names{L"Welding"}));
}

TEST_F(QueryResult, a_null_reference_or_empty_value_finds_rows_without_an_object)
{
    EXPECT_EQ(Actions().Is(L"orvoplantype", static_cast<IUnknown*>(nullptr)).Found(), (Names{L"for none"}));
    EXPECT_EQ(Actions().IsNothing(L"orvoplantype").Found(), (Names{L"for none"}));
    Value null;
    null->vt = VT_NULL;
    const Search search = Actions();
    EXPECT_EQ(search.query->SetSearchAttribute(Text(L"orvoplantype"), 1, null, 0), S_OK);
    ComPtr<IEnumBaseDataObject> found;
    EXPECT_EQ(search.query->GetSearchResult(found.put()), S_OK);
    EXPECT_EQ(NamesOf(found.get()), (Names{L"for none"}));
}

TEST_F(QueryResult, an_object_of_elsewhere_matches_nothing)
{
    Stranger stranger;
    EXPECT_TRUE(Actions().Is(L"orvoplantype", static_cast<IUnknown*>(&stranger)).Found().empty());
    const auto other = refhost::Plant::OpenMemory();
    other->Add(L"plantype", L"Standard");
    const ComPtr<IQP_BaseDataObject> same = other->Add(L"plantype", L"Welding");
    EXPECT_TRUE(Actions().Is(L"orvoplantype", same).Found().empty());
    EXPECT_EQ(Actions().Is(L"orvoplantype", same).Is(L"orvoplantype", painting, 2).Found(),
              (Names{L"paint"}));
}

TEST_F(QueryResult, an_object_of_another_kind_is_refused)
{
    const ComPtr<IQP_BaseDataObject> script = plant->Add(L"script", L"S");
    EXPECT_EQ(Actions().query->SetSearchAttribute(Text(L"orvoplantype"), 1, Value(script), 0), E_INVALIDARG);
}

TEST_F(QueryResult, indirect_values_are_resolved)
{
    const ComPtr<IQP_Query> query = Actions().query;
    IUnknown* object = painting.get();
    VARIANT reference{};
    reference.vt = VT_UNKNOWN | VT_BYREF;
    reference.ppunkVal = &object;
    EXPECT_EQ(query->SetSearchAttribute(Text(L"orvoplantype"), 1, reference, 0), S_OK);
    Value sequence(10);
    VARIANT indirect{};
    indirect.vt = VT_VARIANT | VT_BYREF;
    indirect.pvarVal = &sequence.get();
    EXPECT_EQ(query->SetSearchAttribute(Text(L"sequence"), 1, indirect, 0), S_OK);
    ComPtr<IEnumBaseDataObject> found;
    EXPECT_EQ(query->GetSearchResult(found.put()), S_OK);
    EXPECT_EQ(NamesOf(found.get()), (Names{L"paint"}));
}

TEST_F(QueryResult, order_is_ascending_or_descending_and_stable)
{
    EXPECT_EQ(Actions().Order(L"sequence").Found(), (Names{L"paint", L"weld again", L"weld", L"for none"}));
    EXPECT_EQ(Actions().Order(L"sequence", 0).Found(),
              (Names{L"for none", L"weld", L"paint", L"weld again"}));
    EXPECT_EQ(Actions().Found(), (Names{L"weld", L"paint", L"weld again", L"for none"}));
}

TEST_F(QueryResult, an_unknown_column_to_order_by_is_a_bad_argument)
{
    const ComPtr<IQP_Query> query = Actions().query;
    EXPECT_EQ(query->SetOrderAttribute(Text(L"m_iSequence"), 1), E_INVALIDARG);
    EXPECT_EQ(query->SetOrderAttribute(nullptr, 1), E_INVALIDARG);
}

TEST_F(QueryResult, a_full_reset_forgets_table_criteria_and_order)
{
    Search search = Actions();
    search.Is(L"orvoplantype", welding).Order(L"sequence");
    EXPECT_EQ(search.query->ResetSearch(0), S_OK);
    EXPECT_EQ(search.query->SetOrderAttribute(Text(L"sequence"), 1), E_INVALIDARG);
    EXPECT_EQ(search.query->SetSearchTable(Text(L"scriptaction")), S_OK);
    EXPECT_EQ(search.Found(), (Names{L"weld", L"paint", L"weld again", L"for none"}));
}

TEST_F(QueryResult, the_other_reset_forgets_the_criteria_alone)
{
    Search search = Actions();
    search.Is(L"orvoplantype", welding).Order(L"sequence", 0);
    EXPECT_EQ(search.query->ResetSearch(1), S_OK);
    EXPECT_EQ(search.Found(), (Names{L"for none", L"weld", L"paint", L"weld again"}));
}

TEST_F(QueryResult, a_search_can_be_run_twice)
{
    Search search = Actions();
    search.Is(L"orvoplantype", welding);
    EXPECT_EQ(search.Found(), search.Found());
}

TEST_F(QueryResult, the_result_stays_what_it_was_when_found)
{
    ComPtr<IEnumBaseDataObject> found;
    ASSERT_EQ(Actions().Is(L"orvoplantype", painting).Run(found), S_OK);
    Make(L"later", painting, 5);
    EXPECT_EQ(NamesOf(found.get()), (Names{L"paint"}));
}

TEST_F(QueryResult, one_search_is_one_host_call_for_the_result)
{
    Search search = Actions();
    plant->Calls().Clear();
    ComPtr<IEnumBaseDataObject> found;
    ASSERT_EQ(search.Run(found), S_OK);
    EXPECT_EQ(plant->Calls().Count(), 1);
}

TEST_F(QueryResult, one_search_is_one_statement_up_to_its_result)
{
    const long long before = plant->Statements();
    Search search = Actions();
    search.Cat(4).Is(L"orvoplantype", welding).Cat(2).Is(L"orvoplantype", painting).Cat(9);
    search.Is(L"enabled", 0).Cat(2).IsNothing(L"script").Order(L"sequence");
    EXPECT_EQ(plant->Statements(), before) << "nothing is asked before the search is whole";
    ComPtr<IEnumBaseDataObject> found;
    ASSERT_EQ(search.Run(found), S_OK);
    EXPECT_EQ(plant->Statements(), before + 1);
    ASSERT_EQ(search.Run(found), S_OK);
    EXPECT_EQ(plant->Statements(), before + 2) << "a search that is run again";

    ComPtr<IQP_BaseDataObject> object;
    while (found->GetSingleNext(object.put()) == S_OK)
    {
    }
    EXPECT_EQ(plant->Statements(), before + 2) << "a walk over the result";
}

TEST_F(QueryResult, a_search_that_the_database_refuses_runs_no_statement)
{
    Search search = Actions();
    search.Cat(4).Is(L"orvoplantype", welding);
    const long long before = plant->Statements();
    search.Refused();
    EXPECT_EQ(plant->Statements(), before);
}

class ObjectById : public QueryResult
{
protected:
    HRESULT Get(const wchar_t* id) { return plant->NewQuery()->GetObjectById(Text(id), object.put()); }
    std::wstring Name()
    {
        ComPtr<IQP_BaseDataObject> data;
        return data.queryFrom(object.get()) == S_OK ? ReadText(data.get(), L"name") : L"<no object>";
    }
    ComPtr<IUnknown> object;
};

TEST_F(ObjectById, finds_an_object_of_any_kind)
{
    // The root is the first object of every plant.
    EXPECT_EQ(Get(L"$2"), S_OK);
    EXPECT_EQ(Name(), L"Standard");
    EXPECT_EQ(Get(L"$5"), S_OK);
    EXPECT_EQ(Name(), L"weld");
}

TEST_F(ObjectById, what_follows_the_first_bracket_or_semicolon_does_not_count)
{
    for (const wchar_t* id : {L"$3", L"$3)", L"$3;", L"$3);", L"$3;)rest", L"$3)x$4)", L"3)", L"3"})
    {
        EXPECT_EQ(Get(id), S_OK) << id;
        EXPECT_EQ(Name(), L"Welding") << id;
    }
}

TEST_F(ObjectById, a_missing_object_is_null)
{
    EXPECT_EQ(Get(L"$4711)"), S_FALSE);
    EXPECT_FALSE(object);
}

TEST_F(ObjectById, a_text_that_is_no_identifier_is_a_bad_argument)
{
    for (const wchar_t* id : {L"", L"$", L")", L"x", L"$3x", L"$-3", L"$0", L"$99999999999999999999", L" 3"})
    {
        EXPECT_EQ(Get(id), E_INVALIDARG) << id;
        EXPECT_FALSE(object) << id;
    }
    EXPECT_EQ(plant->NewQuery()->GetObjectById(nullptr, object.put()), E_INVALIDARG);
    EXPECT_EQ(plant->NewQuery()->GetObjectById(Text(L"$2"), nullptr), E_POINTER);
}
} // namespace
