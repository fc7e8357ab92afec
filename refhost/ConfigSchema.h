// The kinds of objects that make up a plant's configuration: types, and their pages, groups, attributes and
// the values of these.
#pragma once

#include "Schema.h"

namespace refhost
{
Kind ConfigTypeKind();
Kind ConfigPageKind();
Kind ConfigGroupKind();
Kind ConfigAttributeKind();
Kind ConfigValueKind();
} // namespace refhost
