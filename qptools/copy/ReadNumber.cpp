#include "ReadNumber.h"

#include "XQPComVariant.h"

#include "ComPtr.h"

namespace qptools
{
// A host that calls back may delete the row meanwhile, whose reference was the last one.
HRESULT ReadNumber(IQPAttribute* attribute, int member, int& number)
{
    number = 0;
    if (!attribute)
        return E_POINTER;
    const ComPtr held(attribute);
    XQPComVariant value;
    const HRESULT status = held->GetProperty(member, &value);
    number = value.GetInt();
    return status;
}
} // namespace qptools
