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
};

/// The names of a one-dimensional array of strings. Throws StatusError(E_INVALIDARG) for any other array.
std::vector<std::wstring> ReadNames(SAFEARRAY* names);

/// The rows of a two-dimensional array of variants with the columns name and value. Throws
/// StatusError(E_INVALIDARG) for any other array and for a name that is not a VT_BSTR.
std::vector<Pair> ReadPairs(SAFEARRAY* pairs);

/// A new array of that shape with lower bounds 0, owned by the caller.
SAFEARRAY* MakePairArray(const std::vector<Pair>& rows);
} // namespace refhost
