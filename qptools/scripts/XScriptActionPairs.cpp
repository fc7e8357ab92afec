#include "XScriptActionPairs.h"

#include "ScriptArray.h"

#include "EnumWalk.h"
#include "HostConstants.h"

#include "Variant.h"

#include <utility>

namespace qptools
{
HRESULT XScriptActionPairs::AppendFrom(IEnumBaseDataObject* actions, HRESULT status)
{
    if (!actions)
        return status;
    EnumWalk walk(actions, WalkBy::RemNext, WalkEnd::AtNull);
    while (walk.Next())
    {
        Variant value;
        status = walk.Object()->GetAttribute(kAttributeScript, value.put());
        if (status < 0)
            return status;
        ResolveReference(value);
        if (status != S_OK || value.Type() != VT_UNKNOWN)
            continue;
        ComPtr<IQP_BaseDataObject> script;
        script.queryFrom(value->punkVal);
        if (!script)
            return E_NOINTERFACE;
        m_pairs.push_back({walk.Take(), std::move(script)});
    }
    return status;
}

HRESULT XScriptActionPairs::Deliver(VARIANT* target, HRESULT status) const
{
    const std::size_t rows = m_pairs.size();
    ScriptArray result(static_cast<ULONG>(rows), 2);
    if (!result.IsCreated())
        return status;
    // By index and up to the count that the array has: putting a cell takes a reference, and a host that
    // calls the service from inside AddRef appends more pairs meanwhile. They stay out of this array.
    for (std::size_t row = 0; row < rows; ++row)
    {
        status = result.PutObject(static_cast<LONG>(row), 0, m_pairs[row].action.get());
        if (status >= 0)
            status = result.PutObject(static_cast<LONG>(row), 1, m_pairs[row].script.get());
        if (status < 0)
            break;
    }
    result.MoveTo(target);
    return status;
}
} // namespace qptools
