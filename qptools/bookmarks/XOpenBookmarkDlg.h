// The bookmark dialog.
#pragma once

#include "XBookmarkListCtrl.h"

#include "ComPtr.h"
#include "ComboBox.h"
#include "Dialog.h"

#include "qpobjects.h"
#include "qpservices.h"

#include <deque>
#include <vector>

namespace qptools
{
/// Lists the bookmarks of one project at a time. The user opens one in the navigator, which ends the dialog,
/// renames one in place, or deletes some or all. Each action is written to the host's key store at once.
/// While it fills its lists, the dialog deletes without asking the bookmarks of projects and objects that do
/// not exist any more.
class XOpenBookmarkDlg : public CDialog
{
public:
    XOpenBookmarkDlg();

    /// The dialog holds a reference to `manager`, which may be null: it stays empty then. Returns S_OK.
    virtual HRESULT SetObjectManager(IQPFObjectManager* manager);

    /// Releases everything of the host. For the end of the dialog.
    void ReleaseHost() noexcept;

protected:
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void OnOK() override;
    const CMessageMap& GetMessageMap() const override;

private:
    // Opening.
    bool ReachHost();
    void ListProjects();
    void ListProject(const XQPComBSTR& project, std::size_t& gone);
    int ShownProject(IEnumQPFObject* views, const std::vector<XQPComBSTR>& projects) const;
    int EntryOf(const XQPComBSTR& project) const;
    void TellNoProject(bool areGone);
    HRESULT FindObject(const XQPComBSTR& id, ComPtr<IUnknown>& object) const;

    // A project.
    void OnSelChange();
    void RenewQuery();
    void ListBookmarks();

    // Buttons, keys and the list.
    void OnDelete();
    void DeleteSelected();
    void OnDeleteAll();
    void OnOpen();
    void OnListClick(NMHDR* notification, LRESULT* result);
    void OnListDoubleClick(NMHDR* notification, LRESULT* result);
    void OnListKey(NMHDR* notification, LRESULT* result);
    void OnEndLabelEdit(NMHDR* notification, LRESULT* result);
    LRESULT OnSize(WPARAM, LPARAM);

    // Navigation.
    bool NameIsReadable(const XQPComBSTR& tree);
    void StartExpander(const CLSID& expanderClass);
    void ExpandTree(const XQPComBSTR& tree);
    bool ExpandsByOption() const;
    void SetExpandOption(const wchar_t* text) const;
    void Expand(const XQPComBSTR& tree, ULONG line) const;
    void StoreName(const XQPComBSTR& tree, const std::wstring& name);

    ComPtr<IQPFObjectManager> m_ptrObjectManager;
    ComPtr<IQPIPDClient> m_ptrClient;
    ComPtr<IQP_Query> m_ptrQuery;
    ComPtr<IQPSessionDataManager> m_ptrStore;
    ComPtr<IUnknown> m_ptrObject; ///< the one that Open looked for last
    ComPtr<IQPBrowserTreeExpander> m_ptrExpander;
    ComPtr<IQPExplorerView> m_ptrView; ///< of the expander; kept, and not called

    CComboBox m_projects;
    XBookmarkListCtrl m_bookmarks;
    std::deque<XQPComBSTR> m_projectIds; ///< the entries of the box point here
    std::wstring m_projectName;
    XQPComBSTR m_projectId; ///< of the project whose bookmarks are listed
};
} // namespace qptools
