// The controls of the bookmark dialog.
#pragma once

namespace qptools
{
inline constexpr int kDeleteBookmark = 380;
inline constexpr int kDeleteAllBookmarks = 381;
inline constexpr int kBookmarkProjects = 382;
inline constexpr int kBookmarkList = 383;
inline constexpr int kOpenBookmark = 384;
} // namespace qptools
