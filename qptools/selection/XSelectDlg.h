// The dialog in which a user chooses one of the given objects by its prompt.
#pragma once

#include "Dialog.h"
#include "XBaseListCtrl.h"
#include "XQPComBSTR.h"

#include "ComPtr.h"

#include <map>

namespace qptools
{
/// Shows one row for each object and knows nothing about the objects. Only the wording of one message names
/// the use that the dialog was first made for.
class XSelectDlg final : public CDialog
{
public:
    struct Entry
    {
        ComPtr<IUnknown> object;
        XQPComBSTR prompt;
    };

    /// Keyed by the object's pointer: an object has one row, and callers cannot set the order of rows.
    using Entries = std::map<IUnknown*, Entry>;

    /// `title` may be null. The thread's active window becomes the owner.
    XSelectDlg(Entries entries, const wchar_t* title);

    /// The object chosen with OK; null before that.
    const ComPtr<IUnknown>& Selected() const noexcept { return m_ptrSelected; }

protected:
    const CMessageMap& GetMessageMap() const override;
    bool OnInitDialog() override;

    /// Ends the dialog if a row is selected; otherwise shows a message.
    void OnOK() override;

private:
    void OnDoubleClick(NMHDR* header, LRESULT* result);
    bool CreateList();
    void FillList();

    ComPtr<IUnknown> m_ptrSelected;
    Entries m_entries;
    XQPComBSTR m_title;
    XBaseListCtrl m_list;
};
} // namespace qptools
