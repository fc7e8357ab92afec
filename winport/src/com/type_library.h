// The identity of a type library.
#pragma once

#include <oleauto.h>

#include <string>

namespace winport
{
/// What the header of a library contains.
struct TypeLibraryIdentity
{
    GUID guid{};
    WORD major = 0;
    WORD minor = 0;
    WORD flags = 0;
    std::wstring helpText;
};

/// Reads the header of a library in the MSFT format. Returns false if it has another format or is too short.
bool ReadTypeLibrary(const unsigned char* data, std::size_t size, TypeLibraryIdentity* identity);
} // namespace winport
