#include "XScriptMasters.h"

#include "FixedText.h"

#include "ComException.h"

namespace qptools
{
namespace
{
/// `master` stays as it stands; what it stands for is looked at in a copy.
bool IsDataObject(const XHostValue& master)
{
    if (!(master.Type() & VT_BYREF))
        return static_cast<bool>(master.DataObject());
    XHostValue resolved;
    if (VariantCopyInd(resolved.put(), const_cast<VARIANT*>(&master.Value())) == E_OUTOFMEMORY)
        ThrowOutOfMemory();
    return static_cast<bool>(resolved.DataObject());
}

bool ReadMaster(IQP_BaseDataObject* object, XHostValue& master)
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
