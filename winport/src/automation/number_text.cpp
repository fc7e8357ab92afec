// Numbers as text, in the format of the United States.
#include "variant.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace winport
{
namespace
{
bool IsBlank(OLECHAR character)
{
    return character == L' ' || (character >= L'\t' && character <= L'\r') || character == 0xA0;
}

bool IsDigit(OLECHAR character)
{
    return character >= L'0' && character <= L'9';
}

// -1 for anything but a hexadecimal digit.
int DigitValue(OLECHAR character)
{
    if (IsDigit(character))
        return character - L'0';
    const OLECHAR lower = character | 0x20;
    return lower >= L'a' && lower <= L'f' ? lower - L'a' + 10 : -1;
}

// Reads a number in one pass. A sign, a parenthesis and a currency sign may each occur once, before or after
// the digits.
class CNumberReader
{
public:
    explicit CNumberReader(const OLECHAR* text) noexcept : m_at(text) {}
    HRESULT Read(SpelledNumber* number) noexcept;

private:
    bool Take(OLECHAR wanted, bool* taken) noexcept;
    void Leading() noexcept;
    void Trailing() noexcept;
    HRESULT Bits(SpelledNumber* number) noexcept;
    bool Digits() noexcept;
    bool Exponent() noexcept;
    void Keep(char digit) noexcept;
    HRESULT Convert(double* value) const noexcept;

    // More digits than a double needs; further ones count for the scale only.
    static constexpr int kMostDigits = 40;
    const OLECHAR* m_at;
    bool m_plus = false;
    bool m_minus = false;
    bool m_open = false;
    bool m_close = false;
    bool m_currency = false;
    char m_digits[kMostDigits];
    int m_count = 0;
    int m_scale = 0;
};

bool CNumberReader::Take(OLECHAR wanted, bool* taken) noexcept
{
    if (*m_at != wanted || *taken)
        return false;
    *taken = true;
    ++m_at;
    return true;
}

void CNumberReader::Leading() noexcept
{
    while (IsBlank(*m_at) ? ++m_at != nullptr
                          : Take(L'+', &m_plus) || Take(L'-', &m_minus) || Take(L'(', &m_open) ||
                                Take(L'$', &m_currency))
    {
    }
}

void CNumberReader::Trailing() noexcept
{
    while (IsBlank(*m_at) ? ++m_at != nullptr
                          : Take(L'+', &m_plus) || Take(L'-', &m_minus) || Take(L')', &m_close) ||
                                Take(L'$', &m_currency))
    {
    }
}

void CNumberReader::Keep(char digit) noexcept
{
    if (digit == '0' && m_count == 0)
        return;
    if (m_count < kMostDigits)
        m_digits[m_count++] = digit;
    else
        ++m_scale;
}

// False if there is no digit.
bool CNumberReader::Digits() noexcept
{
    bool any = false;
    bool point = false;
    for (;; ++m_at)
    {
        if (IsDigit(*m_at))
        {
            Keep(static_cast<char>('0' + (*m_at - L'0')));
            any = true;
            m_scale -= point ? 1 : 0;
        }
        else if (*m_at == L'.' && !point)
            point = true;
        else if (*m_at != L',' || !any)
            return any;
    }
}

// False for an exponent without digits.
bool CNumberReader::Exponent() noexcept
{
    if ((*m_at | 0x20) != L'e')
        return true;
    ++m_at;
    const bool negative = *m_at == L'-';
    if (negative || *m_at == L'+')
        ++m_at;
    if (!IsDigit(*m_at))
        return false;
    int exponent = 0;
    for (; IsDigit(*m_at); ++m_at)
    {
        if (exponent < 100000)
            exponent = exponent * 10 + (*m_at - L'0');
    }
    m_scale += negative ? -exponent : exponent;
    return true;
}

HRESULT CNumberReader::Convert(double* value) const noexcept
{
    *value = 0;
    if (m_count == 0)
        return S_OK;
    char text[kMostDigits + 16];
    std::copy(m_digits, m_digits + m_count, text);
    text[m_count] = 'e';
    const auto written = std::to_chars(text + m_count + 1, text + sizeof(text), m_scale);
    const auto read = std::from_chars(text, written.ptr, *value);
    if (read.ec == std::errc::result_out_of_range)
    {
        // An underflow reads as 0.
        *value = 0;
        return m_scale + m_count > 0 ? DISP_E_OVERFLOW : S_OK;
    }
    return S_OK;
}

// &H1F and &O17.
HRESULT CNumberReader::Bits(SpelledNumber* number) noexcept
{
    const unsigned shift = (m_at[1] | 0x20) == L'h' ? 4 : 3;
    m_at += 2;
    bool any = false;
    number->isBits = true;
    for (int digit = DigitValue(*m_at); digit >= 0 && digit < 1 << shift; digit = DigitValue(*++m_at))
    {
        if (number->bits >> (64 - shift))
            return DISP_E_OVERFLOW;
        number->bits = number->bits << shift | static_cast<unsigned>(digit);
        any = true;
    }
    while (IsBlank(*m_at))
        ++m_at;
    number->value = static_cast<double>(number->bits);
    return any && !*m_at ? S_OK : DISP_E_TYPEMISMATCH;
}

HRESULT CNumberReader::Read(SpelledNumber* number) noexcept
{
    Leading();
    if (*m_at == L'&' && ((m_at[1] | 0x20) == L'h' || (m_at[1] | 0x20) == L'o'))
        return Bits(number);
    if (!Digits() || !Exponent())
        return DISP_E_TYPEMISMATCH;
    Trailing();
    if (*m_at || m_open != m_close)
        return DISP_E_TYPEMISMATCH;
    const HRESULT status = Convert(&number->value);
    if (m_minus || m_open)
        number->value = -number->value;
    return status;
}
} // namespace

HRESULT ReadNumber(const OLECHAR* text, SpelledNumber* number) noexcept
{
    *number = {};
    return text ? CNumberReader(text).Read(number) : DISP_E_TYPEMISMATCH;
}

void WriteReal(double value, int digits, OLECHAR (&text)[kNumberLength]) noexcept
{
    char narrow[kNumberLength];
    // Minus zero is written as zero.
    const double shown = value == 0 ? 0 : value;
    const auto end =
        std::to_chars(narrow, narrow + kNumberLength - 1, shown, std::chars_format::general, digits);
    OLECHAR* to = text;
    for (const char* from = narrow; from != end.ptr; ++from)
        *to++ = *from >= 'a' && *from <= 'z' ? static_cast<OLECHAR>(*from - 'a' + 'A')
                                             : static_cast<OLECHAR>(*from);
    *to = L'\0';
}
} // namespace winport
