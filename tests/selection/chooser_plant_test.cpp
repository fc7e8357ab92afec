// The choosers and the look-ups on the sample plant.
#include "ChooserPlant.h"
#include "Parameters.h"
#include "Story.h"

#include <sstream>
#include <utility>

namespace
{
/// What was recorded is compared with what is written down for the test.
class ToldPlant : public ChooserPlant
{
protected:
    void TearDown() override { story.Check(QP_TRACES); }

    template <class Call>
    HRESULT Recorded(Call&& call)
    {
        const HRESULT status = ChooserPlant::Recorded(std::forward<Call>(call));
        std::ostringstream line;
        line << "result " << std::hex << status;
        story.Tell(record);
        story.Tell(line.str());
        return status;
    }

    Story story;
};

class PlantLookup : public ToldPlant
{
protected:
    /// The project that GetProject finds, by name, and its status.
    std::pair<HRESULT, std::string> ProjectOf(const wchar_t* table, const wchar_t* name)
    {
        const auto object = Find(table, name);
        ComPtr<IQP_BaseDataObject> project;
        const HRESULT status = Recorded([&] { return item->GetProject(object.get(), project.put()); });
        return {status, NameInPlant(project.get())};
    }
    static std::pair<HRESULT, std::string> Is(HRESULT status, const char* name) { return {status, name}; }

    static Lines Tests(const std::string& object, const Lines& classes)
    {
        Lines lines;
        for (const std::string& name : classes)
            lines.push_back("IQP_BaseDataObject<" + object + ">::IsDerivedFromClass(\"" + name + "\")");
        return lines;
    }
    static std::string Attribute(const std::string& object, const std::string& attribute)
    {
        return "IQP_BaseDataObject<" + object + ">::GetAttribute(\"" + attribute + "\")";
    }
};

TEST_F(PlantLookup, AProjectIsItsOwnByOneCall)
{
    EXPECT_EQ(ProjectOf(L"project", L"Body Plant North"), Is(S_OK, "Body Plant North"));
    EXPECT_EQ(record, Tests("project Body Plant North", {"XDOOrvoProject"}));
}

TEST_F(PlantLookup, EveryKindOfObjectLeadsToItsProject)
{
    EXPECT_EQ(ProjectOf(L"orvoitem", L"Crankshaft"), Is(S_OK, "Engine Machining South"));
    EXPECT_EQ(ProjectOf(L"orvocompbase", L"Clamp"), Is(S_OK, "Body Plant North"));
    EXPECT_EQ(ProjectOf(L"subcompitem", L"Cutter, station 3"), Is(S_OK, "Engine Machining South"));
    EXPECT_EQ(ProjectOf(L"plantype", L"Welding"), Is(S_OK, "Body Plant North"));
    EXPECT_EQ(ProjectOf(L"plantypeset", L"Machining"), Is(S_OK, "Engine Machining South"));
    EXPECT_EQ(ProjectOf(L"relationship", L"Shaft to block"), Is(S_OK, "Engine Machining South"));
    EXPECT_EQ(ProjectOf(L"scriptaction", L"Weld: times"), Is(S_OK, "Body Plant North"));
}

TEST_F(PlantLookup, ObjectsWithoutAProjectReturnTheirStatus)
{
    EXPECT_EQ(ProjectOf(L"orvowsc", L"Robot cell 4"), Is(S_FALSE, "null"));
    EXPECT_EQ(ProjectOf(L"orvoitem", L"Prototype fixture"), Is(S_FALSE, "null"))
        << "an attribute without a value";
    EXPECT_EQ(ProjectOf(L"relationship", L"Loose end"), Is(S_FALSE, "null"));
    EXPECT_EQ(ProjectOf(L"relationship", L"Fixture to panel"), Is(S_FALSE, "null"));
    EXPECT_EQ(ProjectOf(L"script", L"Check names"), Is(S_OK, "null"));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(PlantLookup, ARelationshipIsFollowedByTwoReads)
{
    ProjectOf(L"relationship", L"Panels to roof");
    Lines expected = Tests("relationship Panels to roof",
                           {"XDOOrvoProject", "XDOOrvoItem", "XDOOrvoCompBase", "XDOSubCompItem",
                            "XDOOrvoPlanType", "XDOOrvoPlanTypeSet", "XDORelationship"});
    expected.push_back(Attribute("relationship Panels to roof", "relationobject1"));
    expected.push_back(Attribute("orvoitem Side panel left", "orvoproject"));
    EXPECT_EQ(record, expected);
}

TEST_F(PlantLookup, AScriptActionIsFollowedByTwoReads)
{
    ProjectOf(L"scriptaction", L"Weld: times");
    ASSERT_GE(record.size(), 2u);
    EXPECT_EQ(record[record.size() - 2], Attribute("scriptaction Weld: times", "m_pOrvoPlanTypeSet"));
    EXPECT_EQ(record.back(), Attribute("plantypeset Body Shop", "orvoproject"));
}

TEST_F(PlantLookup, TheTableNameOfASubComponentLeadsToItsBase)
{
    const auto gun = Find(L"subcompitem", L"Spot gun, station 20");
    XQPComBSTR table;
    EXPECT_EQ(item->GetTypeName(gun.get(), table.put()), S_OK);
    EXPECT_STREQ(table, L"subcompitem");
    ComPtr<IQP_BaseDataObject> base;
    EXPECT_EQ(item->GetOrvoCompBase(gun.get(), table, base.put()), S_OK);
    EXPECT_EQ(NameInPlant(base.get()), "Spot gun");
    ComPtr<IQP_BaseDataObject> itself;
    EXPECT_EQ(item->GetOrvoCompBase(base.get(), XQPComBSTR(L"orvocompbase"), itself.put()), S_OK);
    EXPECT_EQ(itself.get(), base.get());
}

TEST_F(PlantLookup, ASubComponentWithoutABaseIsReported)
{
    const auto loose = Find(L"subcompitem", L"Loose clamp");
    ComPtr<IQP_BaseDataObject> base;
    EXPECT_EQ(item->GetOrvoCompBase(loose.get(), XQPComBSTR(L"subcompitem"), base.put()), S_FALSE);
    EXPECT_FALSE(base);
    EXPECT_EQ(
        logBook.Entries(),
        Entries{LogBook::HostCall("0x00000001", 701,
                                  "XSelectOrvoitemDlg::GetOrvoCompBase    pDO->GetAttribute(orvocompbase)")});
}

TEST_F(PlantLookup, ProjectAndPlanTypeComeTogether)
{
    const auto panel = Find(L"orvoitem", L"Side panel left");
    ComPtr<IQP_BaseDataObject> project;
    ComPtr<IQP_BaseDataObject> planType;
    EXPECT_EQ(item->GetProjectAndPlanType(panel.get(), project.put(), planType.put()), S_OK);
    EXPECT_EQ(NameInPlant(project.get()), "Body Plant North");
    EXPECT_EQ(NameInPlant(planType.get()), "Welding");
    XQPComBSTR table;
    EXPECT_EQ(item->GetTypeNameAndPlanType(panel.get(), table.put(), planType.put()), S_OK);
    EXPECT_STREQ(table, L"orvoitem");
    EXPECT_EQ(NameInPlant(planType.get()), "Welding");
}

class PlantChoosers : public ToldPlant
{
};

TEST_F(PlantChoosers, TheProjectsAreListedByName)
{
    Cells shown;
    dialogs.OnDialog({[&](DialogView& view) { shown = CellsOf(view); }, Selects(2), Presses(IDOK)});
    LONG canceled = 1;
    ComPtr<IQP_BaseDataObject> project;
    const auto root = Root();
    EXPECT_EQ(Recorded([&] {
                  return choice->ShowDialog(root.get(), XQPComBSTR(L"Projects"), &canceled, project.put(), 0);
              }),
              S_OK);
    EXPECT_EQ(canceled, 0);
    EXPECT_EQ(
        shown,
        (Cells{{L"Body Plant North", L""}, {L"Engine Machining South", L""}, {L"Final Assembly East", L""}}));
    EXPECT_EQ(NameInPlant(project.get()), "Final Assembly East");
    EXPECT_EQ(CountOf("GetChildren(\"orvoproject\")"), 2);
    EXPECT_EQ(CountOf("RemNext(1)"), 4);
    EXPECT_EQ(CountOf("GetAttribute(\"name\")"), 3);
    EXPECT_EQ(record.size(), 9u);
}

TEST_F(PlantChoosers, TheTemplateIsListedByItself)
{
    Cells shown;
    dialogs.OnDialog({[&](DialogView& view) { shown = CellsOf(view); }, Presses(3)});
    LONG canceled = 1;
    LONG create = 0;
    ComPtr<IQP_BaseDataObject> project;
    EXPECT_EQ(
        choice->ShowDialogEx(Root().get(), XQPComBSTR(L"Templates"), 1, &canceled, &create, project.put(), 0),
        S_OK);
    EXPECT_EQ(shown, (Cells{{L"Company Template", L""}}));
    EXPECT_EQ(canceled, 0);
    EXPECT_EQ(create, 1);
    EXPECT_FALSE(project);
}

/// The sample has forty scripts; the search finds those of the project and those without one.
TEST_F(PlantChoosers, ScriptsAreListedWithOneRightsCheckAndFiveReadsEach)
{
    const auto panel = Find(L"orvoitem", L"Side panel left");
    Cells shown;
    dialogs.OnDialog(
        {[&](DialogView& view) { shown = CellsOf(view); }, Selects(L"Report weld spots"), Presses(IDOK)});
    ComPtr<IQP_BaseDataObject> script;
    EXPECT_EQ(Recorded([&] { return item->ShowDialog(panel.get(), XQPComBSTR(L"script"), script.put()); }),
              S_OK);
    EXPECT_EQ(NameInPlant(script.get()), "Report weld spots");

    const long checked = CountOf("HasRight(4)");
    const auto listed = static_cast<long>(shown.size());
    EXPECT_GT(checked, listed) << "some may not be run";
    EXPECT_GT(listed, 3);
    // The item's project is read besides.
    EXPECT_EQ(CountOf("GetAttribute("), 5 * listed + 1);

    const auto has = [&](const Texts& row) {
        return std::find(shown.begin(), shown.end(), row) != shown.end();
    };
    EXPECT_TRUE(has({L"Check names", L"Library", L"basic", L"2019-01-01", L"2021-01-01", L""}));
    EXPECT_TRUE(has({L"Report weld spots", L"Project Lib", L"basic", L"2019-10-08", L"2021-10-28", L""}));
    for (const Texts& row : shown)
    {
        EXPECT_NE(row[0], L"Archive plan") << "may be read only";
        EXPECT_NE(row[0], L"Notify planner") << "has no rights service";
    }
}

TEST_F(PlantChoosers, TheGenericDialogTakesObjectsOfThePlant)
{
    ComPtr<IQPSelectDlg> dialog;
    ASSERT_EQ(module.Create(CLSID_QPSelectDlg, dialog), S_OK);
    const auto roof = Find(L"orvoitem", L"Roof");
    Parameters parameters;
    parameters.Text(L"Caption", L"Which item?").Entry(0, L"The roof", roof.get());
    dialogs.OnDialog(
        {Sees(Titled(L"Which item?")), Sees(RowCount(1)), Sees(InRow(0, {L"The roof", L""})), Presses(IDOK)});
    ComPtr<IUnknown> selected;
    EXPECT_EQ(
        Recorded([&] { return dialog->ShowDialog(parameters.Count(), parameters.Values(), selected.put()); }),
        S_OK);
    EXPECT_EQ(NameInPlant(selected.get()), "Roof");
    EXPECT_EQ(record, Lines{});
}
} // namespace
