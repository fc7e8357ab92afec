#include "CCatalogueFile.h"

namespace
{
// The header: seven words.
constexpr std::uint32_t kMagic = 0x950412de;
constexpr std::uint32_t kMagicSwapped = 0xde120495;
constexpr std::uint64_t kRevisionAt = 4;
constexpr std::uint64_t kCountAt = 8;
constexpr std::uint64_t kTextsAt = 12;
constexpr std::uint64_t kTranslationsAt = 16;
constexpr std::uint64_t kHashSizeAt = 20;
constexpr std::uint64_t kHashesAt = 24;
constexpr std::uint32_t kHeaderSize = 28;

// An entry of a string table is a length and an offset, one of the hash table an index.
constexpr std::uint32_t kStringEntry = 8;
constexpr std::uint32_t kHashEntry = 4;
} // namespace

const wchar_t* CCatalogueFile::Check()
{
    if (const wchar_t* wrong = CheckHeader())
        return wrong;
    if (const wchar_t* wrong = CheckStrings(m_texts))
        return wrong;
    if (const wchar_t* wrong = CheckStrings(m_translations))
        return wrong;
    return CheckOrder();
}

const wchar_t* CCatalogueFile::CheckHeader()
{
    if (m_bytes.size() < kHeaderSize)
        return L"the file is shorter than a header";
    const std::uint32_t magic = Word(0);
    if (magic != kMagic && magic != kMagicSwapped)
        return L"the file is no message catalogue";
    m_bigEndian = magic == kMagicSwapped;
    if (Word(kRevisionAt) != 0)
        return L"the file's format is of an unknown revision";
    m_count = Word(kCountAt);
    m_texts = Word(kTextsAt);
    m_translations = Word(kTranslationsAt);
    if (!HasTable(m_texts, m_count, kStringEntry) || !HasTable(m_translations, m_count, kStringEntry))
        return L"a table of texts lies outside the file";
    if (!HasTable(Word(kHashesAt), Word(kHashSizeAt), kHashEntry))
        return L"the hash table lies outside the file";
    return nullptr;
}

const wchar_t* CCatalogueFile::CheckStrings(std::uint32_t table)
{
    for (std::uint32_t index = 0; index < m_count; ++index)
    {
        const std::uint64_t entry = table + std::uint64_t{index} * kStringEntry;
        const std::uint64_t length = Word(entry);
        const std::uint64_t offset = Word(entry + 4);
        if (offset < kHeaderSize || offset + length >= m_bytes.size())
            return L"a text lies outside the file";
        if (m_bytes[offset + length] != '\0')
            return L"a text has no end mark";
        // Texts that share bytes would let a small file allocate any amount of memory.
        m_stringBytes += length + 1;
        if (m_stringBytes > m_bytes.size())
            return L"texts overlap";
    }
    return nullptr;
}

const wchar_t* CCatalogueFile::CheckOrder() const
{
    for (std::uint32_t index = 1; index < m_count; ++index)
        if (Text(index - 1) >= Text(index))
            return L"the texts are not in order";
    return nullptr;
}

bool CCatalogueFile::HasTable(std::uint32_t offset, std::uint32_t entries,
                              std::uint32_t entrySize) const noexcept
{
    return entries == 0 ||
           (offset >= kHeaderSize && offset + std::uint64_t{entries} * entrySize <= m_bytes.size());
}

std::uint32_t CCatalogueFile::Word(std::uint64_t offset) const noexcept
{
    std::uint32_t word = 0;
    for (int index = 0; index < 4; ++index)
    {
        const auto byte = static_cast<unsigned char>(m_bytes[offset + static_cast<unsigned>(index)]);
        word |= std::uint32_t{byte} << 8 * (m_bigEndian ? 3 - index : index);
    }
    return word;
}

std::string_view CCatalogueFile::String(std::uint32_t table, std::uint32_t index) const noexcept
{
    const std::uint64_t entry = table + std::uint64_t{index} * kStringEntry;
    return m_bytes.substr(Word(entry + 4), Word(entry));
}
