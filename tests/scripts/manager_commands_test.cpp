// GetScriptCommands: which commands are offered, and the content of a row.
#include "ManagerFixture.h"

#include "Translation.h"
#include "UiState.h"

namespace
{
class ScriptCommands : public ManagerFixture
{
};

TEST_F(ScriptCommands, ARowIsDisplayNameScriptAndMode)
{
    Finds({ScriptCommand("c1", L"Check", Script("weld"), L"0"), MacroCommand("c2", L"Draw", L"DrawAll")});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(result.Type(), VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(Rows(), (TextRows{{"Check", "<weld>", "0"}, {"Draw", "DrawAll", "1"}}));
    EXPECT_EQ(ColumnsOf(result.Value()), 3);
}

TEST_F(ScriptCommands, TheCallsForAScriptCommandComeInOrder)
{
    host.recordingQueries = true;
    Finds({ScriptCommand("c1", L"Check", Script("weld"))});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Walked(), (Calls{"RemNext(1)", "c1.QueryInterface(IQPObjectRights)", "c1.HasRight(4)",
                               "c1.GetAttribute(m_strPrompt)", "c1.GetAttribute(m_nameShort)",
                               "c1.GetAttribute(script)", "weld.QueryInterface(IQP_BaseDataObject)",
                               "weld.QueryInterface(IQPObjectRights)", "weld.HasRight(4)", "RemNext(1)"}));
}

TEST_F(ScriptCommands, TheNameOfTheScriptIsReadOnlyWithoutAPrompt)
{
    Finds({ScriptCommand("c1", nullptr, Script("weld")), ScriptCommand("c2", L"", Script("drill"))});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(
        Walked(),
        (Calls{"RemNext(1)", "c1.HasRight(4)", "c1.GetAttribute(m_strPrompt)", "c1.GetAttribute(m_nameShort)",
               "c1.GetAttribute(script)", "weld.HasRight(4)", "weld.GetAttribute(name)", "RemNext(1)",
               "c2.HasRight(4)", "c2.GetAttribute(m_strPrompt)", "c2.GetAttribute(m_nameShort)",
               "c2.GetAttribute(script)", "drill.HasRight(4)", "drill.GetAttribute(name)", "RemNext(1)"}));
    EXPECT_EQ(Rows(), (TextRows{{"drill", "<drill>", "1"}, {"weld", "<weld>", "1"}}));
}

TEST_F(ScriptCommands, TheCallsForAMacroCommandComeInOrder)
{
    host.recordingQueries = true;
    Finds({MacroCommand("c1", nullptr, L"DrawAll")});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Walked(),
              (Calls{"RemNext(1)", "c1.QueryInterface(IQPObjectRights)", "c1.HasRight(4)",
                     "c1.GetAttribute(m_strPrompt)", "c1.GetAttribute(m_nameShort)",
                     "c1.GetAttribute(script)", "c1.GetAttribute(m_strVBAMacroName)", "RemNext(1)"}));
}

TEST_F(ScriptCommands, TheArgumentsReachTheSearchUnchanged)
{
    GiveSetMaster();
    GivePlanTypeMaster();
    const Bstr type(L"machine");
    const Bstr browser(L"navigator");
    EXPECT_EQ(
        manager->GetScriptCommands(&query, set.get(), type.get(), planType.get(), 2, browser.get(), &result),
        S_OK);
    EXPECT_CALLS(bothMastersRead +
                 Calls{"ResetSearch(0)", "SetSearchTable(scriptcommand)", Cat(4), Cat(4),
                       Equal("type", "BSTR 'dodefaultimpl'"), Cat(2), Equal("type", "BSTR 'orvocompbase'"),
                       Cat(2), Equal("orvoplantype", "UNKNOWN plantype"), Cat(2),
                       Equal("orvoplantype", "UNKNOWN reference to masterplantype"), Cat(8), Cat(2),
                       Equal("type", "BSTR 'machine'"), Cat(9)} +
                 inSetOrMaster +
                 Calls{Equal("visible", "BOOL true"), Cat(1), Cat(4), Equal("userinterfacetype", "I4 2"),
                       Cat(2), Equal("userinterfacetype", "I4 3"), Cat(8), "GetSearchResult()"});
}

TEST_F(ScriptCommands, ACommandThatMayNotBeExecutedIsNotOffered)
{
    for (const HRESULT answer : {S_FALSE, E_ACCESSDENIED, static_cast<HRESULT>(2)})
    {
        const auto forbidden = ScriptCommand("c1", L"Check", Script("weld"));
        forbidden->right = answer;
        Finds({forbidden, ScriptCommand("c2", L"Draw", Script("drill"))});
        EXPECT_EQ(GetCommands(), S_OK);
        EXPECT_EQ(Rows(), (TextRows{{"Draw", "<drill>", "1"}}));
        EXPECT_EQ(Calls(host.calls.end() - 8, host.calls.end()),
                  (Calls{"c1.HasRight(4)", "RemNext(1)", "c2.HasRight(4)", "c2.GetAttribute(m_strPrompt)",
                         "c2.GetAttribute(m_nameShort)", "c2.GetAttribute(script)", "drill.HasRight(4)",
                         "RemNext(1)"}));
    }
}

TEST_F(ScriptCommands, ACommandWithoutARightsServiceIsNotOffered)
{
    const auto mute = ScriptCommand("c1", L"Check", Script("weld"));
    mute->offersRights = false;
    Finds({mute, ScriptCommand("c2", L"Draw", Script("drill"))});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"Draw", "<drill>", "1"}}));
}

TEST_F(ScriptCommands, AScriptThatMayNotBeExecutedHidesItsCommand)
{
    const auto forbidden = Script("weld");
    forbidden->right = S_FALSE;
    const auto mute = Script("mill");
    mute->offersRights = false;
    Finds({ScriptCommand("c1", nullptr, forbidden), ScriptCommand("c2", L"Mill", mute),
           ScriptCommand("c3", L"Draw", Script("drill"))});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"Draw", "<drill>", "1"}}));
    EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), "weld.GetAttribute(name)"), 0);
}

TEST_F(ScriptCommands, APromptThatCannotBeReadOrHasNoTextIsNoPrompt)
{
    const auto failing = ScriptCommand("c1", nullptr, Script("s1"));
    XQPComVariant text(L"Prompt");
    failing->Answer(L"m_strPrompt", E_FAIL, text);
    const auto unsure = ScriptCommand("c2", nullptr, Script("s2"));
    unsure->Answer(L"m_strPrompt", S_FALSE, text);
    const auto object = ScriptCommand("c3", nullptr, Script("s3"));
    object->Set(L"m_strPrompt", planType);
    Finds({failing, unsure, object});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"s1", "<s1>", "1"}, {"s2", "<s2>", "1"}, {"s3", "<s3>", "1"}}));
}

TEST_F(ScriptCommands, APromptOfAnotherTypeIsConverted)
{
    const auto number = ScriptCommand("c1", nullptr, Script("s1"));
    number->Set(L"m_strPrompt", 42);
    const Bstr behind(L"behind");
    BSTR text = behind.get();
    VARIANT reference;
    reference.vt = VT_BYREF | VT_BSTR;
    reference.pbstrVal = &text;
    const auto referring = ScriptCommand("c2", nullptr, Script("s2"));
    referring->Answer(L"m_strPrompt", S_OK, reference);
    Finds({number, referring});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"42", "<s1>", "1"}, {"behind", "<s2>", "1"}}));
}

TEST_F(ScriptCommands, TheShortNameZeroMeansOnceForAllObjects)
{
    Finds({ScriptCommand("c1", L"A", Script("s"), L"0"), ScriptCommand("c2", L"B", Script("s"), L"1"),
           ScriptCommand("c3", L"C", Script("s"), L""), ScriptCommand("c4", L"D", Script("s"), L"00"),
           ScriptCommand("c5", L"E", Script("s"), L"0 "), ScriptCommand("c6", L"F", Script("s"), nullptr)});
    EXPECT_EQ(GetCommands(), S_OK);
    const TextRows rows = Rows();
    ASSERT_EQ(rows.size(), 6u);
    std::string modes;
    for (const Row& row : rows)
        modes += row[2];
    EXPECT_EQ(modes, "011111");
}

TEST_F(ScriptCommands, AShortNameIsConvertedAndUsedIfItsReadSucceeded)
{
    const auto number = ScriptCommand("c1", L"A", Script("s"));
    number->Set(L"m_nameShort", LONG{0});
    const auto failing = ScriptCommand("c2", L"B", Script("s"));
    const XQPComVariant zero(L"0");
    failing->Answer(L"m_nameShort", E_FAIL, zero);
    const auto unsure = ScriptCommand("c3", L"C", Script("s"));
    unsure->Answer(L"m_nameShort", S_FALSE, zero);
    const auto object = ScriptCommand("c4", L"D", Script("s"));
    object->Set(L"m_nameShort", planType);
    Finds({number, failing, unsure, object});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"A", "<s>", "0"}, {"B", "<s>", "1"}, {"C", "<s>", "1"}, {"D", "<s>", "1"}}));
}

TEST_F(ScriptCommands, OnlyTheExactTranslatedWordsMeanOnceForAllObjects)
{
    const std::wstring words = CoTranslateText(L"Once for all objects");
    std::wstring loud = words;
    loud.back() = L'X';
    const std::wstring lower = L"o" + words.substr(1);
    Finds({ScriptCommand("c1", L"A", Script("s"), words.c_str()),
           ScriptCommand("c2", L"B", Script("s"), (words + L" ").c_str()),
           ScriptCommand("c3", L"C", Script("s"), loud.c_str()),
           ScriptCommand("c4", L"D", Script("s"), lower.c_str())});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"A", "<s>", "0"}, {"B", "<s>", "1"}, {"C", "<s>", "1"}, {"D", "<s>", "1"}}));
}

TEST_F(ScriptCommands, AMacroRunsForEachObjectWhateverItsShortName)
{
    Finds({MacroCommand("c1", L"A", L"M1", L"0"), MacroCommand("c2", L"B", L"M2", L"Once for all objects"),
           MacroCommand("c3", L"C", L"M3", CoTranslateText(L"Once for all objects")),
           MacroCommand("c4", L"D", L"M4", nullptr)});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"A", "M1", "1"}, {"B", "M2", "1"}, {"C", "M3", "1"}, {"D", "M4", "1"}}));
}

TEST_F(ScriptCommands, AnythingButAnObjectReferenceMakesAMacroCommand)
{
    const auto empty = MacroCommand("c1", L"A", L"M1");
    empty->Fail(L"script", S_OK);
    const auto without = MacroCommand("c2", L"B", L"M2");
    const auto text = MacroCommand("c3", L"C", L"M3");
    text->Set(L"script", L"weld");
    const auto unsure = MacroCommand("c4", L"D", L"M4");
    VARIANT reference;
    reference.vt = VT_UNKNOWN;
    reference.punkVal = static_cast<IQP_BaseDataObject*>(planType.get());
    unsure->Answer(L"script", S_FALSE, reference);
    const auto null = MacroCommand("c5", L"E", L"M5");
    SetNull(null, L"script");
    const auto dispatch = MacroCommand("c6", L"F", L"M6");
    SetDispatch(dispatch, L"script", planType);
    Finds({empty, without, text, unsure, null, dispatch});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"A", "M1", "1"},
                                {"B", "M2", "1"},
                                {"C", "M3", "1"},
                                {"D", "M4", "1"},
                                {"E", "M5", "1"},
                                {"F", "M6", "1"}}));
}

TEST_F(ScriptCommands, ATextThatIsANullPointerIsAnEmptyOne)
{
    const auto prompt = ScriptCommand("c1", nullptr, Script("weld"));
    SetNullText(prompt, L"m_strPrompt");
    const auto shortName = ScriptCommand("c2", L"B", Script("drill"));
    SetNullText(shortName, L"m_nameShort");
    const auto scriptName = ScriptCommand("c3", nullptr, host.Object("nameless"));
    SetNullText(scriptName, L"m_strPrompt");
    const auto macro = MacroCommand("c4", L"M", nullptr);
    SetNullText(macro, L"m_strVBAMacroName");
    Finds({prompt, shortName, scriptName, macro});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(
        Rows(),
        (TextRows{{"", "<nameless>", "1"}, {"B", "<drill>", "1"}, {"M", "", "1"}, {"weld", "<weld>", "1"}}));
}

TEST_F(ScriptCommands, NullNamesOfScriptsAndMacrosAreEmpty)
{
    const auto script = host.Object("script");
    SetNullText(script, L"name");
    Finds({ScriptCommand("c1", nullptr, script)});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"", "<script>", "1"}}));

    const auto macro = MacroCommand("c2", nullptr, nullptr);
    SetNullText(macro, L"m_strVBAMacroName");
    Finds({macro, ScriptCommand("c3", nullptr, script)});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"", "", "1"}, {"(2)", "<script>", "1"}})) << "the name is in use";
}

TEST_F(ScriptCommands, AMacroWhoseNameIsNoTextOrCannotBeReadIsDropped)
{
    const auto number = MacroCommand("c1", L"A", nullptr);
    number->Set(L"m_strVBAMacroName", 5);
    const auto without = MacroCommand("c2", L"B", nullptr);
    const auto failing = MacroCommand("c3", L"C", nullptr);
    const XQPComVariant name(L"M");
    failing->Answer(L"m_strVBAMacroName", E_FAIL, name);
    const auto unsure = MacroCommand("c4", L"D", nullptr);
    unsure->Answer(L"m_strVBAMacroName", S_FALSE, name);
    Finds({number, without, failing, unsure, MacroCommand("c5", L"E", L"M5")});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"E", "M5", "1"}}));
}

TEST_F(ScriptCommands, AMacroWithoutAPromptIsCalledByItsName)
{
    Finds({MacroCommand("c1", nullptr, L"DrawAll"), MacroCommand("c2", L"", L"Mill")});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"DrawAll", "DrawAll", "1"}, {"Mill", "Mill", "1"}}));
}

TEST_F(ScriptCommands, AMacroNameBehindAReferenceIsFollowed)
{
    const Bstr behind(L"Behind");
    BSTR text = behind.get();
    VARIANT reference;
    reference.vt = VT_BYREF | VT_BSTR;
    reference.pbstrVal = &text;
    const auto macro = MacroCommand("c1", nullptr, nullptr);
    macro->Answer(L"m_strVBAMacroName", S_OK, reference);
    Finds({macro});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"Behind", "Behind", "1"}}));
}

TEST_F(ScriptCommands, NoRightIsAskedForAMacroBeyondThatOfItsCommand)
{
    Finds({MacroCommand("c1", L"A", L"M1")});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(
        std::count_if(host.calls.begin(), host.calls.end(),
                      [](const std::string& call) { return call.find("HasRight") != std::string::npos; }),
        1);
}

TEST_F(ScriptCommands, TheTargetIsTheDataObjectAndNotTheReferenceToIt)
{
    const auto command = host.Object("c1");
    command->Set(L"m_strPrompt", L"Check");
    command->Set(L"script", host.ReferenceTo("reference", Script("weld")).get());
    Finds({command});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"Check", "<weld>", "1"}}));
}

TEST_F(ScriptCommands, AScriptBehindAReferenceIsFollowed)
{
    const auto weld = Script("weld");
    IUnknown* object = static_cast<IQP_BaseDataObject*>(weld.get());
    VARIANT reference;
    reference.vt = VT_BYREF | VT_UNKNOWN;
    reference.ppunkVal = &object;
    const auto command = host.Object("c1");
    command->Set(L"m_strPrompt", L"Check");
    command->Answer(L"script", S_OK, reference);
    Finds({command});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"Check", "<weld>", "1"}}));
}

TEST_F(ScriptCommands, NothingIsKeptBetweenCallsOrAfterTheArray)
{
    const int before = host.LiveObjects();
    Finds({ScriptCommand("c1", L"Check", Script("weld"))});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"Check", "<weld>", "1"}}));
    query.result.reset();
    result.Clear();
    EXPECT_EQ(host.LiveObjects(), before);
}

TEST_F(ScriptCommands, OnlyTheSearchRunsInsideTheUiState)
{
    Finds({ScriptCommand("c1", L"Check", Script("weld"))});
    std::vector<std::string> outside;
    host.onCall = [&](const std::string& call) {
        if (CUiState::Depth() == 0)
            outside.push_back(call);
    };
    const unsigned entries = CUiState::Entries();
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(outside, Walked());
    EXPECT_EQ(CUiState::Entries() - entries, 1u);
}

TEST_F(ScriptCommands, AnUnknownDialogEntersTheUiStateAndLeavesIt)
{
    const unsigned entries = CUiState::Entries();
    EXPECT_EQ(
        manager->ShowScriptActionOrCommandDlg(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
        E_INVALIDARG);
    EXPECT_EQ(CUiState::Entries() - entries, 1u);
    EXPECT_EQ(CUiState::Depth(), 0);
}
} // namespace
