// The script service and values by address (VT_BYREF): a null address reads as no value.
#include "ManagerFixture.h"
#include "ReferenceValues.h"

namespace
{
class ScriptReferences : public ManagerFixture
{
};

TEST_F(ScriptReferences, AScriptAtANullAddressIsNoScript)
{
    const auto weld = Script("weld");
    for (const VARIANT& nowhere : NullAddresses())
    {
        CreateComObject<qptools::XScriptActionAndCommandManager>(
            nullptr, __uuidof(IScriptActionAndCommandManager), manager.putVoid());
        const auto action = host.Object("a1");
        action->Answer(L"script", S_OK, nowhere);
        Finds({action, Action("a2", weld)});
        EXPECT_EQ(GetActions(), S_OK);
        EXPECT_EQ(Rows(), (TextRows{{"<a2>", "<weld>"}})) << nowhere.vt;

        const auto command = MacroCommand("c1", L"A", L"Macro");
        command->Answer(L"script", S_OK, nowhere);
        Finds({command});
        EXPECT_EQ(GetCommands(), S_OK);
        EXPECT_EQ(Rows(), (TextRows{{"A", "Macro", "1"}})) << nowhere.vt;
    }
}

TEST_F(ScriptReferences, APromptAtANullAddressIsNoPrompt)
{
    for (const VARIANT& nowhere : NullAddresses())
    {
        const auto command = ScriptCommand("c1", nullptr, Script("weld"));
        command->Answer(L"m_strPrompt", S_OK, nowhere)->Answer(L"m_nameShort", S_OK, nowhere);
        Finds({command});
        EXPECT_EQ(GetCommands(), S_OK);
        EXPECT_EQ(Rows(), (TextRows{{"weld", "<weld>", "1"}})) << nowhere.vt;
    }
}

TEST_F(ScriptReferences, AScriptsNameAtANullAddressIsEmpty)
{
    for (const VARIANT& nowhere : NullAddresses())
    {
        const auto script = Script("weld");
        script->Answer(L"name", S_OK, nowhere);
        Finds({ScriptCommand("c1", nullptr, script)});
        EXPECT_EQ(GetCommands(), S_OK);
        EXPECT_EQ(Rows(), (TextRows{{"", "<weld>", "1"}})) << nowhere.vt;
    }
}

TEST_F(ScriptReferences, AMacroNameAtANullAddressIsEmpty)
{
    for (const VARIANT& nowhere : NullAddresses())
    {
        const auto command = MacroCommand("c1", L"A", nullptr);
        command->Answer(L"m_strVBAMacroName", S_OK, nowhere);
        Finds({command});
        EXPECT_EQ(GetCommands(), S_OK);
        EXPECT_EQ(Rows(), TextRows{}) << nowhere.vt;
    }
}

TEST_F(ScriptReferences, AMasterAtANullAddressIsNoMaster)
{
    for (const VARIANT& nowhere : NullAddresses())
    {
        set->Answer(L"master", S_OK, nowhere);
        Finds({});
        EXPECT_EQ(GetActions(), S_OK);
        EXPECT_CALLS(Calls{"set.GetAttribute(master)", "ResetSearch(0)", "SetSearchTable(scriptaction)",
                           Equal("type", "BSTR 'machine'"), Cat(1)} +
                     inSet +
                     Calls{Equal("beforeafter", "I4 1"), Cat(1), Equal("actiontype", "I4 7"),
                           Equal("enabled", "I4 1"), "SetOrderAttribute(sequence, 1)", "GetSearchResult()",
                           "RemNext(1)"});
    }
}
} // namespace
