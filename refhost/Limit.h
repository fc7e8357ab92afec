// What the user may not do with one attribute of one object.
#pragma once

namespace refhost
{
enum class Limit
{
    None,
    Locked, ///< it can be read, a write is refused
    Hidden  ///< neither read nor written
};
} // namespace refhost
