#include "DemoCases.h"

namespace
{
constexpr int kContextMenu = 1;
constexpr int kPropertiesSheet = 2;

// The action types of the sample plant.
constexpr int kCreate = 1;
constexpr int kChange = 2;

constexpr wchar_t kOnce[] = L"all objects at once";
constexpr wchar_t kEach[] = L"each object";

// Found but not shown: "Weld archive" runs a script that the user may not execute, "Weld secret" may not be
// executed itself, "Weld service" has no rights service, nor has the script of "Weld notify"; "Robot macro
// unnamed" has neither script nor macro.

constexpr char kAfterWeldCalls[] = R"(
    <plantypeset Body Shop> master <plantype Welding> master
    ResetSearch(0) SetSearchTable("scriptaction")
    ( ( orvoplantype = <plantype Welding> OR orvoplantype = <plantype Standard Welding> )
        OR type = "orvoplantype_workcell" ) AND
    ( orvoplantypeset = <plantypeset Body Shop> OR orvoplantypeset = <plantypeset Company Standards> ) AND
    beforeafter = 0 AND
    actiontype = 1 enabled = 1
    SetOrderAttribute("sequence", 1) GetSearchResult()
    next <scriptaction Weld: validate order> script
    next <scriptaction Weld: check clamps> script
    next <scriptaction Standard weld: names> script
    next <scriptaction Standard weld: times> script
    next <scriptaction Weld: number spots> script
    next <scriptaction Work cell: balance> script
    next)";

constexpr char kBeforeWeldCalls[] = R"(
    <plantypeset Body Shop> master <plantype Welding> master
    ResetSearch(0) SetSearchTable("scriptaction")
    ( ( orvoplantype = <plantype Welding> OR orvoplantype = <plantype Standard Welding> )
        OR type = "orvoplantype_workcell" ) AND
    ( orvoplantypeset = <plantypeset Body Shop> OR orvoplantypeset = <plantypeset Company Standards> ) AND
    beforeafter = 1 AND
    actiontype = 1 enabled = 1
    SetOrderAttribute("sequence", 1) GetSearchResult()
    next <scriptaction Weld: reserve names> script
    next <scriptaction Standard weld: before> script
    next)";

constexpr char kAfterTurningCalls[] = R"(
    <plantypeset Machining> master
    ResetSearch(0) SetSearchTable("scriptaction")
    ( orvoplantype = <plantype Turning> OR type = "orvoplantype_work" ) AND
    orvoplantypeset = <plantypeset Machining> AND
    beforeafter = 0 AND
    actiontype = 1 enabled = 1
    SetOrderAttribute("sequence", 1) GetSearchResult()
    next <scriptaction Turning: tools> script
    next <scriptaction Turning: data> script
    next)";

constexpr char kAfterMachineCalls[] = R"(
    <plantypeset Body Shop> master
    ResetSearch(0) SetSearchTable("scriptaction")
    type = "machine" AND
    ( orvoplantypeset = <plantypeset Body Shop> OR orvoplantypeset = <plantypeset Company Standards> ) AND
    beforeafter = 0 AND
    actiontype = 1 enabled = 1
    SetOrderAttribute("sequence", 1) GetSearchResult()
    next <scriptaction Machine: names> script
    next <scriptaction Standard machine: data> script
    next <scriptaction Machine: translate> script
    next <scriptaction Machine: reach> script
    next)";

constexpr char kAfterWorkStepCalls[] = R"(
    <plantypeset Body Shop> master
    ResetSearch(0) SetSearchTable("scriptaction")
    ( type = "orvoplantypewsc" OR type = "orvoplantype_work" ) AND
    ( orvoplantypeset = <plantypeset Body Shop> OR orvoplantypeset = <plantypeset Company Standards> ) AND
    beforeafter = 0 AND
    actiontype = 1 enabled = 1
    SetOrderAttribute("sequence", 1) GetSearchResult()
    next <scriptaction Work system: times> script
    next <scriptaction Work step: instruction> script
    next <scriptaction Work system: names> script
    next <scriptaction Standard work system> script
    next)";

constexpr char kAfterToolCalls[] = R"(
    <plantypeset Machining> master
    ResetSearch(0) SetSearchTable("scriptaction")
    type = "tool" AND
    orvoplantypeset = <plantypeset Machining> AND
    beforeafter = 0 AND
    actiontype = 2 enabled = 1
    SetOrderAttribute("sequence", 1) GetSearchResult()
    next <scriptaction Machining tool: life> script
    next)";

constexpr char kWeldMenuCalls[] = R"(
    <plantypeset Body Shop> master <plantype Welding> master
    ResetSearch(0) SetSearchTable("scriptcommand")
    ( ( type = "dodefaultimpl" OR type = "orvocompbase" OR orvoplantype = <plantype Welding>
        OR orvoplantype = <plantype Standard Welding> ) OR type = "orvoplantype_workcell" ) AND
    ( orvoplantypeset = <plantypeset Body Shop> OR orvoplantypeset = <plantypeset Company Standards> ) AND
    visible = true AND
    ( userinterfacetype = 1 OR userinterfacetype = 3 )
    GetSearchResult()
    next <scriptcommand Check clamps> may-run m_strPrompt m_nameShort script
        <script Check clamp positions> may-run
    next <scriptcommand Check seams> may-run m_strPrompt m_nameShort script <script Check seam length> may-run
    next <scriptcommand Check order> may-run m_strPrompt m_nameShort script
        <script Validate weld sequence> may-run
    next <scriptcommand Weld report> may-run m_strPrompt m_nameShort script <script Report weld spots> may-run
    next <scriptcommand Weld export> may-run m_strPrompt m_nameShort script <script Export weld spots> may-run
    next <scriptcommand Renumber> may-run m_strPrompt m_nameShort script
        <script Renumber weld spots> may-run name
    next <scriptcommand Weld archive> may-run m_strPrompt m_nameShort script <script Archive plan> may-run
    next <scriptcommand Weld macro all> may-run m_strPrompt m_nameShort script m_strVBAMacroName
    next <scriptcommand Weld macro colours> may-run m_strPrompt m_nameShort script m_strVBAMacroName
    next <scriptcommand Weld secret> may-run
    next
    next <scriptcommand Weld notify> may-run m_strPrompt m_nameShort script
    next <scriptcommand Cell balance> may-run m_strPrompt m_nameShort script
        <script Check line balance> may-run
    next <scriptcommand Standard names> may-run m_strPrompt m_nameShort script <script Check names> may-run
    next <scriptcommand Standard check> may-run m_strPrompt m_nameShort script
        <script Copy standard times> may-run
    next <scriptcommand Standard macro> may-run m_strPrompt m_nameShort script m_strVBAMacroName
    next <scriptcommand Project texts> may-run m_strPrompt m_nameShort script <script Translate texts> may-run
    next <scriptcommand Component times> may-run m_strPrompt m_nameShort script
        <script Copy standard times> may-run
    next)";

constexpr char kWeldSheetCalls[] = R"(
    <plantypeset Body Shop> master <plantype Welding> master
    ResetSearch(0) SetSearchTable("scriptcommand")
    ( ( type = "dodefaultimpl" OR type = "orvocompbase" OR orvoplantype = <plantype Welding>
        OR orvoplantype = <plantype Standard Welding> ) OR type = "orvoplantype_workcell" ) AND
    ( orvoplantypeset = <plantypeset Body Shop> OR orvoplantypeset = <plantypeset Company Standards> ) AND
    visible = true AND
    ( userinterfacetype = 2 OR userinterfacetype = 3 )
    GetSearchResult()
    next <scriptcommand Check seams> may-run m_strPrompt m_nameShort script <script Check seam length> may-run
    next <scriptcommand Weld report> may-run m_strPrompt m_nameShort script <script Report weld spots> may-run
    next <scriptcommand Weld robots> may-run m_strPrompt m_nameShort script
        <script Assign robot program> may-run
    next <scriptcommand Weld macro colours> may-run m_strPrompt m_nameShort script m_strVBAMacroName
    next <scriptcommand Standard macro> may-run m_strPrompt m_nameShort script m_strVBAMacroName
    next)";

constexpr char kTurningMenuCalls[] = R"(
    <plantypeset Machining> master
    ResetSearch(0) SetSearchTable("scriptcommand")
    ( orvoplantype = <plantype Turning> OR type = "orvoplantype_work" ) AND
    orvoplantypeset = <plantypeset Machining> AND
    visible = true AND
    ( userinterfacetype = 1 OR userinterfacetype = 3 )
    GetSearchResult()
    next <scriptcommand Turning tools> may-run m_strPrompt m_nameShort script
        <script Create tool list> may-run
    next <scriptcommand Turning life> may-run m_strPrompt m_nameShort script <script Check tool life> may-run
    next)";

constexpr char kRobotMenuCalls[] = R"(
    <plantypeset Body Shop> master
    ResetSearch(0) SetSearchTable("scriptcommand")
    type = "robot" AND
    ( orvoplantypeset = <plantypeset Body Shop> OR orvoplantypeset = <plantypeset Company Standards> ) AND
    visible = true AND
    ( userinterfacetype = 1 OR userinterfacetype = 3 )
    GetSearchResult()
    next <scriptcommand Robot teach> may-run m_strPrompt m_nameShort script
        <script Assign robot program> may-run
    next <scriptcommand Robot teach macro> may-run m_strPrompt m_nameShort script m_strVBAMacroName
    next <scriptcommand Robot park macro> may-run m_strPrompt m_nameShort script m_strVBAMacroName
    next <scriptcommand Robot park> may-run m_strPrompt m_nameShort script <script Check robot reach> may-run
    next <scriptcommand Robot macro unnamed> may-run m_strPrompt m_nameShort script m_strVBAMacroName
    next)";
} // namespace

const std::vector<ActionCase>& ActionCases()
{
    static const std::vector<ActionCase> cases = {
        {{L"After a weld is created: its plan type and both masters count", L"Body Shop",
          L"orvoplantype_workcell", L"Welding"},
         kCreate,
         kAfter,
         {{L"Weld: validate order", L"10", L"Validate weld sequence"},
          {L"Weld: check clamps", L"10", L"Check clamp positions"},
          {L"Standard weld: names", L"10", L"Check names"},
          {L"Standard weld: times", L"15", L"Copy standard times"},
          {L"Weld: number spots", L"20", L"Renumber weld spots"},
          {L"Work cell: balance", L"20", L"Check line balance"}},
         37,
         kAfterWeldCalls},
        {{L"Before a weld is created", L"Body Shop", L"orvoplantype_workcell", L"Welding"},
         kCreate,
         kBefore,
         {{L"Weld: reserve names", L"10", L"Check names"},
          {L"Standard weld: before", L"20", L"Maintain master data"}},
         29,
         kBeforeWeldCalls},
        {{L"After a turning step is created: no masters", L"Machining", L"orvoplantype_work", L"Turning"},
         kCreate,
         kAfter,
         {{L"Turning: tools", L"10", L"Create tool list"}, {L"Turning: data", L"20", L"Assign cutting data"}},
         21,
         kAfterTurningCalls},
        {{L"After a machine is created: by type, the set has a master", L"Body Shop", L"machine", nullptr},
         kCreate,
         kAfter,
         {{L"Machine: names", L"10", L"Check names"},
          {L"Standard machine: data", L"12", L"Maintain master data"},
          {L"Machine: translate", L"15", L"Translate texts"},
          {L"Machine: reach", L"20", L"Check robot reach"}},
         25,
         kAfterMachineCalls},
        {{L"After a work step is created: the general type counts too", L"Body Shop", L"orvoplantype_work",
          nullptr},
         kCreate,
         kAfter,
         {{L"Work system: times", L"10", L"Copy standard times"},
          {L"Work step: instruction", L"20", L"Print work instruction"},
          {L"Work system: names", L"30", L"Check names"},
          {L"Standard work system", L"40", L"Compare cycle times"}},
         29,
         kAfterWorkStepCalls},
        {{L"After a tool is changed: by type, no master", L"Machining", L"tool", nullptr},
         kChange,
         kAfter,
         {{L"Machining tool: life", L"10", L"Check tool life"}},
         16,
         kAfterToolCalls},
    };
    return cases;
}

const std::vector<CommandCase>& CommandCases()
{
    static const std::vector<CommandCase> cases = {
        {{L"Context menu of a weld: masters count, repeated names are told apart", L"Body Shop",
          L"orvoplantype_workcell", L"Welding"},
         kContextMenu,
         {{L"Balance", L"script Check line balance", kEach},
          {L"Check", L"script Check clamp positions", kOnce},
          {L"Check all", L"macro ModWelding.CheckAll", kEach},
          {L"Check names", L"script Check names", kOnce},
          {L"Check(2)", L"script Check seam length", kEach},
          {L"Check(3)", L"script Validate weld sequence", kEach},
          {L"Check(4)", L"script Copy standard times", kEach},
          {L"Company rules", L"macro ModRules.Show", kEach},
          {L"Component times", L"script Copy standard times", kEach},
          {L"Export spots", L"script Export weld spots", kOnce},
          {L"ModWelding.ColourSpots", L"macro ModWelding.ColourSpots", kEach},
          {L"Renumber weld spots", L"script Renumber weld spots", kOnce},
          {L"Translate project", L"script Translate texts", kOnce},
          {L"Weld report", L"script Report weld spots", kEach}},
         130,
         kWeldMenuCalls},
        {{L"Properties sheet of a weld", L"Body Shop", L"orvoplantype_workcell", L"Welding"},
         kPropertiesSheet,
         {{L"Check", L"script Check seam length", kEach},
          {L"Company rules", L"macro ModRules.Show", kEach},
          {L"ModWelding.ColourSpots", L"macro ModWelding.ColourSpots", kEach},
          {L"Robot program", L"script Assign robot program", kEach},
          {L"Weld report", L"script Report weld spots", kEach}},
         61,
         kWeldSheetCalls},
        {{L"Context menu of a turning step: no masters", L"Machining", L"orvoplantype_work", L"Turning"},
         kContextMenu,
         {{L"Tool life", L"script Check tool life", kEach},
          {L"Tool list", L"script Create tool list", kOnce}},
         31,
         kTurningMenuCalls},
        {{L"Context menu of a robot, by type: a macro replaces an earlier script of its name", L"Body Shop",
          L"robot", nullptr},
         kContextMenu,
         {{L"Park", L"macro ModRobot.Park", kEach},
          {L"Park(2)", L"script Check robot reach", kEach},
          {L"Teach", L"macro ModRobot.Teach", kEach}},
         49,
         kRobotMenuCalls},
    };
    return cases;
}
