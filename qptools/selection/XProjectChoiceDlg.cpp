#include "XProjectChoiceDlg.h"

#include "EnumWalk.h"
#include "HostConstants.h"
#include "ObjectValue.h"

#include "MessageBoxes.h"
#include "Translation.h"
#include "WindowTranslation.h"

#include "Variant.h"

#include <cmath>
#include <string_view>
#include <vector>

namespace qptools
{
namespace
{
constexpr UINT kTemplate = 201;
constexpr UINT kCreateNewButton = 3;
constexpr UINT kPlaceholder = 206;
constexpr UINT kList = 202;
constexpr DWORD kListStyle = 0x50800000;

/// The column of width 0 that carries the child.
constexpr int kObjectColumn = 1;

/// The text with `inserted` in place of the first "%s". Neither text is used as a format, because both come
/// from outside.
std::wstring Inserted(std::wstring text, const XQPComBSTR& inserted)
{
    const std::size_t place = text.find(L"%s");
    if (place != std::wstring::npos)
        text.replace(place, 2, inserted.View());
    return text;
}
} // namespace

XProjectChoiceDlg::XProjectChoiceDlg(IQP_BaseDataObject* root, const wchar_t* title,
                                     const wchar_t* buttonText, HWND parent, LONG showTemplates,
                                     bool showCancel)
    : CDialog(kTemplate, parent), m_buttonText(buttonText), m_ptrRoot(root), m_title(title),
      m_showTemplates(showTemplates), m_showCancel(showCancel)
{
}

const FixedText& XProjectChoiceDlg::ChildrenOf(LONG showTemplates) noexcept
{
    static constexpr FixedText kTemplates = L"template";
    return showTemplates ? kTemplates : kChildrenProjects;
}

const CMessageMap& XProjectChoiceDlg::GetMessageMap() const
{
    static const CMessageMapEntry entries[] = {
        OnCommand<&XProjectChoiceDlg::OnCreateNew>(kCreateNewButton),
    };
    static const CMessageMap map{&CDialog::ClassMessageMap(), entries};
    return map;
}

bool XProjectChoiceDlg::OnInitDialog()
{
    CDialog::OnInitDialog();
    CoTranslateWindow(m_hWnd);
    ShowItem(IDCANCEL, m_showCancel);
    if (!CreateList())
        return false;
    FillList(ReadChildren());
    // After the translation, because these texts are the host's and are shown unchanged.
    SetWindowText(m_title);
    SetItemText(kCreateNewButton, m_buttonText);
    return true;
}

bool XProjectChoiceDlg::CreateList()
{
    const wchar_t* caption =
        m_showTemplates ? CoTranslateText(L"Template name") : CoTranslateText(L"Project name");
    if (!m_list.CreateInPlaceOf(*this, kPlaceholder, kListStyle, kList))
        return false;
    const int width = static_cast<int>(std::floor(m_list.GetWindowRect().Width() * 0.95));
    m_list.InsertColumn(0, caption, LVCFMT_LEFT, width);
    m_list.InsertColumn(kObjectColumn, L"", LVCFMT_LEFT, 0);
    return true;
}

XProjectChoiceDlg::Children XProjectChoiceDlg::ReadChildren() const
{
    Children children;
    ComPtr<IEnumBaseDataObject> found;
    if (m_ptrRoot->GetChildren(ChildrenOf(m_showTemplates), found.put()) != S_OK || !found)
        return children;
    int counter = 0;
    EnumWalk walk(found.get(), WalkBy::RemNext, WalkEnd::AtNull);
    while (walk.Next())
    {
        Variant name;
        if (walk.Object()->GetAttribute(kAttributeName, name.put()) >= 0)
            ResolveReference(name);
        else
            name.Clear();
        if (name.Type() == VT_BSTR)
            children.emplace(std::pair(std::wstring(name.View()), ++counter), walk.Take());
        else
            ShowUnreadable();
    }
    return children;
}

/// Only the title is translated, on purpose.
void XProjectChoiceDlg::ShowUnreadable() const
{
    CoErrorBox(nullptr, CoTranslateText(L"Error"),
               m_showTemplates ? L"unexpected error reading templates.\nTrying next template ..."
                               : L"unexpected error reading projects.\nTrying next project ...",
               0);
}

void XProjectChoiceDlg::FillList(const Children& children)
{
    int row = 0;
    for (const auto& [key, child] : children)
    {
        std::vector<XQPComVariant> columns;
        columns.reserve(2);
        columns.emplace_back(key.first.c_str());
        columns.emplace_back(BorrowedObject(child.get()));
        m_list.AddEntry(std::move(columns), row++, -1);
    }
}

void XProjectChoiceDlg::OnOK()
{
    XQPComVariant child;
    if (!m_list.GetSelData(kObjectColumn, child))
    {
        ShowNothingSelected();
        return;
    }
    ComPtr<IQP_BaseDataObject> selected;
    selected.queryFrom(ObjectOf(child.Value()));
    m_ptrSelected = std::move(selected);
    if (m_ptrSelected)
        EndDialog(IDOK);
}

void XProjectChoiceDlg::ShowNothingSelected() const
{
    std::wstring text = m_showTemplates
                            ? CoTranslateText(L"You must either select a template and choose ok, ")
                            : CoTranslateText(L"You must either select a project and choose ok, ");
    text += L'\n';
    text += Inserted(CoTranslateText(L"or you must choose the '%s' button!"), m_buttonText);
    CoOkBox(nullptr, CoTranslateText(L"Information"), text.c_str(), 0);
}

void XProjectChoiceDlg::OnCreateNew()
{
    m_ptrSelected.reset();
    // Without Cancel the dialog ends as by OK: the host reads "not cancelled, no project".
    if (m_showCancel)
        EndDialog(kCreateNew);
    else
        CDialog::OnOK();
}
} // namespace qptools
