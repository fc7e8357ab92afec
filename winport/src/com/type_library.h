// What is known of a type library without reading its types: which one it is.
#pragma once

#include <oleauto.h>

#include <string>

namespace winport
{
/// The identity of a library, as its header tells it.
struct TypeLibraryIdentity
{
    GUID guid{};
    WORD major = 0;
    WORD minor = 0;
    WORD flags = 0;
    std::wstring helpText;
};

/// Reads the header of a library in the form that the IDL compiler writes; false if it is none or ends too
/// early.
bool ReadTypeLibrary(const unsigned char* data, std::size_t size, TypeLibraryIdentity* identity);
} // namespace winport
