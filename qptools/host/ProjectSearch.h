// The search for the scripts, or the VBA projects, that are visible from a project.
#pragma once

#include "FixedText.h"

#include "ComPtr.h"

#include "qpobjects.h"

namespace qptools
{
/// Searches `table` for the objects of `project` together with those of no project; with a null `project` for
/// the latter alone.
///
/// Returns E_POINTER without a query; the status of ResetSearch or SetSearchTable if it is not S_OK; S_OK
/// with `found` null if a criterion is refused, and then nothing is searched; else the status of
/// GetSearchResult. `found` is whatever that call delivered and may be null.
HRESULT SearchProject(IQP_Query* query, const FixedText& table, IQP_BaseDataObject* project,
                      ComPtr<IEnumBaseDataObject>& found);
} // namespace qptools
