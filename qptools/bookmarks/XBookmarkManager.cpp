#include "XBookmarkManager.h"

#include "BookmarkHost.h"
#include "BookmarkKeys.h"
#include "HostServices.h"

#include "HostConstants.h"

#include "XQPError.h"

#include <climits>
#include <string>

namespace qptools
{
namespace
{
constexpr FixedText kClient = L"XBookmarkManager";

/// GetBookmarks gives up after this many numbers in a row without an entry. A store gets there only if its
/// two lists contradict each other.
constexpr int kMostMisses = 1'000'000;

/// The host's services.
struct Services
{
    ComPtr<IQPFObjectManager> m_ptrIQPFObjectManager;
    ComPtr<IQPFObject> m_ptrGateway;
    ComPtr<IQPIPDClient> m_ptrQPIPDClient;
    ComPtr<IQP_Query> m_ptrQuery;
    ComPtr<IQPSessionDataManager> m_ptrSessionDataMng;
};

// Never destroyed: when the process ends, the host's objects may be gone. XBookmarkManager::Release empties
// it before the module is unloaded.
Services& TheServices() noexcept
{
    alignas(Services) static unsigned char storage[sizeof(Services)];
    static Services& services = *new (storage) Services;
    return services;
}

HRESULT Log(HRESULT status, const wchar_t* message, ULONG line)
{
    return XQPError::HandleComError(status, L"XBookmarkManager", message, line, true, false);
}

/// Calls the key store; E_POINTER if there is none. It holds a reference: Initialize may replace the store
/// during the call.
template <class Body>
HRESULT InStore(Body&& body)
{
    const ComPtr store = TheServices().m_ptrSessionDataMng;
    return store ? body(*store) : E_POINTER;
}

/// Reads a value as text.
HRESULT GetText(const XQPComBSTR& key, const std::wstring& name, XQPComVariant& text)
{
    return InStore([&](IQPSessionDataManager& store) {
        return store.GetValue(key, XQPComBSTR(name.c_str()), VT_BSTR, &text, kScopeBookmarks);
    });
}

/// A list that the store has handed out and owns.
struct StringList
{
    ULONG count = 0;
    tagSTRINGPAIR* list = nullptr;

    HRESULT Read(const XQPComBSTR& key)
    {
        return InStore([&](IQPSessionDataManager& store) {
            return store.GetStringList(key, &count, &list, kScopeBookmarks);
        });
    }

    /// The first `wanted` entries; null for each that the list does not have.
    std::vector<tagSTRINGPAIR> Copy(ULONG wanted) const
    {
        std::vector<tagSTRINGPAIR> copy(wanted);
        for (ULONG entry = 0; list && entry < count && entry < wanted; ++entry)
            copy[entry] = list[entry];
        return copy;
    }
};

std::wstring_view TextOf(BSTR text)
{
    return {text, SysStringLen(text)};
}

/// Removes the entries whose tree string is `tree`: the values of those behind them move forward. The names
/// of the values, which are the numbers, stay, and so do the values behind the last survivor. The store's
/// list of tree strings has `treeCount` entries; no entry beyond them is removed.
void Compact(std::vector<tagSTRINGPAIR>& names, std::vector<tagSTRINGPAIR>& trees, ULONG treeCount,
             const XQPComBSTR& tree)
{
    std::size_t to = 0;
    for (std::size_t from = 0; from < names.size(); ++from)
        if (from >= treeCount || TextOf(trees[from].bstrValue) != tree.View())
        {
            names[to].bstrValue = names[from].bstrValue;
            trees[to].bstrValue = trees[from].bstrValue;
            ++to;
        }
}

/// Deletes both lists of a project. Only the second status is returned, on purpose.
HRESULT DeleteLists(const XQPComBSTR& nameKey, const XQPComBSTR& treeKey)
{
    return InStore([&](IQPSessionDataManager& store) {
        store.DeleteKey(nameKey, kScopeBookmarks);
        return store.DeleteKey(treeKey, kScopeBookmarks);
    });
}

/// Writes all entries of a list but the last one.
HRESULT Write(IQPSessionDataManager& store, const XQPComBSTR& key, std::vector<tagSTRINGPAIR>& list)
{
    const ULONG count = list.empty() ? 0 : static_cast<ULONG>(list.size() - 1);
    return store.WriteStringList(key, count, list.data(), kScopeBookmarks);
}

/// Writes both lists of a project. Only the second status is returned, on purpose.
HRESULT WriteLists(const XQPComBSTR& nameKey, std::vector<tagSTRINGPAIR>& names, const XQPComBSTR& treeKey,
                   std::vector<tagSTRINGPAIR>& trees)
{
    return InStore([&](IQPSessionDataManager& store) {
        Write(store, nameKey, names);
        return Write(store, treeKey, trees);
    });
}
} // namespace

HRESULT XBookmarkManager::Initialize(IQPFObjectManager* manager)
{
    Services& services = TheServices();
    services.m_ptrIQPFObjectManager = ComPtr(manager);
    HRESULT status = StartObject(manager, kClassIpdClient, services.m_ptrGateway);
    if (status < 0 || !services.m_ptrGateway)
        Log(status, L"XDeleteBookmarkDlg: OnInitdilaog        m_ptrIQPFObjectManager->GetObject failed", 325);
    services.m_ptrQPIPDClient.queryFrom(services.m_ptrGateway.get());

    LONG client = 0;
    status = GetClientId(services.m_ptrQPIPDClient.get(), kClient, client);
    if (status < 0 || client == 0)
        Log(status, L"XDeleteBookmarkDlg: OnInitdilaog       m_ptrQPIPDClient->GetServerCOMObject", 340);
    status = GetQuery(services.m_ptrQPIPDClient.get(), client, services.m_ptrQuery);
    if (status < 0)
        Log(status, L"XDeleteBookmarkDlg: OnInitdilaog       m_ptrQPIPDClient->GetServerCOMObject", 350);

    ComPtr<IQPFObject> store;
    status = StartObject(manager, kClassSessionDataManager, store);
    if (status < 0 || !store)
        Log(status, L"XBookmarkMngr:: XBookmarkMngr      m_ptrIQPFObjectManager->GetObject failed", 362);
    status = services.m_ptrSessionDataMng.queryFrom(store.get());
    if (status < 0 || !services.m_ptrSessionDataMng)
        Log(status, L"XBookmarkMngr:: XBookmarkMngr              ->QueryInterface failed", 374);
    return status;
}

void XBookmarkManager::Release() noexcept
{
    TheServices() = Services();
}

HRESULT XBookmarkManager::GetBookmarkprojectId(std::vector<XQPComBSTR>& projects, bool& wereRead)
{
    ULONG count = 0;
    BSTR* keys = nullptr;
    const HRESULT status = InStore([&](IQPSessionDataManager& store) {
        return store.GetSubKeys(XQPComBSTR(kNamesKey), kSubKeysArgument, &count, &keys, kScopeBookmarks);
    });
    wereRead = status >= 0;
    if (!wereRead)
        Log(status,
            L"XBookmarkManager::GetBookmarkprojectId              m_ptrSessionDataMng->GetSubKeys failed",
            139);
    for (ULONG key = 0; wereRead && keys && key < count; ++key)
        projects.push_back(ProjectIdIn(XQPComBSTR(keys[key], static_cast<int>(SysStringLen(keys[key])))));
    return S_OK;
}

HRESULT XBookmarkManager::GetBookmarks(const XQPComBSTR& project, Bookmarks& bookmarks)
{
    const XQPComBSTR nameKey = KeyOf(kNameKey, project);
    const XQPComBSTR treeKey = KeyOf(kTreeKeyToRead, project);
    StringList names;
    names.Read(nameKey); // only for its count
    int misses = 0;
    ULONG found = 0;
    for (int number = 0; found != names.count && misses < kMostMisses && number < INT_MAX; ++number)
    {
        const std::wstring digits = std::to_wstring(number);
        XQPComVariant tree;
        const bool exists = GetText(treeKey, digits, tree) == S_OK;
        misses = exists ? 0 : misses + 1;
        if (!exists)
            continue;
        XQPComVariant name;
        GetText(nameKey, L"gotoitemname" + digits, name);
        bookmarks[TakeText(tree)] = std::move(name);
        ++found;
    }
    return S_OK;
}

// By value: the caller's variables may change during a host call that lets the user act in the dialog.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
HRESULT XBookmarkManager::Deletebokmark(XQPComBSTR project, XQPComBSTR tree)
{
    const XQPComBSTR nameKey = KeyOf(kNameKey, project);
    const XQPComBSTR treeKey = KeyOf(kTreeKeyToWrite, project);
    StringList names;
    StringList trees;
    const bool wereRead = names.Read(nameKey) == S_OK && trees.Read(treeKey) == S_OK;
    if (wereRead && (!names.list || !trees.list))
    {
        Log(S_OK, L"XBookmarkmanager::Deletebokmark      m_pSessionDataMng->GetStringList failed", 231);
        return S_OK;
    }
    std::vector<tagSTRINGPAIR> nameList = names.Copy(names.list ? names.count : 0);
    std::vector<tagSTRINGPAIR> treeList = trees.Copy(trees.list ? static_cast<ULONG>(nameList.size()) : 0);
    if (wereRead)
        Compact(nameList, treeList, trees.count, tree);
    // On purpose also if the lists could not be read.
    HRESULT status = DeleteLists(nameKey, treeKey);
    if (status < 0)
    {
        Log(status, L"XBookmarkmanager::Deletebokmark   m_pSessionDataMng->DeleteKey failed", 242);
        return S_OK;
    }
    status = WriteLists(nameKey, nameList, treeKey, treeList);
    if (status < 0)
        Log(status, L"XBookmarkmanager::Deletebokmark            m_pSessionDataMng->WriteStringList failed",
            252);
    return S_OK;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): as before
HRESULT XBookmarkManager::DeleteAllBookmarks(XQPComBSTR project)
{
    const XQPComBSTR nameKey = KeyOf(kNameKey, project);
    const XQPComBSTR treeKey = KeyOf(kTreeKeyToWrite, project);
    const HRESULT status = InStore([&](IQPSessionDataManager& store) {
        store.PrepareScope(kScopeBookmarks);
        return DeleteLists(nameKey, treeKey);
    });
    if (status < 0)
        Log(status,
            L"XBookmarkmanager: DeleteAllBookmarks                 m_ptrSessionDataMng->DeleteKey failed",
            300);
    return S_OK;
}
} // namespace qptools
