// The bookmark dialog in the words of its tests: the controls and the texts.
#pragma once

namespace bookmark_dialog
{
inline constexpr int kDelete = 380;
inline constexpr int kDeleteAll = 381;
inline constexpr int kProject = 382;
inline constexpr int kList = 383;
inline constexpr int kOpen = 384;

inline constexpr const wchar_t* kTitle = L"Bookmark";
inline constexpr const wchar_t* kGoto = L"Goto";
inline constexpr const wchar_t* kNoProject = L"No more Bookmarked project exist.";
inline constexpr const wchar_t* kNoObject = L"The object is no more exists.";
inline constexpr const wchar_t* kDeleteTitle = L"Delete Bookmark Component";
inline constexpr const wchar_t* kDeleteOne = L"Do you really want to delete this bookmark ?";
inline constexpr const wchar_t* kDeleteSeveral = L"Do you really want to delete these bookmarks ?";
inline constexpr const wchar_t* kDeleteAllTitle = L"Delete All Bookmarks ";
} // namespace bookmark_dialog
