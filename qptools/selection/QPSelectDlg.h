// The component that shows a list of given objects and lets a user choose one.
#pragma once

#include "ComObject.h"

#include "qptools.h"

namespace qptools
{
class QPSelectDlg final : public ComObject<QPSelectDlg, IQPSelectDlg>
{
public:
    /// Shows the entries of a parameter array: "Caption" is the title, "Prompt0" and "Object0" the first
    /// entry, and so on, `ulCount` / 2 of them. An entry without an object is skipped, one without a prompt
    /// has an empty text, and of two with the same object the first is kept. `pValueArray` may be null.
    ///
    /// Returns S_OK, after a cancel as well, or E_OUTOFMEMORY. After OK `*pSelObject` is the chosen object,
    /// with a reference for the caller; otherwise it is untouched. `pSelObject` may be null.
    HRESULT STDMETHODCALLTYPE ShowDialog(ULONG ulCount, tagINITVALUE* pValueArray,
                                         IUnknown** pSelObject) override;
};
} // namespace qptools
