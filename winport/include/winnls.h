// Code pages, case mapping and locales of the Windows API.
#pragma once

#include "wpbase.h"

#define CP_ACP 0
#define CP_UTF8 65001
#define MB_PRECOMPOSED 0x00000001
#define MB_ERR_INVALID_CHARS 0x00000008
#define WC_ERR_INVALID_CHARS 0x00000080

#define LANG_NEUTRAL 0x00
#define SUBLANG_NEUTRAL 0x00
#define SUBLANG_DEFAULT 0x01
#define MAKELANGID(primary, sub)                                                                             \
    (static_cast<WORD>((static_cast<WORD>(sub) << 10) | static_cast<WORD>(primary)))
#define SORT_DEFAULT 0
#define MAKELCID(language, sort)                                                                             \
    (static_cast<DWORD>((static_cast<DWORD>(static_cast<WORD>(sort)) << 16) | static_cast<WORD>(language)))
#define LANG_USER_DEFAULT MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT)
#ifndef LOCALE_USER_DEFAULT
#define LOCALE_USER_DEFAULT MAKELCID(LANG_USER_DEFAULT, SORT_DEFAULT)
#define LOCALE_NEUTRAL MAKELCID(MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL), SORT_DEFAULT)
#endif
#define LOCALE_NAME_MAX_LENGTH 85
#define NORM_IGNORECASE 0x00000001
#define SORT_STRINGSORT 0x00001000
#define CSTR_LESS_THAN 1
#define CSTR_EQUAL 2
#define CSTR_GREATER_THAN 3

WINBASEAPI int MultiByteToWideChar(UINT page, DWORD flags, LPCSTR text, int length, LPWSTR target, int size);
WINBASEAPI int WideCharToMultiByte(UINT page, DWORD flags, LPCWSTR text, int length, LPSTR target, int size,
                                   LPCSTR defaultChar, LPBOOL usedDefault);
WINBASEAPI int CompareStringOrdinal(LPCWSTR a, int lengthA, LPCWSTR b, int lengthB, BOOL ignoreCase);
WINBASEAPI LANGID GetUserDefaultUILanguage();
WINBASEAPI int LCIDToLocaleName(LCID locale, LPWSTR name, int size, DWORD flags);
