// Values of types that no host should use.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <vector>

/// The number of the first type that no value has.
inline constexpr unsigned kOddTypes = 92;

/// A value of every type there is and of many that there are not: 377 in all. The values are all zeros.
inline std::vector<VARIANT> OddValues()
{
    std::vector<VARIANT> values;
    const auto add = [&](unsigned type) {
        VARIANT value = {};
        value.vt = static_cast<VARTYPE>(type);
        values.push_back(value);
    };
    for (const unsigned flags : {0u, unsigned{VT_ARRAY}, unsigned{VT_VECTOR}, unsigned{VT_RESERVED}})
        for (unsigned type = 0; type < kOddTypes; ++type)
            add(flags | type);
    for (unsigned bit = 7; bit < 16; ++bit)
        add(1u << bit);
    return values;
}
