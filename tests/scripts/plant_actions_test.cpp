// Scripts for an action on the sample plant: the words of each search, whole, and the actions that they mean.
#include "ScriptPlant.h"

#include "qpservices.h"

#include <algorithm>
#include <set>

namespace
{
class PlantActions : public ScriptPlant
{
protected:
    static Lines Begin() { return {kReset, Table("scriptaction")}; }
    static Lines InSet(const std::string& set)
    {
        return {Equal("orvoplantypeset", "<plantypeset " + set + ">"), Cat(1)};
    }
    static Lines InSetOrMaster(const std::string& set, const std::string& master)
    {
        return {Cat(4), Equal("orvoplantypeset", "<plantypeset " + set + ">"), Cat(2),
                Equal("orvoplantypeset", "<plantypeset " + master + ">"), Cat(9)};
    }
    static Lines OnAction(int actionType, int before)
    {
        Lines lines;
        if (actionType != 0)
            lines = {Equal("beforeafter", std::to_string(before)), Cat(1)};
        return lines + Lines{Equal("actiontype", std::to_string(actionType)), Equal("enabled", "1"),
                             "IQP_Query::SetOrderAttribute(\"sequence\", 1)", kResult};
    }
    const Lines bodyShop = InSetOrMaster("Body Shop", "Company Standards");
};

TEST_F(PlantActions, ATypeWithoutMasters)
{
    EXPECT_ROWS(Scripts(L"Machining", L"machine", nullptr, 1, 0),
                {"<Machining machine: life>", "<Check tool life>"});
    EXPECT_EQ(status, S_OK);
    EXPECT_LINES(record,
                 Lines{Master("plantypeset Machining")} + Begin() +
                     Lines{Equal("type", "\"machine\""), Cat(1)} + InSet("Machining") + OnAction(1, 0) +
                     Lines{kNext, Attribute("scriptaction Machining machine: life", "script"), kNext});
}

TEST_F(PlantActions, ATypeOfASetWithAMasterInOrderOfSequence)
{
    EXPECT_ROWS(Scripts(L"Body Shop", L"machine", nullptr, 1, 0), {"<Machine: names>", "<Check names>"},
                {"<Standard machine: data>", "<Maintain master data>"},
                {"<Machine: translate>", "<Translate texts>"}, {"<Machine: reach>", "<Check robot reach>"});
    EXPECT_LINES(record, Lines{Master("plantypeset Body Shop")} + Begin() +
                             Lines{Equal("type", "\"machine\""), Cat(1)} + bodyShop + OnAction(1, 0) +
                             Lines{kNext, Attribute("scriptaction Machine: names", "script"), kNext,
                                   Attribute("scriptaction Standard machine: data", "script"), kNext,
                                   Attribute("scriptaction Machine: translate", "script"), kNext,
                                   Attribute("scriptaction Machine: reach", "script"), kNext});
}

TEST_F(PlantActions, ATypeWithThePrefixFindsTheGeneralTypeToo)
{
    EXPECT_ROWS(Scripts(L"Body Shop", L"orvoplantype_workcell", nullptr, 1, 0),
                {"<Work system: times>", "<Copy standard times>"},
                {"<Work cell: balance>", "<Check line balance>"}, {"<Work system: names>", "<Check names>"},
                {"<Standard work system>", "<Compare cycle times>"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Body Shop")} + Begin() +
                                 Lines{Cat(4), Equal("type", "\"orvoplantypewsc\""), Cat(2),
                                       Equal("type", "\"orvoplantype_workcell\""), Cat(8), Cat(1)} +
                                 bodyShop + OnAction(1, 0));
}

TEST_F(PlantActions, TheGeneralTypeItselfFindsOnlyItsOwn)
{
    EXPECT_ROWS(Scripts(L"Body Shop", L"orvoplantypewsc", nullptr, 1, 0),
                {"<Work system: times>", "<Copy standard times>"}, {"<Work system: names>", "<Check names>"},
                {"<Standard work system>", "<Compare cycle times>"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Body Shop")} + Begin() +
                                 Lines{Equal("type", "\"orvoplantypewsc\""), Cat(1)} + bodyShop +
                                 OnAction(1, 0));
}

TEST_F(PlantActions, APlanTypeWithoutMasterInASetWithoutMaster)
{
    EXPECT_ROWS(
        Scripts(L"Machining", L"machine", L"Turning", 1, 0), {"<Turning: tools>", "<Create tool list>"},
        {"<Machining machine: life>", "<Check tool life>"}, {"<Turning: data>", "<Assign cutting data>"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Machining")} + Begin() +
                                 Lines{Cat(4), Equal("orvoplantype", "<plantype Turning>"), Cat(2),
                                       Equal("type", "\"machine\""), Cat(9)} +
                                 InSet("Machining") + OnAction(1, 0));
}

TEST_F(PlantActions, APlanTypeWithoutMasterHasNoGeneralType)
{
    EXPECT_ROWS(Scripts(L"Body Shop", L"orvoplantype_workcell", L"Painting", 1, 0),
                {"<Paint: open lot>", "<Create paint lot>"},
                {"<Work cell: balance>", "<Check line balance>"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Body Shop"), Master("plantype Painting")} + Begin() +
                                 Lines{Cat(4), Equal("orvoplantype", "<plantype Painting>"), Cat(2),
                                       Equal("type", "\"orvoplantype_workcell\""), Cat(9)} +
                                 bodyShop + OnAction(1, 0));
}

TEST_F(PlantActions, APlanTypeWithAMasterFindsWhatIsAttachedToBoth)
{
    EXPECT_ROWS(
        Scripts(L"Body Shop", L"orvoplantype_workcell", L"Welding", 1, 0),
        {"<Weld: validate order>", "<Validate weld sequence>"},
        {"<Weld: check clamps>", "<Check clamp positions>"}, {"<Standard weld: names>", "<Check names>"},
        {"<Standard weld: times>", "<Copy standard times>"},
        {"<Weld: number spots>", "<Renumber weld spots>"}, {"<Work cell: balance>", "<Check line balance>"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Body Shop"), Master("plantype Welding")} + Begin() +
                                 Lines{Cat(4), Cat(4), Equal("orvoplantype", "<plantype Welding>"), Cat(2),
                                       Equal("orvoplantype", "<plantype Standard Welding>"), Cat(8), Cat(2),
                                       Equal("type", "\"orvoplantype_workcell\""), Cat(9)} +
                                 bodyShop + OnAction(1, 0));
}

TEST_F(PlantActions, BeforeAnActionIsNotAfterIt)
{
    EXPECT_ROWS(Scripts(L"Body Shop", L"orvoplantype_workcell", L"Welding", 1, 1),
                {"<Weld: reserve names>", "<Check names>"},
                {"<Standard weld: before>", "<Maintain master data>"});
    const Lines searched = Searched();
    ASSERT_GT(searched.size(), 6u);
    EXPECT_LINES(Lines(searched.end() - 6, searched.end()), OnAction(1, 1));
}

TEST_F(PlantActions, ActionTypeZeroSearchesNeither)
{
    EXPECT_ROWS(Scripts(L"Body Shop", L"orvoplantype_workcell", L"Welding", 0, 1),
                {"<Weld: open hint>", "<Notify planner>"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Body Shop"), Master("plantype Welding")} + Begin() +
                                 Lines{Cat(4), Cat(4), Equal("orvoplantype", "<plantype Welding>"), Cat(2),
                                       Equal("orvoplantype", "<plantype Standard Welding>"), Cat(8), Cat(2),
                                       Equal("type", "\"orvoplantype_workcell\""), Cat(9)} +
                                 bodyShop + OnAction(0, 1));
}

TEST_F(PlantActions, ScriptactionIsSearchedAsATypeDespiteAPlanType)
{
    EXPECT_ROWS(Scripts(L"Body Shop", L"scriptaction", L"Welding", 2, 0),
                {"<Action log>", "<Notify planner>"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Body Shop"), Master("plantype Welding")} + Begin() +
                                 Lines{Equal("type", "\"scriptaction\""), Cat(1)} + bodyShop +
                                 OnAction(2, 0));
}

TEST_F(PlantActions, ScriptcommandIsSearchedAsATypeDespiteAPlanType)
{
    EXPECT_EQ(Scripts(L"Body Shop", L"scriptcommand", L"Welding", 2, 0), TextRows{});
    EXPECT_EQ(status, S_OK);
    plant->Find(L"scriptaction", L"Action log")
        ->SetAttribute(XQPComBSTR(L"type"), XQPComVariant(L"scriptcommand"));
    EXPECT_ROWS(Scripts(L"Body Shop", L"scriptcommand", L"Welding", 2, 0),
                {"<Action log>", "<Notify planner>"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Body Shop"), Master("plantype Welding")} + Begin() +
                                 Lines{Equal("type", "\"scriptcommand\""), Cat(1)} + bodyShop +
                                 OnAction(2, 0));
}

TEST_F(PlantActions, AMasterOfAPlanTypeDoesNotCountWhenItsSetHasNone)
{
    EXPECT_ROWS(Scripts(L"Machining", L"robot", L"Measuring", 5, 0),
                {"<Measuring: record>", "<Record measurement>"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Machining")} + Begin() +
                                 Lines{Cat(4), Equal("orvoplantype", "<plantype Measuring>"), Cat(2),
                                       Equal("type", "\"robot\""), Cat(9)} +
                                 InSet("Machining") + OnAction(5, 0));
}

TEST_F(PlantActions, AnActionWithoutAScriptOrDisabledIsOmitted)
{
    EXPECT_ROWS(Scripts(L"Body Shop", L"tool", L"Painting", 5, 0),
                {"<Paint: close lot>", "<Close paint lot>"});
    EXPECT_LINES(Walked(), Lines{kNext, Attribute("scriptaction Paint: to be written", "script"), kNext,
                                 Attribute("scriptaction Paint: close lot", "script"), kNext});
    EXPECT_ROWS(Scripts(L"Body Shop", L"tool", L"Painting", 2, 0),
                {"<Paint: close lot>", "<Close paint lot>"}, {"<Paint: drying>", "<Check drying time>"});
}

TEST_F(PlantActions, ScriptsThatTheUserMayNotRunAreReturnedAsWell)
{
    EXPECT_ROWS(Scripts(L"Body Shop", L"tool", L"Welding", 3, 1), {"<Weld: archive>", "<Archive plan>"});
    EXPECT_EQ(plant->Calls().Count("HasRight"), 0);
}

TEST_F(PlantActions, ANegativeSequenceComesFirst)
{
    plant->Find(L"scriptaction", L"Machining tool: life")
        ->SetAttribute(XQPComBSTR(L"actiontype"), XQPComVariant(L"3"));
    EXPECT_ROWS(Scripts(L"Machining", L"tool", nullptr, 3, 0),
                {"<Machining tool: list>", "<Create tool list>"},
                {"<Machining tool: life>", "<Check tool life>"});
}

TEST_F(PlantActions, TwoCallsOnOneManagerAddUpAndANewOneStartsAnew)
{
    EXPECT_EQ(Scripts(L"Machining", L"tool", nullptr, 2, 0).size(), 1u);
    EXPECT_ROWS(Scripts(L"Machining", L"tool", nullptr, 3, 0),
                {"<Machining tool: life>", "<Check tool life>"},
                {"<Machining tool: list>", "<Create tool list>"});
    ASSERT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, manager), S_OK);
    EXPECT_EQ(Scripts(L"Machining", L"tool", nullptr, 3, 0).size(), 1u);
}

TEST_F(PlantActions, OnlyTheNeededInterfacesAreQueriedAndMethodsCalled)
{
    using refhost::Plant;
    const std::set<std::string> allowed = {
        "IQP_Query::ResetSearch",           "IQP_Query::SetSearchTable",    "IQP_Query::SetSearchCatenation",
        "IQP_Query::SetSearchAttribute",    "IQP_Query::SetOrderAttribute", "IQP_Query::GetSearchResult",
        "IQP_BaseDataObject::GetAttribute", "IQPObjectRights::HasRight",    "IEnumBaseDataObject::RemNext"};
    std::set<std::string> called;
    const auto note = [&](const TextRows& rows) {
        EXPECT_EQ(status, S_OK);
        EXPECT_FALSE(rows.empty());
        for (const std::string& line : record) // "Interface::Method(...)" or "Interface<object>::Method(...)"
        {
            const std::size_t object = line.find(">::");
            const std::size_t method = object == std::string::npos ? line.find("::") : object + 1;
            called.insert(line.substr(0, line.find_first_of("<:")) +
                          line.substr(method, line.find('(', method) - method));
        }
    };
    Plant::NoteInterfaces(true);
    note(Scripts(L"Body Shop", L"tool", L"Welding", 3, 1));
    note(Scripts(L"Machining", L"tool", nullptr, 2, 0));
    note(Commands(L"Body Shop", L"machine", nullptr, 1));
    note(Commands(L"Body Shop", L"orvoplantype_workcell", L"Welding", 1));
    Plant::NoteInterfaces(false);
    EXPECT_EQ(called, allowed);
    bool forRights = false;
    for (const IID& iid : Plant::AskedInterfaces())
    {
        forRights = forRights || iid == __uuidof(IQPObjectRights);
        EXPECT_TRUE(iid == __uuidof(IUnknown) || iid == __uuidof(IQP_BaseDataObject) ||
                    iid == __uuidof(IQPObjectRights))
            << std::hex << iid.Data1;
    }
    EXPECT_TRUE(forRights) << "what is asked for is not noted";
}

TEST_F(PlantActions, EachSearchIsOneStatementOfTheHost)
{
    Scripts(L"Body Shop", L"orvoplantype_workcell", L"Welding", 1, 0);
    EXPECT_EQ(plant->Calls().Count("IQP_Query::GetSearchResult"), 1);
    EXPECT_EQ(plant->LastError(), "");

    // All statements of a call that finds nothing, but for those of reading the master.
    const auto set = Find(L"plantypeset", L"Machining");
    XQPComVariant master;
    long long before = plant->Statements();
    EXPECT_EQ(set->GetAttribute(XQPComBSTR(L"master"), &master), S_FALSE);
    const long long ofMaster = plant->Statements() - before;
    XQPComVariant result;
    before = plant->Statements();
    EXPECT_EQ(manager->GetScriptCommands(query.get(), set.get(), XQPComBSTR(L"conveyor"), nullptr, 1, nullptr,
                                         &result),
              S_OK);
    EXPECT_EQ(plant->Statements() - before, ofMaster + 1);
    ASSERT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, manager), S_OK);
    before = plant->Statements();
    EXPECT_EQ(manager->GetScriptsForAction(query.get(), set.get(), XQPComBSTR(L"conveyor"), nullptr, 1, 0,
                                           &result.Value()),
              S_OK);
    EXPECT_EQ(plant->Statements() - before, ofMaster + 1);
}
} // namespace
