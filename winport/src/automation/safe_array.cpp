// Arrays: creation, bounds, locks, destruction.
#include "safe_array.h"

#include "allocation.h"
#include "variant.h"

#include <cstring>
#include <limits>

namespace winport
{
namespace
{
// Precedes the descriptor, as on Windows: the interface of the elements, or their type in the last four
// bytes.
struct Prefix
{
    union
    {
        GUID iid;
        ULONG words[4];
    };
};

constexpr std::size_t kMostBytes = std::numeric_limits<LONG>::max();

std::size_t DescriptorSize(UINT dimensions)
{
    return sizeof(Prefix) + sizeof(SAFEARRAY) + (dimensions - 1) * sizeof(SAFEARRAYBOUND);
}

Prefix* PrefixOf(SAFEARRAY* array)
{
    return reinterpret_cast<Prefix*>(array) - 1;
}

// Bounds are stored in reverse order: the last dimension first.
SAFEARRAYBOUND* BoundOf(SAFEARRAY* array, UINT dimension)
{
    return &array->rgsabound[0] + (array->cDims - dimension);
}

USHORT FeaturesOf(VARTYPE type)
{
    switch (type)
    {
    case VT_BSTR:
        return FADF_BSTR | FADF_HAVEVARTYPE;
    case VT_UNKNOWN:
        return FADF_UNKNOWN | FADF_HAVEIID;
    case VT_DISPATCH:
        return FADF_DISPATCH | FADF_HAVEIID;
    case VT_VARIANT:
        return FADF_VARIANT | FADF_HAVEVARTYPE;
    default:
        return FADF_HAVEVARTYPE;
    }
}

void Describe(SAFEARRAY* array, VARTYPE type, UINT dimensions, USHORT moreFeatures)
{
    array->cDims = static_cast<USHORT>(dimensions);
    array->fFeatures = static_cast<USHORT>(FeaturesOf(type) | moreFeatures);
    array->cbElements = static_cast<ULONG>(ValueSize(type));
    if (HoldsObjects(array))
        PrefixOf(array)->iid = type == VT_DISPATCH ? IID_IDispatch : IID_IUnknown;
    else
        PrefixOf(array)->words[3] = type;
}

// Zeroed memory for a descriptor and `more` bytes behind it.
SAFEARRAY* AllocateDescriptor(UINT dimensions, std::size_t more)
{
    const std::size_t size = DescriptorSize(dimensions) + more;
    void* block = Allocate(size);
    if (!block)
        return nullptr;
    std::memset(block, 0, size);
    return reinterpret_cast<SAFEARRAY*>(static_cast<Prefix*>(block) + 1);
}

// Returns false if the elements are larger than any array may be.
bool Measure(const SAFEARRAYBOUND* bounds, UINT dimensions, std::size_t elementSize, std::size_t* bytes)
{
    *bytes = elementSize;
    for (UINT i = 0; i < dimensions; ++i)
    {
        if (bounds[i].cElements && *bytes > kMostBytes / bounds[i].cElements)
            return false;
        *bytes *= bounds[i].cElements;
    }
    return true;
}
} // namespace

std::size_t CountElements(const SAFEARRAY* array) noexcept
{
    std::size_t count = 1;
    for (UINT i = 0; i < array->cDims; ++i)
        count *= (&array->rgsabound[0])[i].cElements;
    return count;
}

HRESULT PlaceOf(SAFEARRAY* array, const LONG* indices, void** element) noexcept
{
    std::size_t place = 0;
    std::size_t stride = 1;
    // The first dimension varies fastest.
    for (UINT dimension = 1; dimension <= array->cDims; ++dimension)
    {
        const SAFEARRAYBOUND* bound = BoundOf(array, dimension);
        const LONGLONG offset = LONGLONG{indices[dimension - 1]} - bound->lLbound;
        if (offset < 0 || offset >= LONGLONG{bound->cElements})
            return DISP_E_BADINDEX;
        place += static_cast<std::size_t>(offset) * stride;
        stride *= bound->cElements;
    }
    *element = static_cast<BYTE*>(array->pvData) + place * array->cbElements;
    return S_OK;
}
} // namespace winport

using namespace winport;

SAFEARRAY* SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds)
{
    const std::size_t elementSize = ValueSize(type);
    std::size_t bytes = 0;
    if (!elementSize || !dimensions || dimensions > std::numeric_limits<USHORT>::max() || !bounds ||
        !Measure(bounds, dimensions, elementSize, &bytes))
        return nullptr;
    SAFEARRAY* array = AllocateDescriptor(dimensions, 0);
    if (!array)
        return nullptr;
    Describe(array, type, dimensions, 0);
    for (UINT dimension = 1; dimension <= dimensions; ++dimension)
        *BoundOf(array, dimension) = bounds[dimension - 1];
    array->pvData = Allocate(bytes);
    if (!array->pvData)
    {
        Free(PrefixOf(array));
        return nullptr;
    }
    std::memset(array->pvData, 0, bytes);
    return array;
}

SAFEARRAY* SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG elements)
{
    const SAFEARRAYBOUND bound{elements, lowerBound};
    const std::size_t elementSize = ValueSize(type);
    std::size_t bytes = 0;
    if (!elementSize || !Measure(&bound, 1, elementSize, &bytes))
        return nullptr;
    // One block: the elements follow the descriptor.
    SAFEARRAY* array = AllocateDescriptor(1, bytes);
    if (!array)
        return nullptr;
    Describe(array, type, 1, kVector);
    array->rgsabound[0] = bound;
    array->pvData = array + 1;
    return array;
}

HRESULT SafeArrayDestroy(SAFEARRAY* array)
{
    if (!array)
        return S_OK;
    if (array->cLocks)
        return DISP_E_ARRAYISLOCKED;
    ClearElements(array);
    if (!(array->fFeatures & kVector))
        Free(array->pvData);
    Free(PrefixOf(array));
    return S_OK;
}

UINT SafeArrayGetDim(SAFEARRAY* array)
{
    return array ? array->cDims : 0;
}

HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound)
{
    if (!array || !bound)
        return E_INVALIDARG;
    if (dimension < 1 || dimension > array->cDims)
        return DISP_E_BADINDEX;
    *bound = BoundOf(array, dimension)->lLbound;
    return S_OK;
}

HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound)
{
    const HRESULT status = SafeArrayGetLBound(array, dimension, bound);
    // Without elements, the lower bound minus one.
    if (status >= 0)
        *bound += static_cast<LONG>(BoundOf(array, dimension)->cElements) - 1;
    return status;
}

HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type)
{
    if (!array || !type)
        return E_INVALIDARG;
    if (array->fFeatures & FADF_HAVEVARTYPE)
        *type = static_cast<VARTYPE>(PrefixOf(array)->words[3]);
    else
        *type = array->fFeatures & FADF_DISPATCH ? VT_DISPATCH : VT_UNKNOWN;
    return S_OK;
}

HRESULT SafeArrayLock(SAFEARRAY* array)
{
    if (!array)
        return E_INVALIDARG;
    if (array->cLocks == std::numeric_limits<USHORT>::max())
        return E_UNEXPECTED;
    ++array->cLocks;
    return S_OK;
}

HRESULT SafeArrayUnlock(SAFEARRAY* array)
{
    if (!array)
        return E_INVALIDARG;
    if (!array->cLocks)
        return E_UNEXPECTED;
    --array->cLocks;
    return S_OK;
}
