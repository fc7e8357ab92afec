// The arrays of GetAttributes and SetAttributes: names in one dimension, name/value rows in two.
#pragma once

#include "Variant.h"

#include <windows.h>

#include <string>
#include <vector>

namespace refhost
{
/// One row: an attribute's name and its value or result.
struct Pair
{
    std::wstring name;
    Variant value;
    bool named = true; ///< false for a row whose name is VT_EMPTY
};

/// The names of a one-dimensional array of strings. Throws StatusError(E_INVALIDARG) for any other array.
std::vector<std::wstring> ReadNames(SAFEARRAY* names);

/// The rows of a two-dimensional array of variants with the columns name and value. Throws
/// StatusError(E_INVALIDARG) for any other array and for a name that is neither VT_BSTR nor VT_EMPTY. A row
/// without a name has no value.
std::vector<Pair> ReadPairs(SAFEARRAY* pairs);

/// A new array of that shape with lower bounds 0, owned by the caller. Rows without a name are VT_EMPTY.
SAFEARRAY* MakePairArray(const std::vector<Pair>& rows);
} // namespace refhost
