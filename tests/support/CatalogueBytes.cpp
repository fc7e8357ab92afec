#include "CatalogueBytes.h"

namespace
{
constexpr std::uint32_t kHeaderSize = 28;

class Writer
{
public:
    explicit Writer(bool bigEndian) : m_bigEndian(bigEndian) {}

    void Word(std::uint32_t word)
    {
        for (int index = 0; index < 4; ++index)
            m_bytes += static_cast<char>(word >> 8 * (m_bigEndian ? 3 - index : index));
    }

    void Table(const std::vector<std::string>& texts, std::uint32_t& at)
    {
        for (const std::string& text : texts)
        {
            Word(static_cast<std::uint32_t>(text.size()));
            Word(at);
            at += static_cast<std::uint32_t>(text.size()) + 1;
        }
    }

    void Texts(const std::vector<std::string>& texts)
    {
        for (const std::string& text : texts)
            m_bytes.append(text).push_back('\0');
    }

    std::string Take() { return std::move(m_bytes); }

private:
    bool m_bigEndian;
    std::string m_bytes;
};
} // namespace

CatalogueBytes::Entry CatalogueBytes::Header(const char* charset)
{
    return {"", std::string("Language: de\nContent-Type: text/plain; charset=") + charset + "\n"};
}

std::string CatalogueBytes::Make(const std::vector<Entry>& entries, bool bigEndian)
{
    std::vector<std::string> texts;
    std::vector<std::string> translations;
    for (const auto& [text, translation] : entries)
    {
        texts.push_back(text);
        translations.push_back(translation);
    }
    const auto count = static_cast<std::uint32_t>(entries.size());
    const std::uint32_t hashesAt = kHeaderSize + 16 * count;
    std::uint32_t textAt = hashesAt + 4;
    Writer writer(bigEndian);
    for (const std::uint32_t word :
         {0x950412deu, 0u, count, kHeaderSize, kHeaderSize + 8 * count, 1u, hashesAt})
        writer.Word(word);
    writer.Table(texts, textAt);
    writer.Table(translations, textAt);
    writer.Word(0); // a hash table of one empty place
    writer.Texts(texts);
    writer.Texts(translations);
    return writer.Take();
}

std::uint32_t CatalogueBytes::Word(const std::string& bytes, std::size_t offset)
{
    std::uint32_t word = 0;
    for (std::size_t index = 0; index < 4; ++index)
        word |= std::uint32_t{static_cast<unsigned char>(bytes.at(offset + index))} << 8 * index;
    return word;
}

std::string CatalogueBytes::WithWord(std::string bytes, std::size_t offset, std::uint32_t word)
{
    for (std::size_t index = 0; index < 4; ++index)
        bytes.at(offset + index) = static_cast<char>(word >> 8 * index);
    return bytes;
}
