#include "XOpenBookmarkDlg.h"

#include "BookmarkControls.h"
#include "BookmarkHost.h"
#include "BookmarkKeys.h"
#include "HostServices.h"
#include "XBookmarkManager.h"

#include "HostConstants.h"

#include "MessageBoxes.h"
#include "Translation.h"

#include <commctrl.h>

#include <utility>

namespace qptools
{
namespace
{
constexpr UINT kTemplate = 217;

// The layout, in pixels.
constexpr int kListLeft = 7;
constexpr int kListTop = 95;
constexpr int kBesideList = 19;
constexpr int kBelowList = 195;
constexpr int kButtonWidth = 75;
constexpr int kButtonHeight = 23;
constexpr int kButtonsFromBottom = 90;

/// A button, and its left edge, counted from the middle of the window.
struct ButtonPlace
{
    int id;
    double fromMiddle;
};
constexpr ButtonPlace kButtons[] = {
    {kOpenBookmark, -167.5}, {kDeleteBookmark, -85.5}, {kDeleteAllBookmarks, -5.5}, {IDCANCEL, 74.5}};

/// The text with `name` in place of "%s". The name itself may contain "%s".
std::wstring WithName(std::wstring text, const std::wstring& name)
{
    const std::size_t place = text.find(L"%s");
    return place == std::wstring::npos ? text : text.replace(place, 2, name);
}

bool IsConfirmed(const wchar_t* title, const wchar_t* question)
{
    return CoYesNoBox(GetActiveWindow(), title, question, 0) == IDYES;
}
} // namespace

XOpenBookmarkDlg::XOpenBookmarkDlg() : CDialog(kTemplate) {}

HRESULT XOpenBookmarkDlg::SetObjectManager(IQPFObjectManager* manager)
{
    m_ptrObjectManager = ComPtr(manager);
    return S_OK;
}

void XOpenBookmarkDlg::ReleaseHost() noexcept
{
    m_ptrView.reset();
    m_ptrExpander.reset();
    m_ptrObject.reset();
    m_ptrStore.reset();
    m_ptrQuery.reset();
    m_ptrClient.reset();
    m_ptrObjectManager.reset();
}

void XOpenBookmarkDlg::DoDataExchange(CDataExchange* pDX)
{
    CDialog::DoDataExchange(pDX);
    DDX_Control(pDX, kBookmarkProjects, m_projects);
    DDX_Control(pDX, kBookmarkList, m_bookmarks);
}

const CMessageMap& XOpenBookmarkDlg::GetMessageMap() const
{
    static const CMessageMapEntry entries[] = {
        OnControl<&XOpenBookmarkDlg::OnSelChange>(CBN_SELCHANGE, kBookmarkProjects),
        OnCommand<&XOpenBookmarkDlg::OnDelete>(kDeleteBookmark),
        OnCommand<&XOpenBookmarkDlg::OnDeleteAll>(kDeleteAllBookmarks),
        OnCommand<&XOpenBookmarkDlg::OnOpen>(kOpenBookmark),
        OnNotify<&XOpenBookmarkDlg::OnListClick>(NM_CLICK, kBookmarkList),
        OnNotify<&XOpenBookmarkDlg::OnListDoubleClick>(NM_DBLCLK, kBookmarkList),
        OnNotify<&XOpenBookmarkDlg::OnListKey>(LVN_KEYDOWN, kBookmarkList),
        OnNotify<&XOpenBookmarkDlg::OnEndLabelEdit>(LVN_ENDLABELEDITW, kBookmarkList),
        OnMessage<&XOpenBookmarkDlg::OnSize>(WM_SIZE),
    };
    static const CMessageMap map{&CDialog::ClassMessageMap(), entries};
    return map;
}

// A project.

// The statuses of the two calls do not count: without a new query object the one before is used.
void XOpenBookmarkDlg::RenewQuery()
{
    LONG client = 0;
    GetClientId(m_ptrClient.get(), kBookmarkClient, client);
    ComPtr<IQP_Query> query;
    GetQuery(m_ptrClient.get(), client, query);
    if (query)
        m_ptrQuery = query;
}

void XOpenBookmarkDlg::OnSelChange()
{
    const int entry = m_projects.GetCurSel();
    if (entry < 0)
        return;
    EnableItem(kDeleteAllBookmarks, true);
    if (m_bookmarks.GetItemCount() > 0)
        m_bookmarks.DeleteAllItems();
    m_projectName = m_projects.GetLBText(entry);
    m_projectId = *reinterpret_cast<const XQPComBSTR*>(m_projects.GetItemData(entry));
    RenewQuery();
    // Without a query object every object would count as gone, and its bookmark would be deleted.
    if (m_ptrQuery)
        ListBookmarks();
}

void XOpenBookmarkDlg::ListBookmarks()
{
    XBookmarkManager::Bookmarks bookmarks;
    const HRESULT status = XBookmarkManager::GetBookmarks(m_projectId, bookmarks);
    if (status < 0)
    {
        LogBookmarkFailure(status,
                           L"XBookmarkManager::GetBookmarks       m_ptrQPIPDClient->GetServerCOMObject", 443);
        return;
    }
    int row = 0;
    for (; !bookmarks.empty(); ++row) // it counts those that are gone, too
    {
        auto bookmark = bookmarks.extract(bookmarks.begin());
        XQPComBSTR& tree = bookmark.key();
        ComPtr<IUnknown> object;
        if (FindObject(ObjectIdIn(tree, tree.Find(L')')), object) != S_OK || !object)
            XBookmarkManager::Deletebokmark(m_projectId, tree);
        else
            m_bookmarks.AddRow(row,
                               {ConfiguredName(object.get()), TakeText(bookmark.mapped()), std::move(tree)});
    }
}

// Deleting.

void XOpenBookmarkDlg::OnDelete()
{
    const int count = m_bookmarks.GetSelectedCount();
    if (count == 0)
        return;
    const wchar_t* question = count == 1 ? CoTranslateText(L"Do you really want to delete this bookmark ?")
                                         : CoTranslateText(L"Do you really want to delete these bookmarks ?");
    if (!IsConfirmed(CoTranslateText(L"Delete Bookmark Component"), question))
        return;
    for (int done = 0; done <= count && m_bookmarks.FirstSelected() >= 0; ++done)
        DeleteSelected();
}

void XOpenBookmarkDlg::DeleteSelected()
{
    const int row = m_bookmarks.FirstSelected();
    const XQPComBSTR tree = m_bookmarks.RowAt(row)->tree;
    m_bookmarks.DeleteItem(row);
    XBookmarkManager::Deletebokmark(m_projectId, tree);
    if (m_bookmarks.GetItemCount() == 0)
    {
        m_projects.DeleteString(m_projects.GetCurSel());
        m_projects.SetCurSel(0);
        OnSelChange();
    }
    EnableItem(kOpenBookmark, false);
    EnableItem(kDeleteBookmark, false);
}

void XOpenBookmarkDlg::OnDeleteAll()
{
    const int entry = m_projects.GetCurSel();
    if (entry < 0)
        return;
    m_projectName = m_projects.GetLBText(entry);
    const std::wstring question =
        WithName(CoTranslateText(L"Do you really want to delete all the bookmarks from the project ' %s ' ?"),
                 m_projectName);
    if (!IsConfirmed(CoTranslateText(L"Delete All Bookmarks "), question.c_str()))
        return;
    XBookmarkManager::DeleteAllBookmarks(m_projectId);
    m_bookmarks.DeleteAllItems();
    m_projects.DeleteString(entry);
    m_projects.SetCurSel(0);
    if (m_projects.GetCount() > 0)
    {
        OnSelChange();
        return;
    }
    // "Delete" stays as it is, on purpose: without a selected row it does nothing.
    EnableItem(kOpenBookmark, false);
    EnableItem(kDeleteAllBookmarks, false);
}

// The list.

void XOpenBookmarkDlg::OnListClick(NMHDR*, LRESULT* result)
{
    const int selected = m_bookmarks.GetSelectedCount();
    EnableItem(kOpenBookmark, selected == 1);
    EnableItem(kDeleteBookmark, selected > 0);
    if (selected == 0)
        EnableItem(kDeleteAllBookmarks, true);
    *result = 0;
}

void XOpenBookmarkDlg::OnListDoubleClick(NMHDR*, LRESULT*)
{
    OnOpen();
}

void XOpenBookmarkDlg::OnListKey(NMHDR* notification, LRESULT*)
{
    switch (reinterpret_cast<const NMLVKEYDOWN*>(notification)->wVKey)
    {
    case VK_F2:
        m_bookmarks.EditLabel(m_bookmarks.FirstSelected());
        break;
    case VK_DELETE:
        OnDelete();
        break;
    default:
        break;
    }
}

// Enter. The dialog ends whatever Open found, on purpose.
void XOpenBookmarkDlg::OnOK()
{
    OnOpen();
    CDialog::OnOK();
}

// The list fills the window, and the buttons stand in the middle below it. The box and the labels stay.
LRESULT XOpenBookmarkDlg::OnSize(WPARAM, LPARAM)
{
    const CRect window = GetWindowRect();
    const int middle = window.Width() / 2;
    const auto place = [this](int id, int left, int top, int width, int height) {
        if (const HWND item = GetDlgItem(id))
            ::MoveWindow(item, left, top, width, height, TRUE);
    };
    place(kBookmarkList, kListLeft, kListTop, window.Width() - kBesideList, window.Height() - kBelowList);
    for (const ButtonPlace& button : kButtons)
        place(button.id, static_cast<int>(middle + button.fromMiddle), window.Height() - kButtonsFromBottom,
              kButtonWidth, kButtonHeight);
    // The list moves first. Buttons that it covers then would not be drawn again.
    InvalidateRect(m_hWnd, nullptr, TRUE);
    return 0;
}
} // namespace qptools
