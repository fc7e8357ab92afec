// Random records of script commands, opened and written back untouched: what is written is what a model of
// the record says.
#include "CommandFixture.h"
#include "CommandRecordModel.h"

#include <algorithm>
#include <initializer_list>
#include <random>

namespace
{
using namespace command_dialog;

constexpr int kRecords = QP_RECORDS;
constexpr int kParts = 10;

StoredValue Text(const wchar_t* text)
{
    return {.kind = StoredValue::Kind::Text, .text = text};
}
StoredValue Number(int number)
{
    return {.kind = StoredValue::Kind::Number, .number = number};
}
StoredValue Flag(bool flag)
{
    return {.kind = StoredValue::Kind::Flag, .number = flag ? 1 : 0};
}
const StoredValue kNothing{};
const StoredValue kObject{.kind = StoredValue::Kind::Object};
const StoredValue kNullObject{.kind = StoredValue::Kind::NullObject};

/// Runs one part of the records.
class CommandRecords : public CommandFixture, public ::testing::WithParamInterface<int>
{
protected:
    CommandRecords() { m_random.seed(static_cast<unsigned>(4711 + GetParam())); }

    /// There are too many for a trace.
    void TearDown() override {}

    template <class Value>
    Value OneOf(std::initializer_list<Value> values)
    {
        return values.begin()[m_random() % values.size()];
    }
    bool OneIn(unsigned number) { return m_random() % number == 0; }

    StoredValue SomeText()
    {
        return OneOf<StoredValue>({Text(L""), Text(L"Deburr"), Text(L"\u5207\u524a \u0631\u0633\u0645"),
                                   Text(std::wstring(300, L'x').c_str()), Text(L"0"), Number(17), kNothing,
                                   kObject});
    }

    StoredObject SomeObject(const char* recorded)
    {
        StoredObject object{.recorded = recorded};
        object.name = OneOf<const wchar_t*>({L"Drill", L"Drill", L"Milling", L"", L"\u5207\u524a"});
        object.read = OneIn(16)   ? StoredObject::Name::Unreadable
                      : OneIn(16) ? StoredObject::Name::NoText
                                  : StoredObject::Name::Readable;
        object.typeName = OneOf<const wchar_t*>({L"plan", L"cell", L"nothing", L""});
        return object;
    }

    /// Mostly one that a type of that kind has.
    StoredValue SomeElement(int kind)
    {
        if (OneIn(4))
            return OneOf({Text(L"99"), Text(L""), Number(7), kNothing, kObject});
        if (kind == 1)
            return OneOf({Text(L"101"), Text(L"102"), Number(102)});
        return kind == 2 ? Text(L"weight") : OneOf({Text(L"1"), Text(L"2"), Text(L"7")});
    }

    StoredCommand SomeCommand()
    {
        StoredCommand stored;
        stored.isReadable = !OneIn(50);
        stored.name = SomeText();
        stored.prompt = SomeText();
        stored.script = OneOf({kObject, kObject, kObject, kObject, kObject, kNothing, kNothing,
                               Text(L"Drill"), Text(L""), kNullObject});
        stored.macro = OneOf({Text(L""), Text(L"Weld"), Text(L"Weld"), Number(19), kNothing, kObject});
        stored.mark = OneOf({kNothing, kNothing, kObject, kObject, kNullObject, Number(0), Number(1),
                             Flag(false), Text(L"")});
        stored.type = OneOf({Text(L"cell"), Text(L"cell"), Text(L"cell"), Text(L"line"), Text(L"plan"),
                             Text(L"nothing"), Text(L""), kNothing, kObject});
        stored.planType =
            OneOf({kObject, kObject, kObject, kNothing, kNothing, Text(L"Milling"), Text(L""), kNullObject});
        stored.visible =
            OneOf({Flag(true), Flag(false), Number(0), Number(5), kNothing, kObject, Text(L"1")});
        stored.userInterface = OneOf({Number(0), Number(1), Number(2), Number(3), Number(3), Number(4),
                                      Number(7), Text(L"2"), Text(L"many"), kNothing, kObject});
        stored.execution =
            OneOf({Text(L"0"), Text(L"1"), Text(L"2"), Text(L""), Number(0), kNothing, kObject});
        stored.elementKind = OneOf({Number(0), Number(0), Number(1), Number(2), Number(-1), Number(7),
                                    Text(L"1"), Text(L"page"), kNothing, kObject});
        stored.elementId = SomeElement(stored.elementKind.AsNumber().value_or(0));
        stored.scriptObject = SomeObject("drill");
        stored.planTypeObject = SomeObject("milling");
        return stored;
    }

    void Put(const wchar_t* attribute, const StoredValue& value, const ComPtr<MemoryObject>& object)
    {
        switch (value.kind)
        {
        case StoredValue::Kind::Nothing:
            command->Answer(attribute, S_OK, VARIANT{});
            break;
        case StoredValue::Kind::Text:
            command->Set(attribute, value.text.c_str());
            break;
        case StoredValue::Kind::Number:
            command->Set(attribute, value.number);
            break;
        case StoredValue::Kind::Flag:
            command->Answer(attribute, S_OK, MemoryValue(value.number != 0).Value());
            break;
        case StoredValue::Kind::Object:
            command->Set(attribute, object);
            break;
        case StoredValue::Kind::NullObject:
            command->Set(attribute, static_cast<IUnknown*>(nullptr));
            break;
        }
    }

    void Put(const ComPtr<MemoryObject>& target, const StoredObject& object) const
    {
        target->Set(L"m_name", object.name.c_str())->Set(L"configtypename", object.typeName.c_str());
        if (object.read == StoredObject::Name::Unreadable)
            target->Fail(L"m_name", E_FAIL);
        if (object.read == StoredObject::Name::NoText)
            target->Set(L"m_name", weld);
    }

    void Put(const StoredCommand& stored)
    {
        const std::pair<const wchar_t*, const StoredValue*> values[] = {
            {L"m_name", &stored.name},
            {L"m_strPrompt", &stored.prompt},
            {L"m_pScript", &stored.script},
            {L"m_strVBAMacroName", &stored.macro},
            {L"orvoplantype", &stored.mark},
            {L"m_strType", &stored.type},
            {L"m_pPlanType", &stored.planType},
            {L"m_bVisible", &stored.visible},
            {L"m_lUserInterfaceType", &stored.userInterface},
            {L"m_nameShort", &stored.execution},
            {L"customizationobjectid", &stored.elementId},
            {L"customizationobjecttype", &stored.elementKind}};
        for (const auto& [attribute, value] : values)
            Put(attribute, *value, value == &stored.planType ? milling : drill);
        Put(drill, stored.scriptObject);
        Put(milling, stored.planTypeObject);
        command->readStatus = stored.isReadable ? S_OK : E_FAIL;
    }

    /// The attributes, for the message of a failure.
    std::string Describe() const
    {
        std::string text;
        for (const wchar_t* name : {L"m_pScript", L"m_strVBAMacroName", L"orvoplantype", L"m_strType",
                                    L"m_pPlanType", L"m_bVisible", L"m_lUserInterfaceType", L"m_nameShort",
                                    L"customizationobjectid", L"customizationobjecttype"})
            text += std::string(name, name + std::wcslen(name)) + " = " + command->ValueText(name) + "\n";
        return text + "drill = " + drill->ValueText(L"m_name") +
               "\nmilling = " + milling->ValueText(L"m_name") + " of " +
               milling->ValueText(L"configtypename");
    }

private:
    std::mt19937 m_random;
};

TEST_P(CommandRecords, AreWrittenBackAsTheModelSays)
{
    int written = 0;
    for (int record = 0; record < kRecords / kParts && !HasFailure(); ++record)
    {
        const StoredCommand stored = SomeCommand();
        Put(stored);
        SCOPED_TRACE("record " + std::to_string(record) + "\n" + Describe());
        const WrittenBack expected = WriteBack(stored);
        Steps steps = {Presses(IDOK)};
        if (expected.warning)
        {
            ExpectWarning(expected.warning);
            steps.push_back(Presses(IDCANCEL));
        }
        EXPECT_EQ(Show(std::move(steps)), expected.warning ? S_FALSE : S_OK);
        EXPECT_EQ(Written(), expected.write);
        written += expected.warning ? 0 : 1;
    }
    // Neither kind is rare.
    EXPECT_GT(written, kRecords / kParts / 10);
    EXPECT_LT(written, kRecords / kParts * 9 / 10);
    RecordProperty("written", written);
}

INSTANTIATE_TEST_SUITE_P(Parts, CommandRecords, ::testing::Range(0, kParts));
} // namespace
