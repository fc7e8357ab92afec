// Interfaces of the component runtime that are named in signatures and never called.
#pragma once

#include "unknwn.h"

struct IStream;
struct IBindCtx;
struct IMoniker;
struct IMalloc;
