// One message catalogue in the gettext format, checked and held in memory.
#pragma once

#include "WideTextHash.h"

#include <string>
#include <string_view>
#include <unordered_map>

/// The texts of a catalogue file, of either byte order. A file is taken whole or not at all: the first thing
/// wrong with it refuses it. The texts keep their addresses for as long as the object lives.
class CMessageCatalogue
{
public:
    /// Reads the catalogue in `bytes`, UTF-8 within. Returns null when it was taken, else what is wrong, a
    /// fixed text, and the object is then empty. Of a plural entry the singular and its first form are taken.
    /// The entry of the empty text is the file's header and translates nothing.
    const wchar_t* Read(std::string_view bytes);

    /// The translation of `text`, or null if there is none.
    const std::wstring* Find(std::wstring_view text) const;
    std::size_t Count() const noexcept { return m_texts.size(); }

private:
    using Texts = std::unordered_map<std::wstring, std::wstring, WideTextHash, std::equal_to<>>;

    Texts m_texts;
};
