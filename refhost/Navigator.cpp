#include "Navigator.h"

#include "KeyStore.h"
#include "ObjectId.h"

#include "Utf8.h"

#include <windows.h>

#include <oleauto.h>

#include <algorithm>
#include <charconv>

namespace refhost
{
namespace
{
constexpr const char* kNames = "QPR-Navigator/BrowserConfiguration1/gotoitemname/";
constexpr const char* kTrees = "QPR-Navigator/BrowserConfiguration1/gotoitemtree/";

/// What stands before the object's identifier.
constexpr std::string_view kTreeStart = "BrowserTree:";

std::string IdText(long long number)
{
    return Utf8FromWide(IdOf(number));
}

/// One above the highest number in use.
long long NextNumber(KeyStore& store, const std::string& treeKey)
{
    long long next = 0;
    for (const StoredText& entry : store.List(kScopeBookmarks, treeKey))
    {
        long long number = -1;
        std::from_chars(entry.name.data(), entry.name.data() + entry.name.size(), number);
        next = std::max(next, number + 1);
    }
    return next;
}
} // namespace

void AddBookmark(PlantCore& core, long long project, long long object, const std::string& name)
{
    KeyStore store(core.database);
    const std::string treeKey = kTrees + IdText(project);
    const std::string number = std::to_string(NextNumber(store, treeKey));
    const std::string tree = std::string(kTreeStart) + IdText(object) + ";" + IdText(project) + ";";
    Transaction transaction(core.database);
    store.Set(kScopeBookmarks, kNames + IdText(project), "gotoitemname" + number, {VT_BSTR, name});
    store.Set(kScopeBookmarks, treeKey, number, {VT_BSTR, tree});
    transaction.Commit();
}

long long ObjectOfTree(const std::string& tree)
{
    return tree.rfind(kTreeStart, 0) == 0 ? NumberOfId(tree.substr(kTreeStart.size())).value_or(0) : 0;
}
} // namespace refhost
