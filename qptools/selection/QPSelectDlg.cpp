#include "QPSelectDlg.h"

#include "XSelectDlg.h"

#include "ObjectValue.h"

#include "XInitValueWrapper.h"

#include "UiState.h"

#include <string>
#include <utility>

namespace qptools
{
namespace
{
/// The parameter converted to `type`; empty if it is not there or has no such form.
XQPComVariant Parameter(const XInitValueWrapper& parameters, const std::wstring& name, VARTYPE type)
{
    XQPComVariant value;
    if (parameters.GetData(name.c_str(), value.Value()) && value.Type() != type && value.ChangeType(type) < 0)
        value.Clear();
    return value;
}

XQPComBSTR TextParameter(const XInitValueWrapper& parameters, const std::wstring& name)
{
    XQPComVariant value = Parameter(parameters, name, VT_BSTR);
    XQPComBSTR text;
    if (value.Type() == VT_BSTR)
        text.Attach(value.Detach().bstrVal);
    return text;
}

/// Of `count` parameters every two are an entry, the caption among them: n entries and a caption make the
/// same number as n entries alone. 0 and 1 are no entries.
XSelectDlg::Entries EntriesOf(const XInitValueWrapper& parameters, ULONG count)
{
    XSelectDlg::Entries entries;
    for (ULONG number = 0; number < count / 2; ++number)
    {
        const std::wstring digits = std::to_wstring(number);
        const XQPComVariant object = Parameter(parameters, L"Object" + digits, VT_UNKNOWN);
        IUnknown* const pointer = ObjectOf(object.Value());
        // The first entry of an object stays.
        if (pointer && entries.count(pointer) == 0)
            entries.emplace(pointer, XSelectDlg::Entry{ComPtr<IUnknown>(pointer),
                                                       TextParameter(parameters, L"Prompt" + digits)});
    }
    return entries;
}
} // namespace

HRESULT STDMETHODCALLTYPE QPSelectDlg::ShowDialog(ULONG ulCount, tagINITVALUE* pValueArray,
                                                  IUnknown** pSelObject)
{
    const CUiState state;
    return ComBoundary(
        [&]
        {
            const ULONG count = pValueArray ? ulCount : 0;
            const XInitValueWrapper parameters(count, pValueArray);
            XSelectDlg dialog(EntriesOf(parameters, count), TextParameter(parameters, L"Caption"));
            if (dialog.DoModal() == IDOK)
                dialog.Selected().copyTo(pSelObject);
            return S_OK;
        });
}
} // namespace qptools
