// Translation of user-visible text into the user's language.
#pragma once

/// Texts are translated by message catalogues, `locale/<language>/qptools.mo` beside the module. The language
/// is %QPTOOLS_LANG% if set, else that of the user's desktop; a regional one falls back to the language alone
/// (de-DE to de). Catalogues are read at the first call, which must not happen under the loader lock. A
/// damaged catalogue is ignored as a whole, with an entry in the log book. Results are not freed: they live
/// until the module is unloaded. Not thread-safe: to be called on the host's user interface thread only.

/// The translation of `text`; `text` itself if there is none, and for the empty text. Null gives an empty
/// text.
const wchar_t* CoTranslateText(const wchar_t* text) noexcept;

/// The same as a writable text, within its length. Calls with equal results share one text. Once a caller has
/// modified it, the next call creates a new one; so modify a text before the next call. Throws
/// ComException(E_OUTOFMEMORY).
wchar_t* CoTranslateText2(const wchar_t* text);

/// The same for a UTF-8 text, which is converted to wide characters if there is no translation. A text that
/// is not valid UTF-8 is converted byte by byte. Throws ComException(E_OUTOFMEMORY).
wchar_t* CoTranslateText2(const char* text);
