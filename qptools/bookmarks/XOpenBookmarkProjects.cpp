// How the bookmark dialog reaches the host's services and lists the projects.
#include "XOpenBookmarkDlg.h"

#include "BookmarkControls.h"
#include "BookmarkHost.h"
#include "BookmarkKeys.h"
#include "HostServices.h"
#include "XBookmarkManager.h"

#include "EnumWalk.h"
#include "HostConstants.h"

#include "MessageBoxes.h"
#include "Translation.h"
#include "WindowTranslation.h"
#include "XQPError.h"

#include "UiState.h"

namespace qptools
{
namespace
{
constexpr UINT kIcon = 385;
constexpr int kNone = -1;
} // namespace

bool XOpenBookmarkDlg::OnInitDialog()
{
    CDialog::OnInitDialog();
    if (const HICON icon = LoadIconW(CurrentModule(), MAKEINTRESOURCEW(kIcon)))
        SendMessage(WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
    for (const int button : {kOpenBookmark, kDeleteBookmark, kDeleteAllBookmarks})
        EnableItem(button, false);
    CoTranslateWindow(m_hWnd);
    XBookmarkManager::Initialize(m_ptrObjectManager.get());
    if (ReachHost())
        ListProjects();
    return false;
}

/// Each failure leaves the dialog open and empty.
bool XOpenBookmarkDlg::ReachHost()
{
    const auto failed = [](HRESULT status, const wchar_t* message, ULONG line) {
        LogBookmarkFailure(status, message, line);
        return false;
    };
    ComPtr<IQPFObject> object;
    HRESULT status = StartObject(m_ptrObjectManager.get(), kClassIpdClient, object);
    if (status < 0 || !object)
        return failed(
            status, L"XDeleteBookmarkDlg: OnInitdilaog        m_ptrIQPFObjectManager->GetObject failed", 178);
    LONG client = 0;
    m_ptrClient.queryFrom(object.get());
    status = GetClientId(m_ptrClient.get(), kBookmarkClient, client);
    if (status < 0 || client == 0)
        return failed(status, L"XDeleteBookmarkDlg: OnInitdilaog       m_ptrQPIPDClient->GetServerCOMObject",
                      192);
    status = GetQuery(m_ptrClient.get(), client, m_ptrQuery);
    if (status < 0 || !m_ptrQuery)
        return failed(status, L"XDeleteBookmarkDlg: OnInitdilaog       m_ptrQPIPDClient->GetServerCOMObject",
                      203);
    status = StartObject(m_ptrObjectManager.get(), kClassSessionDataManager, object);
    if (status < 0 || !object)
        return failed(status,
                      L"XOpenBookmarkDlg: OnInitdilaog        m_ptrIQPFObjectManager->GetObject failed", 212);
    status = m_ptrStore.queryFrom(object.get());
    return (status >= 0 && m_ptrStore) ||
           failed(status, L"XOpenBookmarkDlg: OnInitdilaog                ->QueryInterface failed", 219);
}

void XOpenBookmarkDlg::ListProjects()
{
    std::vector<XQPComBSTR> projects;
    bool wereRead = false;
    XBookmarkManager::GetBookmarkprojectId(projects, wereRead);
    m_bookmarks.Open();
    CLSID viewClass{};
    const HRESULT status = CLSIDFromProgID(L"ORVOEXPLORER.ORVOEXPLORERView", &viewClass);
    if (status != S_OK)
        XQPError::HandleComError(status, kBookmarkSource, L"XopenBookmarkDlg::openBookmark", 250, false,
                                 false);
    ComPtr<IEnumQPFObject> views;
    const bool hasViews = m_ptrObjectManager->GetRunningObjects(viewClass, views.put()) >= 0 && views;
    std::size_t gone = 0;
    for (const XQPComBSTR& project : projects)
        ListProject(project, gone);
    const int shown = hasViews ? ShownProject(views.get(), projects) : kNone;
    if (shown == kNone && m_projects.GetCount() == 0)
    {
        TellNoProject(wereRead && gone == projects.size());
        return;
    }
    m_projects.SetCurSel(shown == kNone ? 0 : shown);
    OnSelChange();
}

/// Adds a project to the box, or deletes the bookmarks of one that does not exist any more.
void XOpenBookmarkDlg::ListProject(const XQPComBSTR& project, std::size_t& gone)
{
    ComPtr<IUnknown> object;
    if (FindObject(project, object) != S_OK || !object)
    {
        ++gone;
        // With an empty identifier this would delete the bookmarks of all projects.
        if (!project.IsEmpty())
            XBookmarkManager::DeleteAllBookmarks(project);
        return;
    }
    ComPtr<IQP_BaseDataObject> data;
    data.queryFrom(object.get());
    if (!data)
        return;
    const int entry = m_projects.AddString(ConfiguredName(object.get()));
    m_projects.SetItemData(entry, reinterpret_cast<LPARAM>(&m_projectIds.emplace_back(project)));
}

/// The entry of the project that a view of the navigator shows, of several the last one; -1 for none.
int XOpenBookmarkDlg::ShownProject(IEnumQPFObject* views, const std::vector<XQPComBSTR>& projects) const
{
    int shown = kNone;
    EnumWalk walk(views, WalkBy::RemNext, WalkEnd::AtStatusOnly);
    while (walk.Next())
    {
        ComPtr<IQPExplorerView> view;
        view.queryFrom(walk.Object());
        if (!view)
            continue;
        for (const XQPComBSTR& project : projects)
            if (view->IsProjectShown(project) == S_OK)
                if (const int entry = EntryOf(project); entry != kNone)
                    shown = entry;
    }
    return shown;
}

int XOpenBookmarkDlg::EntryOf(const XQPComBSTR& project) const
{
    for (int entry = 0; entry < m_projects.GetCount(); ++entry)
        if (*reinterpret_cast<const XQPComBSTR*>(m_projects.GetItemData(entry)) == project)
            return entry;
    return kNone;
}

/// Ends the dialog, which has nothing to list. If all projects are gone, the browser's configuration is
/// deleted; not if a project is only unreadable, or the store is.
void XOpenBookmarkDlg::TellNoProject(bool areGone)
{
    if (areGone)
        m_ptrStore->DeleteKey(XQPComBSTR(kBrowserKey), kScopeBookmarks);
    CoInfoBox(nullptr, CoTranslateText(L"Goto"), CoTranslateText(L"No more Bookmarked project exist."), 0);
    EndDialog(IDOK);
}

HRESULT XOpenBookmarkDlg::FindObject(const XQPComBSTR& id, ComPtr<IUnknown>& object) const
{
    return m_ptrQuery ? m_ptrQuery->GetObjectById(id, object.put()) : E_POINTER;
}
} // namespace qptools
