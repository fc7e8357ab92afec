// The component that lets a user choose a project.
#pragma once

#include "ComObject.h"

#include "qptools.h"

#include <oaidl.h>

namespace qptools
{
/// The dialogs are not there yet: every method nulls its results and returns E_NOTIMPL. It alone of the
/// module's classes tells that its interface may leave error information, and it cannot be part of another
/// object.
class CQPProjectChoice final : public ComObject<CQPProjectChoice, IQPProjectChoice, ISupportErrorInfo>
{
public:
    HRESULT STDMETHODCALLTYPE ShowDialog(IQP_BaseDataObject* piProjectRoot, BSTR bstrTitle, LONG* pbCanceled,
                                         IQP_BaseDataObject** ppiSelectedProject,
                                         LONG lnghWndParent) override;
    HRESULT STDMETHODCALLTYPE ShowDialogEx(IQP_BaseDataObject* piProjectRoot, BSTR bstrTitle,
                                           LONG bShowTemplates, LONG* pbCanceled, LONG* pbCreate,
                                           IQP_BaseDataObject** ppiSelectedProject,
                                           LONG lnghWndParent) override;
    HRESULT STDMETHODCALLTYPE Initialize(BSTR bstrCancelButtonText) override;

    /// S_OK for IQPProjectChoice, S_FALSE for any other interface. Does not enter the module's UI state.
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID riid) override;
};
} // namespace qptools
