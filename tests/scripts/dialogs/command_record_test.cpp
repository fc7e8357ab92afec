// How the property dialog of a script command reads the attributes of its record, and what a failure leaves.
#include "CommandFixture.h"

namespace
{
using namespace command_dialog;

class CommandRecord : public CommandFixture
{
protected:
    /// What is shown of a record of which nothing was read, with the place that it has then.
    static Steps SeesNothingRead()
    {
        return Steps{Sees(Shows(kName, L"")), Sees(Shows(kPrompt, L""))} + SeesDefaultsFromTheScriptOn() +
               Steps{Sees(NoneChosen(kScript))};
    }
    /// What is shown if the load ended with the script.
    static Steps SeesDefaultsFromTheScriptOn()
    {
        return {Sees(NoneChosen(kMacro)),     Sees(NoneChosen(kConfigType)),
                Sees(NoneChosen(kPlanType)),  Sees(NoneChosen(kExecution)),
                Sees(Checked(kVisible)),      Sees(Checked(kContextMenu)),
                Sees(Unchecked(kProperties)), Sees(Checked(kPage)),
                Sees(Offers(kElement, {})),   Sees(Disabled(kElement)),
                Sees(Enabled(IDOK))};
    }
};

VARIANT OfType(VARTYPE type)
{
    VARIANT value{};
    value.vt = type;
    return value;
}

TEST_F(CommandRecord, ConvertsWhatItReads)
{
    command->Set(L"m_name", 17)->Set(L"m_strPrompt", 18)->Set(L"m_strVBAMacroName", 19);
    command->Set(L"m_bVisible", L"0")->Set(L"m_lUserInterfaceType", L"2")->Set(L"m_nameShort", LONG{0});
    command->Set(L"customizationobjectid", 2)->Set(L"customizationobjecttype", L"0");
    Show({Sees(Shows(kName, L"17")), Sees(Shows(kPrompt, L"18")), Sees(Chosen(kMacro, L"19")),
          Sees(Unchecked(kVisible)), Sees(Unchecked(kContextMenu)), Sees(Checked(kProperties)),
          Sees(Chosen(kExecution, kOnce)), Sees(Checked(kPage)), Sees(Shows(kElement, L"Costs")),
          Presses(IDOK)});
    EXPECT_EQ(Written(), Write({{"m_name", "BSTR '17'"},
                                {"m_strPrompt", "BSTR '18'"},
                                {"m_strVBAMacroName", "BSTR '19'"},
                                {"m_bVisible", "I4 0"},
                                {"m_lUserInterfaceType", "I4 2"}}));
}

TEST_F(CommandRecord, TakesAnythingButZeroForVisible)
{
    for (const int visible : {1, 2, -1, 0x10000})
    {
        command->Set(L"m_bVisible", visible);
        Show({Sees(Checked(kVisible)), Presses(IDOK)});
        EXPECT_EQ(Written(), Write());
    }
}

TEST_F(CommandRecord, TakesTheWordForInvisible)
{
    command->Set(L"m_bVisible", L"False");
    Show({Sees(Unchecked(kVisible)), Presses(IDOK)});
    EXPECT_EQ(Written(), Write({{"m_bVisible", "I4 0"}}));
}

TEST_F(CommandRecord, SkipsWhatCannotBeConverted)
{
    for (const wchar_t* name : {L"m_name", L"m_strPrompt", L"m_strVBAMacroName", L"m_strType", L"m_nameShort",
                                L"customizationobjectid"})
        command->Set(name, weld);
    for (const wchar_t* name :
         {L"m_pScript", L"m_pPlanType", L"m_bVisible", L"m_lUserInterfaceType", L"customizationobjecttype"})
        command->Set(name, L"no such value");
    Show(SeesNothingRead() + Steps{Presses(IDCANCEL)});
    EXPECT_TRACE(Opening({}, {}));
}

TEST_F(CommandRecord, SkipsAttributesThatTheHostLeavesOut)
{
    command->Fail(L"m_nameShort", E_FAIL)->Fail(L"m_bVisible", E_FAIL)->readStatus = S_OK;
    Show({Sees(Shows(kName, L"Deburr")), Sees(NoneChosen(kExecution)), Sees(Checked(kVisible)),
          Sees(Shows(kElement, L"Costs")), Presses(IDOK)});
    EXPECT_EQ(Written(), Write({{"m_nameShort", "BSTR '1'"}}));
}

TEST_F(CommandRecord, ReadsReferencesToValues)
{
    LONG type = 1;
    VARIANT reference = OfType(VT_I4 | VT_BYREF);
    reference.plVal = &type;
    command->Answer(L"customizationobjecttype", S_OK, reference);
    Show({Sees(Checked(kGroup)), Presses(IDCANCEL)});
}

// The mark of a plan type: whether the value is anything but zero.

TEST_F(CommandRecord, TakesAnythingButZeroForTheMark)
{
    BindToPlanType();
    VARIANT flag = OfType(VT_BOOL);
    flag.boolVal = VARIANT_TRUE;
    const XQPComVariant text(L"");
    for (const VARIANT& mark : {text.Value(), flag, MemoryValue(1).Value()})
    {
        command->Answer(L"orvoplantype", S_OK, mark);
        Show({Sees(Chosen(kPlanType, L"Milling")), Presses(IDCANCEL)});
    }
}

TEST_F(CommandRecord, TakesZeroNullAndNothingForNoMark)
{
    BindToPlanType();
    command->Set(L"m_strType", L"cell");
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_I4, VT_BOOL, VT_UNKNOWN})
    {
        command->Answer(L"orvoplantype", S_OK, OfType(type));
        Show({Sees(NoneChosen(kPlanType)), Sees(Chosen(kConfigType, L"cell")), Presses(IDCANCEL)});
    }
}

TEST_F(CommandRecord, AnEmptyTypeOrMacroIsNoEntry)
{
    command->Set(L"m_strType", L"")->Set(L"m_strVBAMacroName", L"");
    Show({Sees(Offers(kConfigType, {})), Sees(Offers(kMacro, {})), Presses(IDCANCEL)});
}

// Values of two attributes.

struct Execution
{
    const char* name;
    MemoryValue stored;
    const wchar_t* shown;
    const char* written;
};

class ExecutionMode : public CommandFixture, public ::testing::WithParamInterface<Execution>
{
};

TEST_P(ExecutionMode, IsTheFirstOnlyIfItIsZero)
{
    command->Answer(L"m_nameShort", S_OK, GetParam().stored.Value());
    Show({Sees(Chosen(kExecution, GetParam().shown)), Presses(IDOK)});
    EXPECT_EQ(Written(), Write({{"m_nameShort", GetParam().written}}));
}

INSTANTIATE_TEST_SUITE_P(Values, ExecutionMode,
                         ::testing::Values(Execution{"Zero", L"0", kOnce, "BSTR '0'"},
                                           Execution{"One", L"1", kEach, "BSTR '1'"},
                                           Execution{"Two", L"2", kEach, "BSTR '1'"},
                                           Execution{"EmptyText", L"", kEach, "BSTR '1'"},
                                           Execution{"Nothing", {}, kEach, "BSTR '1'"},
                                           Execution{"TheWords", kOnce, kEach, "BSTR '1'"},
                                           Execution{"ZeroAndBlank", L"0 ", kEach, "BSTR '1'"},
                                           Execution{"NumberZero", 0, kOnce, "BSTR '0'"},
                                           Execution{"NumberOne", 1, kEach, "BSTR '1'"}),
                         [](const auto& info) { return info.param.name; });

struct Interfaces
{
    int stored;
    bool contextMenu;
    bool properties;
};

class UserInterface : public CommandFixture, public ::testing::WithParamInterface<Interfaces>
{
};

TEST_P(UserInterface, IsTwoBitsOfWhichNoOthersAreKept)
{
    const auto [stored, contextMenu, properties] = GetParam();
    command->Set(L"m_lUserInterfaceType", stored);
    Show({Sees(contextMenu ? Checked(kContextMenu) : Unchecked(kContextMenu)),
          Sees(properties ? Checked(kProperties) : Unchecked(kProperties)),
          Sees(properties ? Enabled(kElement) : Disabled(kElement)), Presses(IDOK)});
    Changes changes = properties ? Changes() : NotPlaced();
    changes["m_lUserInterfaceType"] = "I4 " + std::to_string(stored & 3);
    EXPECT_EQ(Written(), Write(changes));
}

INSTANTIATE_TEST_SUITE_P(Values, UserInterface,
                         ::testing::Values(Interfaces{0, false, false}, Interfaces{1, true, false},
                                           Interfaces{2, false, true}, Interfaces{3, true, true},
                                           Interfaces{4, false, false}, Interfaces{7, true, true},
                                           Interfaces{-2, false, true}),
                         [](const auto& info) {
                             const int stored = info.param.stored;
                             return (stored < 0 ? "Minus" : "Is") + std::to_string(std::abs(stored));
                         });

// A load that ends early: what comes after keeps its default, and the place is shown all the same.

TEST_F(CommandRecord, EndsAtANullScript)
{
    command->Set(L"m_pScript", static_cast<IUnknown*>(nullptr));
    Show(
        Steps{Sees(Shows(kName, L"Deburr")), Sees(Shows(kPrompt, L"Deburr now")), Sees(NoneChosen(kScript))} +
        SeesDefaultsFromTheScriptOn() + Steps{Presses(IDCANCEL)});
}

TEST_F(CommandRecord, EndsAtAScriptThatIsNoDataObject)
{
    drill->offersData = false;
    Show(SeesDefaultsFromTheScriptOn() + Steps{Sees(NoneChosen(kScript)), Presses(IDCANCEL)});
    EXPECT_TRACE(Opening({}, {}));
}

TEST_F(CommandRecord, EndsAtAScriptWhoseNameCannotBeRead)
{
    drill->Fail(L"m_name", E_FAIL);
    Show(SeesDefaultsFromTheScriptOn() + Steps{Sees(NoneChosen(kScript)), Presses(IDCANCEL)});
    EXPECT_TRACE(Opening({"drill.GetAttribute(m_name)"}, {}));
}

TEST_F(CommandRecord, ShowsNothingOfAScriptWhoseNameIsNoText)
{
    drill->Set(L"m_name", weld);
    Show({Sees(Offers(kScript, {})), Sees(Chosen(kConfigType, L"cell")), Presses(IDCANCEL)});
}

TEST_F(CommandRecord, ShowsAnEmptyNameOfAScriptWithout)
{
    drill->Fail(L"m_name", S_FALSE);
    Show({Sees(Chosen(kScript, L"")), Sees(Chosen(kConfigType, L"cell")), Presses(IDOK)});
    EXPECT_EQ(Written(), Write({{"m_pScript", "EMPTY"}})) << "an empty choice is none";
}

TEST_F(CommandRecord, TakesEmptyForNoScript)
{
    command->Answer(L"m_pScript", S_OK, OfType(VT_EMPTY));
    command->Set(L"m_strVBAMacroName", L"Weld");
    Show({Sees(NoneChosen(kScript)), Sees(Chosen(kConfigType, L"cell")), Presses(IDOK)});
    EXPECT_EQ(Written(), Write({{"m_pScript", "EMPTY"}, {"m_strVBAMacroName", "BSTR 'Weld'"}}));
}

/// Everything before the plan type is there; of what follows nothing but the place of the type.
TEST_F(CommandRecord, EndsAtAPlanTypeLikeAtAScript)
{
    const auto look = Steps{Sees(Chosen(kScript, L"Drill")),
                            Sees(Chosen(kConfigType, L"cell")),
                            Sees(NoneChosen(kPlanType)),
                            Sees(NoneChosen(kExecution)),
                            Sees(Checked(kPage)),
                            Sees(Offers(kElement, {L"", L"Costs", L"General"})),
                            Presses(IDCANCEL)};
    command->Set(L"m_pPlanType", static_cast<IUnknown*>(nullptr));
    Show(look);
    command->Set(L"m_pPlanType", milling);
    milling->offersData = false;
    Show(look);
}

TEST_F(CommandRecord, KeepsAPlanTypeWhoseNameCannotBeRead)
{
    BindToPlanType();
    milling->Fail(L"m_name", E_FAIL);
    Show({Sees(Chosen(kScript, L"Drill")), Sees(NoneChosen(kPlanType)), Sees(NoneChosen(kExecution)),
          Sees(Offers(kElement, {L"", L"Planning"})), Presses(IDCANCEL)});
}

TEST_F(CommandRecord, KeepsAPlanTypeWhoseNameIsNoText)
{
    BindToPlanType();
    milling->Set(L"m_name", weld);
    Show({Sees(Offers(kPlanType, {})), Sees(Chosen(kExecution, kOnce)),
          Sees(Offers(kElement, {L"Planning", L"Planning"})), Presses(IDCANCEL)});
}

// A read of the whole record that fails.

class FailedRead : public CommandRecord, public ::testing::WithParamInterface<HRESULT>
{
};

TEST_P(FailedRead, ShowsDefaultsAlsoIfValuesWereDelivered)
{
    command->readStatus = GetParam();
    EXPECT_EQ(Show(SeesNothingRead() + Steps{Presses(IDCANCEL)}), S_FALSE);
    EXPECT_TRACE(Opening({}, {}));
}

/// On purpose: OK writes the defaults over the record.
TEST_P(FailedRead, IsWrittenBackAsDefaults)
{
    command->readStatus = GetParam();
    EXPECT_EQ(Show({Chooses(kConfigType, L"cell"), Chooses(kScript, L"Weld"), Presses(IDOK)}), S_OK);
    EXPECT_EQ(Written(), Write({{"m_name", "BSTR ''"},
                                {"m_strPrompt", "BSTR ''"},
                                {"m_pScript", "UNKNOWN weld"},
                                {"m_lUserInterfaceType", "I4 1"},
                                {"m_nameShort", "BSTR '1'"},
                                {"customizationobjectid", "BSTR ''"},
                                {"customizationobjecttype", "I4 -1"}}));
}

INSTANTIATE_TEST_SUITE_P(Statuses, FailedRead,
                         ::testing::Values(E_FAIL, S_FALSE, static_cast<HRESULT>(0x8004035E),
                                           static_cast<HRESULT>(0x80040344)),
                         [](const auto& info) {
                             std::ostringstream name;
                             name << "Is" << std::hex << info.param;
                             return name.str();
                         });

TEST_F(CommandRecord, OneUnreadableAttributeIsAFailedRead)
{
    command->Fail(L"customizationobjectid", E_FAIL);
    Show(SeesNothingRead() + Steps{Presses(IDCANCEL)});
}

TEST_F(CommandRecord, AnAnswerOfAnotherShapeIsAFailedRead)
{
    command->shape.dimensions = 1;
    Show(SeesNothingRead() + Steps{Presses(IDCANCEL)});
    command->shape = {.type = VT_BSTR};
    Show(SeesNothingRead() + Steps{Presses(IDCANCEL)});
    command->givesArrays = false;
    Show(SeesNothingRead() + Steps{Presses(IDCANCEL)});
}
} // namespace
