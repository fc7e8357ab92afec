// The component behind the enhanced copy dialog.
#pragma once

#include "ComObject.h"

#include "qptools.h"

#include <memory>

namespace qptools
{
struct CopyOptionDialog;

/// Owns one dialog at a time, from Initialize to DeleteObjects. The methods are called in the order of their
/// declaration; without a dialog they do nothing. A dialog that is in use, because a host calls back, is
/// freed when it is done. One that was not freed by DeleteObjects is kept until the module ends.
class CQPCopyOptDlg final : public ComObject<CQPCopyOptDlg, IQPCopyOptDlg>
{
public:
    ~CQPCopyOptDlg();

    /// Makes a dialog for `piEnumObjects`, the objects to be copied, in place of the one before. The
    /// enumerator is not read yet. Both arguments may be null; the dialog holds references to both. Returns
    /// S_OK, or E_OUTOFMEMORY with the dialog before unchanged.
    HRESULT STDMETHODCALLTYPE Initialize(IEnumBaseDataObject* piEnumObjects, IQPConfigFactory* pCF) override;

    /// Shows the dialog. Returns S_OK, whichever button ended it; S_FALSE if it could not be shown or there
    /// is none; E_OUTOFMEMORY.
    HRESULT STDMETHODCALLTYPE ShowDialog() override;

    /// Writes 0 for Normal, 8 for Deep, and -1 if nothing is to be copied. Returns S_OK, or E_POINTER if
    /// `nID` is null.
    HRESULT STDMETHODCALLTYPE GetButtonIDClicked(LONG* nID) override;

    /// Sets the values that the user typed on the copies, which the host has made. Always returns S_OK.
    HRESULT STDMETHODCALLTYPE ApplyEnhanceCopy(IEnumBaseDataObject* piEnumObjects) override;

    /// Frees the dialog; no data object is deleted. Always returns S_OK.
    HRESULT STDMETHODCALLTYPE DeleteObjects() override;

private:
    std::shared_ptr<CopyOptionDialog> m_dialog;
};

/// Frees the dialogs whose components were released without DeleteObjects. For the end of the module.
void FreeKeptCopyDialogs() noexcept;
} // namespace qptools
