// What the user may not do with one attribute of one object, and what is odd about it.
#pragma once

namespace refhost
{
enum class Limit
{
    None,
    Locked, ///< it can be read, a write is refused
    Hidden, ///< neither read nor written
    /// Only its object key reads the value: under its column name the object has none, until the next write.
    /// Searches find the value.
    KeyOnly
};
} // namespace refhost
