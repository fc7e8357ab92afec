// The seven component classes of the module.
#pragma once

#include "ObjectMap.h"

namespace qptools
{
/// In the order in which they are registered, with a terminating entry that is null throughout.
extern ObjectMapEntry g_classTable[8];
} // namespace qptools
