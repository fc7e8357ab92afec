#include "CQPCopyOptDlg.h"

#include "OutArguments.h"
#include "UiState.h"

namespace qptools
{
HRESULT STDMETHODCALLTYPE CQPCopyOptDlg::Initialize(IEnumBaseDataObject*, IQPConfigFactory*)
{
    const CUiState state;
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE CQPCopyOptDlg::ShowDialog()
{
    const CUiState state;
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE CQPCopyOptDlg::GetButtonIDClicked(LONG* nID)
{
    const CUiState state;
    ClearOut(nID);
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE CQPCopyOptDlg::ApplyEnhanceCopy(IEnumBaseDataObject*)
{
    const CUiState state;
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE CQPCopyOptDlg::DeleteObjects()
{
    const CUiState state;
    return E_NOTIMPL;
}
} // namespace qptools
