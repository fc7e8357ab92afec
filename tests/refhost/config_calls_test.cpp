// Calls on the host's configuration pass the gate: recorded, counted and failed as any other.
#include "ConfigFixture.h"

#include "PlantCore.h"

#include <array>

namespace
{
using refhost::CallGate;
using refhost::Fault;

class ConfigCalls : public ConfigPlant
{
protected:
    CallGate& gate = plant->Calls();
    const ComPtr<IQPType> machine = Type(L"machine");
};

TEST_F(ConfigCalls, are_recorded_with_their_object)
{
    gate.Clear();
    gate.Record(true);
    ComPtr<IQPTypeEnum> types;
    factory->GetTypeEnum(nullptr, types.put());
    std::array<IQPType*, 2> batch{};
    ULONG fetched = 0;
    types->RemNext(2, batch.data(), &fetched);
    for (IQPType* type : batch)
        type->Release();
    Type(L"machine");
    KeyText(machine.get(), L"isplantype");
    ComPtr<IQPPageEnum> pages;
    machine->GetPageEnum(pages.put());
    ComPtr<IQPPage> page;
    pages->GetSingleNext(page.put());
    MemberText(page.get(), 5);
    machine->GetGroupEnum(ComPtr<IQPGroupEnum>().put());
    machine->GetDisplayAttributeEnum(7, ComPtr<IQPAttributeEnum>().put());
    Attribute(L"machine", L"name")->GetAttributeTypeEnum(ComPtr<IQPAttributeTypeEnum>().put());
    EXPECT_EQ(gate.Calls(), (Lines{
                                R"(IQPConfigFactory::GetTypeEnum(null))",
                                R"(IQPTypeEnum::RemNext(2))",
                                R"(IQPConfigFactory::GetType("machine", null))",
                                R"(IQPConfigObject<configtype machine>::Get("isplantype"))",
                                R"(IQPType<configtype machine>::GetPageEnum())",
                                R"(IQPPageEnum::GetSingleNext())",
                                R"(IQPConfigObject<configpage machine.general>::GetProperty(5))",
                                R"(IQPType<configtype machine>::GetGroupEnum())",
                                R"(IQPType<configtype machine>::GetDisplayAttributeEnum(7))",
                                R"(IQPConfigFactory::GetType("machine", null))",
                                R"(IQPType<configtype machine>::GetAttribute("name"))",
                                R"(IQPAttribute<configattribute machine.name>::GetAttributeTypeEnum())",
                            }));
    EXPECT_EQ(gate.Count("GetProperty"), 1);
    EXPECT_EQ(gate.Count("IQPTypeEnum::RemNext"), 1);
}

TEST_F(ConfigCalls, fail_with_the_chosen_status)
{
    gate.Clear();
    gate.FailCall(1, Fault::Status, E_ACCESSDENIED);
    ComPtr<IQPPageEnum> pages;
    EXPECT_EQ(machine->GetPageEnum(pages.put()), E_ACCESSDENIED);
    EXPECT_FALSE(pages);
    gate.Clear();
    gate.FailCall(1, Fault::Status, E_FAIL);
    Value value;
    EXPECT_EQ(machine->Get(Text(L"typename"), &value.get()), E_FAIL);
    EXPECT_EQ(value->vt, VT_EMPTY);
}

TEST_F(ConfigCalls, give_null_objects_and_empty_values_with_success)
{
    gate.Clear();
    gate.FailCall(1, Fault::NullObject);
    ComPtr<IQPType> type;
    EXPECT_EQ(factory->GetType(Text(L"machine"), nullptr, type.put()), S_OK);
    EXPECT_FALSE(type);
    ComPtr<IQPPageEnum> pages;
    ASSERT_EQ(machine->GetPageEnum(pages.put()), S_OK);
    gate.Clear();
    gate.FailCall(1, Fault::NullObject);
    ComPtr<IQPPage> page;
    EXPECT_EQ(pages->GetSingleNext(page.put()), S_OK);
    EXPECT_FALSE(page);
    EXPECT_EQ((Members<IQPPage>(pages, 0)), (Names{L"General", L"Times"})) << "the walk did not go on";
    gate.Clear();
    gate.FailCall(1, Fault::EmptyVariant);
    Value value;
    EXPECT_EQ(machine->Get(Text(L"isplantype"), &value.get()), S_OK);
    EXPECT_EQ(value->vt, VT_EMPTY);
    gate.Clear();
    gate.FailCall(1, Fault::NullObject);
    EXPECT_EQ(machine->GetProperty(0, &value.get()), S_OK);
    EXPECT_EQ(value->vt, VT_UNKNOWN);
    EXPECT_EQ(value->punkVal, nullptr);
}

TEST_F(ConfigCalls, note_a_value_for_an_output_that_is_not_empty)
{
    Value value(5);
    EXPECT_EQ(machine->Get(Text(L"isplantype"), &value.get()), S_OK);
    EXPECT_EQ(gate.Misuses(), Lines{"IQPConfigObject::Get"});
}

TEST_F(ConfigCalls, a_deleted_type_returns_failures)
{
    const ComPtr<IQP_BaseDataObject> added = plant->Add(L"configtype", L"gone");
    const ComPtr<IQPType> type = Type(L"gone");
    plant->Shared()->database.Execute(R"(DELETE FROM "configtype" WHERE "name" = 'gone')");
    Value value;
    EXPECT_EQ(type->Get(Text(L"typename"), &value.get()), E_FAIL);
    EXPECT_EQ(plant->LastError(), "<configtype gone> is gone");
}
} // namespace
