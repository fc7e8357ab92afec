// What the generated sources of identifiers need, which are compiled as C; from C++ the elementary types.
#pragma once

#ifdef __cplusplus
#include "wpbase.h"
#else
#include <stdint.h>

#define DECLSPEC_SELECTANY __attribute__((weak))

typedef struct GUID
{
    uint32_t Data1;
    uint16_t Data2;
    uint16_t Data3;
    uint8_t Data4[8];
} GUID;
typedef GUID IID;
typedef GUID CLSID;
#endif
