// Reading and writing several attributes in one call.
#include "AttributeArray.h"

#include <map>

namespace
{
constexpr HRESULT kSomeUnknown = static_cast<HRESULT>(0x8004035E);

class AttributeArrays : public EmptyPlant
{
protected:
    AttributeArrays()
    {
        EXPECT_EQ(action->SetAttribute(Text(L"m_pType"), Value(L"machine")), S_OK);
        EXPECT_EQ(action->SetAttribute(Text(L"m_iSequence"), Value(30)), S_OK);
    }

    /// Writes the pairs and returns the results by name.
    std::map<std::wstring, HRESULT> Write(SAFEARRAY** pairs, HRESULT expected = S_OK)
    {
        Array results;
        EXPECT_EQ(action->SetAttributes(pairs, results.Fresh()), expected);
        std::map<std::wstring, HRESULT> byName;
        for (LONG row = 0; results.get() && row < RowsOf(results.get()); ++row)
        {
            Value result;
            Cell(results.get(), row, 1, result);
            EXPECT_EQ(result->vt, VT_I4);
            byName[NameAt(results.get(), row)] = result->lVal;
        }
        return byName;
    }

    const ComPtr<IQP_BaseDataObject> action = plant->Add(L"scriptaction", L"A");
};

TEST_F(AttributeArrays, values_come_in_the_order_of_the_names)
{
    Array names(NameArray({L"m_iSequence", L"m_name", L"type"}));
    Array values;
    ASSERT_EQ(action->GetAttributes(names.Address(), values.Fresh()), S_OK);
    ASSERT_EQ(RowsOf(values.get()), 3);
    EXPECT_EQ(NameAt(values.get(), 0), L"m_iSequence");
    EXPECT_EQ(NameAt(values.get(), 1), L"m_name");
    EXPECT_EQ(NameAt(values.get(), 2), L"type");
    Value value;
    Cell(values.get(), 0, 1, value);
    EXPECT_EQ(value->vt, VT_I4);
    EXPECT_EQ(value->lVal, 30);
    VariantClear(&value.get());
    Cell(values.get(), 2, 1, value);
    EXPECT_STREQ(value->bstrVal, L"machine");
}

TEST_F(AttributeArrays, an_attribute_without_a_value_is_an_empty_cell)
{
    Array names(NameArray({L"m_name", L"m_pScript"}));
    Array values;
    ASSERT_EQ(action->GetAttributes(names.Address(), values.Fresh()), S_OK);
    ASSERT_EQ(RowsOf(values.get()), 2);
    Value value;
    Cell(values.get(), 1, 1, value);
    EXPECT_EQ(value->vt, VT_EMPTY);
}

TEST_F(AttributeArrays, unreadable_attributes_are_omitted_and_reported)
{
    Array names(NameArray({L"m_nothing", L"m_name", L"visible"}));
    Array values;
    ASSERT_EQ(action->GetAttributes(names.Address(), values.Fresh()), kSomeUnknown);
    ASSERT_EQ(RowsOf(values.get()), 1);
    EXPECT_EQ(NameAt(values.get(), 0), L"m_name");
}

TEST_F(AttributeArrays, nothing_readable_gives_an_array_without_rows)
{
    Array names(NameArray({L"m_nothing"}));
    Array values;
    ASSERT_EQ(action->GetAttributes(names.Address(), values.Fresh()), kSomeUnknown);
    EXPECT_EQ(RowsOf(values.get()), 0);
}

TEST_F(AttributeArrays, no_names_no_rows)
{
    Array names(NameArray({}));
    Array values;
    ASSERT_EQ(action->GetAttributes(names.Address(), values.Fresh()), S_OK);
    EXPECT_EQ(RowsOf(values.get()), 0);
}

TEST_F(AttributeArrays, names_may_start_at_any_index)
{
    Array names(NameArray({L"m_name", L"type"}, 5));
    Array values;
    ASSERT_EQ(action->GetAttributes(names.Address(), values.Fresh()), S_OK);
    EXPECT_EQ(RowsOf(values.get()), 2);
}

TEST_F(AttributeArrays, other_arrays_are_bad_arguments)
{
    Array values;
    SAFEARRAY* none = nullptr;
    EXPECT_EQ(action->GetAttributes(nullptr, values.Fresh()), E_INVALIDARG);
    EXPECT_EQ(action->GetAttributes(&none, values.Fresh()), E_INVALIDARG);
    Array pairs(PairArray(1));
    EXPECT_EQ(action->GetAttributes(pairs.Address(), values.Fresh()), E_INVALIDARG);
    Array numbers(SafeArrayCreateVector(VT_I4, 0, 1));
    EXPECT_EQ(action->GetAttributes(numbers.Address(), values.Fresh()), E_INVALIDARG);
    Array names(NameArray({L"m_name"}));
    EXPECT_EQ(action->GetAttributes(names.Address(), nullptr), E_POINTER);
    EXPECT_EQ(action->SetAttributes(names.Address(), values.Fresh()), E_INVALIDARG);
    EXPECT_EQ(action->SetAttributes(nullptr, values.Fresh()), E_INVALIDARG);
    EXPECT_EQ(action->SetAttributes(&none, values.Fresh()), E_INVALIDARG);
    EXPECT_EQ(action->SetAttributes(pairs.Address(), nullptr), E_POINTER);
    Array wide(PairArray(1, 3));
    EXPECT_EQ(action->SetAttributes(wide.Address(), values.Fresh()), E_INVALIDARG);
    Put(pairs.get(), 0, 0, Value(5));
    EXPECT_EQ(action->SetAttributes(pairs.Address(), values.Fresh()), E_INVALIDARG) << "its name is no text";
    EXPECT_EQ(values.get(), nullptr);
}

TEST_F(AttributeArrays, several_attributes_are_written_in_one_call)
{
    const ComPtr<IQP_BaseDataObject> script = plant->Add(L"script", L"S");
    Array pairs(PairArray(3));
    Put(pairs.get(), 0, 0, Value(L"m_name"));
    Put(pairs.get(), 0, 1, Value(L"new"));
    Put(pairs.get(), 1, 0, Value(L"m_bEnabled"));
    Put(pairs.get(), 1, 1, Value(1));
    Put(pairs.get(), 2, 0, Value(L"m_pScript"));
    Put(pairs.get(), 2, 1, Value(script));
    plant->Calls().Clear();
    const auto results = Write(pairs.Address());
    EXPECT_EQ(plant->Calls().Count(), 1);
    EXPECT_EQ(results,
              (std::map<std::wstring, HRESULT>{{L"m_name", 0}, {L"m_bEnabled", 0}, {L"m_pScript", 0}}));
    EXPECT_EQ(ReadText(action.get(), L"name"), L"new");
    Value value;
    EXPECT_EQ(Read(action.get(), L"enabled", value), S_OK);
    EXPECT_EQ(value->boolVal, VARIANT_TRUE);
    EXPECT_EQ(Read(action.get(), L"script", value), S_OK);
}

TEST_F(AttributeArrays, a_refusal_is_in_its_row_and_the_others_are_written)
{
    Array pairs(PairArray(3));
    Put(pairs.get(), 0, 0, Value(L"m_nothing"));
    Put(pairs.get(), 0, 1, Value(L"x"));
    Put(pairs.get(), 1, 0, Value(L"m_pScript"));
    Put(pairs.get(), 1, 1, Value(L"not an object"));
    Put(pairs.get(), 2, 0, Value(L"m_iSequence"));
    Put(pairs.get(), 2, 1, Value(99));
    const auto results = Write(pairs.Address());
    EXPECT_EQ(results, (std::map<std::wstring, HRESULT>{
                           {L"m_nothing", E_INVALIDARG}, {L"m_pScript", E_INVALIDARG}, {L"m_iSequence", 0}}));
    Value value;
    EXPECT_EQ(Read(action.get(), L"sequence", value), S_OK);
    EXPECT_EQ(value->lVal, 99);
}

TEST_F(AttributeArrays, a_row_without_a_name_is_skipped)
{
    Array pairs(PairArray(3));
    Put(pairs.get(), 0, 0, Value(L"m_name"));
    Put(pairs.get(), 0, 1, Value(L"new"));
    Put(pairs.get(), 2, 1, Value(L"of nothing"));
    Array results;
    EXPECT_EQ(action->SetAttributes(pairs.Address(), results.Fresh()), S_OK);
    ASSERT_EQ(RowsOf(results.get()), 3);
    EXPECT_EQ(NameAt(results.get(), 0), L"m_name");
    for (const LONG row : {1, 2})
    {
        Value result;
        EXPECT_EQ(NameAt(results.get(), row), L"<no name>");
        Cell(results.get(), row, 1, result);
        EXPECT_EQ(result->vt, VT_EMPTY);
    }
    EXPECT_EQ(ReadText(action.get(), L"name"), L"new");
}

TEST_F(AttributeArrays, pairs_may_start_at_any_index)
{
    Array pairs(PairArray(1, 2, 3, 1));
    Put(pairs.get(), 3, 1, Value(L"m_name"));
    Put(pairs.get(), 3, 2, Value(L"shifted"));
    EXPECT_EQ(Write(pairs.Address()), (std::map<std::wstring, HRESULT>{{L"m_name", 0}}));
    EXPECT_EQ(ReadText(action.get(), L"name"), L"shifted");
}

TEST_F(AttributeArrays, with_a_language_the_same)
{
    Array pairs(PairArray(1));
    Put(pairs.get(), 0, 0, Value(L"m_name"));
    Put(pairs.get(), 0, 1, Value(L"Pr\u00FCfung"));
    Array results;
    EXPECT_EQ(action->SetAttributesMultiLingual(pairs.Address(), 1031, results.Fresh()), S_OK);
    EXPECT_EQ(RowsOf(results.get()), 1);
    EXPECT_EQ(ReadText(action.get(), L"name"), L"Pr\u00FCfung");
    EXPECT_EQ(action->SetAttributesMultiLingual(nullptr, 1031, results.Fresh()), E_INVALIDARG);
}
} // namespace
