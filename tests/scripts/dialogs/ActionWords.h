// The property dialog of a script action in the words of its tests: the controls and the texts.
#pragma once

namespace action_dialog
{
inline constexpr int kName = 250;
inline constexpr int kSequence = 251;
inline constexpr int kActionType = 254;
inline constexpr int kScript = 256;
inline constexpr int kAfter = 262;
inline constexpr int kBefore = 263;
inline constexpr int kEnabled = 264;
inline constexpr int kPlanType = 266;
inline constexpr int kConfigType = 268;

inline constexpr const wchar_t* kWarning = L"Script Action Properties Warning";
inline constexpr const wchar_t* kNoType = L"Neither a configuration type nor a plantype selected.";
inline constexpr const wchar_t* kNoScript = L"No script selected.";
} // namespace action_dialog
