// Recording, counting, delaying and failing host calls.
#include "SearchSteps.h"

#include <array>
#include <chrono>

namespace
{
using refhost::CallGate;
using refhost::Fault;

class Gate : public SamplePlant
{
protected:
    CallGate& gate = plant->Calls();
    const ComPtr<IQP_Query> query = plant->NewQuery();
};

TEST_F(Gate, records_nothing_unless_asked)
{
    query->ResetSearch(0);
    EXPECT_TRUE(gate.Calls().empty());
    gate.Record(true);
    query->ResetSearch(1);
    gate.Record(false);
    query->ResetSearch(0);
    EXPECT_EQ(gate.Calls(), (Lines{"IQP_Query::ResetSearch(1)"}));
}

TEST_F(Gate, records_a_search_word_by_word)
{
    const ComPtr<IQP_BaseDataObject> welding = Find(L"plantype", L"Welding");
    gate.Record(true);
    query->ResetSearch(0);
    query->SetSearchTable(Text(L"scriptaction"));
    query->SetSearchCatenation(4);
    query->SetSearchAttribute(Text(L"orvoplantype"), 1, Value(welding), 0);
    query->SetSearchCatenation(9);
    query->SetSearchAttribute(Text(L"type"), 1, Value(L"machine"), 2);
    query->SetOrderAttribute(Text(L"sequence"), 1);
    ComPtr<IEnumBaseDataObject> found;
    query->GetSearchResult(found.put());
    query->GetObjectById(Text(L"$1"), ComPtr<IUnknown>().put());
    EXPECT_EQ(gate.Calls(), (Lines{
                                R"(IQP_Query::ResetSearch(0))",
                                R"(IQP_Query::SetSearchTable("scriptaction"))",
                                R"(IQP_Query::SetSearchCatenation(4))",
                                R"(IQP_Query::SetSearchAttribute("orvoplantype", 1, <plantype Welding>, 0))",
                                R"(IQP_Query::SetSearchCatenation(9))",
                                R"(IQP_Query::SetSearchAttribute("type", 1, "machine", 2))",
                                R"(IQP_Query::SetOrderAttribute("sequence", 1))",
                                R"(IQP_Query::GetSearchResult())",
                                R"(IQP_Query::GetObjectById("$1"))",
                            }));
}

TEST_F(Gate, records_values_of_every_kind)
{
    gate.Record(true);
    const auto criterion = [&](const Value& value) {
        query->SetSearchAttribute(Text(L"x"), 1, value, 0);
    };
    criterion(Value());
    criterion(Value(true));
    criterion(Value(false));
    criterion(Value(-5));
    criterion(Value(L""));
    criterion(Value(static_cast<const wchar_t*>(nullptr)));
    criterion(Value(L"a \"b\" \\ \u00FC\n"));
    criterion(Value(static_cast<IUnknown*>(nullptr)));
    criterion(Value(query));
    Value other;
    other->vt = VT_NULL;
    criterion(other);
    other->vt = VT_R8;
    other->dblVal = 1.5;
    criterion(other);
    other->vt = VT_ERROR;
    other->scode = E_FAIL;
    criterion(other);
    other->vt = VT_DATE;
    criterion(other);
    other->vt = VT_EMPTY;
    Value number(12);
    VARIANT indirect{};
    indirect.vt = VT_VARIANT | VT_BYREF;
    indirect.pvarVal = &number.get();
    query->SetSearchAttribute(nullptr, 1, indirect, 0);
    Lines expected;
    for (const char* value :
         {"<empty>", "true", "false", "-5", "\"\"", "null", "\"a \\\"b\\\" \\\\ \xC3\xBC\\n\"", "<null>",
          "<object>", "<null value>", "1.5", "<error 0x80004005>", "<type 7>"})
        expected.push_back(std::string("IQP_Query::SetSearchAttribute(\"x\", 1, ") + value + ", 0)");
    expected.push_back("IQP_Query::SetSearchAttribute(null, 1, 12, 0)");
    EXPECT_EQ(gate.Calls(), expected);
}

TEST_F(Gate, records_the_object_that_is_called)
{
    const ComPtr<IQP_BaseDataObject> command = Find(L"scriptcommand", L"Check clamps");
    ComPtr<IQPObjectRights> rights;
    ASSERT_EQ(rights.queryFrom(Find(L"script", L"Check names").get()), S_OK);
    gate.Clear();
    gate.Record(true);
    Value value;
    Read(command.get(), L"m_strPrompt", value);
    rights->HasRight(QPRT_execute);
    command->SetAttribute(Text(L"m_nameShort"), Value(L"1"));
    command->SetAttributeMultiLingual(Text(L"m_nameShort"), 1031, Value(L"0"));
    command->IsDerivedFromClass(Text(L"XDOScriptCommand"));
    command->GetChildren(Text(L"none"), ComPtr<IEnumBaseDataObject>().put());
    EXPECT_EQ(
        gate.Calls(),
        (Lines{
            R"(IQP_BaseDataObject<scriptcommand Check clamps>::GetAttribute("m_strPrompt"))",
            R"(IQPObjectRights<script Check names>::HasRight(4))",
            R"(IQP_BaseDataObject<scriptcommand Check clamps>::SetAttribute("m_nameShort", "1"))",
            R"(IQP_BaseDataObject<scriptcommand Check clamps>::SetAttributeMultiLingual("m_nameShort", 1031, "0"))",
            R"(IQP_BaseDataObject<scriptcommand Check clamps>::IsDerivedFromClass("XDOScriptCommand"))",
            R"(IQP_BaseDataObject<scriptcommand Check clamps>::GetChildren("none"))",
        }));
}

TEST_F(Gate, records_arrays_by_their_content)
{
    const ComPtr<IQP_BaseDataObject> script = Find(L"script", L"Check names");
    SAFEARRAY* names = SafeArrayCreateVector(VT_BSTR, 0, 2);
    LONG index = 0;
    SafeArrayPutElement(names, &index, Text(L"m_name"));
    std::array<SAFEARRAYBOUND, 2> bounds{};
    bounds[0].cElements = 1;
    bounds[1].cElements = 2;
    SAFEARRAY* pairs = SafeArrayCreate(VT_VARIANT, 2, bounds.data());
    std::array<LONG, 2> cell = {0, 0};
    Value name(L"m_name");
    SafeArrayPutElement(pairs, cell.data(), &name.get());
    gate.Record(true);
    SAFEARRAY* result = nullptr;
    script->GetAttributes(&names, &result);
    SafeArrayDestroy(result);
    script->SetAttributes(&pairs, &result);
    SafeArrayDestroy(result);
    script->GetAttributes(nullptr, &result);
    SafeArrayDestroy(names);
    SafeArrayDestroy(pairs);
    EXPECT_EQ(gate.Calls(),
              (Lines{
                  R"(IQP_BaseDataObject<script Check names>::GetAttributes(["m_name", null]))",
                  R"(IQP_BaseDataObject<script Check names>::SetAttributes(["m_name" = <empty>]))",
                  R"(IQP_BaseDataObject<script Check names>::GetAttributes(null))",
              }));
}

TEST_F(Gate, records_the_walk_over_a_result)
{
    Search search(*plant, L"project");
    gate.Record(true);
    ComPtr<IEnumBaseDataObject> found;
    ASSERT_EQ(search.Run(found), S_OK);
    ComPtr<IQP_BaseDataObject> object;
    ULONG fetched = 0;
    found->RemNext(1, object.put(), &fetched);
    found->Skip(2);
    found->GetSingleNext(object.put());
    ComPtr<IEnumBaseDataObject> clone;
    found->Clone(clone.put());
    found->Reset();
    EXPECT_EQ(gate.Calls(), (Lines{"IQP_Query::GetSearchResult()", "IEnumBaseDataObject::RemNext(1)",
                                   "IEnumBaseDataObject::Skip(2)", "IEnumBaseDataObject::GetSingleNext()",
                                   "IEnumBaseDataObject::Clone()", "IEnumBaseDataObject::Reset()"}));
}

TEST_F(Gate, counts_all_calls_and_those_of_a_method)
{
    query->ResetSearch(0);
    query->ResetSearch(1);
    query->SetSearchTable(Text(L"script"));
    ComPtr<IEnumBaseDataObject> found;
    query->GetSearchResult(found.put());
    found->Reset();
    EXPECT_EQ(gate.Count(), 5);
    EXPECT_EQ(gate.Count("IQP_Query::ResetSearch"), 2);
    EXPECT_EQ(gate.Count("ResetSearch"), 2);
    EXPECT_EQ(gate.Count("Reset"), 1);
    EXPECT_EQ(gate.Count("IEnumBaseDataObject::Reset"), 1);
    EXPECT_EQ(gate.Count("IQP_Query::Reset"), 0);
    EXPECT_EQ(gate.Count("GetAttribute"), 0);
}

TEST_F(Gate, references_and_interfaces_are_no_host_calls)
{
    const ComPtr<IQP_BaseDataObject> script = Find(L"script", L"Check names");
    ComPtr<IUnknown> unknown;
    unknown.queryFrom(script.get());
    ComPtr<IQP_BaseDataObject> copy;
    EXPECT_EQ(script.copyTo(copy.put()), S_OK);
    EXPECT_EQ(gate.Count(), 0);
}

TEST_F(Gate, refused_calls_count_too)
{
    query->SetSearchCatenation(77);
    query->GetSearchResult(nullptr);
    EXPECT_EQ(gate.Count(), 2);
}

TEST_F(Gate, clear_forgets_calls_and_counts)
{
    gate.Record(true);
    query->ResetSearch(0);
    gate.Clear();
    EXPECT_TRUE(gate.Calls().empty());
    EXPECT_EQ(gate.Count(), 0);
    EXPECT_EQ(gate.Count("ResetSearch"), 0);
    query->ResetSearch(0);
    EXPECT_EQ(gate.Calls().size(), 1U) << "recording goes on";
}

TEST_F(Gate, the_nth_call_fails_once)
{
    gate.FailCall(2, Fault::Status, E_ACCESSDENIED);
    EXPECT_EQ(query->ResetSearch(0), S_OK);
    EXPECT_FALSE(gate.Struck());
    EXPECT_EQ(query->ResetSearch(0), E_ACCESSDENIED);
    EXPECT_TRUE(gate.Struck());
    EXPECT_EQ(query->ResetSearch(0), S_OK);
    EXPECT_EQ(gate.Count(), 3);
    gate.Clear();
    EXPECT_EQ(query->ResetSearch(0), S_OK);
    EXPECT_EQ(query->ResetSearch(0), S_OK);
}

TEST_F(Gate, n_counts_from_the_last_clear)
{
    query->ResetSearch(0);
    gate.FailCall(2, Fault::Status);
    EXPECT_EQ(query->ResetSearch(0), E_FAIL);
    gate.FailCall(1, Fault::Status);
    EXPECT_FALSE(gate.Struck());
    EXPECT_EQ(query->ResetSearch(0), S_OK) << "the first call is long past";
    gate.Clear();
    EXPECT_EQ(query->ResetSearch(0), E_FAIL) << "a planned fault stays planned";
}

TEST_F(Gate, a_plan_can_be_replaced_and_cancelled)
{
    gate.FailCall(1, Fault::Status, E_FAIL);
    gate.FailCall(1, Fault::Status, S_FALSE);
    EXPECT_EQ(query->ResetSearch(0), S_FALSE);
    gate.Clear();
    gate.FailCall(1, Fault::Status);
    gate.FailCall(1, Fault::None);
    EXPECT_EQ(query->ResetSearch(0), S_OK);
    EXPECT_FALSE(gate.Struck());
}

TEST_F(Gate, a_failed_call_has_no_effect_and_empties_its_outputs)
{
    const ComPtr<IQP_BaseDataObject> script = Find(L"script", L"Check names");
    gate.FailCall(1, Fault::Status, S_FALSE);
    EXPECT_EQ(script->SetAttribute(Text(L"name"), Value(L"other")), S_FALSE);
    EXPECT_EQ(ReadText(script.get(), L"name"), L"Check names");
    gate.Clear();
    gate.FailCall(1, Fault::Status, S_FALSE);
    Value value;
    value->vt = VT_I4;
    EXPECT_EQ(script->GetAttribute(Text(L"name"), &value.get()), S_FALSE);
    EXPECT_EQ(value->vt, VT_EMPTY);
    gate.Clear();
    gate.FailCall(1, Fault::Status);
    wchar_t before[] = L"x";
    BSTR name = before;
    EXPECT_EQ(script->GetTableName(&name), E_FAIL);
    EXPECT_EQ(name, nullptr);
}

TEST_F(Gate, notes_a_value_for_an_output_that_is_not_empty)
{
    const ComPtr<IQP_BaseDataObject> script = Find(L"script", L"Check names");
    Value value;
    EXPECT_EQ(script->GetAttribute(Text(L"name"), &value.get()), S_OK);
    EXPECT_EQ(gate.Misuses(), Lines{});
    VARIANT held = value.get();
    EXPECT_EQ(script->GetAttribute(Text(L"name"), &held), S_OK);
    EXPECT_EQ(gate.Misuses(), Lines{"IQP_BaseDataObject::GetAttribute"});
    VariantClear(&held);
    VARIANT never;
    never.vt = static_cast<VARTYPE>(0xCCCC);
    EXPECT_EQ(script->GetAttribute(Text(L"no such"), &never), E_INVALIDARG);
    EXPECT_EQ(never.vt, VT_EMPTY);
    gate.Clear();
    EXPECT_EQ(gate.Misuses().size(), 2U);
}

TEST_F(Gate, a_null_object_comes_with_success)
{
    Search search(*plant, L"script");
    ComPtr<IEnumBaseDataObject> found;
    gate.Clear();
    gate.FailCall(1, Fault::NullObject);
    EXPECT_EQ(search.Run(found), S_OK);
    EXPECT_FALSE(found);
    ASSERT_EQ(search.Run(found), S_OK);
    std::array<IQP_BaseDataObject*, 3> batch;
    batch.fill(reinterpret_cast<IQP_BaseDataObject*>(1));
    ULONG fetched = 0;
    gate.Clear();
    gate.FailCall(1, Fault::NullObject);
    EXPECT_EQ(found->RemNext(3, batch.data(), &fetched), S_OK);
    EXPECT_EQ(fetched, 3U);
    EXPECT_EQ(batch, (std::array<IQP_BaseDataObject*, 3>{}));
    EXPECT_EQ(NamesOf(found.get()).size(), 40U) << "the walk did not go on";
}

TEST_F(Gate, the_null_object_of_a_value_is_a_reference_to_nothing)
{
    const ComPtr<IQP_BaseDataObject> command = Find(L"scriptcommand", L"Check clamps");
    gate.FailCall(1, Fault::NullObject);
    Value value;
    EXPECT_EQ(command->GetAttribute(Text(L"script"), &value.get()), S_OK);
    EXPECT_EQ(value->vt, VT_UNKNOWN);
    EXPECT_EQ(value->punkVal, nullptr);
}

TEST_F(Gate, an_empty_value_comes_with_success)
{
    const ComPtr<IQP_BaseDataObject> command = Find(L"scriptcommand", L"Check clamps");
    gate.FailCall(1, Fault::EmptyVariant);
    Value value;
    EXPECT_EQ(command->GetAttribute(Text(L"script"), &value.get()), S_OK);
    EXPECT_EQ(value->vt, VT_EMPTY);
}

TEST_F(Gate, a_fault_that_does_not_fit_gives_success_and_nothing)
{
    const ComPtr<IQP_BaseDataObject> script = Find(L"script", L"Archive plan");
    ComPtr<IQPObjectRights> rights;
    ASSERT_EQ(rights.queryFrom(script.get()), S_OK);
    EXPECT_EQ(rights->HasRight(QPRT_execute), S_FALSE);
    LONG client = 5;
    for (const Fault fault : {Fault::NullObject, Fault::EmptyVariant})
    {
        gate.Clear();
        gate.FailCall(1, fault);
        EXPECT_EQ(rights->HasRight(QPRT_execute), S_OK);
        gate.Clear();
        gate.FailCall(1, fault);
        EXPECT_EQ(script->GetClientId(&client), S_OK);
        EXPECT_EQ(client, 0);
    }
    gate.Clear();
    gate.FailCall(1, Fault::EmptyVariant);
    ComPtr<IEnumBaseDataObject> found;
    EXPECT_EQ(query->GetSearchResult(found.put()), S_OK);
    EXPECT_FALSE(found);
}

TEST_F(Gate, every_call_is_delayed)
{
    using namespace std::chrono;
    gate.Delay(milliseconds(3));
    auto start = steady_clock::now();
    for (int i = 0; i < 5; ++i)
        query->ResetSearch(0);
    EXPECT_GE(steady_clock::now() - start, milliseconds(15));
    gate.Delay(milliseconds(40));
    start = steady_clock::now();
    query->ResetSearch(0);
    EXPECT_GE(steady_clock::now() - start, milliseconds(40));
    gate.Delay(microseconds(0));
    start = steady_clock::now();
    for (int i = 0; i < 5; ++i)
        query->ResetSearch(0);
    EXPECT_LT(steady_clock::now() - start, milliseconds(15));
}

TEST_F(Gate, each_plant_has_a_gate_of_its_own)
{
    const auto other = refhost::Plant::OpenMemory();
    other->NewQuery()->ResetSearch(0);
    EXPECT_EQ(gate.Count(), 0);
    EXPECT_EQ(other->Calls().Count(), 1);
}
} // namespace
