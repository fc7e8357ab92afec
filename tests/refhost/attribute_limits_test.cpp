// Attributes that the user may not write, or not even read.
#include "AttributeArray.h"

#include "PlantError.h"

#include <map>

namespace
{
constexpr HRESULT kSomeUnknown = static_cast<HRESULT>(0x8004035E);
constexpr HRESULT kSomeHidden = static_cast<HRESULT>(0x80040344);

class AttributeLimits : public EmptyPlant
{
protected:
    AttributeLimits()
    {
        EXPECT_EQ(action->SetAttribute(Text(L"m_pType"), Value(L"machine")), S_OK);
        EXPECT_EQ(action->SetAttribute(Text(L"m_prompt"), Value(L"Sure?")), S_OK);
        plant->SetLimit(L"scriptaction", L"A", L"type", refhost::Limit::Locked);
        plant->SetLimit(L"scriptaction", L"A", L"prompt", refhost::Limit::Hidden);
    }

    /// The names that GetAttributes answers, whose status is checked.
    Names Readable(std::initializer_list<const wchar_t*> asked, HRESULT expected) const
    {
        Array names(NameArray(asked));
        Array values;
        EXPECT_EQ(action->GetAttributes(names.Address(), values.Fresh()), expected);
        Names given;
        for (LONG row = 0; row < RowsOf(values.get()); ++row)
            given.push_back(NameAt(values.get(), row));
        return given;
    }

    const ComPtr<IQP_BaseDataObject> action = plant->Add(L"scriptaction", L"A");
};

TEST_F(AttributeLimits, a_locked_attribute_is_read_and_not_written)
{
    EXPECT_EQ(ReadText(action.get(), L"m_pType"), L"machine");
    EXPECT_EQ(action->SetAttribute(Text(L"type"), Value(L"robot")), E_ACCESSDENIED);
    EXPECT_EQ(action->SetAttribute(Text(L"m_pType"), Value()), E_ACCESSDENIED);
    EXPECT_EQ(action->SetAttributeMultiLingual(Text(L"m_pType"), 1031, Value(L"robot")), E_ACCESSDENIED);
    EXPECT_EQ(ReadText(action.get(), L"m_pType"), L"machine");
}

TEST_F(AttributeLimits, a_hidden_attribute_is_neither_read_nor_written)
{
    Value value;
    EXPECT_EQ(Read(action.get(), L"prompt", value), E_ACCESSDENIED);
    EXPECT_EQ(value->vt, VT_EMPTY);
    EXPECT_EQ(action->SetAttribute(Text(L"m_prompt"), Value(L"?")), E_ACCESSDENIED);
    plant->SetLimit(L"scriptaction", L"A", L"prompt", refhost::Limit::None);
    EXPECT_EQ(ReadText(action.get(), L"m_prompt"), L"Sure?");
    EXPECT_EQ(action->SetAttribute(Text(L"m_prompt"), Value(L"?")), S_OK);
}

TEST_F(AttributeLimits, hidden_attributes_are_omitted_from_a_list)
{
    EXPECT_EQ(Readable({L"m_name", L"m_prompt", L"m_pType"}, kSomeHidden), (Names{L"m_name", L"m_pType"}));
    EXPECT_EQ(Readable({L"m_prompt"}, kSomeHidden), Names{});
    EXPECT_EQ(Readable({L"m_prompt", L"nothing", L"m_name"}, kSomeUnknown), Names{L"m_name"})
        << "an unknown attribute is the graver case";
    EXPECT_EQ(Readable({L"m_name", L"m_pType"}, S_OK), (Names{L"m_name", L"m_pType"}));
}

TEST_F(AttributeLimits, each_refused_row_has_a_status_and_the_others_are_written)
{
    for (const LONG language : {0, 1031})
    {
        Array pairs(PairArray(3));
        const wchar_t* const names[] = {L"m_pType", L"m_name", L"m_prompt"};
        for (LONG row = 0; row < 3; ++row)
        {
            Put(pairs.get(), row, 0, Value(names[row]));
            Put(pairs.get(), row, 1, Value(language ? L"deutsch" : L"new"));
        }
        Array results;
        EXPECT_EQ(language ? action->SetAttributesMultiLingual(pairs.Address(), language, results.Fresh())
                           : action->SetAttributes(pairs.Address(), results.Fresh()),
                  S_OK);
        std::map<std::wstring, HRESULT> byName;
        for (LONG row = 0; row < RowsOf(results.get()); ++row)
        {
            Value result;
            Cell(results.get(), row, 1, result);
            byName[NameAt(results.get(), row)] = result->lVal;
        }
        EXPECT_EQ(byName,
                  (std::map<std::wstring, HRESULT>{
                      {L"m_pType", E_ACCESSDENIED}, {L"m_name", S_OK}, {L"m_prompt", E_ACCESSDENIED}}));
        EXPECT_EQ(ReadText(action.get(), L"name"), language ? L"deutsch" : L"new");
    }
}

TEST_F(AttributeLimits, a_value_may_be_there_for_its_key_alone_until_it_is_written)
{
    const ComPtr<IQP_BaseDataObject> planType = plant->Add(L"plantype", L"Welding");
    EXPECT_EQ(action->SetAttribute(Text(L"m_pPlanType"), Value(planType)), S_OK);
    plant->SetLimit(L"scriptaction", L"A", L"orvoplantype", refhost::Limit::KeyOnly);
    Value value;
    EXPECT_EQ(Read(action.get(), L"m_pPlanType", value), S_OK);
    EXPECT_EQ(value->vt, VT_UNKNOWN);
    EXPECT_EQ(Read(action.get(), L"orvoplantype", value), S_FALSE);
    EXPECT_EQ(value->vt, VT_EMPTY);
    Array names(NameArray({L"orvoplantype", L"m_pPlanType"}));
    Array values;
    EXPECT_EQ(action->GetAttributes(names.Address(), values.Fresh()), S_OK);
    Cell(values.get(), 0, 1, value);
    EXPECT_EQ(value->vt, VT_EMPTY);
    Cell(values.get(), 1, 1, value);
    EXPECT_EQ(value->vt, VT_UNKNOWN);
    EXPECT_EQ(action->SetAttribute(Text(L"m_pPlanType"), Value(planType)), S_OK);
    EXPECT_EQ(Read(action.get(), L"orvoplantype", value), S_OK);
}

TEST_F(AttributeLimits, hold_for_one_object)
{
    const ComPtr<IQP_BaseDataObject> other = plant->Add(L"scriptaction", L"B");
    EXPECT_EQ(other->SetAttribute(Text(L"m_pType"), Value(L"robot")), S_OK);
}

TEST_F(AttributeLimits, need_an_object_and_a_column_that_are_there)
{
    EXPECT_THROW(plant->SetLimit(L"scriptaction", L"none", L"type", refhost::Limit::Locked),
                 refhost::PlantError);
    EXPECT_THROW(plant->SetLimit(L"scriptaction", L"A", L"m_pType", refhost::Limit::Locked),
                 refhost::PlantError);
    EXPECT_THROW(plant->SetLimit(L"nothing", L"A", L"type", refhost::Limit::Locked), refhost::PlantError);
}

TEST_F(AttributeLimits, come_with_the_sample_plant)
{
    plant->Load(refhost::SampleFolder());
    const ComPtr<IQP_BaseDataObject> locked = plant->Find(L"scriptaction", L"Paint: consumption");
    EXPECT_EQ(locked->SetAttribute(Text(L"m_iSequence"), Value(1)), E_ACCESSDENIED);
    EXPECT_EQ(locked->SetAttribute(Text(L"m_bEnabled"), Value(1)), E_ACCESSDENIED);
    EXPECT_EQ(locked->SetAttribute(Text(L"m_prompt"), Value(L"Report?")), S_OK);
    Value value;
    const ComPtr<IQP_BaseDataObject> hidden = plant->Find(L"scriptaction", L"Weld: old report");
    EXPECT_EQ(Read(hidden.get(), L"m_prompt", value), E_ACCESSDENIED);
}
} // namespace
