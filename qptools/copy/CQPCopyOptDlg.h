// The component behind the enhanced copy dialog.
#pragma once

#include "ComObject.h"

#include "qptools.h"

namespace qptools
{
/// Not implemented: every method nulls its result and returns E_NOTIMPL.
class CQPCopyOptDlg final : public ComObject<CQPCopyOptDlg, IQPCopyOptDlg>
{
public:
    HRESULT STDMETHODCALLTYPE Initialize(IEnumBaseDataObject* piEnumObjects, IQPConfigFactory* pCF) override;
    HRESULT STDMETHODCALLTYPE ShowDialog() override;
    HRESULT STDMETHODCALLTYPE GetButtonIDClicked(LONG* nID) override;
    HRESULT STDMETHODCALLTYPE ApplyEnhanceCopy(IEnumBaseDataObject* piEnumObjects) override;
    HRESULT STDMETHODCALLTYPE DeleteObjects() override;
};
} // namespace qptools
