// How objects are copied.
#pragma once

namespace refhost
{
enum class CopyOption
{
    Flat = 0, ///< the objects alone
    Deep = 8  ///< with everything below them: what the child lists "nodes" hold
};
} // namespace refhost
