// The file of the user action log.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// The path of the user action log: in QPTOOLS_LOG_DIR or, by default, in the user's folder.
std::filesystem::path UserActionLogFile();

/// Its size in bytes; 0 if it does not exist.
std::uintmax_t SizeOf(const std::filesystem::path& file);

/// The lines after byte `offset`.
std::vector<std::wstring> LinesBehind(const std::filesystem::path& file, std::uintmax_t offset);
