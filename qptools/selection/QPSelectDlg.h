// The component that shows a list of given objects and lets a user choose one.
#pragma once

#include "ComObject.h"

#include "qptools.h"

namespace qptools
{
/// The dialog is not there yet: ShowDialog nulls its result and returns E_NOTIMPL.
class QPSelectDlg final : public ComObject<QPSelectDlg, IQPSelectDlg>
{
public:
    HRESULT STDMETHODCALLTYPE ShowDialog(ULONG ulCount, tagINITVALUE* pValueArray,
                                         IUnknown** pSelObject) override;
};
} // namespace qptools
