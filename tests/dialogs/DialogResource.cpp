#include "DialogResource.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>

namespace
{
/// Reads what a resource is made of; texts have 16 bits a character in every build.
class Reader
{
public:
    explicit Reader(std::string_view bytes) : m_bytes(bytes) {}

    template <class T>
    T Take()
    {
        T value{};
        if (m_at + sizeof(T) > m_bytes.size())
        {
            ADD_FAILURE() << "the template ends too early";
            return value;
        }
        std::memcpy(&value, m_bytes.data() + m_at, sizeof(T));
        m_at += sizeof(T);
        return value;
    }

    std::wstring TakeText()
    {
        std::wstring text;
        while (const auto character = Take<std::uint16_t>())
            text += static_cast<wchar_t>(character);
        return text;
    }

    /// A text, or the number behind 0xFFFF.
    std::wstring TakeTextOr(std::wstring (*named)(WORD))
    {
        if (m_at + 2 <= m_bytes.size() && static_cast<unsigned char>(m_bytes[m_at]) == 0xFF)
        {
            Take<WORD>();
            return named(Take<WORD>());
        }
        return TakeText();
    }

    void Align() { m_at = (m_at + 3) / 4 * 4; }

private:
    std::string_view m_bytes;
    std::size_t m_at = 0;
};

std::wstring Kind(WORD number)
{
    static const std::array<const wchar_t*, 6> kinds{L"button", L"edit",       L"static",
                                                     L"list",   L"scroll bar", L"combo"};
    return number >= 0x80 && number < 0x80 + kinds.size() ? kinds[number - 0x80] : L"unknown";
}

std::wstring Number(WORD number)
{
    return L"#" + std::to_wstring(number);
}

DialogControl ReadControl(Reader& reader)
{
    DialogControl control;
    reader.Align();
    control.style = reader.Take<DWORD>();
    control.exStyle = reader.Take<DWORD>();
    control.x = reader.Take<short>();
    control.y = reader.Take<short>();
    control.width = reader.Take<short>();
    control.height = reader.Take<short>();
    control.id = reader.Take<short>();
    control.kind = reader.TakeTextOr(Kind);
    control.caption = reader.TakeTextOr(Number);
    EXPECT_EQ(reader.Take<WORD>(), 0) << "creation data";
    return control;
}
} // namespace

DialogResource DialogResource::Read(std::string_view bytes)
{
    Reader reader(bytes);
    DialogResource dialog;
    dialog.style = reader.Take<DWORD>();
    EXPECT_NE(dialog.style, 0xFFFF0001) << "a template of the extended form";
    dialog.exStyle = reader.Take<DWORD>();
    const auto count = reader.Take<WORD>();
    reader.Take<short>();
    reader.Take<short>();
    dialog.width = reader.Take<short>();
    dialog.height = reader.Take<short>();
    EXPECT_EQ(reader.TakeTextOr(Number), L"") << "a menu";
    EXPECT_EQ(reader.TakeTextOr(Number), L"") << "a class";
    dialog.title = reader.TakeText();
    if (dialog.style & DS_SETFONT)
    {
        dialog.pointSize = reader.Take<WORD>();
        dialog.font = reader.TakeText();
    }
    for (WORD control = 0; control < count; ++control)
        dialog.controls.push_back(ReadControl(reader));
    return dialog;
}

std::ostream& operator<<(std::ostream& stream, const DialogControl& control)
{
    const std::string caption(control.caption.begin(), control.caption.end());
    const std::string kind(control.kind.begin(), control.kind.end());
    return stream << kind << " " << control.id << " \"" << caption << "\" " << control.x << ", " << control.y
                  << ", " << control.width << ", " << control.height << " style 0x" << std::hex
                  << control.style << std::dec;
}
