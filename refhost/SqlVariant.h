// Attribute values between variants and database columns.
#pragma once

#include "PlantCore.h"

#include <oleauto.h>
#include <windows.h>

namespace refhost
{
/// What `value` is in that column: none, a number, text, the number of an object. Indirections are resolved.
/// Throws StatusError: E_INVALIDARG for an object that is not of this plant and of the column's kind, the
/// status of a failed conversion otherwise.
SqlValue ToColumn(const PlantCore& core, const Attribute& attribute, const VARIANT& value);

/// Writes column 0 of the row that `row` stands on into `value`, which is empty: S_OK with VT_BSTR, VT_I4,
/// VT_BOOL or VT_UNKNOWN, S_FALSE and nothing written when the column holds no value.
HRESULT ReadColumn(const Core& core, const Attribute& attribute, const Statement& row, VARIANT& value);
} // namespace refhost
