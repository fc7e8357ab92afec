// The arrays of GetAttributes and SetAttributes: names in one dimension, name/value rows in two.
#pragma once

#include "HostText.h"
#include "HostVariant.h"

#include <oleauto.h>
#include <windows.h>

#include <memory>
#include <string>
#include <vector>

namespace refhost
{
/// The owner of one BSTR.
class OwnedBstr
{
public:
    explicit OwnedBstr(std::wstring_view text) : m_string(MakeBstr(text)) {}
    ~OwnedBstr() { SysFreeString(m_string); }
    OwnedBstr(const OwnedBstr&) = delete;
    OwnedBstr& operator=(const OwnedBstr&) = delete;
    BSTR get() const { return m_string; }

private:
    BSTR m_string;
};

/// One row: an attribute's name and its value or result.
struct Pair
{
    std::wstring name;
    std::unique_ptr<HostVariant> value = std::make_unique<HostVariant>();
};

/// The names of a one-dimensional array of strings. Throws StatusError(E_INVALIDARG) for any other array.
std::vector<std::wstring> ReadNames(SAFEARRAY* names);

/// The rows of a two-dimensional array of variants with the columns name and value. Throws
/// StatusError(E_INVALIDARG) for any other array and for a name that is not a VT_BSTR.
std::vector<Pair> ReadPairs(SAFEARRAY* pairs);

/// A new array of that shape with lower bounds 0, owned by the caller.
SAFEARRAY* MakePairArray(const std::vector<Pair>& rows);
} // namespace refhost
