// Lookup in an unordered map of texts without copying the key.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

/// The hash of std::unordered_map<std::wstring, ..., WideTextHash, std::equal_to<>>.
struct WideTextHash
{
    using is_transparent = void;
    std::size_t operator()(std::wstring_view text) const noexcept
    {
        return std::hash<std::wstring_view>()(text);
    }
};
