#include "CQPCopyOptDlg.h"

#include "InModule.h"
#include "OutArguments.h"

namespace qptools
{
HRESULT STDMETHODCALLTYPE CQPCopyOptDlg::Initialize(IEnumBaseDataObject*, IQPConfigFactory*)
{
    return InModule(*this, [] { return E_NOTIMPL; });
}

HRESULT STDMETHODCALLTYPE CQPCopyOptDlg::ShowDialog()
{
    return InModule(*this, [] { return E_NOTIMPL; });
}

HRESULT STDMETHODCALLTYPE CQPCopyOptDlg::GetButtonIDClicked(LONG* nID)
{
    return InModule(*this, [nID] {
        ClearOut(nID);
        return E_NOTIMPL;
    });
}

HRESULT STDMETHODCALLTYPE CQPCopyOptDlg::ApplyEnhanceCopy(IEnumBaseDataObject*)
{
    return InModule(*this, [] { return E_NOTIMPL; });
}

HRESULT STDMETHODCALLTYPE CQPCopyOptDlg::DeleteObjects()
{
    return InModule(*this, [] { return E_NOTIMPL; });
}
} // namespace qptools
