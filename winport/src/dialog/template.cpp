// Reads dialog templates: sequences of 16-bit units. Controls start at even units.
#include "dialog.h"

#include "base/text.h"

namespace winport
{
namespace
{
constexpr WORD kNumber = 0xFFFF;
constexpr DWORD kExtended = 0xFFFF0001;

class Reader
{
public:
    explicit Reader(const WORD* start) : m_start(start), m_at(start) {}

    WORD Next() { return *m_at++; }
    short Measure() { return static_cast<short>(Next()); }
    const WORD* Here() const { return m_at; }
    void Skip(std::size_t units) { m_at += units; }
    void Align() { m_at += (m_at - m_start) % 2; }

    DWORD Long()
    {
        const DWORD low = Next();
        return low | static_cast<DWORD>(Next()) << 16;
    }

    std::wstring Text()
    {
        const WORD* end = m_at;
        while (*end)
            ++end;
        std::wstring text =
            WideFromUtf16(reinterpret_cast<const unsigned char*>(m_at), static_cast<std::size_t>(end - m_at));
        m_at = end + 1;
        return text;
    }

    TemplateText TextOrNumber()
    {
        if (*m_at != kNumber)
            return {Text(), 0};
        Skip(1);
        return {{}, Next()};
    }

private:
    const WORD* m_start;
    const WORD* m_at;
};

void ReadPlace(Reader& reader, TemplateItem* item)
{
    item->x = reader.Measure();
    item->y = reader.Measure();
    item->width = reader.Measure();
    item->height = reader.Measure();
}

void ReadStyles(Reader& reader, bool extended, TemplateItem* item)
{
    if (extended)
    {
        reader.Long(); // help identifier
        item->exStyle = reader.Long();
        item->style = reader.Long();
        return;
    }
    item->style = reader.Long();
    item->exStyle = reader.Long();
}

// Skips the size, the weight, slant and character set of the extended form, and the name: there is only one
// font.
void SkipFont(Reader& reader, bool extended)
{
    reader.Skip(extended ? 3 : 1);
    reader.Text();
}

// The extended form counts the bytes that follow the count. The classic form includes the count itself, and a
// count of 1 is followed by nothing.
void ReadData(Reader& reader, bool extended, TemplateItem* item)
{
    const WORD* start = reader.Here();
    const WORD bytes = reader.Next();
    if (bytes == 0)
        return;
    item->data = start;
    const WORD counted = extended ? 0 : sizeof bytes;
    if (bytes > counted)
        reader.Skip((bytes - counted) / 2u);
}

TemplateItem ReadControl(Reader& reader, bool extended)
{
    TemplateItem item;
    reader.Align();
    ReadStyles(reader, extended, &item);
    ReadPlace(reader, &item);
    item.id = extended ? reader.Long() : reader.Next();
    item.className = reader.TextOrNumber();
    item.text = reader.TextOrNumber();
    ReadData(reader, extended, &item);
    return item;
}

void RefuseAny(const TemplateText& text, const char* what)
{
    if (text.number || !text.text.empty())
        Missing(nullptr, what, text.number);
}
} // namespace

Template ReadTemplate(LPCDLGTEMPLATEW description)
{
    Template read;
    Reader reader(reinterpret_cast<const WORD*>(description));
    const bool extended = Reader(reader).Long() == kExtended;
    if (extended)
        reader.Skip(2);
    ReadStyles(reader, extended, &read.dialog);
    const WORD count = reader.Next();
    ReadPlace(reader, &read.dialog);
    RefuseAny(reader.TextOrNumber(), "menu of a dialog");
    RefuseAny(reader.TextOrNumber(), "class of a dialog's own");
    read.dialog.text = reader.TextOrNumber();
    if (read.dialog.style & DS_SETFONT)
        SkipFont(reader, extended);
    for (WORD index = 0; index < count; ++index)
        read.controls.push_back(ReadControl(reader, extended));
    return read;
}
} // namespace winport
