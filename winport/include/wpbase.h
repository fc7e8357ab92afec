// The elementary types and status codes of the Windows API. LONG, ULONG, DWORD and HRESULT are 32 bits wide
// as on Windows, so they are int based here; OLECHAR is wchar_t, so that L"..." literals and std::wstring
// just work.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cwchar>

#define FAR
#define CONST const
#define VOID void
#define WINAPI
#define APIENTRY
#define CALLBACK
#define __stdcall
#define __cdecl
#define __declspec(attribute)
#define DECLSPEC_IMPORT
#define WINBASEAPI extern "C"
#define WINADVAPI extern "C"
#define WINUSERAPI extern "C"
#define WINSHELLAPI extern "C"
#define BEGIN_INTERFACE
#define END_INTERFACE
#define PURE = 0
#define STDMETHOD(method) virtual HRESULT method
#define STDMETHOD_(type, method) virtual type method
#define STDMETHODCALLTYPE
#define STDMETHODVCALLTYPE
#define STDAPICALLTYPE
#define WINOLEAPI extern "C" HRESULT
#define WINOLEAPI_(type) extern "C" type
#define WINOLEAUTAPI extern "C" HRESULT
#define WINOLEAUTAPI_(type) extern "C" type
#define STDAPI extern "C" HRESULT
#define STDAPI_(type) extern "C" type
#define STDMETHODIMP HRESULT
#define STDMETHODIMP_(type) type
#define EXTERN_C extern "C"
#define DECLSPEC_SELECTANY __attribute__((weak))
#define DECLSPEC_NOVTABLE
#define FORCEINLINE inline
#define interface struct
#define IN
#define OUT

#define TRUE 1
#define FALSE 0
#define MAX_PATH 260

#define UNREFERENCED_PARAMETER(p) static_cast<void>(p)
#define ARRAYSIZE(array) (sizeof(array) / sizeof((array)[0]))
#define _countof(array) (sizeof(array) / sizeof((array)[0]))
#define MAKEWORD(low, high)                                                                                  \
    (static_cast<WORD>((static_cast<WORD>(low) & 0xff) | ((static_cast<WORD>(high) & 0xff) << 8)))
#define MAKELONG(low, high)                                                                                  \
    (static_cast<LONG>((static_cast<DWORD>(low) & 0xffff) | ((static_cast<DWORD>(high) & 0xffff) << 16)))
#define LOWORD(value) (static_cast<WORD>(static_cast<DWORD_PTR>(value) & 0xffff))
#define HIWORD(value) (static_cast<WORD>((static_cast<DWORD_PTR>(value) >> 16) & 0xffff))
#define LOBYTE(value) (static_cast<BYTE>(static_cast<DWORD_PTR>(value) & 0xff))
#define HIBYTE(value) (static_cast<BYTE>((static_cast<DWORD_PTR>(value) >> 8) & 0xff))

using BOOL = int;
using BYTE = std::uint8_t;
using CHAR = char;
using UCHAR = unsigned char;
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
using LONG64 = std::int64_t;
using ULONG64 = std::uint64_t;
using DWORD64 = std::uint64_t;
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
using WCHAR = wchar_t;
using OLECHAR = wchar_t;
using BOOLEAN = std::uint8_t;
using byte = std::uint8_t;

using LPVOID = void*;
using LPCVOID = const void*;
using LPSTR = char*;
using LPCSTR = const char*;
using LPWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using PWSTR = wchar_t*;
using PCWSTR = const wchar_t*;
using LPOLESTR = wchar_t*;
using LPCOLESTR = const wchar_t*;
using LPDWORD = DWORD*;
using PDWORD = DWORD*;
using LPBYTE = BYTE*;
using PBYTE = BYTE*;
using LPWORD = WORD*;
using LPLONG = LONG*;
using PLONG = LONG*;
using PULONG = ULONG*;
using LPINT = int*;
using LPBOOL = BOOL*;
using PBOOL = BOOL*;
using PUINT = UINT*;
using PWCHAR = wchar_t*;
using PSTR = char*;
using PCSTR = const char*;
using LPTSTR = wchar_t*;
using LPCTSTR = const wchar_t*;
using TCHAR = wchar_t;
using LPCWCH = const wchar_t*;
using LPWCH = wchar_t*;
using LPCCH = const char*;
using LPCH = char*;
using PVOID = void*;
using HANDLE = void*;
using LPHANDLE = HANDLE*;
using PHANDLE = HANDLE*;
using FARPROC = INT_PTR (*)();
using PROC = INT_PTR (*)();

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
using PHKEY = HKEY*;
using HGLOBAL = HANDLE;
using HLOCAL = HANDLE;
using REGSAM = DWORD;
using ACCESS_MASK = DWORD;
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
using PFILETIME = FILETIME*;
using LPFILETIME = FILETIME*;

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
using LPSYSTEMTIME = SYSTEMTIME*;

union LARGE_INTEGER
{
    struct
    {
        DWORD LowPart;
        LONG HighPart;
    } u;
    LONGLONG QuadPart;
};
using PLARGE_INTEGER = LARGE_INTEGER*;

union ULARGE_INTEGER
{
    struct
    {
        DWORD LowPart;
        DWORD HighPart;
    } u;
    ULONGLONG QuadPart;
};
using PULARGE_INTEGER = ULARGE_INTEGER*;

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
using LPCRECT = const RECT*;

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
using LPGUID = GUID*;
using LPCGUID = const GUID*;

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

// A declaration; after <initguid.h> the definition.
#ifdef INITGUID
#define DEFINE_GUID(name, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8)                                         \
    extern "C" const GUID DECLSPEC_SELECTANY name = {l, w1, w2, {b1, b2, b3, b4, b5, b6, b7, b8}}
#else
#define DEFINE_GUID(name, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8) extern "C" const GUID name
#endif

#include "winerror.h"
