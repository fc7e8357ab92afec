// Included first, lets clang in its mode for Microsoft's language read the headers of mingw-w64 in the place
// of Microsoft's, and then the headers of the SDK as that compiler would: without what is GNU's.

#include <_mingw.h>
#define __MINGW_IMPORT extern __declspec(dllimport)

#include <windows.h>

#include <commctrl.h>
#include <initguid.h>
#include <ole2.h>

#include <compare>
#include <cstdio>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// As Microsoft's headers define it: __uuidof finds the identifier.
#undef MIDL_INTERFACE
#define MIDL_INTERFACE(x) struct __declspec(uuid(x)) __declspec(novtable)
struct __declspec(uuid("00000000-0000-0000-C000-000000000046")) IUnknown;

#undef __CRT_UUID_DECL
#undef __GNUC__
#undef __MINGW32__
#undef __MINGW64__
#pragma GCC poison __attribute__ __attribute __extension__ __int128 __PRETTY_FUNCTION__
#pragma GCC poison typeof __typeof__ __typeof asm __asm __asm__ __alignof__
#pragma GCC poison __thread __restrict__ __inline__ __complex__ __real__ __imag__
