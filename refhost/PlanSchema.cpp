#include "PlanSchema.h"

namespace refhost
{
using enum ColumnType;

/// A line, cell, station, resource or step: `configtypename` says which. All share the attributes of all.
Kind PlanNodeKind()
{
    return {"plannode",
            "plannode",
            "XDOPlanNode",
            true,
            {{"m_name", "name"},
             {"m_strConfigTypeName", "configtypename"},
             {"m_pParent", "parent", Object, "plannode"},
             {"m_pOrvoProject", "orvoproject", Object, "project"},
             {"m_strPlanner", "planner"},
             {"m_strSupplier", "supplier"},
             {"m_lCycleTime", "cycletime", Number},
             {"m_lOperators", "operators", Number},
             {"m_lCost", "cost", Number},
             {"m_bFixed", "fixed", Flag},
             {"m_bAutomatic", "automatic", Flag},
             {"m_startDate", "startdate", Date},
             {"m_deliveryDate", "deliverydate", Date},
             {"m_checkedAt", "checkedat", Date}},
            {{"nodes", kAnyTable,
              R"("id" IN (SELECT "id" FROM "plannode" WHERE "parent" = ?1)"
              R"( UNION ALL SELECT "id" FROM "planrelation" WHERE "parent" = ?1))"}}};
}

/// Says that the node above it uses another one, which may be anywhere. Nothing stands below it.
Kind PlanRelationKind()
{
    return {"planrelation",
            "planrelation",
            "XDOPlanRelation",
            true,
            {{"m_name", "name"},
             {"m_strConfigTypeName", "configtypename"},
             {"m_pParent", "parent", Object, "plannode"},
             {"m_pOrvoProject", "orvoproject", Object, "project"},
             {"m_pRelationObject1", "relationobject1", Object, "plannode"},
             {"m_pRelationObjectTarget", "relationobjecttarget", Object, "plannode"},
             {"m_lShare", "share", Number},
             {"m_strNote", "note"}},
            {{"nodes", kAnyTable, "?1 IS NULL"}},
            {"XDORelationship"}};
}
} // namespace refhost
