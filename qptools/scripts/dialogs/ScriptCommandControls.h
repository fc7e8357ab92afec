// The controls of the property dialog of a script command, and its warnings' title.
#pragma once

namespace qptools::script_command
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

// The place on the properties sheet.

inline constexpr int kOptions = 361;
inline constexpr int kElementLabel = 362;
inline constexpr int kPage = 357; ///< the first of the three radio buttons
inline constexpr int kGroup = 358;
inline constexpr int kAttribute = 359;
inline constexpr int kElementNameLabel = 363;
inline constexpr int kElementName = 360;

inline constexpr wchar_t kWarning[] = L"Script Command Properties Warning";
inline constexpr wchar_t kNoType[] = L"Neither a configuration type nor a plantype selected.";
} // namespace qptools::script_command
