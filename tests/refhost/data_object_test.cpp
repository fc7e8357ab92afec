// Attributes, names, classes and children of a data object.
#include "PlantFixture.h"

namespace
{
struct Spelling
{
    const wchar_t* table;
    const wchar_t* key;
    const wchar_t* column;
};

constexpr Spelling kTexts[] = {
    {L"root", L"m_name", L"name"},
    {L"project", L"m_name", L"name"},
    {L"project", L"m_strConfigTypeName", L"configtypename"},
    {L"plantypeset", L"m_name", L"name"},
    {L"plantypeset", L"m_strConfigTypeName", L"configtypename"},
    {L"plantype", L"m_name", L"name"},
    {L"plantype", L"m_strConfigTypeName", L"configtypename"},
    {L"configtype", L"m_name", L"name"},
    {L"configtype", L"typename", L"name"},
    {L"configtype", L"m_strCaptionSingular", L"captionsingular"},
    {L"script", L"m_name", L"name"},
    {L"script", L"m_strLanguageType", L"languagetype"},
    {L"script", L"m_creationDate", L"creationdate"},
    {L"script", L"m_modificationDate", L"modificationdate"},
    {L"scriptaction", L"m_name", L"name"},
    {L"scriptaction", L"m_prompt", L"prompt"},
    {L"scriptaction", L"m_pType", L"type"},
    {L"scriptcommand", L"m_name", L"name"},
    {L"scriptcommand", L"m_strPrompt", L"prompt"},
    {L"scriptcommand", L"m_nameShort", L"nameshort"},
    {L"scriptcommand", L"m_strVBAMacroName", L"vbamacroname"},
    {L"scriptcommand", L"m_strType", L"type"},
    {L"scriptcommand", L"m_strCustomizationObjectId", L"customizationobjectid"},
    {L"plannode", L"m_strConfigTypeName", L"configtypename"},
    {L"plannode", L"m_strPlanner", L"planner"},
    {L"plannode", L"m_strSupplier", L"supplier"},
    {L"planrelation", L"m_strConfigTypeName", L"configtypename"},
    {L"planrelation", L"m_strNote", L"note"},
};

constexpr Spelling kNumbers[] = {
    {L"scriptaction", L"m_actionType", L"actiontype"},
    {L"scriptaction", L"m_beforeAfter", L"beforeafter"},
    {L"scriptaction", L"m_iSequence", L"sequence"},
    {L"scriptcommand", L"m_lUserInterfaceType", L"userinterfacetype"},
    {L"scriptcommand", L"m_lCustomizationObjectType", L"customizationobjecttype"},
    {L"plannode", L"m_lCycleTime", L"cycletime"},
    {L"plannode", L"m_lOperators", L"operators"},
    {L"plannode", L"m_lCost", L"cost"},
    {L"planrelation", L"m_lShare", L"share"},
};

constexpr Spelling kFlags[] = {
    {L"project", L"m_bIsTemplate", L"istemplate"}, {L"configtype", L"m_bIsPlanType", L"isplantype"},
    {L"scriptaction", L"m_bEnabled", L"enabled"},  {L"scriptcommand", L"m_bVisible", L"visible"},
    {L"plannode", L"m_bFixed", L"fixed"},          {L"plannode", L"m_bAutomatic", L"automatic"},
};

struct ReferenceSpelling
{
    Spelling spelling;
    const wchar_t* target;
};

constexpr ReferenceSpelling kReferences[] = {
    {{L"plantypeset", L"m_pMaster", L"master"}, L"plantypeset"},
    {{L"plantypeset", L"m_pOrvoProject", L"orvoproject"}, L"project"},
    {{L"plantype", L"m_pMaster", L"master"}, L"plantype"},
    {{L"plantype", L"m_pOrvoPlanTypeSet", L"orvoplantypeset"}, L"plantypeset"},
    {{L"plantype", L"m_pOrvoProject", L"orvoproject"}, L"project"},
    {{L"script", L"m_pDODefaultImpl", L"dodefaultimpl"}, L"project"},
    {{L"scriptaction", L"m_pScript", L"script"}, L"script"},
    {{L"scriptaction", L"m_pPlanType", L"orvoplantype"}, L"plantype"},
    {{L"scriptaction", L"m_pOrvoPlanTypeSet", L"orvoplantypeset"}, L"plantypeset"},
    {{L"scriptcommand", L"m_pScript", L"script"}, L"script"},
    {{L"scriptcommand", L"m_pPlanType", L"orvoplantype"}, L"plantype"},
    {{L"scriptcommand", L"m_pOrvoPlanTypeSet", L"orvoplantypeset"}, L"plantypeset"},
    {{L"plannode", L"m_pParent", L"parent"}, L"plannode"},
    {{L"plannode", L"m_pOrvoProject", L"orvoproject"}, L"project"},
    {{L"planrelation", L"m_pParent", L"parent"}, L"plannode"},
    {{L"planrelation", L"m_pOrvoProject", L"orvoproject"}, L"project"},
    {{L"planrelation", L"m_pRelationObject1", L"relationobject1"}, L"plannode"},
    {{L"planrelation", L"m_pRelationObjectTarget", L"relationobjecttarget"}, L"plannode"},
};

class DataObject : public EmptyPlant
{
protected:
    ComPtr<IQP_BaseDataObject> Object(const wchar_t* table)
    {
        ComPtr<IQP_BaseDataObject> object =
            plant->Find(table, std::wstring(table) == L"root" ? L"root" : L"X");
        return object ? object : plant->Add(table, L"X");
    }

    static HRESULT Set(const ComPtr<IQP_BaseDataObject>& object, const wchar_t* name, const Value& value)
    {
        return object->SetAttribute(Text(name), value);
    }

    /// Writes under one name and reads under the other, both ways round.
    template <class Write, class Same>
    void ExpectOneAttribute(const Spelling& spelling, Write first, Write second, Same same)
    {
        const ComPtr<IQP_BaseDataObject> object = Object(spelling.table);
        Value value;
        EXPECT_EQ(Set(object, spelling.key, Value(first)), S_OK) << spelling.key;
        EXPECT_EQ(Read(object.get(), spelling.column, value), S_OK) << spelling.column;
        EXPECT_TRUE(same(value.get(), first)) << spelling.column;
        EXPECT_EQ(Set(object, spelling.column, Value(second)), S_OK) << spelling.column;
        EXPECT_EQ(Read(object.get(), spelling.key, value), S_OK) << spelling.key;
        EXPECT_TRUE(same(value.get(), second)) << spelling.key;
    }
};

TEST_F(DataObject, texts_answer_to_both_names)
{
    const auto same = [](const VARIANT& v, const wchar_t* text) {
        return v.vt == VT_BSTR && std::wstring(v.bstrVal) == text;
    };
    for (const Spelling& spelling : kTexts)
        ExpectOneAttribute(spelling, L"one", L"t\u00FCr \u5DE5", same);
}

TEST_F(DataObject, numbers_answer_to_both_names)
{
    const auto same = [](const VARIANT& v, int number) {
        return v.vt == VT_I4 && v.lVal == number;
    };
    for (const Spelling& spelling : kNumbers)
        ExpectOneAttribute(spelling, 2147483647, -2147483647 - 1, same);
}

TEST_F(DataObject, flags_answer_to_both_names)
{
    const auto same = [](const VARIANT& v, bool flag) {
        return v.vt == VT_BOOL && v.boolVal == (flag ? VARIANT_TRUE : VARIANT_FALSE);
    };
    for (const Spelling& spelling : kFlags)
        ExpectOneAttribute(spelling, true, false, same);
}

TEST_F(DataObject, references_answer_to_both_names)
{
    for (const auto& [spelling, target] : kReferences)
    {
        const ComPtr<IQP_BaseDataObject> object = Object(spelling.table);
        const ComPtr<IQP_BaseDataObject> aim =
            plant->Add(target, std::wstring(spelling.table) + spelling.key);
        EXPECT_EQ(Set(object, spelling.key, Value(aim)), S_OK) << spelling.key;
        for (const wchar_t* name : {spelling.key, spelling.column})
        {
            Value value;
            EXPECT_EQ(Read(object.get(), name, value), S_OK) << name;
            ASSERT_EQ(value->vt, VT_UNKNOWN) << name;
            ComPtr<IQP_BaseDataObject> found;
            ASSERT_EQ(found.queryFrom(value->punkVal), S_OK);
            EXPECT_EQ(ReadText(found.get(), L"name"), std::wstring(spelling.table) + spelling.key);
        }
        EXPECT_EQ(Set(object, spelling.column, Value(static_cast<IUnknown*>(nullptr))), S_OK);
        Value value;
        EXPECT_EQ(Read(object.get(), spelling.key, value), S_FALSE);
    }
}

TEST_F(DataObject, an_attribute_without_a_value_is_s_false_and_empty)
{
    const ComPtr<IQP_BaseDataObject> object = Object(L"scriptcommand");
    for (const wchar_t* name : {L"m_strPrompt", L"script", L"m_pPlanType", L"visible", L"userinterfacetype"})
    {
        Value value(7);
        value->vt = VT_I4;
        EXPECT_EQ(object->GetAttribute(Text(name), &value.get()), S_FALSE) << name;
        EXPECT_EQ(value->vt, VT_EMPTY) << name;
    }
}

TEST_F(DataObject, the_empty_text_is_a_value)
{
    const ComPtr<IQP_BaseDataObject> object = Object(L"script");
    EXPECT_EQ(Set(object, L"name", Value(L"")), S_OK);
    EXPECT_EQ(ReadText(object.get(), L"name"), L"");
    EXPECT_EQ(Set(object, L"name", Value(static_cast<const wchar_t*>(nullptr))), S_OK);
    EXPECT_EQ(ReadText(object.get(), L"name"), L"");
}

TEST_F(DataObject, an_empty_value_takes_the_value_away)
{
    const ComPtr<IQP_BaseDataObject> object = Object(L"script");
    Value value;
    EXPECT_EQ(Set(object, L"name", Value()), S_OK);
    EXPECT_EQ(Read(object.get(), L"name", value), S_FALSE);
    EXPECT_EQ(Set(object, L"name", Value(L"again")), S_OK);
    value->vt = VT_NULL;
    EXPECT_EQ(Set(object, L"name", value), S_OK);
    EXPECT_EQ(Read(object.get(), L"name", value), S_FALSE);
}

TEST_F(DataObject, the_configured_name_is_the_name_and_read_only)
{
    for (const wchar_t* const table : {L"project", L"plannode", L"script"})
    {
        const ComPtr<IQP_BaseDataObject> object = plant->Add(table, L"N");
        EXPECT_EQ(ReadText(object.get(), L"configured_name"), L"N");
        EXPECT_EQ(object->SetAttribute(Text(L"configured_name"), Value(L"other")), E_INVALIDARG);
        EXPECT_EQ(object->SetAttribute(Text(L"name"), Value(L"other")), S_OK);
        EXPECT_EQ(ReadText(object.get(), L"configured_name"), L"other");
        plant->SetLimit(table, L"N", L"name", refhost::Limit::Hidden);
        Value value;
        EXPECT_EQ(Read(object.get(), L"configured_name", value), E_ACCESSDENIED);
    }
}

TEST_F(DataObject, unknown_attributes_are_bad_arguments_and_case_counts)
{
    const ComPtr<IQP_BaseDataObject> object = Object(L"scriptcommand");
    for (const wchar_t* name : {L"Name", L"m_strprompt", L"m_prompt", L"m_actionType", L"", L"name ", L"id"})
    {
        Value value;
        EXPECT_EQ(Read(object.get(), name, value), E_INVALIDARG) << name;
        EXPECT_EQ(value->vt, VT_EMPTY) << name;
        EXPECT_EQ(Set(object, name, Value(L"x")), E_INVALIDARG) << name;
    }
    Value value;
    EXPECT_EQ(object->GetAttribute(nullptr, &value.get()), E_INVALIDARG);
    EXPECT_EQ(object->GetAttribute(Text(L"name"), nullptr), E_POINTER);
}

TEST_F(DataObject, written_values_are_converted_to_the_attribute)
{
    const ComPtr<IQP_BaseDataObject> command = Object(L"scriptcommand");
    Value value;
    EXPECT_EQ(Set(command, L"m_bVisible", Value(1)), S_OK);
    EXPECT_EQ(Read(command.get(), L"visible", value), S_OK);
    EXPECT_EQ(value->boolVal, VARIANT_TRUE);
    EXPECT_EQ(Set(command, L"m_lUserInterfaceType", Value(L"3")), S_OK);
    EXPECT_EQ(Read(command.get(), L"userinterfacetype", value), S_OK);
    EXPECT_EQ(value->lVal, 3);
    EXPECT_EQ(Set(command, L"m_nameShort", Value(0)), S_OK);
    EXPECT_EQ(ReadText(command.get(), L"m_nameShort"), L"0");
}

TEST_F(DataObject, values_that_do_not_fit_are_refused_and_change_nothing)
{
    const ComPtr<IQP_BaseDataObject> command = Object(L"scriptcommand");
    EXPECT_EQ(Set(command, L"userinterfacetype", Value(2)), S_OK);
    EXPECT_LT(Set(command, L"userinterfacetype", Value(L"both")), 0);
    EXPECT_EQ(Set(command, L"script", Value(L"a script")), E_INVALIDARG);
    EXPECT_EQ(Set(command, L"script", Value(command)), E_INVALIDARG);
    const auto other = refhost::Plant::OpenMemory();
    EXPECT_EQ(Set(command, L"script", Value(other->Add(L"script", L"S"))), E_INVALIDARG);
    Value value;
    EXPECT_EQ(Read(command.get(), L"userinterfacetype", value), S_OK);
    EXPECT_EQ(value->lVal, 2);
    EXPECT_EQ(Read(command.get(), L"script", value), S_FALSE);
}

TEST_F(DataObject, all_objects_of_one_row_see_what_is_written)
{
    const ComPtr<IQP_BaseDataObject> first = Object(L"script");
    const ComPtr<IQP_BaseDataObject> second = plant->Find(L"script", L"X");
    EXPECT_EQ(Set(first, L"name", Value(L"new name")), S_OK);
    EXPECT_EQ(ReadText(second.get(), L"name"), L"new name");
    EXPECT_TRUE(plant->Find(L"script", L"X")) << "the key by which data refer to it stays";
}

TEST_F(DataObject, a_value_with_a_language_is_the_value)
{
    const ComPtr<IQP_BaseDataObject> object = Object(L"script");
    EXPECT_EQ(object->SetAttributeMultiLingual(Text(L"m_name"), 1031, Value(L"Pr\u00FCfen")), S_OK);
    EXPECT_EQ(ReadText(object.get(), L"name"), L"Pr\u00FCfen");
    EXPECT_EQ(object->SetAttributeMultiLingual(Text(L"nothing"), 1031, Value(L"x")), E_INVALIDARG);
}

TEST_F(DataObject, table_type_and_class_of_each_kind)
{
    struct
    {
        const wchar_t* table;
        const wchar_t* type;
        const wchar_t* className;
    } const kinds[] = {{L"root", L"root", L"XDORoot"},
                       {L"project", L"orvoproject", L"XDOOrvoProject"},
                       {L"plantypeset", L"orvoplantypeset", L"XDOOrvoPlanTypeSet"},
                       {L"plantype", L"orvoplantype", L"XDOOrvoPlanType"},
                       {L"configtype", L"configtype", L"XDOConfigType"},
                       {L"script", L"script", L"XDOScript"},
                       {L"scriptaction", L"scriptaction", L"XDOScriptAction"},
                       {L"scriptcommand", L"scriptcommand", L"XDOScriptCommand"},
                       {L"orvoitem", L"orvoitem", L"XDOOrvoItem"},
                       {L"orvowsc", L"orvowsc", L"XDOWorkSystemComponent"},
                       {L"orvowsc", L"orvowsc", L"XDOOrvoItem"},
                       {L"orvocompbase", L"orvocompbase", L"XDOOrvoCompBase"},
                       {L"subcompitem", L"subcompitem", L"XDOSubCompItem"},
                       {L"relationship", L"relationship", L"XDORelationship"},
                       {L"plannode", L"plannode", L"XDOPlanNode"},
                       {L"planrelation", L"planrelation", L"XDOPlanRelation"},
                       {L"planrelation", L"planrelation", L"XDORelationship"},
                       {L"configpage", L"configpage", L"XDOConfigPage"},
                       {L"configgroup", L"configgroup", L"XDOConfigGroup"},
                       {L"configattribute", L"configattribute", L"XDOConfigAttribute"},
                       {L"configvalue", L"configvalue", L"XDOConfigValue"}};
    for (const auto& kind : kinds)
    {
        const ComPtr<IQP_BaseDataObject> object = Object(kind.table);
        Value name;
        name->vt = VT_BSTR;
        EXPECT_EQ(object->GetTableName(&name->bstrVal), S_OK);
        EXPECT_STREQ(name->bstrVal, kind.table);
        SysFreeString(name->bstrVal);
        EXPECT_EQ(object->GetTypeName(&name->bstrVal), S_OK);
        EXPECT_STREQ(name->bstrVal, kind.type);
        EXPECT_EQ(object->IsDerivedFromClass(Text(kind.className)), S_OK) << kind.table;
        EXPECT_EQ(object->IsDerivedFromClass(Text(L"XDOBaseObject")), S_OK);
        for (const wchar_t* other : {L"XDOAnotherObject", L"xdoscriptaction", L"xdorelationship", L""})
            EXPECT_EQ(object->IsDerivedFromClass(Text(other)), S_FALSE) << kind.table << other;
        EXPECT_EQ(object->IsDerivedFromClass(nullptr), S_FALSE);
        EXPECT_EQ(object->GetTableName(nullptr), E_POINTER);
        EXPECT_EQ(object->GetTypeName(nullptr), E_POINTER);
    }
}

TEST_F(DataObject, the_client_is_known)
{
    const ComPtr<IQP_BaseDataObject> object = Object(L"script");
    LONG client = 0;
    EXPECT_EQ(object->GetClientId(&client), S_OK);
    EXPECT_EQ(client, 1);
    EXPECT_EQ(object->GetClientId(nullptr), E_POINTER);
}

TEST_F(DataObject, the_configured_type_is_found_by_either_name)
{
    const ComPtr<IQP_BaseDataObject> object = Object(L"script");
    plant->Add(L"configtype", L"script");
    plant->Add(L"configtype", L"macro");
    const auto typeName = [&](const wchar_t* name, const wchar_t* configuration) {
        ComPtr<IQPType> type;
        EXPECT_EQ(object->GetType(Text(name), Text(configuration), type.put()), S_OK);
        Value value;
        EXPECT_EQ(type->Get(Text(L"typename"), &value.get()), S_OK);
        return std::wstring(value->bstrVal);
    };
    EXPECT_EQ(typeName(L"script", nullptr), L"script");
    EXPECT_EQ(typeName(L"script", L""), L"script");
    EXPECT_EQ(typeName(L"script", L"macro"), L"macro") << "the configuration counts first";
    ComPtr<IQPType> type;
    EXPECT_EQ(object->GetType(Text(L"script"), Text(L"none"), type.put()), E_INVALIDARG);
    EXPECT_FALSE(type);
    EXPECT_EQ(object->GetType(Text(L"script"), nullptr, nullptr), E_POINTER);
}

TEST_F(DataObject, unknown_child_lists_are_bad_arguments)
{
    const ComPtr<IQP_BaseDataObject> object = Object(L"plantypeset");
    ComPtr<IEnumBaseDataObject> children;
    EXPECT_EQ(object->GetChildren(Text(L"orvoproject"), children.put()), E_INVALIDARG);
    EXPECT_EQ(object->GetChildren(nullptr, children.put()), E_INVALIDARG);
    EXPECT_EQ(object->GetChildren(Text(L"orvoplantype"), nullptr), E_POINTER);
    EXPECT_EQ(object->GetChildren(Text(L"orvoplantype"), children.put()), S_OK);
    EXPECT_TRUE(NamesOf(children.get()).empty());
}

TEST_F(DataObject, an_object_outlives_its_plant)
{
    auto other = refhost::Plant::OpenMemory();
    const ComPtr<IQP_BaseDataObject> object = other->Add(L"script", L"S");
    other.reset();
    EXPECT_EQ(ReadText(object.get(), L"name"), L"S");
}
} // namespace
