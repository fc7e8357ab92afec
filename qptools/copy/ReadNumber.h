// Numbers of the host's attributes.
#pragma once

#include "qpconfig.h"

namespace qptools
{
/// Reads a member of an attribute, which may be null, as a number: 0 if it has none. Returns the host's
/// status, or E_POINTER without an attribute.
HRESULT ReadNumber(IQPAttribute* attribute, int member, int& number);
} // namespace qptools
