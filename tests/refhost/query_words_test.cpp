// The words of a search: operators, brackets, their misplacement, tables, columns and values.
#include "SearchSteps.h"

#include <string>

namespace
{
constexpr LONG kAnd = 1;
constexpr LONG kOr = 2;
constexpr LONG kOpen = 4;
constexpr LONG kClose = 8;
constexpr LONG kCloseAnd = 9;

/// Four script actions: types a and b, each enabled and not.
class QueryWords : public EmptyPlant
{
protected:
    QueryWords()
    {
        Make(L"a on", L"a", true);
        Make(L"a off", L"a", false);
        Make(L"b on", L"b", true);
        Make(L"b off", L"b", false);
    }

    void Make(const wchar_t* name, const wchar_t* type, bool enabled)
    {
        const ComPtr<IQP_BaseDataObject> action = plant->Add(L"scriptaction", name);
        EXPECT_EQ(action->SetAttribute(Text(L"m_pType"), Value(type)), S_OK);
        EXPECT_EQ(action->SetAttribute(Text(L"m_bEnabled"), Value(enabled)), S_OK);
    }

    Search Actions() { return {*plant, L"scriptaction"}; }
    bool ErrorSays(const char* part) const { return plant->LastError().find(part) != std::string::npos; }
};

TEST_F(QueryWords, no_criterion_finds_all_rows_in_the_order_they_were_made)
{
    EXPECT_EQ(Actions().Found(), (Names{L"a on", L"a off", L"b on", L"b off"}));
}

TEST_F(QueryWords, one_criterion)
{
    EXPECT_EQ(Actions().Is(L"type", L"b").Found(), (Names{L"b on", L"b off"}));
}

TEST_F(QueryWords, and_between_criteria)
{
    EXPECT_EQ(Actions().Is(L"type", L"b").Cat(kAnd).Is(L"enabled", 1).Found(), (Names{L"b on"}));
}

TEST_F(QueryWords, or_between_criteria)
{
    EXPECT_EQ(Actions().Is(L"type", L"b").Cat(kOr).Is(L"enabled", 1).Found(),
              (Names{L"a on", L"b on", L"b off"}));
}

TEST_F(QueryWords, criteria_side_by_side_are_joined_by_and)
{
    EXPECT_EQ(Actions().Is(L"type", L"b").Is(L"enabled", 1).Found(), (Names{L"b on"}));
    EXPECT_EQ(plant->LastSql(),
              R"(SELECT "id" FROM "scriptaction" WHERE "type" = ? AND "enabled" = ? ORDER BY "id")");
}

TEST_F(QueryWords, a_bracket_holds_an_or_together)
{
    Search search = Actions();
    search.Cat(kOpen).Is(L"type", L"a").Cat(kOr).Is(L"type", L"b").Cat(kClose).Cat(kAnd).Is(L"enabled", 0);
    EXPECT_EQ(search.Found(), (Names{L"a off", L"b off"}));
}

TEST_F(QueryWords, without_the_bracket_and_binds_closer)
{
    Search search = Actions();
    search.Is(L"type", L"a").Cat(kOr).Is(L"type", L"b").Cat(kAnd).Is(L"enabled", 0);
    EXPECT_EQ(search.Found(), (Names{L"a on", L"a off", L"b off"}));
}

TEST_F(QueryWords, nine_closes_a_bracket_and_joins_by_and)
{
    Search search = Actions();
    search.Cat(kOpen).Is(L"type", L"a").Cat(kOr).Is(L"type", L"b").Cat(kCloseAnd).Is(L"enabled", 0);
    EXPECT_EQ(search.Found(), (Names{L"a off", L"b off"}));
    EXPECT_EQ(plant->LastSql(), R"(SELECT "id" FROM "scriptaction" WHERE ( "type" = ? OR "type" = ? ) AND )"
                                R"("enabled" = ? ORDER BY "id")");
}

TEST_F(QueryWords, brackets_nest)
{
    Search search = Actions();
    search.Cat(kOpen)
        .Cat(kOpen)
        .Is(L"type", L"a")
        .Cat(kOr)
        .Is(L"type", L"x")
        .Cat(kClose)
        .Cat(kOr)
        .Is(L"type", L"b");
    search.Cat(kCloseAnd).Is(L"enabled", 1);
    EXPECT_EQ(search.Found(), (Names{L"a on", L"b on"}));
}

TEST_F(QueryWords, the_last_argument_is_the_operator_before_the_criterion)
{
    EXPECT_EQ(Actions().Is(L"type", L"b").Is(L"enabled", 1, kAnd).Found(), (Names{L"b on"}));
    EXPECT_EQ(Actions().Is(L"type", L"b").Is(L"enabled", 1, kOr).Found(),
              (Names{L"a on", L"b on", L"b off"}));
}

TEST_F(QueryWords, the_operator_of_the_first_criterion_joins_it_to_nothing)
{
    EXPECT_EQ(Actions().Is(L"type", L"b", kAnd).Found(), (Names{L"b on", L"b off"}));
    EXPECT_EQ(Actions().Is(L"type", L"b", kOr).Found(), (Names{L"b on", L"b off"}));
}

TEST_F(QueryWords, a_bracket_left_open_is_a_syntax_error)
{
    Actions().Cat(kOpen).Is(L"type", L"a").Refused();
    EXPECT_TRUE(ErrorSays("syntax error")) << plant->LastError();
    EXPECT_EQ(plant->LastSql(), R"(SELECT "id" FROM "scriptaction" WHERE ( "type" = ? ORDER BY "id")");
}

TEST_F(QueryWords, a_bracket_closed_but_never_opened_is_a_syntax_error)
{
    Actions().Is(L"type", L"a").Cat(kClose).Refused();
    EXPECT_TRUE(ErrorSays("syntax error")) << plant->LastError();
}

TEST_F(QueryWords, an_operator_at_the_end_is_a_syntax_error)
{
    Actions().Is(L"type", L"a").Cat(kAnd).Refused();
    Actions().Cat(kOpen).Is(L"type", L"a").Cat(kCloseAnd).Refused();
    EXPECT_TRUE(ErrorSays("syntax error")) << plant->LastError();
}

TEST_F(QueryWords, an_operator_at_the_start_is_a_syntax_error)
{
    Actions().Cat(kAnd).Is(L"type", L"a").Refused();
    Actions().Cat(kOr).Is(L"type", L"a").Refused();
}

TEST_F(QueryWords, two_operators_in_a_row_are_a_syntax_error)
{
    Actions().Is(L"type", L"a").Cat(kAnd).Cat(kOr).Is(L"type", L"b").Refused();
    Actions().Is(L"type", L"a").Cat(kAnd).Is(L"type", L"b", kOr).Refused();
}

TEST_F(QueryWords, a_missing_operator_at_a_bracket_is_a_syntax_error)
{
    Actions().Cat(kOpen).Is(L"type", L"a").Cat(kClose).Is(L"enabled", 1).Refused();
    Actions().Is(L"type", L"a").Cat(kOpen).Is(L"enabled", 1).Cat(kClose).Refused();
}

TEST_F(QueryWords, an_empty_bracket_is_a_syntax_error)
{
    Actions().Cat(kOpen).Cat(kClose).Refused();
}

TEST_F(QueryWords, a_search_after_a_refused_one_starts_afresh)
{
    Search search = Actions();
    search.Cat(kOpen).Refused();
    EXPECT_EQ(search.query->ResetSearch(0), S_OK);
    EXPECT_EQ(search.query->SetSearchTable(Text(L"scriptaction")), S_OK);
    EXPECT_EQ(search.Is(L"type", L"a").Found(), (Names{L"a on", L"a off"}));
    EXPECT_EQ(plant->LastError(), "");
}

TEST_F(QueryWords, other_catenations_are_bad_arguments_and_change_nothing)
{
    Search search = Actions();
    for (const LONG other : {0, 3, 5, 6, 7, 10, 12, -1})
        EXPECT_EQ(search.query->SetSearchCatenation(other), E_INVALIDARG) << other;
    EXPECT_EQ(search.Is(L"type", L"a").Found(), (Names{L"a on", L"a off"}));
}

TEST_F(QueryWords, an_unknown_table_is_a_bad_argument)
{
    const ComPtr<IQP_Query> query = plant->NewQuery();
    for (const wchar_t* table :
         {L"scriptactions", L"ScriptAction", L"", L"object", L"scriptaction; DROP TABLE object"})
        EXPECT_EQ(query->SetSearchTable(Text(table)), E_INVALIDARG) << table;
    EXPECT_EQ(query->SetSearchTable(nullptr), E_INVALIDARG);
}

TEST_F(QueryWords, an_unknown_column_is_a_bad_argument_and_adds_nothing)
{
    Search search = Actions();
    for (const wchar_t* column : {L"m_pType", L"Type", L"visible", L"", L"id"})
        EXPECT_EQ(search.query->SetSearchAttribute(Text(column), 1, Value(L"a"), 0), E_INVALIDARG) << column;
    EXPECT_EQ(search.query->SetSearchAttribute(nullptr, 1, Value(L"a"), 0), E_INVALIDARG);
    EXPECT_EQ(search.Found().size(), 4U);
}

TEST_F(QueryWords, only_equality_is_known)
{
    Search search = Actions();
    for (const LONG operation : {0, 2, 3, -1})
        EXPECT_EQ(search.query->SetSearchAttribute(Text(L"type"), operation, Value(L"a"), 0), E_INVALIDARG)
            << operation;
    EXPECT_EQ(search.Found().size(), 4U);
}

TEST_F(QueryWords, an_operator_argument_beyond_or_is_a_bad_argument)
{
    Search search = Actions();
    for (const LONG before : {3, 4, 8, 9, -1})
        EXPECT_EQ(search.query->SetSearchAttribute(Text(L"type"), 1, Value(L"a"), before), E_INVALIDARG)
            << before;
    EXPECT_EQ(search.Found().size(), 4U);
}

TEST_F(QueryWords, criteria_and_order_need_a_table_first)
{
    const ComPtr<IQP_Query> query = plant->NewQuery();
    EXPECT_EQ(query->SetSearchAttribute(Text(L"type"), 1, Value(L"a"), 0), E_INVALIDARG);
    EXPECT_EQ(query->SetOrderAttribute(Text(L"sequence"), 1), E_INVALIDARG);
    ComPtr<IEnumBaseDataObject> found;
    EXPECT_EQ(query->GetSearchResult(found.put()), E_FAIL);
    EXPECT_FALSE(found);
    EXPECT_EQ(plant->LastError(), "no table is set to search in");
}

TEST_F(QueryWords, text_is_compared_exactly_and_is_never_part_of_the_statement)
{
    EXPECT_TRUE(Actions().Is(L"type", L"A").Found().empty());
    EXPECT_TRUE(Actions().Is(L"type", L"a ").Found().empty());
    EXPECT_TRUE(Actions().Is(L"type", L"x' OR '1'='1").Found().empty());
    EXPECT_EQ(Actions().Found().size(), 4U);
}

TEST_F(QueryWords, a_null_string_is_the_empty_text_and_not_the_missing_value)
{
    Make(L"empty type", L"", true);
    plant->Add(L"scriptaction", L"no type");
    EXPECT_EQ(Actions().Is(L"type", static_cast<const wchar_t*>(nullptr)).Found(), (Names{L"empty type"}));
    EXPECT_EQ(Actions().Is(L"type", L"").Found(), (Names{L"empty type"}));
    EXPECT_EQ(Actions().IsNothing(L"type").Found(), (Names{L"no type"}));
}

TEST_F(QueryWords, a_flag_is_found_as_flag_and_as_number)
{
    EXPECT_EQ(Actions().Is(L"enabled", true).Found(), (Names{L"a on", L"b on"}));
    EXPECT_EQ(Actions().Is(L"enabled", false).Found(), (Names{L"a off", L"b off"}));
    EXPECT_EQ(Actions().Is(L"enabled", 1).Found(), (Names{L"a on", L"b on"}));
}

TEST_F(QueryWords, a_value_that_does_not_fit_the_column_is_refused)
{
    const ComPtr<IQP_Query> query = Actions().query;
    EXPECT_EQ(query->SetSearchAttribute(Text(L"orvoplantype"), 1, Value(L"Welding"), 0), E_INVALIDARG);
    EXPECT_EQ(query->SetSearchAttribute(Text(L"orvoplantype"), 1, Value(1), 0), E_INVALIDARG);
    const ComPtr<IQP_BaseDataObject> object = plant->Add(L"plantype", L"P");
    EXPECT_EQ(query->SetSearchAttribute(Text(L"type"), 1, Value(object), 0), E_INVALIDARG);
    EXPECT_LT(query->SetSearchAttribute(Text(L"sequence"), 1, Value(L"many"), 0), 0);
}

TEST_F(QueryWords, a_null_result_pointer_is_refused)
{
    EXPECT_EQ(Actions().query->GetSearchResult(nullptr), E_POINTER);
}
} // namespace
