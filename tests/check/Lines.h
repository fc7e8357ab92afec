// Lines and columns of the kit's text files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The lines without their ends, blank ones and those that begin with # left out.
std::vector<std::string> ContentLines(std::string_view text);

/// The parts between the separators, without blanks at their ends.
std::vector<std::string> Columns(std::string_view line, char separator);
