// The exception of the reference host. It never leaves a COM method.
#pragma once

#include <stdexcept>

namespace refhost
{
/// A plant cannot be opened, loaded or read; what() is the reason. For an error in sample data it is
/// "file:line: reason".
class PlantError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
} // namespace refhost
