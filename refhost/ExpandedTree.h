// A call of the tree expander.
#pragma once

#include <string>

namespace refhost
{
struct ExpandedTree
{
    std::wstring tree;    ///< place of the object in the navigator's tree
    std::wstring project; ///< identifier of the project
};
} // namespace refhost
