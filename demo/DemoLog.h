// The user action log, as the file that it is.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// The log file of the user actions: in QPTOOLS_LOG_DIR, or else in the user's own folder.
std::filesystem::path UserActionLogFile();

/// Its size in bytes, 0 if there is none.
std::uintmax_t SizeOf(const std::filesystem::path& file);

/// The lines that were appended behind `offset`.
std::vector<std::wstring> LinesBehind(const std::filesystem::path& file, std::uintmax_t offset);
