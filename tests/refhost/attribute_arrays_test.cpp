// Reading and writing several attributes in one call.
#include "PlantFixture.h"

#include <array>
#include <initializer_list>
#include <map>
#include <utility>

namespace
{
constexpr HRESULT kSomeUnreadable = static_cast<HRESULT>(0x8004035E);

/// An array that is destroyed.
class Array
{
public:
    Array() = default;
    explicit Array(SAFEARRAY* array) : m_array(array) {}
    ~Array()
    {
        if (m_array)
            SafeArrayDestroy(m_array);
    }
    Array(const Array&) = delete;
    Array& operator=(const Array&) = delete;
    /// For an input.
    SAFEARRAY** Address() { return &m_array; }
    /// For an output; what it held is destroyed.
    SAFEARRAY** Fresh()
    {
        if (SAFEARRAY* old = std::exchange(m_array, nullptr))
            SafeArrayDestroy(old);
        return &m_array;
    }
    SAFEARRAY* get() const { return m_array; }

private:
    SAFEARRAY* m_array = nullptr;
};

SAFEARRAY* NameArray(std::initializer_list<const wchar_t*> names, LONG low = 0)
{
    SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, low, static_cast<ULONG>(names.size()));
    LONG index = low;
    for (const wchar_t* name : names)
    {
        EXPECT_EQ(SafeArrayPutElement(array, &index, Text(name)), S_OK);
        ++index;
    }
    return array;
}

void Put(SAFEARRAY* array, LONG row, LONG column, const Value& value)
{
    std::array<LONG, 2> index = {row, column};
    EXPECT_EQ(SafeArrayPutElement(array, index.data(), const_cast<VARIANT*>(&value.get())), S_OK);
}

SAFEARRAY* PairArray(ULONG rows, ULONG columns = 2, LONG lowRow = 0, LONG lowColumn = 0)
{
    std::array<SAFEARRAYBOUND, 2> bounds{};
    bounds[0].cElements = rows;
    bounds[0].lLbound = lowRow;
    bounds[1].cElements = columns;
    bounds[1].lLbound = lowColumn;
    return SafeArrayCreate(VT_VARIANT, 2, bounds.data());
}

LONG RowsOf(SAFEARRAY* array)
{
    LONG low = 7;
    LONG high = 7;
    EXPECT_EQ(SafeArrayGetDim(array), 2U);
    EXPECT_EQ(SafeArrayGetLBound(array, 1, &low), S_OK);
    EXPECT_EQ(SafeArrayGetUBound(array, 1, &high), S_OK);
    EXPECT_EQ(low, 0);
    LONG lowColumn = 7;
    LONG highColumn = 7;
    EXPECT_EQ(SafeArrayGetLBound(array, 2, &lowColumn), S_OK);
    EXPECT_EQ(SafeArrayGetUBound(array, 2, &highColumn), S_OK);
    EXPECT_EQ(lowColumn, 0);
    EXPECT_EQ(highColumn, 1);
    return high + 1;
}

void Cell(SAFEARRAY* array, LONG row, LONG column, Value& value)
{
    std::array<LONG, 2> index = {row, column};
    EXPECT_EQ(SafeArrayGetElement(array, index.data(), &value.get()), S_OK);
}

std::wstring NameAt(SAFEARRAY* array, LONG row)
{
    Value name;
    Cell(array, row, 0, name);
    return name->vt == VT_BSTR ? name->bstrVal : L"<no name>";
}

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

TEST_F(AttributeArrays, unreadable_attributes_are_left_out_and_told)
{
    Array names(NameArray({L"m_nothing", L"m_name", L"visible"}));
    Array values;
    ASSERT_EQ(action->GetAttributes(names.Address(), values.Fresh()), kSomeUnreadable);
    ASSERT_EQ(RowsOf(values.get()), 1);
    EXPECT_EQ(NameAt(values.get(), 0), L"m_name");
}

TEST_F(AttributeArrays, none_readable_gives_an_array_without_rows)
{
    Array names(NameArray({L"m_nothing"}));
    Array values;
    ASSERT_EQ(action->GetAttributes(names.Address(), values.Fresh()), kSomeUnreadable);
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

TEST_F(AttributeArrays, a_refused_attribute_is_told_in_its_row_and_the_others_are_written)
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
