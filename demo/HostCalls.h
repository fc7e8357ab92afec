// The calls that the host had to serve, in a short form that reads as a sentence.
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

/// The same text with every run of blanks and line feeds as one blank, and none at its ends.
std::string OnOneLine(const std::string& text);
