// The elementary types and status codes of the Windows API. LONG, ULONG, DWORD and HRESULT are 32 bits wide
// as on Windows, so they are int based here; OLECHAR is wchar_t, so that L"..." literals and std::wstring
// just work.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cwchar>

#define WINAPI
#define CALLBACK
#define WINBASEAPI extern "C"
#define WINADVAPI extern "C"
#define WINUSERAPI extern "C"
#define WINSHELLAPI extern "C"
#define BEGIN_INTERFACE
#define END_INTERFACE
#define STDMETHODCALLTYPE
#define STDAPICALLTYPE
#define WINOLEAPI extern "C" HRESULT
#define WINOLEAPI_(type) extern "C" type
#define WINOLEAUTAPI extern "C" HRESULT
#define WINOLEAUTAPI_(type) extern "C" type
#define STDAPI extern "C" HRESULT
#define STDMETHODIMP HRESULT
#define STDMETHODIMP_(type) type
#define EXTERN_C extern "C"
#define DECLSPEC_SELECTANY __attribute__((weak))
#define interface struct
#define IN

#define TRUE 1
#define FALSE 0
#define MAX_PATH 260

#define MAKELONG(low, high)                                                                                  \
    (static_cast<LONG>((static_cast<DWORD>(low) & 0xffff) | ((static_cast<DWORD>(high) & 0xffff) << 16)))
#define LOWORD(value) (static_cast<WORD>(static_cast<DWORD_PTR>(value) & 0xffff))
#define HIWORD(value) (static_cast<WORD>((static_cast<DWORD_PTR>(value) >> 16) & 0xffff))

using BOOL = int;
using BYTE = std::uint8_t;
using CHAR = char;
using SHORT = short;
using USHORT = unsigned short;
using WORD = std::uint16_t;
using INT = int;
using UINT = unsigned int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using HRESULT = std::int32_t;
using SCODE = std::int32_t;
using FLOAT = float;
using DOUBLE = double;
using DATE = double;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using SIZE_T = std::size_t;
using OLECHAR = wchar_t;
using byte = std::uint8_t;

using LPVOID = void*;
using LPCVOID = const void*;
using LPSTR = char*;
using LPCSTR = const char*;
using LPWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using LPOLESTR = wchar_t*;
using LPCOLESTR = const wchar_t*;
using LPBYTE = BYTE*;
using LPINT = int*;
using LPBOOL = BOOL*;
using PUINT = UINT*;
using PVOID = void*;
using HANDLE = void*;
using FARPROC = INT_PTR (*)();

#define DECLARE_HANDLE(name)                                                                                 \
    struct name##__                                                                                          \
    {                                                                                                        \
        int unused;                                                                                          \
    };                                                                                                       \
    using name = name##__*

DECLARE_HANDLE(HINSTANCE);
using HMODULE = HINSTANCE;
DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HRSRC);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HKEY);
using HGLOBAL = HANDLE;
using HLOCAL = HANDLE;
using REGSAM = DWORD;
using ATOM = WORD;
using LCID = DWORD;
using LANGID = WORD;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using LSTATUS = LONG;

#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)))

struct FILETIME
{
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};

struct SYSTEMTIME
{
    WORD wYear;
    WORD wMonth;
    WORD wDayOfWeek;
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
};

union LARGE_INTEGER
{
    struct
    {
        DWORD LowPart;
        LONG HighPart;
    } u;
    LONGLONG QuadPart;
};

struct POINT
{
    LONG x;
    LONG y;
};
using LPPOINT = POINT*;

struct SIZE
{
    LONG cx;
    LONG cy;
};
using LPSIZE = SIZE*;

struct RECT
{
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
using LPRECT = RECT*;

struct GUID
{
    DWORD Data1;
    WORD Data2;
    WORD Data3;
    BYTE Data4[8];
};
using IID = GUID;
using CLSID = GUID;
using REFGUID = const GUID&;
using REFIID = const GUID&;
using REFCLSID = const GUID&;
using LPIID = IID*;
using LPCLSID = CLSID*;

inline bool operator==(const GUID& a, const GUID& b)
{
    return __builtin_memcmp(&a, &b, sizeof(GUID)) == 0;
}
inline bool operator!=(const GUID& a, const GUID& b)
{
    return !(a == b);
}
inline BOOL IsEqualGUID(REFGUID a, REFGUID b)
{
    return a == b;
}
#define IsEqualIID(a, b) IsEqualGUID(a, b)
#define IsEqualCLSID(a, b) IsEqualGUID(a, b)

#define DEFINE_GUID(name, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8) extern "C" const GUID name

#include "winerror.h"
