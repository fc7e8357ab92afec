// The registry of the Windows API. It is kept in memory and lives as long as the process.
#pragma once

#include "wpbase.h"

#define HKEY_CLASSES_ROOT (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(0x80000000u)))
#define HKEY_CURRENT_USER (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(0x80000001u)))
#define HKEY_LOCAL_MACHINE (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(0x80000002u)))

#define REG_NONE 0
#define REG_SZ 1
#define REG_EXPAND_SZ 2
#define REG_BINARY 3
#define REG_DWORD 4
#define REG_MULTI_SZ 7
#define REG_OPTION_NON_VOLATILE 0
#define REG_CREATED_NEW_KEY 1
#define REG_OPENED_EXISTING_KEY 2

#define KEY_QUERY_VALUE 0x0001
#define KEY_SET_VALUE 0x0002
#define KEY_ENUMERATE_SUB_KEYS 0x0008
#define KEY_READ 0x20019
#define KEY_WRITE 0x20006
#define KEY_ALL_ACCESS 0xF003F

WINADVAPI LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR path, DWORD reserved, LPWSTR className, DWORD options,
                                  REGSAM access, SECURITY_ATTRIBUTES* security, HKEY* result,
                                  DWORD* disposition);
WINADVAPI LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR path, DWORD options, REGSAM access, HKEY* result);
WINADVAPI LSTATUS RegCloseKey(HKEY key);
WINADVAPI LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data,
                                 DWORD size);
WINADVAPI LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, DWORD* reserved, DWORD* type, BYTE* data,
                                   DWORD* size);
WINADVAPI LSTATUS RegDeleteValueW(HKEY key, LPCWSTR name);
WINADVAPI LSTATUS RegDeleteKeyW(HKEY key, LPCWSTR path);
WINADVAPI LSTATUS RegDeleteTreeW(HKEY key, LPCWSTR path);
WINADVAPI LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, DWORD* size, DWORD* reserved,
                                LPWSTR className, DWORD* classSize, FILETIME* written);
WINADVAPI LSTATUS RegEnumValueW(HKEY key, DWORD index, LPWSTR name, DWORD* nameSize, DWORD* reserved,
                                DWORD* type, BYTE* data, DWORD* size);
WINADVAPI LSTATUS RegQueryInfoKeyW(HKEY key, LPWSTR className, DWORD* classSize, DWORD* reserved,
                                   DWORD* subkeys, DWORD* longestSubkey, DWORD* longestClass, DWORD* values,
                                   DWORD* longestValueName, DWORD* longestValue, DWORD* security,
                                   FILETIME* written);
