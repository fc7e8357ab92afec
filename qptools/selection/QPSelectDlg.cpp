#include "QPSelectDlg.h"

#include "OutArguments.h"
#include "UiState.h"

namespace qptools
{
HRESULT STDMETHODCALLTYPE QPSelectDlg::ShowDialog(ULONG, tagINITVALUE*, IUnknown** pSelObject)
{
    const CUiState state;
    ClearOut(pSelObject);
    return E_NOTIMPL;
}
} // namespace qptools
