#include "CXBookMark.h"

#include "XOpenBookmarkDlg.h"

#include "InModule.h"

namespace qptools
{
namespace
{
/// Releases the dialog's references to the host at the end of the call: the dialog object itself lives on.
class HostReferences
{
public:
    explicit HostReferences(XOpenBookmarkDlg& dialog) noexcept : m_dialog(dialog) {}
    ~HostReferences() { m_dialog.ReleaseHost(); }
    HostReferences(const HostReferences&) = delete;
    HostReferences& operator=(const HostReferences&) = delete;

private:
    XOpenBookmarkDlg& m_dialog;
};
} // namespace

CXBookMark::CXBookMark() = default;

CXBookMark::~CXBookMark() = default;

HRESULT STDMETHODCALLTYPE CXBookMark::ShowDialog(IQPFObjectManager* pIQPFObjectManager)
{
    return InModule(*this, [&] {
        XOpenBookmarkDlg& dialog = *m_dialogs.emplace_back(std::make_unique<XOpenBookmarkDlg>());
        const HostReferences references(dialog);
        dialog.SetObjectManager(pIQPFObjectManager);
        dialog.DoModal();
        return S_OK;
    });
}
} // namespace qptools
