// The component runtime: apartments, memory, identifiers, class objects and their creation.
#pragma once

#include "rpcndr.h"
#include "windows.h"

#include "unknwn.h"

enum CLSCTX
{
    CLSCTX_INPROC_SERVER = 0x1,
    CLSCTX_INPROC_HANDLER = 0x2,
    CLSCTX_LOCAL_SERVER = 0x4,
    CLSCTX_REMOTE_SERVER = 0x10
};
#define CLSCTX_SERVER (CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER | CLSCTX_REMOTE_SERVER)
#define CLSCTX_ALL (CLSCTX_INPROC_HANDLER | CLSCTX_SERVER)

enum REGCLS
{
    REGCLS_MULTIPLEUSE = 1,
    REGCLS_MULTI_SEPARATE = 2
};

enum COINIT
{
    COINIT_MULTITHREADED = 0x0,
    COINIT_APARTMENTTHREADED = 0x2,
    COINIT_DISABLE_OLE1DDE = 0x4,
    COINIT_SPEED_OVER_MEMORY = 0x8
};

struct COSERVERINFO;

WINOLEAPI CoInitialize(LPVOID reserved);
WINOLEAPI CoInitializeEx(LPVOID reserved, DWORD model);
WINOLEAPI_(void) CoUninitialize();

WINOLEAPI_(LPVOID) CoTaskMemAlloc(SIZE_T size);
WINOLEAPI_(void) CoTaskMemFree(LPVOID memory);

WINOLEAPI CLSIDFromString(LPCOLESTR text, LPCLSID clsid);
WINOLEAPI IIDFromString(LPCOLESTR text, LPIID iid);
WINOLEAPI_(int) StringFromGUID2(REFGUID guid, LPOLESTR text, int size);
WINOLEAPI CLSIDFromProgID(LPCOLESTR progId, LPCLSID clsid);

WINOLEAPI CoGetClassObject(REFCLSID clsid, DWORD context, COSERVERINFO* server, REFIID iid, LPVOID* object);
WINOLEAPI CoCreateInstance(REFCLSID clsid, LPUNKNOWN outer, DWORD context, REFIID iid, LPVOID* object);
WINOLEAPI CoRegisterClassObject(REFCLSID clsid, LPUNKNOWN object, DWORD context, DWORD flags, DWORD* cookie);
WINOLEAPI CoRevokeClassObject(DWORD cookie);
WINOLEAPI_(void) CoFreeUnusedLibrariesEx(DWORD delay, DWORD reserved);

// The entry points of a component module.
STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* object);
STDAPI DllCanUnloadNow();
