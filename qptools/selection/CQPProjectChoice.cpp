#include "CQPProjectChoice.h"

#include "OutArguments.h"
#include "UiState.h"

namespace qptools
{
HRESULT STDMETHODCALLTYPE CQPProjectChoice::ShowDialog(IQP_BaseDataObject*, BSTR, LONG* pbCanceled,
                                                       IQP_BaseDataObject** ppiSelectedProject, LONG)
{
    const CUiState state;
    ClearOut(pbCanceled, ppiSelectedProject);
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE CQPProjectChoice::ShowDialogEx(IQP_BaseDataObject*, BSTR, LONG, LONG* pbCanceled,
                                                         LONG* pbCreate,
                                                         IQP_BaseDataObject** ppiSelectedProject, LONG)
{
    const CUiState state;
    ClearOut(pbCanceled, pbCreate, ppiSelectedProject);
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE CQPProjectChoice::Initialize(BSTR)
{
    const CUiState state;
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE CQPProjectChoice::InterfaceSupportsErrorInfo(REFIID riid)
{
    return IsEqualIID(riid, __uuidof(IQPProjectChoice)) ? S_OK : S_FALSE;
}
} // namespace qptools
