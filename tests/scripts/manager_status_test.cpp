// GetScriptCommands: the one status of a walk, and how a walk ends.
#include "ManagerFixture.h"

namespace
{
class CommandStatus : public ManagerFixture
{
protected:
    ComPtr<MemoryObject> Good(const std::string& name = "good")
    {
        return ScriptCommand(name, std::wstring(name.begin(), name.end()).c_str(), Script("weld"));
    }
    ComPtr<MemoryObject> Mute()
    {
        ComPtr<MemoryObject> command = Good("mute");
        command->offersRights = false;
        return command;
    }
    ComPtr<MemoryObject> Broken(HRESULT status)
    {
        ComPtr<MemoryObject> command = Good("broken");
        command->Fail(L"script", status);
        return command;
    }
    const TextRows oneRow = {{"good", "<weld>", "1"}};
};

TEST_F(CommandStatus, NothingFoundIsSuccessWithNoRowsAndThreeColumns)
{
    Finds({});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), TextRows{});
    EXPECT_EQ(ColumnsOf(result.Value()), 3);
}

TEST_F(CommandStatus, NoEnumeratorIsSuccessWithNoRows)
{
    query.result.reset();
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), TextRows{});
    EXPECT_EQ(ColumnsOf(result.Value()), 3);
}

TEST_F(CommandStatus, AFailedSearchIsItsStatusWithNoRows)
{
    Finds({Good()});
    for (const HRESULT status : {E_FAIL, S_FALSE, E_ACCESSDENIED})
    {
        query.resultStatus = status;
        EXPECT_EQ(GetCommands(), status);
        EXPECT_EQ(Rows(), TextRows{});
        EXPECT_EQ(ColumnsOf(result.Value()), 3);
        EXPECT_EQ(Walked(), Calls{});
    }
}

TEST_F(CommandStatus, BadArgumentsAreTheSearchsStatusWithNoRows)
{
    const Bstr type(L"machine");
    EXPECT_EQ(manager->GetScriptCommands(nullptr, set.get(), type.get(), nullptr, 1, nullptr, &result),
              E_POINTER);
    EXPECT_EQ(Rows(), TextRows{});
    EXPECT_EQ(manager->GetScriptCommands(&query, nullptr, type.get(), nullptr, 1, nullptr, &result),
              E_INVALIDARG);
    EXPECT_EQ(Rows(), TextRows{});
    EXPECT_EQ(manager->GetScriptCommands(&query, set.get(), nullptr, nullptr, 1, nullptr, &result),
              E_INVALIDARG);
    EXPECT_EQ(Rows(), TextRows{});
    EXPECT_CALLS(Calls{});
}

TEST_F(CommandStatus, WithoutRowsALackOfRightsIsTheStatus)
{
    Finds({Mute()});
    EXPECT_EQ(GetCommands(), E_NOINTERFACE);
    EXPECT_EQ(Rows(), TextRows{});

    const auto forbidden = Good();
    forbidden->right = S_FALSE;
    Finds({forbidden});
    EXPECT_EQ(GetCommands(), S_FALSE);

    forbidden->right = E_ACCESSDENIED;
    EXPECT_EQ(GetCommands(), E_ACCESSDENIED);
}

TEST_F(CommandStatus, WithoutRowsALackOfRightsOnTheScriptIsTheStatus)
{
    const auto script = Script("weld");
    script->right = E_ACCESSDENIED;
    Finds({ScriptCommand("c1", L"Check", script)});
    EXPECT_EQ(GetCommands(), E_ACCESSDENIED);
    script->offersRights = false;
    EXPECT_EQ(GetCommands(), E_NOINTERFACE);
}

TEST_F(CommandStatus, WithoutRowsTheReadOfTheMacroNameIsTheStatus)
{
    const auto macro = MacroCommand("c1", L"A", nullptr);
    Finds({macro});
    EXPECT_EQ(GetCommands(), S_FALSE);
    macro->Fail(L"m_strVBAMacroName", E_FAIL);
    EXPECT_EQ(GetCommands(), E_FAIL);
    macro->Set(L"m_strVBAMacroName", 5);
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), TextRows{});
}

TEST_F(CommandStatus, PromptAndShortNameNeverCount)
{
    const auto command = MacroCommand("c1", nullptr, nullptr);
    command->Fail(L"m_strPrompt", E_ABORT);
    command->Fail(L"m_nameShort", E_ABORT);
    command->Set(L"m_strVBAMacroName", 5);
    Finds({command});
    EXPECT_EQ(GetCommands(), S_OK);
    command->Fail(L"script", E_FAIL);
    EXPECT_EQ(GetCommands(), E_FAIL);
}

TEST_F(CommandStatus, TheStatusIsNotResetBetweenCommands)
{
    // The last call that counts is that on the last command.
    Finds({Mute(), MacroCommand("c2", L"A", nullptr)});
    EXPECT_EQ(GetCommands(), S_FALSE);
    Finds({MacroCommand("c2", L"A", nullptr), Mute()});
    EXPECT_EQ(GetCommands(), E_NOINTERFACE);
}

TEST_F(CommandStatus, ARowThatIsPutHidesAFailureBeforeIt)
{
    Finds({Good(), Mute()});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), oneRow);
}

TEST_F(CommandStatus, AnUnreadableScriptEndsTheWalkWithTheRowsBefore)
{
    Finds({Good(), Broken(E_ACCESSDENIED), Good("later")});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), oneRow);
    EXPECT_EQ(host.calls.back(), "broken.GetAttribute(script)");

    Finds({Broken(E_ACCESSDENIED), Good()});
    EXPECT_EQ(GetCommands(), E_ACCESSDENIED);
    EXPECT_EQ(Rows(), TextRows{});
}

TEST_F(CommandStatus, AScriptThatIsNoDataObjectEndsTheWalk)
{
    const auto command = Good("wrong");
    command->Set(L"script", static_cast<IUnknown*>(static_cast<IEnumBaseDataObject*>(host.List({}).get())));
    Finds({Good(), command, Good("later")});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), oneRow);
    EXPECT_EQ(host.calls.back(), "wrong.GetAttribute(script)");

    Finds({command, Good()});
    EXPECT_EQ(GetCommands(), E_NOINTERFACE);
    EXPECT_EQ(Rows(), TextRows{});
}

TEST_F(CommandStatus, ANullReferenceToAScriptEndsTheWalk)
{
    const auto command = Good("dangling");
    command->Set(L"script", static_cast<IUnknown*>(nullptr));
    Finds({command, Good()});
    EXPECT_EQ(GetCommands(), E_NOINTERFACE);
    EXPECT_EQ(Rows(), TextRows{});
    EXPECT_EQ(host.calls.back(), "dangling.GetAttribute(script)");
}

TEST_F(CommandStatus, AnUnreadableScriptNameIsEmptyAndTheWalkContinues)
{
    const auto script = Script("nameless");
    script->Fail(L"name", E_FAIL);
    Finds({ScriptCommand("c1", nullptr, script), Good()});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"", "<nameless>", "1"}, {"good", "<weld>", "1"}}));
}

TEST_F(CommandStatus, AScriptNameIsUsedIfReadAndConverted)
{
    const auto unsure = Script("unsure");
    const XQPComVariant name(L"name");
    unsure->Answer(L"name", S_FALSE, name);
    const auto number = Script("number");
    number->Set(L"name", 77);
    Finds({ScriptCommand("c1", nullptr, unsure), ScriptCommand("c2", nullptr, number)});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"", "<unsure>", "1"}, {"77", "<number>", "1"}}));
}

TEST_F(CommandStatus, ANullObjectEndsTheWalk)
{
    Finds({Good(), nullptr, Good("later")});
    EXPECT_EQ(GetCommands(), S_OK);
    EXPECT_EQ(Rows(), oneRow);
    EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), "RemNext(1)"), 2);
}

TEST_F(CommandStatus, AnotherStatusEndsTheWalkAndIsNotReturned)
{
    for (const HRESULT status : {E_FAIL, S_FALSE, static_cast<HRESULT>(2)})
    {
        Finds({Good(), Good("later")});
        query.result->statuses[1] = status;
        EXPECT_EQ(GetCommands(), S_OK);
        EXPECT_EQ(Rows(), oneRow) << "the object that came with it is not read";

        query.result->statuses[0] = status;
        EXPECT_EQ(GetCommands(), S_OK) << "no host call that counts was made";
        EXPECT_EQ(Rows(), TextRows{});
    }
}

TEST_F(CommandStatus, TheObjectThatComesWithTheEndOfTheWalkIsReleased)
{
    const int before = host.LiveObjects();
    Finds({Good()});
    query.result->statuses[0] = S_FALSE;
    EXPECT_EQ(GetCommands(), S_OK);
    query.result.reset();
    EXPECT_EQ(host.LiveObjects(), before);
}

TEST_F(CommandStatus, TheOldValueOfTheVariantIsCleared)
{
    const int before = host.LiveObjects();
    {
        const auto old = host.Object("old");
        result.Value().vt = VT_UNKNOWN;
        result.Value().punkVal = static_cast<IQP_BaseDataObject*>(old.get());
        old->AddRef();
    }
    Finds({});
    const Bstr type(L"machine");
    EXPECT_EQ(manager->GetScriptCommands(&query, set.get(), type.get(), nullptr, 1, nullptr, &result.Value()),
              S_OK);
    query.result.reset();
    EXPECT_EQ(host.LiveObjects(), before);
    EXPECT_EQ(Rows(), TextRows{});
}

TEST_F(CommandStatus, AnOldArrayIsDestroyedWithWhatItHolds)
{
    const int before = host.LiveObjects();
    Finds({Good()});
    EXPECT_EQ(GetCommands(), S_OK);
    Finds({});
    const Bstr type(L"machine");
    EXPECT_EQ(manager->GetScriptCommands(&query, set.get(), type.get(), nullptr, 1, nullptr, &result.Value()),
              S_OK);
    query.result.reset();
    EXPECT_EQ(host.LiveObjects(), before);
    EXPECT_EQ(Rows(), TextRows{});
}

TEST_F(CommandStatus, AnOldArrayThatIsLockedIsLeftToItsLock)
{
    Finds({Good()});
    EXPECT_EQ(GetCommands(), S_OK);
    SAFEARRAY* const old = result.Value().parray;
    ASSERT_EQ(SafeArrayLock(old), S_OK);
    Finds({});
    const Bstr type(L"machine");
    EXPECT_EQ(manager->GetScriptCommands(&query, set.get(), type.get(), nullptr, 1, nullptr, &result.Value()),
              S_OK);
    EXPECT_NE(result.Value().parray, old);
    EXPECT_EQ(Rows(), TextRows{});
    EXPECT_EQ(ColumnsOf(result.Value()), 3);

    VARIANT still;
    still.vt = VT_ARRAY | VT_VARIANT;
    still.parray = old;
    EXPECT_EQ(RowsOf(still, [this](IUnknown* object) { return host.NameOf(object); }), oneRow);
    EXPECT_EQ(SafeArrayUnlock(old), S_OK);
    EXPECT_EQ(SafeArrayDestroy(old), S_OK);
}

TEST_F(CommandStatus, WithoutAVariantTheSearchAndTheWalkRunInFull)
{
    const int before = host.LiveObjects();
    Finds({Good()});
    const Bstr type(L"machine");
    EXPECT_EQ(manager->GetScriptCommands(&query, set.get(), type.get(), nullptr, 1, nullptr, nullptr), S_OK);
    EXPECT_EQ(Walked(), (Calls{"RemNext(1)", "good.HasRight(4)", "good.GetAttribute(m_strPrompt)",
                               "good.GetAttribute(m_nameShort)", "good.GetAttribute(script)",
                               "weld.HasRight(4)", "RemNext(1)"}));
    Finds({Mute()});
    EXPECT_EQ(manager->GetScriptCommands(&query, set.get(), type.get(), nullptr, 1, nullptr, nullptr),
              E_NOINTERFACE);
    query.result.reset();
    EXPECT_EQ(host.LiveObjects(), before);
}
} // namespace
