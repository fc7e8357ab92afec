#include "XScriptActionPairs.h"

#include "ScriptArray.h"
#include "XHostValue.h"

#include "EnumWalk.h"
#include "HostConstants.h"

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
        XHostValue value;
        status = walk.Object()->GetAttribute(kAttributeScript, value.put());
        if (status < 0)
            return status;
        value.Resolve();
        if (status != S_OK || !value.IsObject())
            continue;
        ComPtr<IQP_BaseDataObject> script = value.DataObject();
        if (!script)
            return E_NOINTERFACE;
        m_pairs.push_back({walk.Take(), std::move(script)});
    }
    return status;
}

HRESULT XScriptActionPairs::Deliver(VARIANT* target, HRESULT status) const
{
    ScriptArray result(static_cast<ULONG>(m_pairs.size()), 2);
    if (!result.IsCreated())
        return status;
    LONG row = 0;
    for (const Pair& pair : m_pairs)
    {
        status = result.PutObject(row, 0, pair.action.get());
        if (status >= 0)
            status = result.PutObject(row, 1, pair.script.get());
        if (status < 0)
            break;
        ++row;
    }
    result.MoveTo(target);
    return status;
}
} // namespace qptools
