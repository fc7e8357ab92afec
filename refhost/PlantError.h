// What the reference host throws inside; it never crosses a COM method.
#pragma once

#include <stdexcept>

namespace refhost
{
/// A plant that cannot be opened, loaded or asked, with a text for people. Errors in sample data read
/// "file:line: reason".
class PlantError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
} // namespace refhost
