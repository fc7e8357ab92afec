// Translation of user-visible text into the user's language.
#pragma once

/// The texts come from message catalogues, `locale/<language>/qptools.mo` beside the module. The language is
/// %QPTOOLS_LANG% if set, else that of the user's desktop; a regional one falls back to the language alone
/// (de-DE to de). Catalogues are read at the first call, so none may be made while the loader holds its lock.
/// A catalogue that is damaged is left out whole and the log book says so. Nobody frees a result: each lives
/// until the module is unloaded. To be called on the host's user interface thread only; nothing is locked.

/// The translation of `text`; `text` itself if there is none, and for the empty text. A null text gives an
/// empty one.
const wchar_t* CoTranslateText(const wchar_t* text) noexcept;

/// The same as a changeable text, as long as it is. Calls with one result share a text until somebody changes
/// it: from then on it is his, and the next call gives another. So change it before the next call. Throws
/// ComException(E_OUTOFMEMORY).
wchar_t* CoTranslateText2(const wchar_t* text);

/// The same for a narrow text in UTF-8, widened where there is no translation. What is not UTF-8 is widened
/// byte by byte. Throws ComException(E_OUTOFMEMORY).
wchar_t* CoTranslateText2(const char* text);
