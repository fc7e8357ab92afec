#include "CQPCopyOptDlg.h"

#include "CEnhancedCopyDialog.h"

#include "InModule.h"

#include <atomic>
#include <utility>

namespace qptools
{
/// A dialog, and its place in the list of those that are kept.
struct CopyOptionDialog
{
    CopyOptionDialog(IEnumBaseDataObject* objects, IQPConfigFactory* factory) : dialog(objects, factory) {}

    CEnhancedCopyDialog dialog;
    std::shared_ptr<CopyOptionDialog> self; ///< set while it is kept
    CopyOptionDialog* next = nullptr;
};

namespace
{
constexpr LONG kNormal = 0;
constexpr LONG kDeep = 8;
constexpr LONG kNoCopy = -1;

// A plain pointer: at the end of the process nothing is freed, because the host's objects may be gone.
// Atomic, because components of several apartments share the list.
constinit std::atomic<CopyOptionDialog*> g_kept = nullptr;

LONG OptionOf(int button) noexcept
{
    switch (button)
    {
    case CEnhancedCopyDialog::kNormalButton:
        return kNormal;
    case CEnhancedCopyDialog::kDeepButton:
        return kDeep;
    default:
        return kNoCopy;
    }
}
} // namespace

void FreeKeptCopyDialogs() noexcept
{
    for (CopyOptionDialog* next = g_kept.exchange(nullptr); next;)
    {
        const std::shared_ptr<CopyOptionDialog> kept = std::move(next->self);
        next = kept->next;
    }
}

// Only DeleteObjects frees a dialog: it holds objects of the host, which are not released behind its back.
CQPCopyOptDlg::~CQPCopyOptDlg()
{
    if (!m_dialog)
        return;
    CopyOptionDialog& kept = *m_dialog;
    kept.self = std::move(m_dialog);
    kept.next = g_kept;
    while (!g_kept.compare_exchange_weak(kept.next, &kept))
        ;
}

HRESULT STDMETHODCALLTYPE CQPCopyOptDlg::Initialize(IEnumBaseDataObject* piEnumObjects, IQPConfigFactory* pCF)
{
    return InModule(*this, [=, this] {
        m_dialog = std::make_shared<CopyOptionDialog>(piEnumObjects, pCF);
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE CQPCopyOptDlg::ShowDialog()
{
    return InModule(
        *this, [dialog = m_dialog] { return dialog && dialog->dialog.DoModal() != -1 ? S_OK : S_FALSE; });
}

HRESULT STDMETHODCALLTYPE CQPCopyOptDlg::GetButtonIDClicked(LONG* nID)
{
    return InModule(*this, [=, this] {
        if (!nID)
            return E_POINTER;
        *nID = m_dialog ? OptionOf(m_dialog->dialog.GetButtonClicked()) : kNoCopy;
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE CQPCopyOptDlg::ApplyEnhanceCopy(IEnumBaseDataObject* piEnumObjects)
{
    return InModule(*this, [dialog = m_dialog, piEnumObjects] {
        if (dialog)
            dialog->dialog.ApplyEnhanceCopy(piEnumObjects);
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE CQPCopyOptDlg::DeleteObjects()
{
    return InModule(*this, [this] {
        m_dialog.reset();
        return S_OK;
    });
}
} // namespace qptools
