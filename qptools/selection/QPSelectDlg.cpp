#include "QPSelectDlg.h"

#include "XSelectDlg.h"

#include "XInitValueWrapper.h"

#include "InModule.h"

#include <charconv>
#include <iterator>
#include <limits>
#include <string>
#include <utility>

namespace qptools
{
namespace
{
/// The parameter converted to `type`; empty if there is none or it cannot be converted.
XQPComVariant Parameter(const XInitValueWrapper& parameters, const wchar_t* name, VARTYPE type)
{
    XQPComVariant value;
    if (parameters.GetData(name, value.Value()) && value.Type() != type && value.ChangeType(type) < 0)
        value.Clear();
    return value;
}

XQPComBSTR TextParameter(const XInitValueWrapper& parameters, const wchar_t* name)
{
    XQPComVariant value = Parameter(parameters, name, VT_BSTR);
    XQPComBSTR text;
    if (value.Type() == VT_BSTR)
        text.Attach(value.Detach().bstrVal);
    return text;
}

ComPtr<IUnknown> ObjectParameter(const XInitValueWrapper& parameters, const wchar_t* name)
{
    XQPComVariant value = Parameter(parameters, name, VT_UNKNOWN);
    ComPtr<IUnknown> object;
    if (value.Type() == VT_UNKNOWN)
        object.attach(value.Detach().punkVal);
    return object;
}

/// Composes "Prompt0", "Prompt1" and so on, each in place of the one before.
class NumberedName
{
public:
    explicit NumberedName(const wchar_t* stem) : m_name(stem), m_stem(m_name.size()) {}

    const wchar_t* Of(ULONG number)
    {
        char digits[std::numeric_limits<ULONG>::digits10 + 1];
        const auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
        m_name.resize(m_stem);
        m_name.append(digits, end);
        return m_name.c_str();
    }

private:
    std::wstring m_name;
    std::size_t m_stem;
};

/// Each entry takes two parameters and the caption one, so count / 2 is the number of entries with or without
/// a caption. 0 and 1 parameters are no entries.
XSelectDlg::Entries EntriesOf(const XInitValueWrapper& parameters, ULONG count)
{
    XSelectDlg::Entries entries;
    NumberedName objectName(L"Object");
    NumberedName promptName(L"Prompt");
    for (ULONG number = 0; number < count / 2; ++number)
    {
        const ComPtr<IUnknown> object = ObjectParameter(parameters, objectName.Of(number));
        // Of two entries with the same object the first is kept.
        if (object && entries.count(object.get()) == 0)
            entries.emplace(object.get(),
                            XSelectDlg::Entry{object, TextParameter(parameters, promptName.Of(number))});
    }
    return entries;
}
} // namespace

HRESULT STDMETHODCALLTYPE QPSelectDlg::ShowDialog(ULONG ulCount, tagINITVALUE* pValueArray,
                                                  IUnknown** pSelObject)
{
    return InModule(*this, [&] {
        const ULONG count = pValueArray ? ulCount : 0;
        const XInitValueWrapper parameters(count, pValueArray);
        XSelectDlg dialog(EntriesOf(parameters, count), TextParameter(parameters, L"Caption"));
        if (dialog.DoModal() == IDOK)
            dialog.Selected().copyTo(pSelObject);
        return S_OK;
    });
}
} // namespace qptools
