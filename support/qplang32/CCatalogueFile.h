// The layout of a message catalogue file: bounds-checked access to its tables and strings.
#pragma once

#include <cstdint>
#include <string_view>

/// A view of a catalogue's bytes. Check() must succeed before any other member is called.
class CCatalogueFile
{
public:
    explicit CCatalogueFile(std::string_view bytes) noexcept : m_bytes(bytes) {}

    /// Returns null if all tables and strings are inside the file, terminated and sorted; else what is wrong.
    const wchar_t* Check();

    std::uint32_t Count() const noexcept { return m_count; }

    /// The text and the translation of the entry `index`, which must be below Count().
    std::string_view Text(std::uint32_t index) const noexcept { return String(m_texts, index); }
    std::string_view Translation(std::uint32_t index) const noexcept { return String(m_translations, index); }

private:
    const wchar_t* CheckHeader();
    const wchar_t* CheckStrings(std::uint32_t table);
    const wchar_t* CheckOrder() const;
    bool HasTable(std::uint32_t offset, std::uint32_t entries, std::uint32_t entrySize) const noexcept;
    std::uint32_t Word(std::uint64_t offset) const noexcept;
    std::string_view String(std::uint32_t table, std::uint32_t index) const noexcept;

    std::string_view m_bytes;
    bool m_bigEndian = false;
    std::uint32_t m_count = 0;
    std::uint32_t m_texts = 0;
    std::uint32_t m_translations = 0;
    std::uint64_t m_stringBytes = 0;
};
