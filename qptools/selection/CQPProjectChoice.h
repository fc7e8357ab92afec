// The component that lets a user choose a project.
#pragma once

#include "ComObject.h"

#include "XQPComBSTR.h"

#include "qptools.h"

#include <oaidl.h>

namespace qptools
{
/// All methods return S_OK; the outcome is in the results, of which any may be null. (E_OUTOFMEMORY alone is
/// returned besides, and the choice counts as cancelled then.) It alone of the module's classes tells that
/// its interface may leave error information, and it cannot be part of another object.
class CQPProjectChoice final : public ComObject<CQPProjectChoice, IQPProjectChoice, ISupportErrorInfo>
{
public:
    /// Shows the projects under `piProjectRoot` without a Cancel button. `*pbCanceled` becomes 0 after OK and
    /// after button 3, else 1. `*ppiSelectedProject` becomes the chosen project with a reference for the
    /// caller, or null: after button 3, which stands for none of them, and after a cancel. If the projects
    /// cannot be had, no dialog appears: cancelled, and `*ppiSelectedProject` is left as it was.
    HRESULT STDMETHODCALLTYPE ShowDialog(IQP_BaseDataObject* piProjectRoot, BSTR bstrTitle, LONG* pbCanceled,
                                         IQP_BaseDataObject** ppiSelectedProject,
                                         LONG lnghWndParent) override;

    /// The same with a Cancel button, of templates if `bShowTemplates` is not 0. `*pbCanceled` becomes 1
    /// after Cancel, else 0. `*pbCreate` becomes 0 after OK, 1 after button 3, and is left as it was after
    /// Cancel. If the children cannot be had, no dialog appears: not cancelled, create, and
    /// `*ppiSelectedProject` is left as it was.
    HRESULT STDMETHODCALLTYPE ShowDialogEx(IQP_BaseDataObject* piProjectRoot, BSTR bstrTitle,
                                           LONG bShowTemplates, LONG* pbCanceled, LONG* pbCreate,
                                           IQP_BaseDataObject** ppiSelectedProject,
                                           LONG lnghWndParent) override;

    /// The caption of button 3 from now on, which messages name too; empty before the first call. (It is not
    /// the Cancel button's, whatever the argument is called.)
    HRESULT STDMETHODCALLTYPE Initialize(BSTR bstrCancelButtonText) override;

    /// S_OK for IQPProjectChoice, S_FALSE for any other interface. Does not enter the module's UI state.
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID riid) override;

private:
    XQPComBSTR m_buttonText;
};
} // namespace qptools
