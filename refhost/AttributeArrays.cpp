#include "AttributeArrays.h"

#include "HostText.h"
#include "StatusError.h"

#include "Bstr.h"

#include <array>
#include <new>
#include <utility>

namespace refhost
{
namespace
{
struct Bounds
{
    LONG low = 0;
    LONG high = -1;
};

Bounds BoundsOf(SAFEARRAY* array, UINT dimension)
{
    Bounds bounds;
    Check(SafeArrayGetLBound(array, dimension, &bounds.low));
    Check(SafeArrayGetUBound(array, dimension, &bounds.high));
    return bounds;
}

void RequireShape(SAFEARRAY* array, UINT dimensions, VARTYPE wanted)
{
    VARTYPE type = VT_EMPTY;
    Require(SafeArrayGetDim(array) == dimensions);
    Check(SafeArrayGetVartype(array, &type));
    Require(type == wanted);
}

void ReadCell(SAFEARRAY* array, LONG row, LONG column, Variant& cell)
{
    std::array<LONG, 2> index = {row, column};
    Check(SafeArrayGetElement(array, index.data(), cell.put()));
}

void PutCell(SAFEARRAY* array, LONG row, LONG column, const VARIANT& cell)
{
    std::array<LONG, 2> index = {row, column};
    Check(SafeArrayPutElement(array, index.data(), const_cast<VARIANT*>(&cell)));
}

/// The owner of one SAFEARRAY.
class OwnedArray
{
public:
    explicit OwnedArray(SAFEARRAY* array) : m_array(array)
    {
        if (!m_array)
            throw std::bad_alloc();
    }
    ~OwnedArray()
    {
        if (m_array)
            SafeArrayDestroy(m_array);
    }
    OwnedArray(const OwnedArray&) = delete;
    OwnedArray& operator=(const OwnedArray&) = delete;
    SAFEARRAY* get() const { return m_array; }
    SAFEARRAY* release() { return std::exchange(m_array, nullptr); }

private:
    SAFEARRAY* m_array;
};
} // namespace

std::vector<std::wstring> ReadNames(SAFEARRAY* names)
{
    RequireShape(names, 1, VT_BSTR);
    const Bounds rows = BoundsOf(names, 1);
    std::vector<std::wstring> result;
    for (LONG row = rows.low; row <= rows.high; ++row)
    {
        Bstr name;
        Check(SafeArrayGetElement(names, &row, name.put()));
        result.emplace_back(TextOf(name.get()));
    }
    return result;
}

std::vector<Pair> ReadPairs(SAFEARRAY* pairs)
{
    RequireShape(pairs, 2, VT_VARIANT);
    const Bounds rows = BoundsOf(pairs, 1);
    const Bounds columns = BoundsOf(pairs, 2);
    Require(columns.high - columns.low == 1);
    std::vector<Pair> result;
    for (LONG row = rows.low; row <= rows.high; ++row)
    {
        Variant name;
        ReadCell(pairs, row, columns.low, name);
        Require(name.Type() == VT_BSTR || name.Type() == VT_EMPTY);
        Pair& pair = result.emplace_back();
        pair.named = name.Type() == VT_BSTR;
        if (!pair.named)
            continue;
        pair.name = TextOf(name->bstrVal);
        ReadCell(pairs, row, columns.high, pair.value);
    }
    return result;
}

SAFEARRAY* MakePairArray(const std::vector<Pair>& rows)
{
    std::array<SAFEARRAYBOUND, 2> bounds{};
    bounds[0].cElements = static_cast<ULONG>(rows.size());
    bounds[1].cElements = 2;
    OwnedArray array(SafeArrayCreate(VT_VARIANT, 2, bounds.data()));
    for (LONG row = 0; row < static_cast<LONG>(rows.size()); ++row)
    {
        const Pair& pair = rows[static_cast<std::size_t>(row)];
        if (!pair.named)
            continue;
        PutCell(array.get(), row, 0, Variant::OfText(pair.name).get());
        PutCell(array.get(), row, 1, pair.value.get());
    }
    return array.release();
}
} // namespace refhost
