// Processes, modules, files, time, environment and text services of the Windows API.
#pragma once

#include "wpbase.h"

// Errors.
WINBASEAPI DWORD GetLastError();
WINBASEAPI void SetLastError(DWORD code);

// Modules.
#define DLL_PROCESS_DETACH 0
#define DLL_PROCESS_ATTACH 1
#define DLL_THREAD_ATTACH 2
#define DLL_THREAD_DETACH 3
#define GET_MODULE_HANDLE_EX_FLAG_PIN 0x00000001
#define GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT 0x00000002
#define GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS 0x00000004
WINBASEAPI HMODULE GetModuleHandleW(LPCWSTR name);
WINBASEAPI BOOL GetModuleHandleExW(DWORD flags, LPCWSTR nameOrAddress, HMODULE* module);
WINBASEAPI DWORD GetModuleFileNameW(HMODULE module, LPWSTR path, DWORD size);
WINBASEAPI HMODULE LoadLibraryW(LPCWSTR name);
WINBASEAPI BOOL FreeLibrary(HMODULE module);
WINBASEAPI FARPROC GetProcAddress(HMODULE module, LPCSTR name);

// Resources.
#define MAKEINTRESOURCEW(id) (reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(id))))
#define IS_INTRESOURCE(name) ((reinterpret_cast<ULONG_PTR>(name) >> 16) == 0)
#define RT_DIALOG MAKEINTRESOURCEW(5)
#define RT_STRING MAKEINTRESOURCEW(6)
#define RT_RCDATA MAKEINTRESOURCEW(10)
#define RT_GROUP_CURSOR MAKEINTRESOURCEW(12)
#define RT_GROUP_ICON MAKEINTRESOURCEW(14)
#define RT_VERSION MAKEINTRESOURCEW(16)
#define RT_MANIFEST MAKEINTRESOURCEW(24)
WINBASEAPI HRSRC FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type);
WINBASEAPI HGLOBAL LoadResource(HMODULE module, HRSRC resource);
WINBASEAPI LPVOID LockResource(HGLOBAL data);
WINBASEAPI DWORD SizeofResource(HMODULE module, HRSRC resource);

// Activation contexts.
#define ACTCTX_FLAG_RESOURCE_NAME_VALID 0x00000008
#define ACTCTX_FLAG_HMODULE_VALID 0x00000080
#define DEACTIVATE_ACTCTX_FLAG_FORCE_EARLY_DEACTIVATION 0x00000001
struct ACTCTXW
{
    ULONG cbSize;
    DWORD dwFlags;
    LPCWSTR lpSource;
    USHORT wProcessorArchitecture;
    LANGID wLangId;
    LPCWSTR lpAssemblyDirectory;
    LPCWSTR lpResourceName;
    LPCWSTR lpApplicationName;
    HMODULE hModule;
};
WINBASEAPI HANDLE CreateActCtxW(const ACTCTXW* parameters);
WINBASEAPI BOOL ActivateActCtx(HANDLE context, ULONG_PTR* cookie);
WINBASEAPI BOOL DeactivateActCtx(DWORD flags, ULONG_PTR cookie);
WINBASEAPI BOOL GetCurrentActCtx(HANDLE* context);
WINBASEAPI void ReleaseActCtx(HANDLE context);

// Environment, command line, time, identity.
WINBASEAPI DWORD GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD size);
WINBASEAPI BOOL SetEnvironmentVariableW(LPCWSTR name, LPCWSTR value);
WINBASEAPI LPWSTR GetCommandLineW();
WINBASEAPI void GetLocalTime(SYSTEMTIME* time);
WINBASEAPI ULONGLONG GetTickCount64();
WINBASEAPI void Sleep(DWORD milliseconds);
WINBASEAPI DWORD GetCurrentThreadId();
WINBASEAPI DWORD GetCurrentProcessId();

// Memory.
WINBASEAPI HLOCAL LocalFree(HLOCAL memory);

// Files.
#define GENERIC_READ 0x80000000u
#define GENERIC_WRITE 0x40000000u
#define FILE_READ_DATA 0x0001
#define FILE_WRITE_DATA 0x0002
#define FILE_APPEND_DATA 0x0004
#define DELETE 0x00010000
#define FILE_SHARE_READ 0x00000001
#define FILE_SHARE_WRITE 0x00000002
#define FILE_SHARE_DELETE 0x00000004
#define CREATE_NEW 1
#define CREATE_ALWAYS 2
#define OPEN_EXISTING 3
#define OPEN_ALWAYS 4
#define TRUNCATE_EXISTING 5
#define FILE_ATTRIBUTE_NORMAL 0x00000080
#define FILE_BEGIN 0
#define FILE_CURRENT 1
#define FILE_END 2
#define LOCKFILE_FAIL_IMMEDIATELY 0x00000001
#define LOCKFILE_EXCLUSIVE_LOCK 0x00000002
struct SECURITY_ATTRIBUTES
{
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
};
struct OVERLAPPED
{
    ULONG_PTR Internal;
    ULONG_PTR InternalHigh;
    DWORD Offset;
    DWORD OffsetHigh;
    HANDLE hEvent;
};
WINBASEAPI HANDLE CreateFileW(LPCWSTR path, DWORD access, DWORD sharing, SECURITY_ATTRIBUTES* security,
                              DWORD disposition, DWORD flags, HANDLE templateFile);
WINBASEAPI BOOL ReadFile(HANDLE file, LPVOID buffer, DWORD size, DWORD* read, OVERLAPPED* overlapped);
WINBASEAPI BOOL WriteFile(HANDLE file, LPCVOID buffer, DWORD size, DWORD* written, OVERLAPPED* overlapped);
WINBASEAPI BOOL SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, LARGE_INTEGER* position, DWORD method);
WINBASEAPI BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size);
WINBASEAPI BOOL SetEndOfFile(HANDLE file);
WINBASEAPI BOOL LockFileEx(HANDLE file, DWORD flags, DWORD reserved, DWORD sizeLow, DWORD sizeHigh,
                           OVERLAPPED* overlapped);
WINBASEAPI BOOL UnlockFileEx(HANDLE file, DWORD reserved, DWORD sizeLow, DWORD sizeHigh,
                             OVERLAPPED* overlapped);
WINBASEAPI BOOL CloseHandle(HANDLE handle);
WINBASEAPI BOOL CreateDirectoryW(LPCWSTR path, SECURITY_ATTRIBUTES* security);
