#include "BareBookmarks.h"

#include "BareDialog.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "HostConstants.h"

#include "ComPtr.h"

#include "qpservices.h"

#include <commctrl.h>

#include <map>
#include <string>

namespace
{
using namespace qptools;

constexpr int kProjects = 382;
constexpr int kList = 383;
constexpr LONG kScope = 2;

constexpr FixedText kConfiguredName = L"configured_name";
constexpr wchar_t kNames[] = L"QPR-Navigator/BrowserConfiguration1/gotoitemname";
constexpr wchar_t kTrees[] = L"QPR-Navigator/BrowserConfiguration1/gotoitemtree";

/// What the dialog gets from the manager. It is got twice: for the store and for the dialog.
struct Services
{
    ComPtr<IQP_Query> query;
    ComPtr<IQPSessionDataManager> store;
    ComPtr<IQPIPDClient> gateway;

    Services(IQPFObjectManager* manager, const FixedText& client)
    {
        ComPtr<IQPFObject> object;
        manager->GetObject(kClassIpdClient, kAutoCreate, object.put());
        gateway.queryFrom(object.get());
        Renew(client);
        manager->GetObject(kClassSessionDataManager, kAutoCreate, object.put());
        store.queryFrom(object.get());
    }

    void Renew(const FixedText& client)
    {
        LONG id = 0;
        gateway->GetClientIdByName(client, &id);
        gateway->GetServerCOMObject(id, kClassQuery, __uuidof(IQP_Query), query.putVoid());
    }

    /// The configured name of the object of that identifier.
    XQPComVariant NameOf(const XQPComBSTR& id) const
    {
        ComPtr<IUnknown> object;
        query->GetObjectById(id, object.put());
        ComPtr<IQP_BaseDataObject> data;
        data.queryFrom(object.get());
        XQPComVariant name;
        data->GetAttribute(kConfiguredName, &name);
        return name;
    }

    XQPComVariant Value(const XQPComBSTR& key, const std::wstring& name) const
    {
        XQPComVariant value;
        store->GetValue(key, XQPComBSTR(name.c_str()), VT_BSTR, &value, kScope);
        return value;
    }
};

XQPComBSTR KeyOf(const wchar_t* list, const XQPComBSTR& project)
{
    return XQPComBSTR((std::wstring(list) + L"/" + static_cast<const wchar_t*>(project)).c_str());
}

void AddColumn(HWND list, int index, int width)
{
    LVCOLUMNW column{};
    column.mask = LVCF_WIDTH | LVCF_TEXT;
    column.cx = width;
    column.pszText = const_cast<LPWSTR>(L"Column");
    SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
}

void AddRow(HWND list, int index, wchar_t* name, wchar_t* component)
{
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = index;
    item.pszText = name;
    item.lParam = index;
    const LRESULT placed = SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    item.iSubItem = 1;
    item.pszText = component;
    SendMessageW(list, LVM_SETITEMTEXTW, static_cast<WPARAM>(placed), reinterpret_cast<LPARAM>(&item));
}

/// Lists the bookmarks of a project in the order of their tree strings.
void List(const Services& services, const XQPComBSTR& project, HWND list)
{
    const XQPComBSTR nameKey = KeyOf(kNames, project);
    const XQPComBSTR treeKey = KeyOf(kTrees, project);
    ULONG count = 0;
    tagSTRINGPAIR* names = nullptr;
    services.store->GetStringList(nameKey, &count, &names, kScope);
    std::map<std::wstring, XQPComVariant> bookmarks;
    for (ULONG number = 0; number < count; ++number)
    {
        const std::wstring digits = std::to_wstring(number);
        XQPComVariant tree = services.Value(treeKey, digits);
        bookmarks[tree.GetString()] = services.Value(nameKey, L"gotoitemname" + digits);
    }
    int row = 0;
    for (auto& [tree, name] : bookmarks)
    {
        const std::size_t end = tree.find(L')');
        XQPComVariant component = services.NameOf(XQPComBSTR(tree.substr(12, end - 11).c_str()));
        AddRow(list, row++, name.GetString(), component.GetString());
    }
}

/// The project of the only sub key.
XQPComBSTR ProjectOf(const Services& services)
{
    ULONG count = 0;
    BSTR* keys = nullptr;
    services.store->GetSubKeys(XQPComBSTR(kNames), kSubKeysArgument, &count, &keys, kScope);
    return XQPComBSTR(keys[0]);
}
} // namespace

std::size_t BookmarkFloor(IQPFObjectManager* manager, const CLSID& viewClass, std::string_view dialog)
{
    const BareDialog bare(dialog);
    const HWND list = GetDlgItem(bare.Window(), kList);
    const Services ofTheStore(manager, L"XBookmarkManager");
    Services services(manager, L"XOpenBookmarkDlg");
    const XQPComBSTR project = ProjectOf(services);
    AddColumn(list, 0, 250);
    AddColumn(list, 1, 500);
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP);
    ComPtr<IEnumQPFObject> views;
    manager->GetRunningObjects(viewClass, views.put());
    bare.Add(kProjects, services.NameOf(project).GetString());
    ComPtr<IQPFObject> view;
    ULONG fetched = 0;
    views->RemNext(1, view.put(), &fetched);
    SendDlgItemMessageW(bare.Window(), kProjects, CB_SETCURSEL, 0, 0);
    services.Renew(L"XOpenBookmarkDlg");
    List(services, project, list);
    bare.Show();
    return static_cast<std::size_t>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
}
