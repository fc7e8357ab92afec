// The choice of a script: what is listed, what ends it, and its results.
#include "ScriptPickerFixture.h"

#include <functional>

namespace
{
const std::string kFailed = "XSelectOrvoitemDlg::OnInitDialog  GetScriptsFromProject";

class ScriptPicker : public ScriptPickerFixture
{
protected:
    ScriptPicker() { Finds({weld, drill, paint}); }

    /// The one whose pointer is the lowest.
    std::string Lowest() const
    {
        const MemoryObject* lowest = std::min({weld.get(), drill.get(), paint.get()}, std::less<>());
        return lowest->Name();
    }

    const ComPtr<MemoryObject> weld = Script("weld");
    const ComPtr<MemoryObject> drill = Script("drill");
    const ComPtr<MemoryObject> paint = Script("paint");
};

TEST_F(ScriptPicker, TheFirstRowIsTheLowestPointerAndIsSelectedAtFirst)
{
    resultFollowsAddresses = true;
    EXPECT_EQ(Show({Sees(RowSelected(0)), Presses(IDOK)}), (Outcome{S_OK, Lowest()}));
}

TEST_F(ScriptPicker, RowsFollowThePointersAndNothingElse)
{
    std::vector<ComPtr<MemoryObject>> scripts = {weld, drill, paint};
    std::sort(scripts.begin(), scripts.end(),
              [](const auto& one, const auto& other) { return std::less<>()(one.get(), other.get()); });
    Texts expected;
    for (const auto& script : scripts)
        expected.emplace_back(script->Name().begin(), script->Name().end());
    Show({Sees(InColumn(0, expected)), Presses(IDCANCEL)});
}

TEST_F(ScriptPicker, TheScriptHasAReferenceForTheCaller)
{
    const ULONG before = References(weld);
    dialogs.OnDialog({Selects(L"weld"), Presses(IDOK)});
    IQP_BaseDataObject* selected = nullptr;
    EXPECT_EQ(item->ShowDialog(project.get(), XQPComBSTR(L"script"), &selected), S_OK);
    EXPECT_EQ(selected, weld.get());
    EXPECT_EQ(References(weld), before + 1);
    selected->Release();
}

TEST_F(ScriptPicker, AChoiceWithNowhereToWriteItIsABadPointer)
{
    dialogs.OnDialog({Presses(IDOK)});
    EXPECT_EQ(item->ShowDialog(project.get(), XQPComBSTR(L"script"), nullptr), E_POINTER);
    dialogs.OnDialog({Presses(IDCANCEL)});
    EXPECT_EQ(item->ShowDialog(project.get(), XQPComBSTR(L"script"), nullptr), S_FALSE);
}

TEST_F(ScriptPicker, OpeningReadsFiveAttributesOfEachScriptThatMayBeRun)
{
    drill->right = S_FALSE;
    Show({Sees(RowCount(2)), Presses(IDCANCEL)});
    Calls expected = {"project.IsDerivedFromClass(XDOOrvoProject)",
                      "ResetSearch(0)",
                      "SetSearchTable(script)",
                      "SetSearchAttribute(dodefaultimpl, 1, UNKNOWN project, 1)",
                      "SetSearchAttribute(dodefaultimpl, 1, EMPTY, 2)",
                      "GetSearchResult()",
                      "RemNext(25)"};
    for (const char* name : {"weld", "drill", "paint"})
    {
        const std::string script = name;
        expected.push_back(script + ".HasRight(4)");
        if (script == "drill")
            continue;
        for (const char* attribute :
             {"name", "m_pDODefaultImpl", "languagetype", "creationdate", "modificationdate"})
            expected.push_back(script + ".GetAttribute(" + attribute + ")");
    }
    EXPECT_TRACE(expected);
}

TEST_F(ScriptPicker, ChoosingMakesNoHostCallAtAll)
{
    Show({[&](DialogView&) { host.calls.clear(); }, Selects(L"paint"), Presses(IDOK)});
    EXPECT_TRACE(Calls{});
}

TEST_F(ScriptPicker, APlanItemGetsTheScriptsOfItsProject)
{
    const auto planItem = host.Object("item");
    planItem->Is(L"XDOOrvoItem")->Set(L"orvoproject", project);
    EXPECT_EQ(Show({Selects(L"weld"), Presses(IDOK)}, L"script", planItem), (Outcome{S_OK, "weld"}));
    EXPECT_NE(std::find(host.calls.begin(), host.calls.end(),
                        "SetSearchAttribute(dodefaultimpl, 1, UNKNOWN project, 1)"),
              host.calls.end());
}

// What is not listed.

TEST_F(ScriptPicker, ScriptsThatMayNotBeRunAreOmitted)
{
    drill->right = E_FAIL;
    paint->offersRights = false;
    Show({Sees(InColumn(0, Texts{L"weld"})), Presses(IDCANCEL)});
}

TEST_F(ScriptPicker, WithNoScriptThereIsAMessageAndNoChoice)
{
    Finds({});
    EXPECT_EQ(ShowMessage(L"Select Script", L"No scripts available."), (Outcome{S_FALSE, "untouched"}));
    EXPECT_EQ(boxes.Shown()[0].buttons, static_cast<UINT>(MB_OK));
    EXPECT_EQ(boxes.Shown()[0].icon, static_cast<UINT>(MB_ICONINFORMATION));
    EXPECT_EQ(host.calls.back(), "box Select Script: No scripts available.");
}

TEST_F(ScriptPicker, WithNoScriptThatMayBeRunThereIsTheSameMessage)
{
    for (const auto& script : {weld, drill, paint})
        script->right = S_FALSE;
    EXPECT_EQ(ShowMessage(L"Select Script", L"No scripts available."), (Outcome{S_FALSE, "untouched"}));
}

TEST_F(ScriptPicker, AnyOtherKindShowsAnErrorWithoutAHostCall)
{
    const std::wstring longName(10'000, L's');
    for (const wchar_t* kind : {L"Script", L"scripts", L"script ", L"", L"orvoitem", longName.c_str(),
                                static_cast<const wchar_t*>(nullptr)})
    {
        EXPECT_EQ(ShowMessage(L"Error", L"Unknown error.", kind), (Outcome{S_FALSE, "untouched"}));
        EXPECT_TRACE(Calls{"box Error: Unknown error."});
    }
    EXPECT_EQ(boxes.Shown()[0].icon, static_cast<UINT>(MB_ICONINFORMATION));
}

// A search that fails.

class FailedSearch : public ScriptPicker
{
protected:
    /// The list stays open and empty: OK shows a message, Cancel closes it.
    void ExpectEmptyList(const ComPtr<MemoryObject>& of, const std::string& status)
    {
        ExpectBox(L"Execute script", L"Please select a script.");
        EXPECT_EQ(Show({Sees(RowCount(0)), Sees(Titled(L"Orvoitems")),
                        [](DialogView& view) { EXPECT_EQ(view.Columns(view.List()).size(), 6u); },
                        Presses(IDOK), Presses(IDCANCEL)},
                       L"script", of),
                  (Outcome{S_FALSE, "untouched"}));
        EXPECT_EQ(logBook.Entries(), Entries{LogBook::HostCall(status, 102, kFailed)});
    }
};

TEST_F(FailedSearch, IsReportedAndTheListStaysOpenEmpty)
{
    host.Query().resultStatus = E_FAIL;
    ExpectEmptyList(project, "0x80004005");
}

TEST_F(FailedSearch, CanBeLeftByEscape)
{
    host.Query().resetStatus = E_FAIL;
    EXPECT_EQ(Show({Types("Escape")}), (Outcome{S_FALSE, "untouched"}));
}

TEST_F(FailedSearch, MayBeThatOfTheProject)
{
    const auto broken = host.Object("broken");
    broken->Is(L"XDOOrvoItem")->Fail(L"orvoproject", E_ACCESSDENIED);
    ExpectEmptyList(broken, "0x80070005");
}

TEST_F(FailedSearch, MayBeThatThereIsNoObject)
{
    ExpectEmptyList(nullptr, "0x80070057");
}

TEST_F(FailedSearch, MayBeThatThereIsNoQuery)
{
    item.reset();
    ASSERT_EQ(module.Create(CLSID_QPSelectOrvoItem, item), S_OK);
    ExpectEmptyList(project, "0x80004003");
}

TEST_F(FailedSearch, MayBeANullScriptAtTheEnd)
{
    Finds({weld, {}});
    ExpectEmptyList(project, "0x80004003");
}

TEST_F(FailedSearch, WithAPositiveStatusIsNoFailureButFindsNothing)
{
    host.Query().resultStatus = S_FALSE;
    EXPECT_EQ(ShowMessage(L"Select Script", L"No scripts available."), (Outcome{S_FALSE, "untouched"}));
    host.Query().resultStatus = S_OK;
    host.Query().criterionStatus = E_FAIL;
    EXPECT_EQ(ShowMessage(L"Select Script", L"No scripts available."), (Outcome{S_FALSE, "untouched"}));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

// OK without a usable selection.

TEST_F(ScriptPicker, OkWithoutASelectionShowsAMessageAndStays)
{
    ExpectBox(L"Execute script", L"Please select a script.");
    EXPECT_EQ(Show({SelectsNone(), Presses(IDOK), Selects(L"drill"), Presses(IDOK)}),
              (Outcome{S_OK, "drill"}));
    EXPECT_EQ(boxes.Shown()[0].icon, static_cast<UINT>(MB_ICONINFORMATION));
}

TEST_F(ScriptPicker, AnObjectThatIsNoLongerDataGivesTheSameMessage)
{
    ExpectBox(L"Execute script", L"Please select a script.");
    EXPECT_EQ(Show({Selects(L"weld"), [&](DialogView&) { weld->offersData = false; }, Presses(IDOK),
                    Selects(L"drill"), Presses(IDOK)}),
              (Outcome{S_OK, "drill"}));
}

TEST_F(ScriptPicker, WithoutAListTheDialogOpensUnchangedAndCanBeClosed)
{
    const NoLists noLists;
    ExpectBox(L"Execute script", L"Please select a script.");
    EXPECT_EQ(Show({Sees(Titled(L"Orvoitems")), Sees(Hidden(kFrame)), Presses(IDOK), Presses(IDCANCEL)}),
              (Outcome{S_FALSE, "untouched"}));
    EXPECT_TRACE(Calls{"box Execute script: Please select a script."});
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ScriptPicker, ADialogThatCannotBeShownIsNoChoice)
{
    const NoDialogs noDialogs;
    EXPECT_EQ(Show({}), (Outcome{S_FALSE, "untouched"}));
    EXPECT_TRACE(Calls{});
    EXPECT_EQ(item->ShowDialog(project.get(), XQPComBSTR(L"script"), nullptr), S_FALSE);
}

TEST_F(ScriptPicker, TheWaitCursorShowsWhileTheChoiceIsHandedOver)
{
    const HCURSOR waiting = LoadCursorW(nullptr, IDC_WAIT);
    HCURSOR last = nullptr;
    Finds({weld});
    dialogs.OnDialog({Presses(IDOK)});
    host.onReference = [&] {
        last = GetCursor();
    };
    IQP_BaseDataObject* selected = nullptr;
    EXPECT_EQ(item->ShowDialog(project.get(), XQPComBSTR(L"script"), &selected), S_OK);
    EXPECT_EQ(last, waiting);
    EXPECT_NE(GetCursor(), waiting);
    host.onReference = nullptr;
    ASSERT_EQ(selected, weld.get());
    selected->Release();
}

// The query.

TEST_F(ScriptPicker, AnObjectThatIsNoQueryTakesTheQueryAway)
{
    XQPComVariant other;
    other.Value().vt = VT_UNKNOWN;
    other.Value().punkVal = weld->AddRef() ? static_cast<IQP_BaseDataObject*>(weld.get()) : nullptr;
    EXPECT_EQ(item->Initialize(&other.Value()), S_OK);
    EXPECT_EQ(Show({Presses(IDCANCEL)}), (Outcome{S_FALSE, "untouched"}));
    EXPECT_EQ(logBook.Entries(), Entries{LogBook::HostCall("0x80004003", 102, kFailed)});
}

TEST_F(ScriptPicker, EverythingIsReleased)
{
    const ULONG held = References(project) + References(weld) + References(drill) + References(paint);
    const ULONG queried = host.Query().References();
    Show({Selects(L"weld"), Presses(IDOK)});
    Show({Presses(IDCANCEL)});
    EXPECT_EQ(References(project) + References(weld) + References(drill) + References(paint), held);
    EXPECT_EQ(host.Query().References(), queried);
}
} // namespace
