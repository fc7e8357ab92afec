#include "ValueWord.h"

#include <cstring>

namespace qptools
{
namespace
{
/// The number of references to variants that are followed. The system allows one; a longer chain, or a ring,
/// counts as not set.
constexpr int kMaxReferences = 4;

template <class T>
T Read(const void* data) noexcept
{
    T value;
    std::memcpy(&value, data, sizeof value);
    return value;
}

LONGLONG ReadPointer(const void* data) noexcept
{
    return Read<const void*>(data) != nullptr ? 1 : 0;
}

LONGLONG ReadDecimal(const void* data) noexcept
{
    const auto number = Read<DECIMAL>(data);
    return number.Hi32 != 0 || number.Lo64 != 0 ? 1 : 0;
}

/// The word of the value of type `type` at `data`.
LONGLONG WordAt(VARTYPE type, const void* data) noexcept
{
    if (type & VT_ARRAY)
        return ReadPointer(data);
    switch (type)
    {
    case VT_BOOL:
    case VT_I2:
        return Read<SHORT>(data);
    case VT_UI2:
        return Read<USHORT>(data);
    case VT_I1:
        return Read<signed char>(data);
    case VT_UI1:
        return Read<unsigned char>(data);
    case VT_I4:
    case VT_INT:
    case VT_ERROR:
        return Read<LONG>(data);
    case VT_UI4:
    case VT_UINT:
        return Read<ULONG>(data);
    case VT_I8:
    case VT_UI8:
        return Read<LONGLONG>(data);
    case VT_R4:
        return Read<ULONG>(data) != 0 ? 1 : 0;
    case VT_R8:
    case VT_DATE:
    case VT_CY:
        return Read<LONGLONG>(data) != 0 ? 1 : 0;
    case VT_DECIMAL:
        return ReadDecimal(data);
    case VT_BSTR:
    case VT_UNKNOWN:
    case VT_DISPATCH:
        return ReadPointer(data);
    default:
        return 0;
    }
}
} // namespace

LONGLONG ValueWord(const VARIANT& value) noexcept
{
    const VARIANT* inner = &value;
    for (int depth = 0; inner && inner->vt == (VT_BYREF | VT_VARIANT); ++depth)
        inner = depth < kMaxReferences ? inner->pvarVal : nullptr;
    if (!inner)
        return 0;
    if (inner->vt & VT_BYREF)
        return inner->byref ? WordAt(static_cast<VARTYPE>(inner->vt & ~VT_BYREF), inner->byref) : 0;
    // A decimal overlays the whole variant; everything else starts at the union.
    return inner->vt == VT_DECIMAL ? ReadDecimal(&inner->decVal) : WordAt(inner->vt, &inner->byref);
}
} // namespace qptools
