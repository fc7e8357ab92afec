// Paths from wide text.
#pragma once

#include <filesystem>
#include <string_view>

/// A path from wide text, which the library would otherwise convert by the locale.
std::filesystem::path ToPath(std::wstring_view text);
