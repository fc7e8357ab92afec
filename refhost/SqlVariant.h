// Attribute values between variants and database columns.
#pragma once

#include "PlantCore.h"

#include <oleauto.h>
#include <windows.h>

namespace refhost
{
/// `value` as that column stores it: NULL, a number, text or the number of an object; VT_BYREF is resolved.
/// Throws StatusError: E_INVALIDARG for an object of another plant or of another kind than the column's, else
/// the status of the failed conversion, which is DISP_E_TYPEMISMATCH for a text that is no date (see
/// HostDate.h).
SqlValue ToColumn(const PlantCore& core, const Attribute& attribute, const VARIANT& value);

/// Writes column 0 of the current row to `value`, which must be empty: S_OK with VT_BSTR, VT_I4, VT_BOOL or
/// VT_UNKNOWN. Returns S_FALSE and writes nothing if the column is NULL.
HRESULT ReadColumn(const Core& core, const Attribute& attribute, const Statement& row, VARIANT& value);
} // namespace refhost
