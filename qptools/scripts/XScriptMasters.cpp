#include "XScriptMasters.h"

#include "XResolvedValue.h"

namespace qptools
{

namespace
{

bool ReadMaster(IQP_BaseDataObject* object, XQPComVariant& master)
{
    return object->GetAttribute(XQPComBSTR(L"master"), &master) == S_OK &&
           XResolvedValue(master.Value()).DataObject();
}

} // namespace

XScriptMasters::XScriptMasters(IQP_BaseDataObject* planTypeSet, IQP_BaseDataObject* planType)
    : m_hasPlanTypeSet(ReadMaster(planTypeSet, m_planTypeSet)),
      m_hasPlanType(m_hasPlanTypeSet && planType && ReadMaster(planType, m_planType))
{
}

} // namespace qptools
