// What the parts of the bookmark dialog share: its name to the host, its reports, and names of objects.
#pragma once

#include "FixedText.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include <unknwn.h>

namespace qptools
{
/// The dialog's client name at the host's gateway.
inline constexpr FixedText kBookmarkClient = L"XOpenBookmarkDlg";

/// The source of the dialog's log entries.
inline constexpr wchar_t kBookmarkSource[] = L"OpenBookmarkDlg";

void LogBookmarkFailure(HRESULT status, const wchar_t* message, ULONG line) noexcept;

/// The attribute "configured_name", whatever the status of the read; empty for an object that has no
/// attributes.
XQPComBSTR ConfiguredName(IUnknown* object);

/// Moves the text out of `value`, which is VT_EMPTY afterwards. Returns an empty text if the value has no
/// text form.
XQPComBSTR TakeText(XQPComVariant& value);
} // namespace qptools
