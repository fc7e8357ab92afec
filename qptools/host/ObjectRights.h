// What the user may do with an object of the host.
#pragma once

#include "qptypes.h"

#include <unknwn.h>

#include <optional>

namespace qptools
{
/// Asks `object`, which must not be null, whether the user holds `right`. Returns the host's status, of which
/// only S_OK means yes; std::nullopt if the object has no IQPObjectRights.
std::optional<HRESULT> HasRight(IUnknown* object, QPRightType right);
} // namespace qptools
