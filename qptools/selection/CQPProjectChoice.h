// The component that lets a user choose a project.
#pragma once

#include "ComObject.h"

#include "XQPComBSTR.h"

#include "qptools.h"

#include <oaidl.h>

namespace qptools
{
/// All methods return S_OK, or E_OUTOFMEMORY, which counts as cancelled. The outcome is in the results; any
/// result pointer may be null. This is the only class of the module that answers ISupportErrorInfo. It cannot
/// be aggregated.
class CQPProjectChoice final : public ComObject<CQPProjectChoice, IQPProjectChoice, ISupportErrorInfo>
{
public:
    /// Shows the projects under `piProjectRoot` without a Cancel button. `*pbCanceled` becomes 0 after OK and
    /// after button 3, else 1. `*ppiSelectedProject` becomes the chosen project, with a reference for the
    /// caller, or null after button 3, which stands for none of them, and after a cancel. If the projects
    /// cannot be listed, no dialog appears: cancelled, with `*ppiSelectedProject` untouched.
    HRESULT STDMETHODCALLTYPE ShowDialog(IQP_BaseDataObject* piProjectRoot, BSTR bstrTitle, LONG* pbCanceled,
                                         IQP_BaseDataObject** ppiSelectedProject,
                                         LONG lnghWndParent) override;

    /// The same with a Cancel button, and with templates if `bShowTemplates` is not 0. `*pbCanceled` becomes
    /// 1 after Cancel, else 0. `*pbCreate` becomes 0 after OK, 1 after button 3, and is untouched after
    /// Cancel. If the children cannot be listed, no dialog appears: not cancelled, create, with
    /// `*ppiSelectedProject` untouched.
    HRESULT STDMETHODCALLTYPE ShowDialogEx(IQP_BaseDataObject* piProjectRoot, BSTR bstrTitle,
                                           LONG bShowTemplates, LONG* pbCanceled, LONG* pbCreate,
                                           IQP_BaseDataObject** ppiSelectedProject,
                                           LONG lnghWndParent) override;

    /// Sets the caption of button 3, which messages name too; it is empty before the first call. Despite the
    /// argument's name it is not the caption of the Cancel button.
    HRESULT STDMETHODCALLTYPE Initialize(BSTR bstrCancelButtonText) override;

    /// S_OK for IQPProjectChoice, S_FALSE for any other interface. Does not enter the module's UI state.
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID riid) override;

private:
    XQPComBSTR m_buttonText;
};
} // namespace qptools
