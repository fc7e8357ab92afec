// Which language the user reads.
#pragma once

#include <string>
#include <vector>

/// %QPTOOLS_LANG% if it is set, else the language of the user's desktop, as a name such as "de-DE". Empty if
/// unknown.
std::wstring UserLanguage();

/// The names to look for, the nearest first: "de-DE" gives de-DE and de. An underline counts as a hyphen, and
/// what follows a dot or an at sign (a character set, a variant) is left out. A name with any other character
/// than letters, digits and hyphens could lead out of the catalogues' directory and gives none.
std::vector<std::wstring> LanguageFallbacks(const std::wstring& language);
