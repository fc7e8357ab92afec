#include "CQPProjectChoice.h"

#include "XProjectChoiceDlg.h"

#include "InModule.h"

namespace qptools
{
namespace
{
/// The window of a handle passed as a number. Window handles are 32-bit numbers, sign-extended.
HWND WindowOf(LONG number)
{
    return reinterpret_cast<HWND>(static_cast<LONG_PTR>(number));
}

bool CanListChildren(IQP_BaseDataObject* root, LONG showTemplates)
{
    ComPtr<IEnumBaseDataObject> unused;
    return root && root->GetChildren(XProjectChoiceDlg::ChildrenOf(showTemplates), unused.put()) >= 0;
}

/// Writes a result whose pointer the caller may leave null.
void Write(LONG* result, LONG value)
{
    if (result)
        *result = value;
}

/// Runs a method of `component`. If out of memory, a caller that looks at the results alone sees a cancel.
template <class Body>
HRESULT CancelledOnFailure(CQPProjectChoice& component, LONG* canceled, Body&& body) noexcept
{
    const HRESULT status = InModule(component, body);
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
    return CancelledOnFailure(*this, pbCanceled, [&] {
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
    return CancelledOnFailure(*this, pbCanceled, [&] {
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
        // Any other end code means a new one: that of button 3, and that of a dialog that could not be shown.
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
    return InModule(*this, [&] {
        m_buttonText = bstrCancelButtonText;
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE CQPProjectChoice::InterfaceSupportsErrorInfo(REFIID riid)
{
    return IsEqualIID(riid, __uuidof(IQPProjectChoice)) ? S_OK : S_FALSE;
}
} // namespace qptools
