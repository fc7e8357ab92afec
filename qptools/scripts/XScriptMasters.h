// The masters of a plan type set and of a plan type, whose script attachments count for them as well.
#pragma once

#include "Variant.h"

#include "qpobjects.h"

namespace qptools
{
/// Reads the attribute "master" of a plan type set and, only if that set has one, of the plan type. Anything
/// but a reference to a data object is no master, and nothing is reported.
class XScriptMasters
{
public:
    /// `planType` may be null. Throws ComException(E_OUTOFMEMORY).
    XScriptMasters(IQP_BaseDataObject* planTypeSet, IQP_BaseDataObject* planType);

    bool HasPlanTypeSet() const noexcept { return m_hasPlanTypeSet; }
    bool HasPlanType() const noexcept { return m_hasPlanType; }

    /// The masters as the host delivered them, VT_BYREF included, to be passed back unchanged.
    const VARIANT& PlanTypeSet() const noexcept { return m_planTypeSet.get(); }
    const VARIANT& PlanType() const noexcept { return m_planType.get(); }

private:
    Variant m_planTypeSet;
    Variant m_planType;
    bool m_hasPlanTypeSet = false;
    bool m_hasPlanType = false;
};
} // namespace qptools
