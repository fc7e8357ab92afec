// How a recorded call writes its arguments.
#pragma once

#include <oleauto.h>
#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

struct tagINITVALUE;

namespace refhost
{
std::string ArgumentText(BSTR text);
std::string ArgumentText(const VARIANT& value);
std::string ArgumentText(const GUID& id);
/// The elements of a name list or of an array of name/value pairs.
std::string ArgumentText(SAFEARRAY** array);

/// A bag of named values.
struct ParameterBag
{
    ULONG count;
    const tagINITVALUE* values;
};
/// `{name = value, ...}`; the elements of an array in it by their texts, because their order says nothing.
std::string ArgumentText(const ParameterBag& bag);
inline std::string ArgumentText(int number)
{
    return std::to_string(number);
}
inline std::string ArgumentText(long number)
{
    return std::to_string(number);
}
inline std::string ArgumentText(unsigned int number)
{
    return std::to_string(number);
}
inline std::string ArgumentText(unsigned long number)
{
    return std::to_string(number);
}
inline std::string ArgumentText(unsigned short number)
{
    return std::to_string(number);
}

/// "(a, b)".
std::string ArgumentList(const std::vector<std::string>& arguments);

/// "Interface<kind key>::Method(arguments)". `object` is the part in angle brackets; it may be empty.
template <class... Arguments>
std::string CallText(std::string_view method, std::string_view object, const Arguments&... arguments)
{
    const std::size_t end = method.find("::");
    std::string line(method.substr(0, end));
    line += object;
    line += method.substr(end);
    line += ArgumentList({ArgumentText(arguments)...});
    return line;
}
} // namespace refhost
