// GetScriptsForAction: the scripts to run for an action.
#include "ManagerFixture.h"

#include "UiState.h"

namespace
{
class ScriptsForAction : public ManagerFixture
{
};

TEST_F(ScriptsForAction, EachActionIsARowWithItsScriptInTheOrderFound)
{
    const auto drill = Script("drill");
    const auto weld = Script("weld");
    Finds({Action("a1", weld), Action("a2", drill), Action("a3", weld)});
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(result.Type(), VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(Rows(), (TextRows{{"<a1>", "<weld>"}, {"<a2>", "<drill>"}, {"<a3>", "<weld>"}}));
}

TEST_F(ScriptsForAction, ReadsTheScriptOfEachActionAndNothingElse)
{
    host.recordingQueries = true;
    const auto weld = Script("weld");
    Finds({Action("a1", weld), Action("a2", weld)});
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Walked(),
              (Calls{"RemNext(1)", "a1.GetAttribute(script)", "weld.QueryInterface(IQP_BaseDataObject)",
                     "RemNext(1)", "a2.GetAttribute(script)", "weld.QueryInterface(IQP_BaseDataObject)",
                     "RemNext(1)"}));
}

TEST_F(ScriptsForAction, NoRightIsAskedFor)
{
    const auto weld = Script("weld");
    weld->right = E_ACCESSDENIED;
    weld->offersRights = false;
    const auto action = Action("a1", weld);
    action->right = S_FALSE;
    Finds({action});
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"<a1>", "<weld>"}}));
}

TEST_F(ScriptsForAction, TheArgumentsReachTheSearchUnchanged)
{
    GiveSetMaster();
    GivePlanTypeMaster();
    const Bstr type(L"machine");
    EXPECT_EQ(manager->GetScriptsForAction(&query, set.get(), type.get(), planType.get(), 12, 0, &result),
              S_OK);
    EXPECT_CALLS(
        (Calls{"set.GetAttribute(master)", "plantype.GetAttribute(master)", "ResetSearch(0)",
               "SetSearchTable(scriptaction)", Cat(4), Cat(4), Equal("orvoplantype", "UNKNOWN plantype"),
               Cat(2), Equal("orvoplantype", "UNKNOWN reference to masterplantype"), Cat(8), Cat(2),
               Equal("type", "BSTR 'machine'"), Cat(9)}) +
        inSetOrMaster +
        Calls{Equal("beforeafter", "I4 0"), Cat(1), Equal("actiontype", "I4 12"), Equal("enabled", "I4 1"),
              "SetOrderAttribute(sequence, 1)", "GetSearchResult()"});
}

TEST_F(ScriptsForAction, ASecondCallReturnsTheRowsOfTheFirstAndThenItsOwn)
{
    const auto weld = Script("weld");
    Finds({Action("a1", weld), Action("a2", weld)});
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows(),
              (TextRows{{"<a1>", "<weld>"}, {"<a2>", "<weld>"}, {"<a1>", "<weld>"}, {"<a2>", "<weld>"}}));
    Finds({Action("a3", weld)});
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"<a1>", "<weld>"},
                                {"<a2>", "<weld>"},
                                {"<a1>", "<weld>"},
                                {"<a2>", "<weld>"},
                                {"<a3>", "<weld>"}}));
}

TEST_F(ScriptsForAction, AnotherManagerStartsWithAnEmptyList)
{
    Finds({Action("a1", Script("weld"))});
    EXPECT_EQ(GetActions(), S_OK);
    CreateComObject<qptools::XScriptActionAndCommandManager>(
        nullptr, __uuidof(IScriptActionAndCommandManager), manager.putVoid());
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows().size(), 1u);
}

TEST_F(ScriptsForAction, TheObjectsAreHeldUntilTheManagerEnds)
{
    const int before = host.LiveObjects();
    Finds({Action("a1", Script("weld")), Action("a2", Script("drill"))});
    EXPECT_EQ(GetActions(), S_OK);
    result.Clear();
    query.result.reset();
    EXPECT_EQ(host.LiveObjects(), before + 4);
    manager.reset();
    EXPECT_EQ(host.LiveObjects(), before);
}

TEST_F(ScriptsForAction, TheArrayHoldsItsObjectsByItself)
{
    const int before = host.LiveObjects();
    Finds({Action("a1", Script("weld"))});
    EXPECT_EQ(GetActions(), S_OK);
    query.result.reset();
    manager.reset();
    EXPECT_EQ(Rows(), (TextRows{{"<a1>", "<weld>"}}));
    result.Clear();
    EXPECT_EQ(host.LiveObjects(), before);
}

TEST_F(ScriptsForAction, NothingFoundIsAnArrayWithoutRowsAndSuccess)
{
    Finds({});
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows(), TextRows{});
    EXPECT_EQ(ColumnsOf(result.Value()), 2);
    EXPECT_EQ(Walked(), Calls{"RemNext(1)"});
}

TEST_F(ScriptsForAction, NoEnumeratorIsAnArrayWithoutRowsAndSuccess)
{
    query.result.reset();
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows(), TextRows{});
    EXPECT_EQ(Walked(), Calls{});
}

TEST_F(ScriptsForAction, AFailedSearchIsAnArrayWithoutRowsAndItsStatus)
{
    Finds({Action("a1", Script("weld"))});
    for (const HRESULT status : {E_FAIL, S_FALSE, E_ACCESSDENIED})
    {
        query.resultStatus = status;
        EXPECT_EQ(GetActions(), status);
        EXPECT_EQ(Rows(), TextRows{});
        EXPECT_EQ(Walked(), Calls{});
    }
}

TEST_F(ScriptsForAction, AFailedSearchDeliversTheEarlierRowsWithTheirStatus)
{
    Finds({Action("a1", Script("weld"))});
    EXPECT_EQ(GetActions(), S_OK);
    query.resultStatus = E_FAIL;
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"<a1>", "<weld>"}}));
}

TEST_F(ScriptsForAction, BadArgumentsGiveTheSearchsStatusAndAnEmptyArray)
{
    const Bstr type(L"machine");
    EXPECT_EQ(manager->GetScriptsForAction(nullptr, set.get(), type.get(), nullptr, 7, 1, &result),
              E_POINTER);
    EXPECT_EQ(Rows(), TextRows{});
    EXPECT_EQ(manager->GetScriptsForAction(&query, nullptr, type.get(), nullptr, 7, 1, &result),
              E_INVALIDARG);
    EXPECT_EQ(Rows(), TextRows{});
    EXPECT_EQ(manager->GetScriptsForAction(&query, set.get(), nullptr, nullptr, 7, 1, &result), E_INVALIDARG);
    EXPECT_EQ(Rows(), TextRows{});
    EXPECT_CALLS(Calls{});
}

TEST_F(ScriptsForAction, AScriptThatCannotBeReadEndsTheWalk)
{
    const auto weld = Script("weld");
    const auto broken = host.Object("broken");
    broken->Fail(L"script", E_ACCESSDENIED);
    Finds({Action("a1", weld), broken, Action("a3", weld)});
    EXPECT_EQ(GetActions(), S_OK) << "the status of the row that was put";
    EXPECT_EQ(Rows(), (TextRows{{"<a1>", "<weld>"}}));
    EXPECT_EQ(Walked(),
              (Calls{"RemNext(1)", "a1.GetAttribute(script)", "RemNext(1)", "broken.GetAttribute(script)"}));
}

TEST_F(ScriptsForAction, AnUnreadableScriptDecidesTheStatusWithoutRows)
{
    const auto broken = host.Object("broken");
    broken->Fail(L"script", E_ACCESSDENIED);
    Finds({broken, Action("a2", Script("weld"))});
    EXPECT_EQ(GetActions(), E_ACCESSDENIED);
    EXPECT_EQ(Rows(), TextRows{});
}

TEST_F(ScriptsForAction, AScriptThatIsNoDataObjectEndsTheWalk)
{
    const auto notAScript = host.Object("not a script");
    notAScript->Set(L"script",
                    static_cast<IUnknown*>(static_cast<IEnumBaseDataObject*>(host.List({}).get())));
    Finds({notAScript, Action("a2", Script("weld"))});
    EXPECT_EQ(GetActions(), E_NOINTERFACE);
    EXPECT_EQ(Rows(), TextRows{});
    EXPECT_EQ(Walked(), (Calls{"RemNext(1)", "not a script.GetAttribute(script)"}));
}

TEST_F(ScriptsForAction, ANullReferenceToAScriptEndsTheWalk)
{
    const auto dangling = host.Object("dangling");
    dangling->Set(L"script", static_cast<IUnknown*>(nullptr));
    Finds({dangling, Action("a2", Script("weld"))});
    EXPECT_EQ(GetActions(), E_NOINTERFACE);
    EXPECT_EQ(Rows(), TextRows{});
    Finds({Action("a1", Script("weld")), dangling, Action("a2", Script("weld"))});
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"<a1>", "<weld>"}}));
}

TEST_F(ScriptsForAction, AnActionWithoutAScriptIsOmitted)
{
    const auto weld = Script("weld");
    const auto without = host.Object("without");
    const auto text = host.Object("text");
    text->Set(L"script", L"weld");
    const auto empty = host.Object("empty");
    empty->Fail(L"script", S_OK);
    const auto unsure = host.Object("unsure");
    VARIANT reference;
    reference.vt = VT_UNKNOWN;
    reference.punkVal = static_cast<IQP_BaseDataObject*>(weld.get());
    unsure->Answer(L"script", S_FALSE, reference);
    const auto null = host.Object("null");
    SetNull(null, L"script");
    const auto dispatch = host.Object("dispatch");
    SetDispatch(dispatch, L"script", weld);
    Finds({without, text, empty, unsure, null, dispatch, Action("a7", weld)});
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"<a7>", "<weld>"}}));
}

TEST_F(ScriptsForAction, TheLastReadIsTheStatusWhenEveryActionIsOmitted)
{
    Finds({host.Object("without")});
    EXPECT_EQ(GetActions(), S_FALSE);
    EXPECT_EQ(Rows(), TextRows{});
}

TEST_F(ScriptsForAction, AScriptBehindAReferenceIsFollowed)
{
    const auto weld = Script("weld");
    IUnknown* object = static_cast<IQP_BaseDataObject*>(weld.get());
    VARIANT reference;
    reference.vt = VT_BYREF | VT_UNKNOWN;
    reference.ppunkVal = &object;
    const auto action = host.Object("a1");
    action->Answer(L"script", S_OK, reference);
    Finds({action});
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"<a1>", "<weld>"}}));
}

TEST_F(ScriptsForAction, TheScriptOfARowIsTheDataObjectNotItsReference)
{
    const auto action = host.Object("a1");
    action->Set(L"script", host.ReferenceTo("reference", Script("weld")).get());
    Finds({action});
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"<a1>", "<weld>"}}));
}

TEST_F(ScriptsForAction, ANullObjectEndsTheWalk)
{
    const auto weld = Script("weld");
    Finds({Action("a1", weld), nullptr, Action("a3", weld)});
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows(), (TextRows{{"<a1>", "<weld>"}}));
}

TEST_F(ScriptsForAction, AnotherStatusEndsTheWalkAndIsNotReturned)
{
    const auto weld = Script("weld");
    for (const HRESULT status : {E_FAIL, S_FALSE, static_cast<HRESULT>(2)})
    {
        CreateComObject<qptools::XScriptActionAndCommandManager>(
            nullptr, __uuidof(IScriptActionAndCommandManager), manager.putVoid());
        Finds({Action("a1", weld), Action("a2", weld)});
        query.result->statuses[1] = status;
        EXPECT_EQ(GetActions(), S_OK);
        EXPECT_EQ(Rows(), (TextRows{{"<a1>", "<weld>"}}));

        query.result->statuses[0] = status;
        CreateComObject<qptools::XScriptActionAndCommandManager>(
            nullptr, __uuidof(IScriptActionAndCommandManager), manager.putVoid());
        EXPECT_EQ(GetActions(), S_OK) << "no host call that counts was made";
        EXPECT_EQ(Rows(), TextRows{});
    }
}

TEST_F(ScriptsForAction, TheOldValueOfTheVariantIsCleared)
{
    const int before = host.LiveObjects();
    {
        const auto old = host.Object("old");
        result.Value().vt = VT_UNKNOWN;
        result.Value().punkVal = static_cast<IQP_BaseDataObject*>(old.get());
        old->AddRef();
    }
    EXPECT_EQ(host.LiveObjects(), before + 1);
    Finds({});
    const Bstr type(L"machine");
    EXPECT_EQ(manager->GetScriptsForAction(&query, set.get(), type.get(), nullptr, 7, 1, &result.Value()),
              S_OK);
    EXPECT_EQ(Rows(), TextRows{});
    query.result.reset();
    EXPECT_EQ(host.LiveObjects(), before);
}

TEST_F(ScriptsForAction, WithoutAVariantTheSearchAndTheWalkStillRun)
{
    Finds({Action("a1", Script("weld"))});
    const Bstr type(L"machine");
    EXPECT_EQ(manager->GetScriptsForAction(&query, set.get(), type.get(), nullptr, 7, 1, nullptr), S_OK);
    EXPECT_EQ(Walked(), (Calls{"RemNext(1)", "a1.GetAttribute(script)", "RemNext(1)"}));
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(Rows().size(), 2u) << "the first call's row was kept";
}

TEST_F(ScriptsForAction, OnlyTheSearchRunsInsideTheUiState)
{
    Finds({Action("a1", Script("weld"))});
    std::vector<std::string> outside;
    host.onCall = [&](const std::string& call) {
        if (CUiState::Depth() == 0)
            outside.push_back(call);
    };
    const unsigned entries = CUiState::Entries();
    EXPECT_EQ(GetActions(), S_OK);
    EXPECT_EQ(outside, (Calls{"RemNext(1)", "a1.GetAttribute(script)", "RemNext(1)"}));
    EXPECT_EQ(CUiState::Entries() - entries, 1u);
}
} // namespace
