// A message catalogue in the gettext format, validated and held in memory.
#pragma once

#include "WideTextHash.h"

#include <string>
#include <string_view>
#include <unordered_map>

/// The texts of a catalogue file of either byte order. A file with any error is rejected whole. Addresses of
/// texts are valid for the object's lifetime.
class CMessageCatalogue
{
public:
    /// Reads the catalogue in `bytes`, whose texts are UTF-8. Returns null on success; else what is wrong, a
    /// constant text, and the object is empty. Of a plural entry the singular and its first translation are
    /// used. The entry of the empty text is the file's header and not a translation.
    const wchar_t* Read(std::string_view bytes);

    /// The translation of `text`, or null if it is not found.
    const std::wstring* Find(std::wstring_view text) const;
    std::size_t Count() const noexcept { return m_texts.size(); }

private:
    using Texts = std::unordered_map<std::wstring, std::wstring, WideTextHash, std::equal_to<>>;

    Texts m_texts;
};
