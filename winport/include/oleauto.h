// The functions of automation: strings, variants, conversions, comparisons, arrays.
#pragma once

#include "oaidl.h"

// ---- Strings. A BSTR carries its length and may hold characters of any value; null stands for an empty one.

/// Copies `text`. Null if `text` is null or memory is short.
WINOLEAUTAPI_(BSTR) SysAllocString(const OLECHAR* text);
/// Copies `length` characters; a null `text` gives zeros.
WINOLEAUTAPI_(BSTR) SysAllocStringLen(const OLECHAR* text, UINT length);
/// Replaces `*target`; a null `text` frees it and leaves null. FALSE if memory is short; then `*target` is as
/// it was.
WINOLEAUTAPI_(INT) SysReAllocString(BSTR* target, const OLECHAR* text);
/// Replaces `*target` by `length` characters of `text`, which may lie inside it; a null `text` keeps what is
/// there.
WINOLEAUTAPI_(INT) SysReAllocStringLen(BSTR* target, const OLECHAR* text, UINT length);
WINOLEAUTAPI_(void) SysFreeString(BSTR text);
WINOLEAUTAPI_(UINT) SysStringLen(BSTR text);
/// Four bytes a character here, two on Windows.
WINOLEAUTAPI_(UINT) SysStringByteLen(BSTR text);

// ---- Variants.

#define VARIANT_NOVALUEPROP 0x01
#define VARIANT_ALPHABOOL 0x02
#define VARIANT_NOUSEROVERRIDE 0x04
#define VARIANT_LOCALBOOL 0x10

WINOLEAUTAPI_(void) VariantInit(VARIANTARG* variant);
WINOLEAUTAPI VariantClear(VARIANTARG* variant);
WINOLEAUTAPI VariantCopy(VARIANTARG* target, const VARIANTARG* source);
WINOLEAUTAPI VariantCopyInd(VARIANT* target, const VARIANTARG* source);
WINOLEAUTAPI VariantChangeType(VARIANTARG* target, const VARIANTARG* source, USHORT flags, VARTYPE type);
WINOLEAUTAPI VariantChangeTypeEx(VARIANTARG* target, const VARIANTARG* source, LCID lcid, USHORT flags,
                                 VARTYPE type);

/// A date as days since 30 December 1899, the time of day as its fraction. FALSE if there is none.
WINOLEAUTAPI_(INT) SystemTimeToVariantTime(LPSYSTEMTIME time, DOUBLE* date);
WINOLEAUTAPI_(INT) VariantTimeToSystemTime(DOUBLE date, LPSYSTEMTIME time);

#define VARCMP_LT 0
#define VARCMP_EQ 1
#define VARCMP_GT 2
#define VARCMP_NULL 3

/// Compares values; VARCMP_NULL if one of them is VT_NULL.
WINOLEAUTAPI VarCmp(LPVARIANT left, LPVARIANT right, LCID lcid, ULONG flags);
/// Compares names as a user sorts them; by character values if `lcid` is 0.
WINOLEAUTAPI VarBstrCmp(BSTR left, BSTR right, LCID lcid, ULONG flags);

// ---- Arrays. Indices are given with that of the first dimension first.

WINOLEAUTAPI_(SAFEARRAY*) SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds);
WINOLEAUTAPI_(SAFEARRAY*) SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG elements);
WINOLEAUTAPI SafeArrayDestroy(SAFEARRAY* array);
WINOLEAUTAPI SafeArrayDestroyData(SAFEARRAY* array);
WINOLEAUTAPI SafeArrayCopy(SAFEARRAY* source, SAFEARRAY** target);
WINOLEAUTAPI_(UINT) SafeArrayGetDim(SAFEARRAY* array);
WINOLEAUTAPI_(UINT) SafeArrayGetElemsize(SAFEARRAY* array);
WINOLEAUTAPI SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound);
WINOLEAUTAPI SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound);
WINOLEAUTAPI SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type);
WINOLEAUTAPI SafeArrayLock(SAFEARRAY* array);
WINOLEAUTAPI SafeArrayUnlock(SAFEARRAY* array);
WINOLEAUTAPI SafeArrayAccessData(SAFEARRAY* array, void** data);
WINOLEAUTAPI SafeArrayUnaccessData(SAFEARRAY* array);
WINOLEAUTAPI SafeArrayPtrOfIndex(SAFEARRAY* array, LONG* indices, void** element);
/// Copies the value in: `value` is the string or interface pointer itself, the address of any other value.
WINOLEAUTAPI SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* value);
/// Copies the value out to the address `value`, whose former content is not released.
WINOLEAUTAPI SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* value);

// ---- Error information of the thread.

WINOLEAUTAPI SetErrorInfo(ULONG reserved, IErrorInfo* info);
WINOLEAUTAPI GetErrorInfo(ULONG reserved, IErrorInfo** info);

// ---- Type libraries: loaded as far as registration needs them; none describes a type.

enum REGKIND
{
    REGKIND_DEFAULT,
    REGKIND_REGISTER,
    REGKIND_NONE
};

WINOLEAUTAPI LoadTypeLib(const OLECHAR* file, ITypeLib** library);
WINOLEAUTAPI LoadTypeLibEx(LPCOLESTR file, REGKIND kind, ITypeLib** library);
WINOLEAUTAPI LoadRegTypeLib(REFGUID guid, WORD major, WORD minor, LCID lcid, ITypeLib** library);
WINOLEAUTAPI QueryPathOfRegTypeLib(REFGUID guid, USHORT major, USHORT minor, LCID lcid, BSTR* path);
WINOLEAUTAPI RegisterTypeLib(ITypeLib* library, const OLECHAR* path, const OLECHAR* helpDirectory);
WINOLEAUTAPI UnRegisterTypeLib(REFGUID guid, WORD major, WORD minor, LCID lcid, SYSKIND kind);
WINOLEAUTAPI DispGetIDsOfNames(ITypeInfo* info, LPOLESTR* names, UINT count, DISPID* ids);
WINOLEAUTAPI DispInvoke(void* instance, ITypeInfo* info, DISPID id, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument);

// ---- What a variant holds, by its type.

#define V_VT(X) ((X)->vt)
#define V_UNION(X, Y) ((X)->Y)
#define V_ISBYREF(X) (V_VT(X) & VT_BYREF)
#define V_ISARRAY(X) (V_VT(X) & VT_ARRAY)
#define V_ISVECTOR(X) (V_VT(X) & VT_VECTOR)
#define V_NONE(X) V_I2(X)
#define V_UI1(X) V_UNION(X, bVal)
#define V_UI1REF(X) V_UNION(X, pbVal)
#define V_I2(X) V_UNION(X, iVal)
#define V_I2REF(X) V_UNION(X, piVal)
#define V_I4(X) V_UNION(X, lVal)
#define V_I4REF(X) V_UNION(X, plVal)
#define V_I8(X) V_UNION(X, llVal)
#define V_I8REF(X) V_UNION(X, pllVal)
#define V_R4(X) V_UNION(X, fltVal)
#define V_R4REF(X) V_UNION(X, pfltVal)
#define V_R8(X) V_UNION(X, dblVal)
#define V_R8REF(X) V_UNION(X, pdblVal)
#define V_I1(X) V_UNION(X, cVal)
#define V_I1REF(X) V_UNION(X, pcVal)
#define V_UI2(X) V_UNION(X, uiVal)
#define V_UI2REF(X) V_UNION(X, puiVal)
#define V_UI4(X) V_UNION(X, ulVal)
#define V_UI4REF(X) V_UNION(X, pulVal)
#define V_UI8(X) V_UNION(X, ullVal)
#define V_UI8REF(X) V_UNION(X, pullVal)
#define V_INT(X) V_UNION(X, intVal)
#define V_INTREF(X) V_UNION(X, pintVal)
#define V_UINT(X) V_UNION(X, uintVal)
#define V_UINTREF(X) V_UNION(X, puintVal)
#define V_CY(X) V_UNION(X, cyVal)
#define V_CYREF(X) V_UNION(X, pcyVal)
#define V_DATE(X) V_UNION(X, date)
#define V_DATEREF(X) V_UNION(X, pdate)
#define V_BSTR(X) V_UNION(X, bstrVal)
#define V_BSTRREF(X) V_UNION(X, pbstrVal)
#define V_DISPATCH(X) V_UNION(X, pdispVal)
#define V_DISPATCHREF(X) V_UNION(X, ppdispVal)
#define V_ERROR(X) V_UNION(X, scode)
#define V_ERRORREF(X) V_UNION(X, pscode)
#define V_BOOL(X) V_UNION(X, boolVal)
#define V_BOOLREF(X) V_UNION(X, pboolVal)
#define V_UNKNOWN(X) V_UNION(X, punkVal)
#define V_UNKNOWNREF(X) V_UNION(X, ppunkVal)
#define V_VARIANTREF(X) V_UNION(X, pvarVal)
#define V_ARRAY(X) V_UNION(X, parray)
#define V_ARRAYREF(X) V_UNION(X, pparray)
#define V_BYREF(X) V_UNION(X, byref)
#define V_DECIMAL(X) V_UNION(X, decVal)
#define V_DECIMALREF(X) V_UNION(X, pdecVal)
