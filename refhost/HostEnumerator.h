// The result of a search or a child list, object by object.
#pragma once

#include "HostDataObject.h"
#include "RowEnumerator.h"

namespace refhost
{
using HostEnumerator = RowEnumerator<IEnumBaseDataObject, IQP_BaseDataObject, &HostDataObject::Make>;

/// The same over objects of several kinds.
using MixedEnumerator =
    RowEnumerator<IEnumBaseDataObject, IQP_BaseDataObject, &HostDataObject::MakeOfAnyKind>;
} // namespace refhost
