// The masters of a plan type set and of a plan type, whose script attachments count for them as well.
#pragma once

#include "XHostValue.h"

#include "qpobjects.h"

namespace qptools
{
/// Reads the attribute "master" of a plan type set and, only if that set has one, of the plan type. Whatever
/// does not give a data object is taken as no master, and nothing is reported.
class XScriptMasters
{
public:
    /// `planType` may be null. Throws ComException(E_OUTOFMEMORY).
    XScriptMasters(IQP_BaseDataObject* planTypeSet, IQP_BaseDataObject* planType);

    bool HasPlanTypeSet() const noexcept { return m_hasPlanTypeSet; }
    bool HasPlanType() const noexcept { return m_hasPlanType; }

    /// The masters as the host delivered them, to be passed back as they stand.
    const VARIANT& PlanTypeSet() const noexcept { return m_planTypeSet.Value(); }
    const VARIANT& PlanType() const noexcept { return m_planType.Value(); }

private:
    XHostValue m_planTypeSet;
    XHostValue m_planType;
    bool m_hasPlanTypeSet = false;
    bool m_hasPlanType = false;
};
} // namespace qptools
