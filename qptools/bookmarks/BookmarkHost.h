// What the parts of the bookmark dialog share: its name to the host, its reports, and names of objects.
#pragma once

#include "FixedText.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include <unknwn.h>

namespace qptools
{
/// The dialog's name at the gateway.
inline constexpr FixedText kBookmarkClient = L"XOpenBookmarkDlg";

/// The dialog's name in the log.
inline constexpr wchar_t kBookmarkSource[] = L"OpenBookmarkDlg";

void LogBookmarkFailure(HRESULT status, const wchar_t* message, ULONG line) noexcept;

/// The attribute "configured_name", whatever the status of the read; empty for an object that has no
/// attributes.
XQPComBSTR ConfiguredName(IUnknown* object);

/// The text of a value, which is empty afterwards; empty if it has no text form.
XQPComBSTR TakeText(XQPComVariant& value);
} // namespace qptools
