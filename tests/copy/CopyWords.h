// The enhanced copy dialog in the words of its tests: the controls and the texts.
#pragma once

namespace copy_dialog
{
inline constexpr int kNormal = 367;
inline constexpr int kDeep = 368;
inline constexpr int kCancel = 369;
inline constexpr int kAdvanced = 371;
inline constexpr int kGroup = 372;
inline constexpr int kGrid = 373;
inline constexpr int kPlanType = 374;
inline constexpr int kNormalRadio = 375;
inline constexpr int kDeepRadio = 376;
inline constexpr int kAdvancedOk = 377;
inline constexpr int kAdvancedCancel = 378;

inline constexpr const wchar_t* kTitle = L"Copy Options";
inline constexpr const wchar_t* kNoAttributes = L"None of the attributes are configured for extended copy!";
} // namespace copy_dialog
