// The property dialog of a script command in the words of its tests: the controls, the texts, and the calls
// that the host of CommandFixture.h records.
#pragma once

#include "Calls.h"

#include <map>
#include <string>
#include <utility>

namespace command_dialog
{
inline constexpr int kName = 300;
inline constexpr int kPrompt = 302;
inline constexpr int kScript = 306;
inline constexpr int kMacro = 308;
inline constexpr int kPlanType = 316;
inline constexpr int kConfigType = 318;
inline constexpr int kContextMenu = 350;
inline constexpr int kVisible = 353;
inline constexpr int kProperties = 354;
inline constexpr int kExecution = 356;
inline constexpr int kPage = 357;
inline constexpr int kGroup = 358;
inline constexpr int kAttribute = 359;
inline constexpr int kElement = 360;
inline constexpr int kOptions = 361;
inline constexpr int kElementLabel = 362;
inline constexpr int kNameLabel = 363;

inline constexpr const wchar_t* kOnce = L"Once for all objects";
inline constexpr const wchar_t* kEach = L"For each object";

inline constexpr const wchar_t* kWarning = L"Script Command Properties Warning";
inline constexpr const wchar_t* kNoType = L"Neither a configuration type nor a plantype selected.";
inline constexpr const wchar_t* kNoScript = L"Neither a script nor a VBA Macro selected.";
inline constexpr const wchar_t* kNoElement = L"Please select an element and a name in the options group";

/// A warning as the record shows it.
inline std::string BoxOf(const wchar_t* text)
{
    const std::wstring box = std::wstring(L"box ") + kWarning + L": " + text;
    return {box.begin(), box.end()};
}

using Changes = std::map<std::string, std::string>;

/// The call that writes the fixture's command back, with other values for `changes`.
inline std::string Write(const Changes& changes = {})
{
    static const std::pair<const char*, const char*> values[] = {{"m_name", "BSTR 'Deburr'"},
                                                                 {"m_strPrompt", "BSTR 'Deburr now'"},
                                                                 {"m_pScript", "UNKNOWN drill"},
                                                                 {"m_strVBAMacroName", "BSTR ''"},
                                                                 {"m_strType", "BSTR 'cell'"},
                                                                 {"m_pPlanType", "EMPTY"},
                                                                 {"m_bVisible", "I4 1"},
                                                                 {"m_lUserInterfaceType", "I4 3"},
                                                                 {"m_nameShort", "BSTR '0'"},
                                                                 {"customizationobjectid", "BSTR '2'"},
                                                                 {"customizationobjecttype", "I4 0"}};
    std::string text;
    for (const auto& [name, value] : values)
    {
        const auto changed = changes.find(name);
        text += (text.empty() ? "" : ", ") + std::string(name) + " = ";
        text += changed == changes.end() ? value : changed->second;
    }
    return "command.SetAttributes(" + text + ")";
}

/// What is written of a command that is not to be on the properties sheet.
inline Changes NotPlaced()
{
    return {{"m_lUserInterfaceType", "I4 1"},
            {"customizationobjectid", "BSTR ''"},
            {"customizationobjecttype", "I4 -1"}};
}

/// The calls of opening: the record, the names in it, and what comes then up to the rights.
inline Calls Opening(const Calls& names, const Calls& placement)
{
    return Calls{"GetType(scriptcommand, null)",
                 "command.GetAttributes(m_name, m_strPrompt, m_pScript, m_strVBAMacroName, orvoplantype, "
                 "m_strType, m_pPlanType, m_bVisible, m_lUserInterfaceType, m_nameShort, "
                 "customizationobjectid, customizationobjecttype)"} +
           names + placement + Calls{"command.HasRight(8)"};
}

/// The calls of a search in `table`.
inline Calls Searching(const std::string& table)
{
    return {"ResetSearch(0)",
            "SetSearchTable(" + table + ")",
            "SetSearchAttribute(dodefaultimpl, 1, UNKNOWN project, 1)",
            "SetSearchAttribute(dodefaultimpl, 1, EMPTY, 2)",
            "GetSearchResult()",
            "RemNext(25)"};
}

// The calls that read the lists.

inline const Calls kReadScripts =
    Searching("script") + Calls{"drill.GetAttribute(name)", "weld.GetAttribute(name)"};
inline const Calls kReadPlanTypes = {"set.GetChildren(orvoplantype)", "RemNext(25)",
                                     "assembly.GetAttribute(name)", "milling.GetAttribute(name)"};
inline const Calls kReadTypes = {"GetTypeEnum(null)",          "types.RemNext(25)",
                                 "cell.Get(isplantype)",       "cell.Get(typename)",
                                 "line.Get(isplantype)",       "line.Get(typename)",
                                 "plan.Get(isplantype)",       "scriptcommand.Get(isplantype)",
                                 "scriptcommand.Get(typename)"};
inline const Calls kReadPages = {"cell.GetPageEnum()",           "cell pages.GetSingleNext()",
                                 "cell/General.GetProperty(5)",  "cell/General.GetProperty(0)",
                                 "cell pages.GetSingleNext()",   "cell/Costs.GetProperty(5)",
                                 "cell/Costs.GetProperty(0)",    "cell pages.GetSingleNext()",
                                 "cell/Internal.GetProperty(5)", "cell pages.GetSingleNext()"};
inline const Calls kReadGroups = {"cell.GetGroupEnum()",         "cell groups.GetSingleNext()",
                                  "cell/Usage.GetProperty(9)",   "cell/Usage.GetProperty(0)",
                                  "cell groups.GetSingleNext()", "cell/Limits.GetProperty(9)",
                                  "cell/Limits.GetProperty(0)",  "cell groups.GetSingleNext()"};
inline const Calls kReadAttributes = {"cell.GetDisplayAttributeEnum(7)", "cell attributes.GetSingleNext()",
                                      "weight.Get(attributename)", "cell attributes.GetSingleNext()"};
} // namespace command_dialog
