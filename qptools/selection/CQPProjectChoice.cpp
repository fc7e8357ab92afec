#include "CQPProjectChoice.h"

#include "XProjectChoiceDlg.h"

#include "UiState.h"

namespace qptools
{
namespace
{
/// The window of a handle that came as a number. Handles are numbers of 32 bits with a sign.
HWND WindowOf(LONG number)
{
    return reinterpret_cast<HWND>(static_cast<LONG_PTR>(number));
}

bool CanListChildren(IQP_BaseDataObject* root, LONG showTemplates)
{
    ComPtr<IEnumBaseDataObject> unused;
    return root && root->GetChildren(XProjectChoiceDlg::ChildrenOf(showTemplates), unused.put()) >= 0;
}

/// The results are pointers that the caller may leave out.
void Write(LONG* result, LONG value)
{
    if (result)
        *result = value;
}

/// What runs out of memory reads as cancelled for a caller who looks at the results alone.
template <class Body>
HRESULT CancelledOnFailure(LONG* canceled, Body&& body) noexcept
{
    const HRESULT status = ComBoundary(body);
    if (status < 0)
        Write(canceled, 1);
    return status;
}
} // namespace

HRESULT STDMETHODCALLTYPE CQPProjectChoice::ShowDialog(IQP_BaseDataObject* piProjectRoot, BSTR bstrTitle,
                                                       LONG* pbCanceled,
                                                       IQP_BaseDataObject** ppiSelectedProject,
                                                       LONG lnghWndParent)
{
    const CUiState state;
    return CancelledOnFailure(pbCanceled, [&] {
        if (!CanListChildren(piProjectRoot, 0))
        {
            Write(pbCanceled, 1);
            return S_OK;
        }
        XProjectChoiceDlg dialog(piProjectRoot, bstrTitle, m_buttonText, WindowOf(lnghWndParent), 0, false);
        Write(pbCanceled, dialog.DoModal() == IDOK ? 0 : 1);
        dialog.Selected().copyTo(ppiSelectedProject);
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE CQPProjectChoice::ShowDialogEx(IQP_BaseDataObject* piProjectRoot, BSTR bstrTitle,
                                                         LONG bShowTemplates, LONG* pbCanceled,
                                                         LONG* pbCreate,
                                                         IQP_BaseDataObject** ppiSelectedProject,
                                                         LONG lnghWndParent)
{
    const CUiState state;
    return CancelledOnFailure(pbCanceled, [&] {
        const bool canList = CanListChildren(piProjectRoot, bShowTemplates);
        Write(pbCanceled, 0);
        if (!canList)
        {
            Write(pbCreate, 1);
            return S_OK;
        }
        XProjectChoiceDlg dialog(piProjectRoot, bstrTitle, m_buttonText, WindowOf(lnghWndParent),
                                 bShowTemplates, true);
        const INT_PTR end = dialog.DoModal();
        // Any other end means something new: button 3, and a dialog that could not
        // be shown as well.
        if (end == IDCANCEL)
            Write(pbCanceled, 1);
        else
            Write(pbCreate, end == IDOK ? 0 : 1);
        dialog.Selected().copyTo(ppiSelectedProject);
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE CQPProjectChoice::Initialize(BSTR bstrCancelButtonText)
{
    const CUiState state;
    return ComBoundary([&] {
        m_buttonText = bstrCancelButtonText;
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE CQPProjectChoice::InterfaceSupportsErrorInfo(REFIID riid)
{
    return IsEqualIID(riid, __uuidof(IQPProjectChoice)) ? S_OK : S_FALSE;
}
} // namespace qptools
