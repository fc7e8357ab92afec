#include "XScriptMasters.h"

#include "FixedText.h"

#include "ComException.h"
#include "ComPtr.h"

namespace qptools
{
namespace
{
/// `master` itself is not resolved, because the host gets it back unchanged.
bool IsDataObject(const Variant& master)
{
    Variant resolved;
    if (CopyResolved(master.get(), resolved) == E_OUTOFMEMORY)
        ThrowOutOfMemory();
    ComPtr<IQP_BaseDataObject> object;
    if (resolved.Type() == VT_UNKNOWN)
        object.queryFrom(resolved->punkVal);
    return static_cast<bool>(object);
}

bool ReadMaster(IQP_BaseDataObject* object, Variant& master)
{
    return object->GetAttribute(FixedText(L"master"), master.put()) == S_OK && IsDataObject(master);
}
} // namespace

XScriptMasters::XScriptMasters(IQP_BaseDataObject* planTypeSet, IQP_BaseDataObject* planType)
    : m_hasPlanTypeSet(ReadMaster(planTypeSet, m_planTypeSet)),
      m_hasPlanType(m_hasPlanTypeSet && planType && ReadMaster(planType, m_planType))
{
}
} // namespace qptools
