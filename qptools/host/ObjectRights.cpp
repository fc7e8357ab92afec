#include "ObjectRights.h"

#include "ComPtr.h"

#include "qpservices.h"

namespace qptools
{
std::optional<HRESULT> HasRight(IUnknown* object, QPRightType right)
{
    ComPtr<IQPObjectRights> rights;
    rights.queryFrom(object);
    return rights ? std::optional(rights->HasRight(right)) : std::nullopt;
}
} // namespace qptools
