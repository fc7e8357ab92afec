// The elements of arrays: put, get, clear, copy of a whole array.
#include "safe_array.h"

#include "allocation.h"
#include "variant.h"

#include <cstring>
#include <utility>

namespace winport
{
namespace
{
// A null text is stored as an empty one.
HRESULT PutText(BSTR* place, BSTR text)
{
    BSTR copy = CopyText(text);
    if (!copy)
        return E_OUTOFMEMORY;
    SysFreeString(std::exchange(*place, copy));
    return S_OK;
}

// An element that was never set is null, and so is its copy.
HRESULT AssignText(BSTR* place, BSTR text)
{
    if (text)
        return PutText(place, text);
    SysFreeString(std::exchange(*place, nullptr));
    return S_OK;
}

HRESULT AssignObject(IUnknown** place, IUnknown* object)
{
    if (object)
        object->AddRef();
    if (IUnknown* old = std::exchange(*place, object))
        old->Release();
    return S_OK;
}

void ClearElement(const SAFEARRAY* array, void* place)
{
    if (array->fFeatures & FADF_BSTR)
        SysFreeString(std::exchange(*static_cast<BSTR*>(place), nullptr));
    else if (HoldsObjects(array))
        AssignObject(static_cast<IUnknown**>(place), nullptr);
    else
        VariantClear(static_cast<VARIANT*>(place));
}

bool HoldsPlainValues(const SAFEARRAY* array)
{
    return !HoldsObjects(array) && !(array->fFeatures & (FADF_BSTR | FADF_VARIANT));
}

// `target` has the bounds of the source and empty elements.
HRESULT CopyElements(const SAFEARRAY* source, SAFEARRAY* target)
{
    const std::size_t count = CountElements(source);
    if (HoldsPlainValues(source))
    {
        std::memcpy(target->pvData, source->pvData, count * source->cbElements);
        return S_OK;
    }
    const auto* from = static_cast<const BYTE*>(source->pvData);
    auto* to = static_cast<BYTE*>(target->pvData);
    HRESULT status = S_OK;
    for (std::size_t i = 0; i < count && status >= 0;
         ++i, from += source->cbElements, to += source->cbElements)
        status = AssignElement(target, to, from);
    return status;
}

// An array of the same type and bounds.
SAFEARRAY* CreateLike(SAFEARRAY* source)
{
    VARTYPE type = VT_EMPTY;
    SafeArrayGetVartype(source, &type);
    // SafeArrayCreate takes the bounds in the reverse of the stored order.
    const UINT dimensions = source->cDims;
    const std::size_t size = dimensions * sizeof(SAFEARRAYBOUND);
    auto* bounds = static_cast<SAFEARRAYBOUND*>(Allocate(size));
    if (!bounds)
        return nullptr;
    for (UINT i = 0; i < dimensions; ++i)
        bounds[i] = (&source->rgsabound[0])[dimensions - 1 - i];
    SAFEARRAY* array = SafeArrayCreate(type, dimensions, bounds);
    Free(bounds);
    return array;
}
} // namespace

void ClearElements(SAFEARRAY* array) noexcept
{
    const std::size_t count = CountElements(array);
    if (!HoldsPlainValues(array))
    {
        auto* place = static_cast<BYTE*>(array->pvData);
        for (std::size_t i = 0; i < count; ++i, place += array->cbElements)
            ClearElement(array, place);
    }
    std::memset(array->pvData, 0, count * array->cbElements);
}

HRESULT AssignElement(const SAFEARRAY* array, void* place, const void* value) noexcept
{
    if (array->fFeatures & FADF_BSTR)
        return AssignText(static_cast<BSTR*>(place), *static_cast<const BSTR*>(value));
    if (HoldsObjects(array))
        return AssignObject(static_cast<IUnknown**>(place), *static_cast<IUnknown* const*>(value));
    if (!(array->fFeatures & FADF_VARIANT))
    {
        std::memcpy(place, value, array->cbElements);
        return S_OK;
    }
    VARIANT copy{};
    HRESULT status = VariantCopy(&copy, static_cast<const VARIANT*>(value));
    if (status >= 0)
        status = VariantClear(static_cast<VARIANT*>(place));
    if (status < 0)
        VariantClear(&copy);
    else
        *static_cast<VARIANT*>(place) = copy;
    return status;
}

HRESULT CopyArray(SAFEARRAY* source, SAFEARRAY** target) noexcept
{
    *target = nullptr;
    if (!source)
        return S_OK;
    SAFEARRAY* copy = CreateLike(source);
    if (!copy)
        return E_OUTOFMEMORY;
    const CArrayLock lock(source);
    const HRESULT status = lock.Status() < 0 ? lock.Status() : CopyElements(source, copy);
    if (status < 0)
    {
        SafeArrayDestroy(copy);
        return status;
    }
    *target = copy;
    return S_OK;
}
} // namespace winport

using namespace winport;

HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* value)
{
    if (!array || !indices)
        return E_INVALIDARG;
    const CArrayLock lock(array);
    void* place = nullptr;
    HRESULT status = lock.Status();
    if (status >= 0)
        status = PlaceOf(array, indices, &place);
    if (status < 0)
        return status;
    // For strings and objects `value` is the pointer itself, which may be null.
    if (array->fFeatures & FADF_BSTR)
        return PutText(static_cast<BSTR*>(place), static_cast<BSTR>(value));
    if (HoldsObjects(array))
        return AssignElement(array, place, &value);
    return value ? AssignElement(array, place, value) : E_INVALIDARG;
}

HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* value)
{
    if (!array || !indices || !value)
        return E_INVALIDARG;
    const CArrayLock lock(array);
    void* place = nullptr;
    HRESULT status = lock.Status();
    if (status >= 0)
        status = PlaceOf(array, indices, &place);
    if (status < 0)
        return status;
    // The previous content is overwritten, not freed.
    std::memset(value, 0, array->cbElements);
    return AssignElement(array, value, place);
}
