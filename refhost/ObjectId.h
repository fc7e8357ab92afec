// The identifiers of a plant's objects, "$<number>)".
#pragma once

#include <optional>
#include <string>

namespace refhost
{
std::wstring IdOf(long long number);

/// The number in an identifier, which ends before its first ")" or ";"; std::nullopt if it has none. The "$"
/// may be missing.
std::optional<long long> NumberOfId(std::string id);
} // namespace refhost
