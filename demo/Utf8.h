// Wide text as UTF-8 and back, for the terminal, for files and for their names.
#pragma once

#include <filesystem>
#include <string>

std::string ToUtf8(const std::wstring& text);
std::wstring FromUtf8(const std::string& bytes);

/// A path from wide text, which the library would otherwise convert by the locale.
std::filesystem::path ToPath(const std::wstring& text);
