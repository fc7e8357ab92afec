// Script commands on the sample plant: the words of each search, whole, and the commands that they mean.
#include "ScriptPlant.h"

#include <algorithm>

namespace
{
class PlantCommands : public ScriptPlant
{
protected:
    static Lines Begin() { return {kReset, Table("scriptcommand")}; }
    static Lines InSet(const std::string& set)
    {
        return {Equal("orvoplantypeset", "<plantypeset " + set + ">"), Cat(1)};
    }
    static Lines Offered(int userInterface)
    {
        return {Equal("visible", "true"),
                Cat(1),
                Cat(4),
                Equal("userinterfacetype", std::to_string(userInterface)),
                Cat(2),
                Equal("userinterfacetype", "3"),
                Cat(8),
                kResult};
    }
    static Lines PlanTypeWithMaster(const std::string& planType, const std::string& master,
                                    const std::string& type)
    {
        return {Cat(4),
                Cat(4),
                Equal("type", "\"dodefaultimpl\""),
                Cat(2),
                Equal("type", "\"orvocompbase\""),
                Cat(2),
                Equal("orvoplantype", "<plantype " + planType + ">"),
                Cat(2),
                Equal("orvoplantype", "<plantype " + master + ">"),
                Cat(8),
                Cat(2),
                Equal("type", "\"" + type + "\""),
                Cat(9)};
    }
    static Lines PlanType(const std::string& planType, const std::string& type)
    {
        return {Cat(4), Equal("orvoplantype", "<plantype " + planType + ">"), Cat(2),
                Equal("type", "\"" + type + "\""), Cat(9)};
    }

    /// Puts rows in the user's order of names.
    static TextRows InNameOrder(TextRows rows)
    {
        std::sort(rows.begin(), rows.end(), [](const Row& first, const Row& second) {
            const XQPComBSTR a(std::wstring(first[0].begin(), first[0].end()).c_str());
            const XQPComBSTR b(std::wstring(second[0].begin(), second[0].end()).c_str());
            return VarBstrCmp(a, b, LOCALE_USER_DEFAULT, 0) == static_cast<HRESULT>(VARCMP_LT);
        });
        return rows;
    }

    const Lines bodyShop = {Cat(4), Equal("orvoplantypeset", "<plantypeset Body Shop>"), Cat(2),
                            Equal("orvoplantypeset", "<plantypeset Company Standards>"), Cat(9)};
};

#define EXPECT_COMMANDS(actual, ...) EXPECT_EQ(actual, InNameOrder(TextRows{__VA_ARGS__}))

TEST_F(PlantCommands, ATypeWithoutMasters)
{
    EXPECT_COMMANDS(Commands(L"Machining", L"machine", nullptr, 1), {"Tool life", "<Check tool life>", "1"});
    EXPECT_EQ(status, S_OK);
    EXPECT_LINES(record, Lines{Master("plantypeset Machining")} + Begin() +
                             Lines{Equal("type", "\"machine\""), Cat(1)} + InSet("Machining") + Offered(1) +
                             Lines{kNext, MayExecute("scriptcommand Machining machine"),
                                   Attribute("scriptcommand Machining machine", "m_strPrompt"),
                                   Attribute("scriptcommand Machining machine", "m_nameShort"),
                                   Attribute("scriptcommand Machining machine", "script"),
                                   MayExecute("script Check tool life"), kNext});
}

TEST_F(PlantCommands, ATypeOfASetWithAMasterInOrderOfNames)
{
    EXPECT_ROWS(Commands(L"Body Shop", L"machine", nullptr, 1), {"Cycle time", "<Update cycle time>", "1"},
                {"Layout", "ModLayout.Draw", "1"}, {"Names", "<Check names>", "0"},
                {"Standard check", "<Check names>", "1"}, {"Translate", "<Translate texts>", "0"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Body Shop")} + Begin() +
                                 Lines{Equal("type", "\"machine\""), Cat(1)} + bodyShop + Offered(1));
}

TEST_F(PlantCommands, ATypeWithThePrefixFindsOnlyItsOwn)
{
    EXPECT_COMMANDS(Commands(L"Body Shop", L"orvoplantype_workcell", nullptr, 1),
                    {"Balance", "<Check line balance>", "1"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Body Shop")} + Begin() +
                                 Lines{Equal("type", "\"orvoplantype_workcell\""), Cat(1)} + bodyShop +
                                 Offered(1));
}

TEST_F(PlantCommands, APlanTypeWithoutMasterInASetWithoutMaster)
{
    EXPECT_COMMANDS(Commands(L"Machining", L"machine", L"Turning", 1),
                    {"Tool list", "<Create tool list>", "0"}, {"Tool life", "<Check tool life>", "1"},
                    {"Tool life(2)", "<Check tool life>", "1"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Machining")} + Begin() +
                                 PlanType("Turning", "machine") + InSet("Machining") + Offered(1));
}

TEST_F(PlantCommands, APlanTypeWithoutMasterInASetWithOne)
{
    EXPECT_COMMANDS(Commands(L"Body Shop", L"tool", L"Painting", 1), {"New lot", "<Create paint lot>", "1"},
                    {"Close lot", "<Close paint lot>", "0"}, {"Drying time", "<Check drying time>", "1"},
                    {"", "<>", "0"}, {"(2)", "<>", "1"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Body Shop"), Master("plantype Painting")} + Begin() +
                                 PlanType("Painting", "tool") + bodyShop + Offered(1));
}

TEST_F(PlantCommands, APlanTypeWithAMasterFindsBothAndTheTwoFixedTypes)
{
    EXPECT_COMMANDS(
        Commands(L"Body Shop", L"orvoplantype_workcell", L"Welding", 1),
        {"Check", "<Check clamp positions>", "0"}, {"Check(2)", "<Check seam length>", "1"},
        {"Check(3)", "<Validate weld sequence>", "1"}, {"Weld report", "<Report weld spots>", "1"},
        {"Export spots", "<Export weld spots>", "0"}, {"Renumber weld spots", "<Renumber weld spots>", "0"},
        {"Check all", "ModWelding.CheckAll", "1"}, {"ModWelding.ColourSpots", "ModWelding.ColourSpots", "1"},
        {"Balance", "<Check line balance>", "1"}, {"Check names", "<Check names>", "0"},
        {"Check(4)", "<Copy standard times>", "1"}, {"Company rules", "ModRules.Show", "1"},
        {"Translate project", "<Translate texts>", "0"}, {"Component times", "<Copy standard times>", "1"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Body Shop"), Master("plantype Welding")} + Begin() +
                                 PlanTypeWithMaster("Welding", "Standard Welding", "orvoplantype_workcell") +
                                 bodyShop + Offered(1));
}

TEST_F(PlantCommands, ThePropertiesSheetOffersOthers)
{
    EXPECT_COMMANDS(
        Commands(L"Body Shop", L"tool", L"Welding", 2), {"Check", "<Check seam length>", "1"},
        {"Weld report", "<Report weld spots>", "1"}, {"Robot program", "<Assign robot program>", "1"},
        {"ModWelding.ColourSpots", "ModWelding.ColourSpots", "1"}, {"Company rules", "ModRules.Show", "1"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Body Shop"), Master("plantype Welding")} + Begin() +
                                 PlanTypeWithMaster("Welding", "Standard Welding", "tool") + bodyShop +
                                 Offered(2));
}

TEST_F(PlantCommands, CommandsOfBothUserInterfacesAreFoundOnce)
{
    EXPECT_COMMANDS(Commands(L"Body Shop", L"tool", L"Welding", 3), {"Check", "<Check seam length>", "1"},
                    {"Weld report", "<Report weld spots>", "1"},
                    {"ModWelding.ColourSpots", "ModWelding.ColourSpots", "1"},
                    {"Company rules", "ModRules.Show", "1"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Body Shop"), Master("plantype Welding")} + Begin() +
                                 PlanTypeWithMaster("Welding", "Standard Welding", "tool") + bodyShop +
                                 Offered(3));
}

TEST_F(PlantCommands, TheNameScriptcommandWithAPlanTypeIsAnOrdinaryOne)
{
    EXPECT_COMMANDS(Commands(L"Machining", L"scriptcommand", L"Milling", 1),
                    {"Cutting data", "<Assign cutting data>", "1"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Machining")} + Begin() +
                                 PlanType("Milling", "scriptcommand") + InSet("Machining") + Offered(1));
}

TEST_F(PlantCommands, AMasterOfAPlanTypeDoesNotCountWhenItsSetHasNone)
{
    EXPECT_COMMANDS(Commands(L"Machining", L"tool", L"Measuring", 1),
                    {"First part", "<Measure first part>", "0"}, {"Limits", "ModMeasure.Limits", "1"});
    EXPECT_LINES(Searched(), Lines{Master("plantypeset Machining")} + Begin() +
                                 PlanType("Measuring", "tool") + InSet("Machining") + Offered(1));
}

TEST_F(PlantCommands, AMacroReplacesAScriptAndALaterScriptGetsASuffix)
{
    EXPECT_COMMANDS(Commands(L"Body Shop", L"robot", nullptr, 1), {"Teach", "ModRobot.Teach", "1"},
                    {"Park", "ModRobot.Park", "1"}, {"Park(2)", "<Check robot reach>", "1"});
    const std::string command = "scriptcommand Robot macro unnamed";
    const auto dropped = std::find(record.begin(), record.end(), Attribute(command, "m_strVBAMacroName"));
    ASSERT_NE(dropped, record.end());
    EXPECT_LINES(Lines(dropped - 4, dropped + 1),
                 Lines{MayExecute(command), Attribute(command, "m_strPrompt"),
                       Attribute(command, "m_nameShort"), Attribute(command, "script"),
                       Attribute(command, "m_strVBAMacroName")});
}

TEST_F(PlantCommands, ACommandThatTheUserMayNotRunIsNotReadFurther)
{
    Commands(L"Body Shop", L"tool", L"Welding", 1);
    const auto after = [this](const std::string& line) {
        const auto found = std::find(record.begin(), record.end(), line);
        return found == record.end() ? std::string("not called") : *(found + 1);
    };
    EXPECT_EQ(after(MayExecute("scriptcommand Weld secret")), kNext);
    EXPECT_EQ(after(Attribute("scriptcommand Weld notify", "script")), kNext)
        << "its script has no rights service";
    EXPECT_EQ(after(MayExecute("script Archive plan")), kNext);
    EXPECT_EQ(
        std::count(record.begin(), record.end(), Attribute("scriptcommand Weld service", "m_strPrompt")), 0);
}

TEST_F(PlantCommands, AScriptsNameIsReadOnlyWhereThereIsNoPrompt)
{
    EXPECT_COMMANDS(Commands(L"Body Shop", L"fixture", nullptr, 1),
                    {"Check clamp positions", "<Check clamp positions>", "1"});
    EXPECT_LINES(Walked(), Lines{kNext, MayExecute("scriptcommand Fixture clamps"),
                                 Attribute("scriptcommand Fixture clamps", "m_strPrompt"),
                                 Attribute("scriptcommand Fixture clamps", "m_nameShort"),
                                 Attribute("scriptcommand Fixture clamps", "script"),
                                 MayExecute("script Check clamp positions"),
                                 Attribute("script Check clamp positions", "name"), kNext});
}

TEST_F(PlantCommands, NothingFoundIsAnEmptyTable)
{
    EXPECT_EQ(Commands(L"Machining", L"conveyor", nullptr, 1), TextRows{});
    EXPECT_EQ(status, S_OK);
    EXPECT_LINES(Walked(), Lines{kNext});
}
} // namespace
