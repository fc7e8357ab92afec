// The order of values and of names.
#include "names.h"

#include <oleauto.h>

#include <winnls.h>

#include <algorithm>
#include <array>
#include <cwchar>

namespace winport
{
namespace
{
HRESULT Sign(int difference)
{
    return difference < 0 ? VARCMP_LT : difference > 0 ? VARCMP_GT : VARCMP_EQ;
}

template <class T>
HRESULT Order(T left, T right)
{
    return left < right ? VARCMP_LT : left > right ? VARCMP_GT : VARCMP_EQ;
}

// ---- Names. Names are compared first by their major characters without case, then by case, then by their
// minor characters: hyphen, apostrophe and control characters.

constexpr int kFirstMajor = 40;

// The weight of each ASCII character; both cases of a letter have the same. 0 is ignored.
constexpr std::array<unsigned char, 128> MakePlaces()
{
    std::array<unsigned char, 128> places{};
    unsigned char place = 1;
    for (int control = 1; control < 32; ++control)
    {
        if (control < 9 || control > 13)
            places[control] = place++;
    }
    places[0x7F] = place++;
    places['\''] = place++;
    places['-'] = place++;
    place = kFirstMajor;
    for (const char character : " \t\n\v\f\r!\"#$%&()*,./:;?@[\\]^_`{|}~+<=>0123456789")
    {
        if (character)
            places[static_cast<unsigned char>(character)] = place++;
    }
    for (int letter = 0; letter < 26; ++letter)
        places['a' + letter] = places['A' + letter] = place++;
    return places;
}

constexpr std::array<unsigned char, 128> kPlaces = MakePlaces();

unsigned Place(OLECHAR character)
{
    const auto value = static_cast<unsigned>(character);
    return value < kPlaces.size() ? kPlaces[value] : value + static_cast<unsigned>(kPlaces.size());
}

bool IsUpper(OLECHAR character)
{
    return character >= L'A' && character <= L'Z';
}

struct Name
{
    const OLECHAR* at;
    const OLECHAR* end;

    // Removes the next minor character and returns its weight; returns 0 if the next character is a major
    // one.
    unsigned TakeMinor()
    {
        for (; at != end; ++at)
        {
            const unsigned place = Place(*at);
            if (place >= kFirstMajor)
                return 0;
            if (place)
            {
                ++at;
                return place;
            }
        }
        return 0;
    }

    void SkipNothings()
    {
        while (at != end && Place(*at) == 0)
            ++at;
    }
};

class CNameOrder
{
public:
    explicit CNameOrder(ULONG flags)
        : m_ignoreCase(flags & NORM_IGNORECASE), m_allMajor(flags & SORT_STRINGSORT)
    {
    }

    int Compare(Name left, Name right)
    {
        while (left.at != left.end && right.at != right.end && *left.at == *right.at)
        {
            ++left.at;
            ++right.at;
        }
        for (;;)
        {
            PassMinors(&left, &right);
            if (left.at == left.end || right.at == right.end)
                break;
            const int difference = static_cast<int>(Place(*left.at)) - static_cast<int>(Place(*right.at));
            if (difference)
                return difference;
            if (!m_case)
                m_case = static_cast<int>(IsUpper(*left.at)) - static_cast<int>(IsUpper(*right.at));
            ++left.at;
            ++right.at;
        }
        const int longer = static_cast<int>(left.at != left.end) - static_cast<int>(right.at != right.end);
        if (longer)
            return longer;
        return m_case && !m_ignoreCase ? m_case : m_minor;
    }

private:
    void PassMinors(Name* left, Name* right)
    {
        if (m_allMajor)
        {
            left->SkipNothings();
            right->SkipNothings();
            return;
        }
        for (;;)
        {
            const unsigned a = left->TakeMinor();
            const unsigned b = right->TakeMinor();
            if (!a && !b)
                return;
            if (!m_minor)
                m_minor = static_cast<int>(a) - static_cast<int>(b);
        }
    }

    bool m_ignoreCase;
    bool m_allMajor;
    // The first difference of its kind.
    int m_case = 0;
    int m_minor = 0;
};

int CompareByValue(BSTR left, UINT leftLength, BSTR right, UINT rightLength)
{
    const UINT common = std::min(leftLength, rightLength);
    const int difference = common ? std::wmemcmp(left, right, common) : 0;
    return difference ? difference : static_cast<int>(leftLength) - static_cast<int>(rightLength);
}

// ---- Values.

enum class Comparable
{
    Never,
    Refused,
    Nothing,
    Number,
    Text
};

Comparable KindOf(VARTYPE type)
{
    switch (type)
    {
    case VT_EMPTY:
    case VT_NULL:
        return Comparable::Nothing;
    case VT_I2:
    case VT_I4:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_BOOL:
    case VT_UI1:
    case VT_I8:
    case VT_INT:
        return Comparable::Number;
    case VT_BSTR:
        return Comparable::Text;
    case VT_DISPATCH:
    case VT_ERROR:
    case VT_VARIANT:
    case VT_UNKNOWN:
    case VT_DECIMAL:
    case VT_I1:
    case VT_UI2:
    case VT_UI4:
    case VT_UI8:
        return Comparable::Refused;
    default:
        return Comparable::Never;
    }
}

bool IsReal(VARTYPE type)
{
    return type == VT_R4 || type == VT_R8 || type == VT_DATE || type == VT_CY;
}

LONGLONG WholeOf(const VARIANT* value)
{
    switch (V_VT(value))
    {
    case VT_I2:
    case VT_BOOL:
        return V_I2(value);
    case VT_I4:
    case VT_INT:
        return V_I4(value);
    case VT_UI1:
        return V_UI1(value);
    case VT_I8:
        return V_I8(value);
    default:
        return 0;
    }
}

double RealOf(const VARIANT* value)
{
    switch (V_VT(value))
    {
    case VT_R4:
        return static_cast<double>(V_R4(value));
    case VT_R8:
    case VT_DATE:
        return V_R8(value);
    case VT_CY:
        return static_cast<double>(V_CY(value).int64) / 10000;
    default:
        return static_cast<double>(WholeOf(value));
    }
}

HRESULT CompareNumbers(const VARIANT* left, const VARIANT* right)
{
    if (IsReal(V_VT(left)) || IsReal(V_VT(right)))
        return Order(RealOf(left), RealOf(right));
    return Order(WholeOf(left), WholeOf(right));
}

// Text is greater than any number; VT_EMPTY equals the empty text and 0.
HRESULT CompareText(const VARIANT* left, const VARIANT* right, LCID lcid, ULONG flags)
{
    const bool leftIsNumber = KindOf(V_VT(left)) == Comparable::Number;
    const bool rightIsNumber = KindOf(V_VT(right)) == Comparable::Number;
    if (leftIsNumber || rightIsNumber)
        return leftIsNumber ? VARCMP_LT : VARCMP_GT;
    return VarBstrCmp(V_VT(left) == VT_BSTR ? V_BSTR(left) : nullptr,
                      V_VT(right) == VT_BSTR ? V_BSTR(right) : nullptr, lcid, flags);
}
} // namespace

int CompareNames(std::wstring_view left, std::wstring_view right, ULONG flags)
{
    return CNameOrder(flags).Compare({left.data(), left.data() + left.size()},
                                     {right.data(), right.data() + right.size()});
}
} // namespace winport

using namespace winport;

HRESULT VarBstrCmp(BSTR left, BSTR right, LCID lcid, ULONG flags)
{
    const UINT leftLength = SysStringLen(left);
    const UINT rightLength = SysStringLen(right);
    if (!leftLength || !rightLength)
        return Order(leftLength != 0, rightLength != 0);
    if (!lcid)
        return Sign(CompareByValue(left, leftLength, right, rightLength));
    return Sign(CNameOrder(flags).Compare({left, left + leftLength}, {right, right + rightLength}));
}

HRESULT VarCmp(LPVARIANT left, LPVARIANT right, LCID lcid, ULONG flags)
{
    if (!left || !right)
        return E_INVALIDARG;
    const Comparable leftKind = KindOf(V_VT(left));
    const Comparable rightKind = KindOf(V_VT(right));
    // As on Windows, VT_INT is supported on the left only.
    if (leftKind == Comparable::Never || rightKind == Comparable::Never || V_VT(right) == VT_INT)
        return DISP_E_BADVARTYPE;
    if (V_VT(left) == VT_ERROR && V_VT(right) == VT_ERROR)
        return VARCMP_EQ;
    if (leftKind == Comparable::Refused || rightKind == Comparable::Refused)
        return DISP_E_TYPEMISMATCH;
    if (V_VT(left) == VT_NULL || V_VT(right) == VT_NULL)
        return VARCMP_NULL;
    if (leftKind == Comparable::Text || rightKind == Comparable::Text)
        return CompareText(left, right, lcid, flags);
    return CompareNumbers(left, right);
}
