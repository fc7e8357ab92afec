// What the plants of the tests of enhanced copies have in common.
#pragma once

#include "MemoryHost.h"

/// Adds the attributes of the types "Station" and "Cell", of which the host has objects.
inline void AddCopyAttributes(MemoryHost& host)
{
    MemoryType* station = host.Config().Find(L"Station");
    station->Attribute(L"Order");
    station->Attribute(L"Mass", 2);
    station->Attribute(L"Due", 4);
    station->Attribute(L"Drawing", 1, 0); // not for a copy
    host.Config().Find(L"Cell")->Attribute(L"Order");
}
