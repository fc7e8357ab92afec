// Where the navigator keeps its bookmarks in the key store.
#pragma once

#include "XQPComBSTR.h"

#include <algorithm>

namespace qptools
{
/// The configuration of the browser. Everything below is in kScopeBookmarks.
inline constexpr wchar_t kBrowserKey[] = L"QPR-Navigator/BrowserConfiguration1/";

/// It has a sub key for each project. Entry n of a project is the value "gotoitemname<n>", the bookmark's
/// name.
inline constexpr wchar_t kNamesKey[] = L"QPR-Navigator/BrowserConfiguration1/gotoitemname";
inline constexpr wchar_t kNameKey[] = L"QPR-Navigator/BrowserConfiguration1/gotoitemname/";

// The tree strings; entry n is the value "<n>". Two spellings of one key are in use, and each operation keeps
// its own: the store ignores case.
inline constexpr wchar_t kTreeKeyToRead[] = L"QPR-Navigator/BrowserConfiguration1/gotoitemtree/";
inline constexpr wchar_t kTreeKeyToWrite[] = L"QPR-Navigator/BrowserConfiguration1/GotoItemTree/";

/// The identifier of a bookmark's object begins at this index of its tree string.
inline constexpr int kObjectIdStart = 12;

/// The object's identifier in a tree string, up to and including the delimiter at index `end`. Returns an
/// empty text if there is no delimiter (-1).
inline XQPComBSTR ObjectIdIn(const XQPComBSTR& tree, int end)
{
    return tree.Mid(kObjectIdStart, end - kObjectIdStart + 1);
}

/// The project's identifier in a sub key: from the first "$", or the beginning, to the first ")" behind it,
/// which belongs to it. Without a ")" it is empty.
inline XQPComBSTR ProjectIdIn(const XQPComBSTR& subKey)
{
    const int begin = std::max(subKey.Find(L'$'), 0);
    return subKey.Mid(begin, subKey.Find(L')', begin) - begin + 1);
}

/// The key of a project: `key` and the project's identifier.
inline XQPComBSTR KeyOf(const wchar_t* key, const XQPComBSTR& project)
{
    XQPComBSTR whole(key);
    whole += project;
    return whole;
}
} // namespace qptools
