// How the bookmark dialog opens a bookmark in the navigator and renames one.
#include "XOpenBookmarkDlg.h"

#include "BookmarkControls.h"
#include "BookmarkKeys.h"
#include "HostServices.h"

#include "HostConstants.h"

#include "MessageBoxes.h"
#include "Translation.h"
#include "XQPComVariant.h"
#include "XQPError.h"

#include "Bstr.h"
#include "Variant.h"

#include <cwctype>

namespace qptools
{
namespace
{
constexpr wchar_t kExpanderProgId[] = L"QPBrowserTreeExpanderStarter.QPBrowserTreeExpanderStarterManager";

// The option to expand the browser: the user's value, and the default.
constexpr FixedText kOptionKey = L"common";
constexpr FixedText kOptionName = L"expandbrowser";
constexpr wchar_t kDefaultKey[] = L"option-configuration/common/expandbrowser";
constexpr FixedText kDefaultName = L"default";

// The line numbers in the reports that tell the two calls apart.
constexpr ULONG kForcedLine = 780;
constexpr ULONG kWantedLine = 803;

std::wstring Trimmed(const std::wstring& text)
{
    const auto isBlank = [](wchar_t character) {
        return std::iswspace(static_cast<std::wint_t>(character)) != 0;
    };
    std::size_t begin = 0;
    std::size_t end = text.size();
    while (begin < end && isBlank(text[begin]))
        ++begin;
    while (end > begin && isBlank(text[end - 1]))
        --end;
    return text.substr(begin, end - begin);
}
} // namespace

// Opening.

void XOpenBookmarkDlg::OnOpen()
{
    const int row = m_bookmarks.FirstSelected();
    if (row < 0)
        return;
    const XQPComBSTR tree = m_bookmarks.RowAt(row)->tree;
    if (!m_ptrObjectManager)
        XQPError::HandleStandardError(L"QPTools", L"CFrameApp::StartObject", 817, L"Invalid ProgID", S_OK,
                                      true);
    else
    {
        CLSID expanderClass{};
        CLSIDFromProgID(kExpanderProgId, &expanderClass);
        if (!NameIsReadable(tree))
        {
            CoInfoBox(nullptr, CoTranslateText(L"Goto"), CoTranslateText(L"The object is no more exists."),
                      0);
            return;
        }
        StartExpander(expanderClass);
        ExpandTree(tree);
    }
    CDialog::OnOK();
}

/// Whether the bookmark's object still exists. The identifier ends at the semicolon here, and at the bracket
/// where the list is filled, on purpose.
bool XOpenBookmarkDlg::NameIsReadable(const XQPComBSTR& tree)
{
    FindObject(ObjectIdIn(tree, tree.Find(L';', kObjectIdStart)), m_ptrObject);
    ComPtr<IQP_BaseDataObject> object;
    object.queryFrom(m_ptrObject.get());
    Variant name;
    return object && object->GetAttribute(kAttributeName, name.put()) == S_OK;
}

// No status counts. The list of running objects is asked for and not read, on purpose.
void XOpenBookmarkDlg::StartExpander(const CLSID& expanderClass)
{
    ComPtr<IQPFObject> starter;
    StartObject(m_ptrObjectManager.get(), expanderClass, starter);
    ComPtr<IEnumQPFObject> running;
    m_ptrObjectManager->GetRunningObjects(expanderClass, running.put());
    m_ptrExpander.queryFrom(starter.get());
    m_ptrView.queryFrom(starter.get());
}

/// Expands the navigator's tree to the object. If the option is off, it is written as on for the call and as
/// off afterwards, whatever its value was.
void XOpenBookmarkDlg::ExpandTree(const XQPComBSTR& tree)
{
    if (ExpandsByOption())
    {
        Expand(tree, kWantedLine);
        return;
    }
    SetExpandOption(L"1");
    Expand(tree, kForcedLine);
    SetExpandOption(L"0");
}

/// True without a key store. A value that is nowhere to be found, or is no flag, reads as false.
bool XOpenBookmarkDlg::ExpandsByOption() const
{
    if (!m_ptrStore)
        return true;
    Variant value;
    if (m_ptrStore->GetValue(kOptionKey, kOptionName, VT_BSTR, value.put(), kScopeUserRead) != S_OK)
        m_ptrStore->GetValue(XQPComBSTR(kDefaultKey), kDefaultName, VT_BSTR, value.put(), kScopeDefaults);
    Variant flag;
    return CopyConverted(value.get(), VT_BOOL, flag) && flag->boolVal != VARIANT_FALSE;
}

void XOpenBookmarkDlg::SetExpandOption(const wchar_t* text) const
{
    XQPComVariant value(text);
    m_ptrStore->SetValue(kOptionKey, kOptionName, &value.Value(), kScopeUserWrite);
}

// Copies: if the host handles messages during the call, the user may open another bookmark, which replaces
// both members.
void XOpenBookmarkDlg::Expand(const XQPComBSTR& tree, ULONG line) const
{
    const ComPtr<IQPBrowserTreeExpander> expander = m_ptrExpander;
    const XQPComBSTR project = m_projectId;
    if (!expander)
        return;
    const HRESULT status = expander->ExpandTree(tree, project);
    if (status < 0)
        XQPError::HandleStandardError(L"QPTools", L"CFrameApp:: ???", line, L"Expand tree failed", status,
                                      true);
}

// Renaming.

// The label of the list itself is not changed: the row is replaced by one with the new name.
void XOpenBookmarkDlg::OnEndLabelEdit(NMHDR* notification, LRESULT* result)
{
    *result = 0;
    const int row = m_bookmarks.FirstSelected();
    const HWND edit = m_bookmarks.GetEditControl();
    if (!reinterpret_cast<const NMLVDISPINFOW*>(notification)->item.pszText || row < 0 || !edit)
        return;
    const std::wstring name = Trimmed(WindowText(edit));
    if (name.empty())
        return;
    const XQPComBSTR tree = m_bookmarks.RowAt(row)->tree;
    const std::wstring component = m_bookmarks.GetItemText(row, 1);
    m_bookmarks.DeleteItem(row);
    m_bookmarks.AddRow(row - 1, {component.c_str(), name.c_str(), tree});
    StoreName(tree, name);
}

/// Writes the name under the bookmark's number in the store, or under an empty value name if the store has no
/// such bookmark any more. If the list cannot be read, the name changes on the screen only. All on purpose.
void XOpenBookmarkDlg::StoreName(const XQPComBSTR& tree, const std::wstring& name)
{
    const XQPComBSTR nameKey = KeyOf(kNameKey, m_projectId);
    ULONG count = 0;
    tagSTRINGPAIR* trees = nullptr;
    if (m_ptrStore->GetStringList(KeyOf(kTreeKeyToWrite, m_projectId), &count, &trees, kScopeBookmarks) !=
        S_OK)
        return;
    XQPComBSTR valueName;
    for (ULONG entry = 0; trees && entry < count; ++entry)
        if (tree ==
            XQPComBSTR(trees[entry].bstrValue, static_cast<int>(SysStringLen(trees[entry].bstrValue))))
        {
            ULONG nameCount = 0;
            tagSTRINGPAIR* names = nullptr;
            m_ptrStore->GetStringList(nameKey, &nameCount, &names, kScopeBookmarks);
            if (names && entry < nameCount)
                valueName = names[entry].bstrName;
            break;
        }
    XQPComVariant text(name.c_str());
    m_ptrStore->SetValue(nameKey, valueName, &text.Value(), kScopeBookmarks);
    EnableItem(kOpenBookmark, false);
    EnableItem(kDeleteBookmark, false);
}
} // namespace qptools
