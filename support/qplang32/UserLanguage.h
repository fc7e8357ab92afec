// The user's language.
#pragma once

#include <string>
#include <vector>

/// %QPTOOLS_LANG% if set, else the language of the user's desktop, as a name such as "de-DE". Empty if
/// unknown. Throws std::bad_alloc.
std::wstring UserLanguage();

/// The names of catalogues for `language`, the best match first: "de-DE" gives de-DE and de. An underscore
/// counts as a hyphen, and the part after a dot or an at sign (a character set, a variant) is left out. A
/// name with any character but letters, digits and hyphens gives none, because it could lead out of the
/// catalogues' directory.
std::vector<std::wstring> LanguageFallbacks(const std::wstring& language);
