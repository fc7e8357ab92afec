// The functions of automation: strings, variants, conversions, comparisons, arrays.
#pragma once

#include "oaidl.h"

// ---- Strings. A BSTR carries its length and may hold zeros; a null BSTR is an empty string.

/// Returns a copy of `text`; null if `text` is null or out of memory.
WINOLEAUTAPI_(BSTR) SysAllocString(const OLECHAR* text);
/// Returns a copy of `length` characters, zeros if `text` is null; null if out of memory.
WINOLEAUTAPI_(BSTR) SysAllocStringLen(const OLECHAR* text, UINT length);
WINOLEAUTAPI_(void) SysFreeString(BSTR text);
WINOLEAUTAPI_(UINT) SysStringLen(BSTR text);
/// Four bytes a character here, two on Windows.
WINOLEAUTAPI_(UINT) SysStringByteLen(BSTR text);

// ---- Variants.

WINOLEAUTAPI_(void) VariantInit(VARIANTARG* variant);
WINOLEAUTAPI VariantClear(VARIANTARG* variant);
WINOLEAUTAPI VariantCopy(VARIANTARG* target, const VARIANTARG* source);
WINOLEAUTAPI VariantCopyInd(VARIANT* target, const VARIANTARG* source);
WINOLEAUTAPI VariantChangeType(VARIANTARG* target, const VARIANTARG* source, USHORT flags, VARTYPE type);

#define VARCMP_LT 0
#define VARCMP_EQ 1
#define VARCMP_GT 2
#define VARCMP_NULL 3

/// Compares two values. Returns VARCMP_NULL if one of them is VT_NULL.
WINOLEAUTAPI VarCmp(LPVARIANT left, LPVARIANT right, LCID lcid, ULONG flags);
/// Compares two names in linguistic order, or by character values if `lcid` is 0.
WINOLEAUTAPI VarBstrCmp(BSTR left, BSTR right, LCID lcid, ULONG flags);

// ---- Arrays. Indices start with that of the first dimension.

WINOLEAUTAPI_(SAFEARRAY*) SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds);
WINOLEAUTAPI_(SAFEARRAY*) SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG elements);
WINOLEAUTAPI SafeArrayDestroy(SAFEARRAY* array);
WINOLEAUTAPI_(UINT) SafeArrayGetDim(SAFEARRAY* array);
WINOLEAUTAPI SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound);
WINOLEAUTAPI SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound);
WINOLEAUTAPI SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type);
WINOLEAUTAPI SafeArrayLock(SAFEARRAY* array);
WINOLEAUTAPI SafeArrayUnlock(SAFEARRAY* array);
/// Copies a value into the array. `value` is the BSTR or interface pointer itself, or the address of any
/// other value.
WINOLEAUTAPI SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* value);
/// Copies an element to the address `value`. The previous content of `value` is not released.
WINOLEAUTAPI SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* value);

// ---- Error information of the thread.

// ---- Type libraries, as far as registration needs them. None describes a type.

enum REGKIND
{
    REGKIND_DEFAULT,
    REGKIND_REGISTER,
    REGKIND_NONE
};

WINOLEAUTAPI LoadTypeLib(const OLECHAR* file, ITypeLib** library);
WINOLEAUTAPI LoadTypeLibEx(LPCOLESTR file, REGKIND kind, ITypeLib** library);
WINOLEAUTAPI LoadRegTypeLib(REFGUID guid, WORD major, WORD minor, LCID lcid, ITypeLib** library);
WINOLEAUTAPI RegisterTypeLib(ITypeLib* library, const OLECHAR* path, const OLECHAR* helpDirectory);
WINOLEAUTAPI UnRegisterTypeLib(REFGUID guid, WORD major, WORD minor, LCID lcid, SYSKIND kind);

// ---- What a variant holds, by its type.

#define V_VT(X) ((X)->vt)
#define V_UNION(X, Y) ((X)->Y)
#define V_ISBYREF(X) (V_VT(X) & VT_BYREF)
#define V_ISARRAY(X) (V_VT(X) & VT_ARRAY)
#define V_UI1(X) V_UNION(X, bVal)
#define V_I2(X) V_UNION(X, iVal)
#define V_I4(X) V_UNION(X, lVal)
#define V_I4REF(X) V_UNION(X, plVal)
#define V_I8(X) V_UNION(X, llVal)
#define V_R4(X) V_UNION(X, fltVal)
#define V_R8(X) V_UNION(X, dblVal)
#define V_I1(X) V_UNION(X, cVal)
#define V_UI2(X) V_UNION(X, uiVal)
#define V_UI4(X) V_UNION(X, ulVal)
#define V_UI8(X) V_UNION(X, ullVal)
#define V_INT(X) V_UNION(X, intVal)
#define V_CY(X) V_UNION(X, cyVal)
#define V_DATE(X) V_UNION(X, date)
#define V_BSTR(X) V_UNION(X, bstrVal)
#define V_DISPATCH(X) V_UNION(X, pdispVal)
#define V_ERROR(X) V_UNION(X, scode)
#define V_BOOL(X) V_UNION(X, boolVal)
#define V_UNKNOWN(X) V_UNION(X, punkVal)
#define V_VARIANTREF(X) V_UNION(X, pvarVal)
#define V_ARRAY(X) V_UNION(X, parray)
#define V_ARRAYREF(X) V_UNION(X, pparray)
#define V_BYREF(X) V_UNION(X, byref)
#define V_DECIMAL(X) V_UNION(X, decVal)
