// Recorded host calls in a short, readable form.
#pragma once

#include <string>
#include <vector>

/// Puts recorded calls into words, separated by single blanks. A search reads as its condition, with
/// catenations as words and brackets; "name" behind an object is a read of that attribute, and the object is
/// not named again for what follows; "next" is a step of a walk and "may-run" a question for the right to
/// execute:
///
///     <plantypeset Machining> master ResetSearch(0) SetSearchTable("scriptaction") type = "tool" AND ...
std::string InWords(const std::vector<std::string>& calls);

/// Replaces each run of blanks and line feeds with one blank, and trims the text.
std::string OnOneLine(const std::string& text);
