// Which scripts the script list shows.
#include "LookupFixture.h"
#include "XSelectOrvoitemDlg.h"

#include <algorithm>

namespace
{
using namespace qptools;

class ScriptCollection : public LookupFixture
{
protected:
    ScriptCollection() { object->Is(L"XDOOrvoProject"); }

    HRESULT Collect(IQP_Query* query)
    {
        host.calls.clear();
        scripts.clear();
        return XSelectOrvoitemDlg(nullptr, L"script", object.get(), query).CollectScripts(scripts);
    }
    HRESULT Collect() { return Collect(&host.Query()); }

    void Finds(std::vector<ComPtr<MemoryObject>> objects)
    {
        host.Query().result = host.List(std::move(objects));
    }

    std::vector<std::string> Found() const
    {
        std::vector<std::string> names;
        for (const auto& [pointer, record] : scripts)
            names.push_back(host.NameOf(pointer));
        std::sort(names.begin(), names.end());
        return names;
    }

    std::vector<ComPtr<MemoryObject>> Several(int count)
    {
        std::vector<ComPtr<MemoryObject>> made;
        for (int number = 0; number < count; ++number)
            made.push_back(host.Object("script" + std::to_string(number)));
        return made;
    }

    static Calls Reads(const std::string& script)
    {
        Calls calls;
        for (const char* name :
             {"name", "m_pDODefaultImpl", "languagetype", "creationdate", "modificationdate"})
            calls.push_back(script + ".GetAttribute(" + name + ")");
        return calls;
    }
    static std::string Right(const std::string& script) { return script + ".HasRight(4)"; }

    const Calls search = {"object.IsDerivedFromClass(XDOOrvoProject)",
                          "ResetSearch(0)",
                          "SetSearchTable(script)",
                          "SetSearchAttribute(dodefaultimpl, 1, UNKNOWN object, 1)",
                          "SetSearchAttribute(dodefaultimpl, 1, EMPTY, 2)",
                          "GetSearchResult()"};

    const ComPtr<MemoryObject> object = host.Object("object");
    ScriptMap scripts;
};

TEST_F(ScriptCollection, SearchesTheScriptsOfTheProjectAndThoseOfNone)
{
    Finds({});
    EXPECT_EQ(Collect(), S_OK);
    EXPECT_CALLS(search + Calls{"RemNext(25)"});
}

TEST_F(ScriptCollection, ChecksTheRightBeforeItReadsTheScript)
{
    Finds({host.Object("s1"), host.Object("s2")});
    EXPECT_EQ(Collect(), S_OK);
    EXPECT_CALLS(search + Calls{"RemNext(25)", Right("s1")} + Reads("s1") + Calls{Right("s2")} + Reads("s2"));
    EXPECT_EQ(Found(), (Entries{"s1", "s2"}));
}

TEST_F(ScriptCollection, AScriptThatTheUserMayNotRunIsOmittedAfterOneCall)
{
    auto refused = host.Object("refused");
    refused->right = S_FALSE;
    auto failing = host.Object("failing");
    failing->right = E_FAIL;
    Finds({refused, failing, host.Object("s")});
    EXPECT_EQ(Collect(), S_OK);
    EXPECT_CALLS(search + Calls{"RemNext(25)", Right("refused"), Right("failing"), Right("s")} + Reads("s"));
    EXPECT_EQ(Found(), Entries{"s"});
    Finds({host.Object("s"), failing});
    EXPECT_EQ(Collect(), S_OK) << "the status of a right that is not held is no failure";
}

TEST_F(ScriptCollection, AScriptWithoutARightsServiceIsOmitted)
{
    auto mute = host.Object("mute");
    mute->offersRights = false;
    Finds({mute, host.Object("s")});
    EXPECT_EQ(Collect(), S_OK);
    EXPECT_EQ(Found(), Entries{"s"});
}

TEST_F(ScriptCollection, FiveReadsAScriptAndOneRightEach)
{
    std::vector<ComPtr<MemoryObject>> found = Several(60);
    for (std::size_t index = 0; index < found.size(); index += 3)
        found[index]->right = S_FALSE;
    Finds(found);
    EXPECT_EQ(Collect(), S_OK);
    const auto containing = [this](const char* part) {
        return std::count_if(host.calls.begin(), host.calls.end(), [part](const std::string& call) {
            return call.find(part) != std::string::npos;
        });
    };
    EXPECT_EQ(containing("HasRight"), 60);
    EXPECT_EQ(containing("GetAttribute("), 5 * 40);
    EXPECT_EQ(containing("RemNext(25)"), 3);
    EXPECT_EQ(scripts.size(), 40u);
}

TEST_F(ScriptCollection, AFullLastBatchIsFollowedByOneMoreCall)
{
    Finds(Several(25));
    EXPECT_EQ(Collect(), S_OK);
    EXPECT_EQ(scripts.size(), 25u);
    EXPECT_EQ(host.calls.back(), "RemNext(25)");
}

TEST_F(ScriptCollection, ARecordHoldsWhatTheHostGave)
{
    auto script = host.Object("s");
    script->Set(L"name", L"Check")->Set(L"m_pDODefaultImpl", object)->Set(L"languagetype", LONG{3});
    script->Set(L"creationdate", L"2020-01-02")->Set(L"modificationdate", L"2021-03-04");
    Finds({script});
    EXPECT_EQ(Collect(), S_OK);
    ASSERT_EQ(scripts.size(), 1u);
    ScriptRecord& record = scripts.begin()->second;
    ASSERT_EQ(record.size(), 6u);
    EXPECT_EQ(record[kScriptObject].Type(), VT_UNKNOWN);
    EXPECT_EQ(record[kScriptObject].Value().punkVal, static_cast<Data*>(script.get()));
    EXPECT_STREQ(record[kScriptName].GetString(), L"Check");
    EXPECT_STREQ(record[kScriptLocation].GetString(), L"Project Lib");
    EXPECT_EQ(record[kScriptLanguage].Type(), VT_I4);
    EXPECT_EQ(record[kScriptLanguage].GetInt(), 3);
    EXPECT_STREQ(record[kScriptCreationDate].GetString(), L"2020-01-02");
    EXPECT_STREQ(record[kScriptModificationDate].GetString(), L"2021-03-04");
}

TEST_F(ScriptCollection, TheLocationIsTheProjectOfAReferenceElseTheLibrary)
{
    const auto locationOf = [this](const VARIANT& value) {
        auto script = host.Object("s");
        script->Answer(L"m_pDODefaultImpl", S_OK, value);
        Finds({script});
        EXPECT_EQ(Collect(), S_OK);
        return std::wstring(scripts.begin()->second[kScriptLocation].GetString());
    };
    Data* const target = object.get();
    EXPECT_EQ(locationOf(Reference(VT_UNKNOWN, target)), L"Project Lib");
    EXPECT_EQ(locationOf(Reference(VT_UNKNOWN, noDataObject.get())), L"Project Lib");
    EXPECT_EQ(locationOf(Reference(VT_UNKNOWN, nullptr)), L"Library");
    EXPECT_EQ(locationOf(Reference(VT_DISPATCH, target)), L"Library");
    EXPECT_EQ(locationOf(XQPComVariant()), L"Library");
    EXPECT_EQ(locationOf(XQPComVariant(L"text")), L"Library");
}

TEST_F(ScriptCollection, AFailedReadLeavesItsValueEmptyAndTheOthersAreRead)
{
    auto script = host.Object("s");
    script->Set(L"name", L"Check")->Set(L"modificationdate", L"2021");
    script->Fail(L"m_pDODefaultImpl", E_FAIL)->Fail(L"languagetype", E_ACCESSDENIED);
    Finds({script});
    EXPECT_EQ(Collect(), S_OK);
    EXPECT_CALLS(search + Calls{"RemNext(25)", Right("s")} + Reads("s"));
    ScriptRecord& record = scripts.begin()->second;
    EXPECT_STREQ(record[kScriptLocation].GetString(), L"Library");
    EXPECT_EQ(record[kScriptLanguage].Type(), VT_EMPTY);
    EXPECT_EQ(record[kScriptCreationDate].Type(), VT_EMPTY);
    EXPECT_STREQ(record[kScriptModificationDate].GetString(), L"2021");
}

TEST_F(ScriptCollection, AnObjectFoundTwiceKeepsItsFirstRecord)
{
    auto script = host.Object("s");
    script->Set(L"name", L"first");
    Finds({script, host.Object("t"), script});
    host.onCall = [&](const std::string& call) {
        if (call == "t.HasRight(4)")
            script->Set(L"name", L"second");
    };
    EXPECT_EQ(Collect(), S_OK);
    EXPECT_EQ(Found(), (Entries{"s", "t"}));
    EXPECT_STREQ(scripts.at(script.get())[kScriptName].GetString(), L"first");
}

TEST_F(ScriptCollection, TheProjectIsThatOfTheObject)
{
    const auto planItem = host.Object("item");
    planItem->Is(L"XDOOrvoItem")->Set(L"orvoproject", object);
    Finds({});
    EXPECT_EQ(XSelectOrvoitemDlg(nullptr, L"script", planItem.get(), &host.Query()).CollectScripts(scripts),
              S_OK);
    EXPECT_NE(std::find(host.calls.begin(), host.calls.end(), search[3]), host.calls.end());
}

TEST_F(ScriptCollection, WithoutAProjectTheScriptsOfNoneAreSearched)
{
    const Calls ofNone = {"ResetSearch(0)", "SetSearchTable(script)",
                          "SetSearchAttribute(dodefaultimpl, 1, EMPTY, 2)", "GetSearchResult()",
                          "RemNext(25)"};
    Finds({});
    const auto outside = host.Object("outside");
    const auto component = host.Object("component");
    component->Is(L"XDOOrvoItem")->Is(L"XDOWorkSystemComponent");
    for (const ComPtr<MemoryObject>& asked : {outside, component})
    {
        host.calls.clear();
        EXPECT_EQ(XSelectOrvoitemDlg(nullptr, L"script", asked.get(), &host.Query()).CollectScripts(scripts),
                  S_OK);
        host.calls.erase(host.calls.begin(), std::find(host.calls.begin(), host.calls.end(), ofNone[0]));
        EXPECT_CALLS(ofNone);
    }
}

TEST_F(ScriptCollection, AnUnreadableProjectEndsItBeforeTheSearch)
{
    const auto broken = host.Object("broken");
    broken->Is(L"XDOOrvoItem")->Fail(L"orvoproject", E_ACCESSDENIED);
    EXPECT_EQ(XSelectOrvoitemDlg(nullptr, L"script", broken.get(), &host.Query()).CollectScripts(scripts),
              E_ACCESSDENIED);
    EXPECT_EQ(host.calls.back(), "broken.GetAttribute(orvoproject)");
    EXPECT_EQ(XSelectOrvoitemDlg(nullptr, L"script", nullptr, &host.Query()).CollectScripts(scripts),
              E_INVALIDARG);
}

TEST_F(ScriptCollection, WithoutAQueryThereIsAFailureAndNoCrash)
{
    EXPECT_EQ(Collect(nullptr), E_POINTER);
    EXPECT_TRUE(scripts.empty());
}

TEST_F(ScriptCollection, AStatusOfTheFirstTwoStepsOfTheSearchIsReturned)
{
    Finds({host.Object("s")});
    for (const HRESULT status : {S_FALSE, E_FAIL})
    {
        host.Query().resetStatus = status;
        EXPECT_EQ(Collect(), status);
        EXPECT_EQ(host.calls.back(), "ResetSearch(0)");
        host.Query().resetStatus = S_OK;
        host.Query().tableStatus = status;
        EXPECT_EQ(Collect(), status);
        EXPECT_EQ(host.calls.back(), "SetSearchTable(script)");
        host.Query().tableStatus = S_OK;
        EXPECT_TRUE(scripts.empty());
    }
}

TEST_F(ScriptCollection, ARefusedCriterionFindsNothingAndIsNoFailure)
{
    Finds({host.Object("s")});
    for (const HRESULT status : {S_FALSE, E_FAIL})
    {
        host.Query().criterionStatus = status;
        EXPECT_EQ(Collect(), S_OK);
        EXPECT_TRUE(scripts.empty());
        EXPECT_EQ(host.calls.back(), "SetSearchAttribute(dodefaultimpl, 1, EMPTY, 2)");
    }
}

TEST_F(ScriptCollection, AnyStatusOfTheSearchIsTheResultWithNothingFound)
{
    Finds({host.Object("s")});
    for (const HRESULT status : {S_FALSE, E_FAIL})
    {
        host.Query().resultStatus = status;
        EXPECT_EQ(Collect(), status);
        EXPECT_EQ(host.calls.back(), "GetSearchResult()");
        EXPECT_TRUE(scripts.empty());
    }
}

TEST_F(ScriptCollection, ASearchWithoutAnEnumeratorFindsNothing)
{
    host.Query().result.reset();
    EXPECT_EQ(Collect(), S_OK);
    EXPECT_TRUE(scripts.empty());
}

TEST_F(ScriptCollection, AFailedStepEndsTheWalkWithTheRowsBefore)
{
    Finds(Several(60));
    host.Query().result->statuses[1] = E_FAIL;
    EXPECT_EQ(Collect(), S_OK);
    EXPECT_EQ(scripts.size(), 25u);
}

TEST_F(ScriptCollection, ANullScriptDropsTheRestOfItsBatch)
{
    Finds({host.Object("s"), {}, host.Object("t")});
    EXPECT_EQ(Collect(), E_POINTER);
    EXPECT_EQ(Found(), Entries{"s"});
}

TEST_F(ScriptCollection, AScriptInALaterBatchMakesANullForgotten)
{
    std::vector<ComPtr<MemoryObject>> found = Several(30);
    found[10].reset();
    Finds(found);
    EXPECT_EQ(Collect(), S_OK);
    EXPECT_EQ(scripts.size(), 15u) << "10 of the first batch, 5 of the second";
}

TEST_F(ScriptCollection, ANullIsForgottenAfterALaterScriptThatMayNotBeRun)
{
    std::vector<ComPtr<MemoryObject>> found = Several(26);
    found[24].reset();
    found[25]->right = E_FAIL;
    Finds(found);
    EXPECT_EQ(Collect(), S_OK);
    EXPECT_EQ(scripts.size(), 24u);
}

TEST_F(ScriptCollection, ALaterScriptWithoutARightsServiceDoesNot)
{
    std::vector<ComPtr<MemoryObject>> found = Several(26);
    found[24].reset();
    found[25]->offersRights = false;
    Finds(found);
    EXPECT_EQ(Collect(), E_POINTER);
}

TEST_F(ScriptCollection, NoScriptIsNoRecord)
{
    const XSelectOrvoitemDlg dialog(nullptr, L"script", object.get(), nullptr);
    EXPECT_EQ(dialog.AddScriptVectorToMap(nullptr, scripts), E_POINTER);
    EXPECT_TRUE(scripts.empty());
}

TEST_F(ScriptCollection, EverythingIsReleased)
{
    const int before = host.LiveObjects();
    const ULONG held = References(object);
    const ULONG queried = host.Query().References();
    Finds(Several(30));
    EXPECT_EQ(Collect(), S_OK);
    scripts.clear();
    host.Query().result.reset();
    EXPECT_EQ(host.LiveObjects(), before);
    EXPECT_EQ(References(object), held);
    EXPECT_EQ(host.Query().References(), queried);
}
} // namespace
