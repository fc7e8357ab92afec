#include "Paths.h"

#include "Utf8.h"

std::filesystem::path ToPath(std::wstring_view text)
{
    const std::string bytes = Utf8FromWide(text);
    return {std::u8string(bytes.begin(), bytes.end())};
}
