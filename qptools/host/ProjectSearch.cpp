#include "ProjectSearch.h"

#include "HostConstants.h"
#include "ObjectValue.h"

namespace qptools
{
namespace
{
/// Here a criterion's own catenation joins it to the one before. Both are sent in any case.
bool SetCriteria(IQP_Query* query, IQP_BaseDataObject* project)
{
    HRESULT ofProject = S_OK;
    if (project)
        ofProject = query->SetSearchAttribute(kAttributeDefaultImpl, kSearchEquals, BorrowedObject(project),
                                              kCatenationAnd);
    const HRESULT ofNone =
        query->SetSearchAttribute(kAttributeDefaultImpl, kSearchEquals, VARIANT{}, kCatenationOr);
    return ofProject == S_OK && ofNone == S_OK;
}
} // namespace

HRESULT SearchProject(IQP_Query* query, const FixedText& table, IQP_BaseDataObject* project,
                      ComPtr<IEnumBaseDataObject>& found)
{
    if (!query)
        return E_POINTER;
    HRESULT status = query->ResetSearch(kResetAll);
    if (status == S_OK)
        status = query->SetSearchTable(table);
    if (status != S_OK)
        return status;
    return SetCriteria(query, project) ? query->GetSearchResult(found.put()) : S_OK;
}
} // namespace qptools
