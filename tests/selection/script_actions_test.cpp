// The routines about script actions, which nothing calls.
#include "LookupFixture.h"
#include "XSelectOrvoitemDlg.h"

namespace
{
using qptools::ScriptActionMap;
using qptools::XSelectOrvoitemDlg;

class ScriptActions : public LookupFixture
{
protected:
    ScriptActions() { project->Is(L"XDOOrvoProject"); }

    HRESULT Query(const ComPtr<MemoryObject>& asked)
    {
        host.calls.clear();
        return XSelectOrvoitemDlg(nullptr, L"script", asked.get(), &host.Query()).ScriptQuery(actions);
    }

    void Has(std::vector<ComPtr<MemoryObject>> objects, HRESULT status = S_OK)
    {
        list = host.List(std::move(objects));
        project->Children(L"scriptactions", list, status);
    }

    const ComPtr<MemoryObject> project = host.Object("project");
    ComPtr<MemoryEnum> list;
    ScriptActionMap actions;
};

TEST_F(ScriptActions, AreThoseOfTheProjectOneAfterAnother)
{
    Has({host.Object("a1"), host.Object("a2")});
    EXPECT_EQ(Query(project), S_OK);
    Calls expected = {"project.IsDerivedFromClass(XDOOrvoProject)", "project.GetChildren(scriptactions)"};
    for (const char* action : {"a1", "a2"})
    {
        expected.emplace_back("RemNext(1)");
        for (const char* name : {"name", "project", "script", "orvoplantype", "actiontype", "beforeafter",
                                 "creationdate", "modificationdate"})
            expected.push_back(std::string(action) + ".GetAttribute(" + name + ")");
    }
    EXPECT_CALLS(expected + Calls{"RemNext(1)"});
    EXPECT_EQ(actions.size(), 2u);
}

TEST_F(ScriptActions, ANullAmongThemIsSkipped)
{
    Has({host.Object("a1"), {}, host.Object("a2")});
    EXPECT_EQ(Query(project), S_OK);
    EXPECT_EQ(actions.size(), 2u);
}

TEST_F(ScriptActions, WithoutAProjectThereIsAReport)
{
    EXPECT_EQ(Query(host.Object("outside")), E_POINTER);
    const auto component = host.Object("component");
    component->Is(L"XDOOrvoItem")->Is(L"XDOWorkSystemComponent");
    EXPECT_EQ(Query(component), E_POINTER);
    const std::string entry =
        LogBook::HostCall("0x80004003", 385, "XSelectOrvoitemDlg::ScriptQuery    piPrj: Invalid");
    EXPECT_EQ(logBook.Entries(), (Entries{entry, entry}));
}

TEST_F(ScriptActions, ThatCannotBeListedAreReportedWithTheirStatus)
{
    for (const HRESULT status : {E_FAIL, S_FALSE})
    {
        const auto another = host.Object("another");
        another->Is(L"XDOOrvoProject")->Children(L"scriptactions", host.List({}), status);
        EXPECT_EQ(Query(another), status);
    }
    const auto empty = host.Object("empty");
    empty->Is(L"XDOOrvoProject")->Children(L"scriptactions", {}, S_OK);
    EXPECT_EQ(Query(empty), S_OK);
    const std::string text = "m_ptrDataObject->GetChildren(scriptactions)";
    EXPECT_EQ(logBook.Entries(),
              (Entries{LogBook::HostCall("0x80004005", 394, text), LogBook::HostCall("0x00000001", 394, text),
                       LogBook::HostCall("0x00000000", 394, text)}));
}

TEST_F(ScriptActions, ARecordHoldsObjectsAndNumbersAsTheyAre)
{
    const auto script = host.Object("script");
    const auto planType = host.Object("plantype");
    const auto itsProject = host.Object("its project");
    auto action = host.Object("a");
    action->Set(L"name", L"Check")->Set(L"project", itsProject)->Set(L"script", script);
    action->Set(L"orvoplantype", planType)->Set(L"actiontype", LONG{7})->Set(L"beforeafter", LONG{-1});
    action->Set(L"creationdate", L"2020")->Set(L"modificationdate", L"2021");
    Has({action});
    EXPECT_EQ(Query(project), S_OK);
    qptools::ScriptActionRecord& record = actions.at(action.get());
    EXPECT_EQ(record.action.get(), action.get());
    EXPECT_STREQ(record.name.GetString(), L"Check");
    EXPECT_EQ(record.project.get(), itsProject.get());
    EXPECT_EQ(record.script.get(), script.get());
    EXPECT_EQ(record.planType.get(), planType.get());
    EXPECT_EQ(record.actionType, 7);
    EXPECT_EQ(record.beforeAfter, -1);
    EXPECT_STREQ(record.creationDate.GetString(), L"2020");
    EXPECT_STREQ(record.modificationDate.GetString(), L"2021");
}

TEST_F(ScriptActions, NumbersAreReadAsBitsAndNotConverted)
{
    VARIANT number;
    VariantInit(&number);
    number.vt = VT_R4;
    number.fltVal = 1.0F;
    auto action = host.Object("a");
    action->Answer(L"actiontype", S_OK, number)->Answer(L"beforeafter", S_OK, number);
    Has({action});
    EXPECT_EQ(Query(project), S_OK);
    EXPECT_EQ(actions.at(action.get()).actionType, 0x3F800000);
    EXPECT_EQ(actions.at(action.get()).beforeAfter, 0x3F800000);
}

TEST_F(ScriptActions, WhatCannotBeReadIsEmpty)
{
    auto action = host.Object("a");
    action->Fail(L"project", E_FAIL)->Set(L"script", noDataObject.get())->Set(L"orvoplantype", L"text");
    Has({action});
    EXPECT_EQ(Query(project), S_OK);
    const qptools::ScriptActionRecord& record = actions.at(action.get());
    EXPECT_FALSE(record.project);
    EXPECT_FALSE(record.script);
    EXPECT_FALSE(record.planType);
    EXPECT_EQ(record.actionType, 0);
    EXPECT_EQ(record.creationDate.Type(), VT_EMPTY);
}

TEST_F(ScriptActions, AnObjectFoundTwiceKeepsItsFirstRecord)
{
    auto action = host.Object("a");
    action->Set(L"name", L"first");
    const XSelectOrvoitemDlg dialog(nullptr, L"script", project.get(), nullptr);
    EXPECT_EQ(dialog.AddScriptActionVectorToMap(action.get(), actions), S_OK);
    action->Set(L"name", L"second");
    EXPECT_EQ(dialog.AddScriptActionVectorToMap(action.get(), actions), S_OK);
    EXPECT_EQ(dialog.AddScriptActionVectorToMap(nullptr, actions), E_POINTER);
    ASSERT_EQ(actions.size(), 1u);
    EXPECT_STREQ(actions.begin()->second.name.GetString(), L"first");
}

TEST_F(ScriptActions, TheRoutineForOneTypeDoesNothingAndReturnsFalse)
{
    const XSelectOrvoitemDlg dialog(nullptr, L"script", project.get(), &host.Query());
    EXPECT_EQ(dialog.ScriptActionQuery(project.get(), L"machine", actions), S_FALSE);
    EXPECT_TRUE(actions.empty());
    EXPECT_EQ(host.calls, Calls{});
}
} // namespace
