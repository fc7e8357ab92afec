// The dialog in which a user chooses one of the projects or templates under a root object.
#pragma once

#include "Dialog.h"
#include "FixedText.h"
#include "XBaseListCtrl.h"
#include "XQPComBSTR.h"

#include "ComPtr.h"

#include "qpobjects.h"

#include <map>
#include <string>
#include <utility>

namespace qptools
{
/// Lists the names of the children, sorted. Besides OK (end code 1) and Cancel (2) it has button 3, by which
/// the user asks for a new one.
class XProjectChoiceDlg final : public CDialog
{
public:
    /// The end code of button 3 if the dialog shows Cancel; without Cancel it is 1.
    static constexpr INT_PTR kCreateNew = 10;

    /// `root` must not be null; `title`, `buttonText` (of button 3) and `parent` may be. Lists templates if
    /// `showTemplates` is not 0, else projects.
    XProjectChoiceDlg(IQP_BaseDataObject* root, const wchar_t* title, const wchar_t* buttonText, HWND parent,
                      LONG showTemplates, bool showCancel);

    /// The name of the child list that the dialog shows: "template" or "orvoproject".
    static const FixedText& ChildrenOf(LONG showTemplates) noexcept;

    /// The object chosen with OK; null after any other end.
    const ComPtr<IQP_BaseDataObject>& Selected() const noexcept { return m_ptrSelected; }

protected:
    const CMessageMap& GetMessageMap() const override;
    bool OnInitDialog() override;

    /// Ends the dialog if a row is selected; otherwise shows a message.
    void OnOK() override;

private:
    /// By name, compared character by character; equal names in the order of the enumeration.
    using Children = std::map<std::pair<std::wstring, int>, ComPtr<IQP_BaseDataObject>>;

    void OnCreateNew();
    bool CreateList();
    Children ReadChildren() const;
    void ShowUnreadable() const;
    void FillList(const Children& children);
    void ShowNothingSelected() const;

    XBaseListCtrl m_list;
    XQPComBSTR m_buttonText;
    ComPtr<IQP_BaseDataObject> m_ptrRoot;
    ComPtr<IQP_BaseDataObject> m_ptrSelected;
    XQPComBSTR m_title;
    LONG m_showTemplates;
    bool m_showCancel;
};
} // namespace qptools
