// The plan of the sample plant, and what a walk over it finds if one host call fails.
#pragma once

#include "FaultWays.h"
#include "Plant.h"

#include "ComPtr.h"

#include "qpobjects.h"

#include <map>
#include <string>
#include <vector>

/// An object of the plan as a walk sees it.
struct PlanObject
{
    std::string name;
    std::string type;
    std::string caption;              ///< of the type
    std::vector<PlanObject> target;   ///< of a relationship: the one object that it leads to
    std::vector<PlanObject> children; ///< in the order of the host
};

using PlanObjects = std::vector<PlanObject>;

/// The objects at the top of the plan with all that is below them.
PlanObjects ReadPlan(refhost::Plant& plant);

/// The list of the objects at the top.
ComPtr<IEnumBaseDataObject> PlanTops(refhost::Plant& plant);

/// The attribute "name".
std::string PlanName(IQP_BaseDataObject* object);

/// A walk as it should be: counts the calls that it makes, of which the n-th fails, and keeps what it finds.
class PlanWalk
{
public:
    /// `failing` counts from 1; 0 for none.
    PlanWalk(long long failing, const Way& way) : m_failing(failing), m_way(way) {}

    /// The objects alone, as a Normal copy takes them.
    void Parents(const PlanObjects& objects);

    /// Also what is below them, as a Deep copy takes them.
    void ParentsAndChildren(const PlanObjects& objects);

    long long Calls() const { return m_calls; }

    /// The names of the objects found, in the order of the walk, by type.
    struct Record
    {
        std::string caption;
        std::vector<std::string> names;
    };
    const std::map<std::string, Record>& Records() const { return m_records; }

private:
    bool Fails() { return ++m_calls == m_failing; }
    void Keep(const PlanObject& object);
    bool Visit(const PlanObject& object);

    const long long m_failing;
    const Way m_way;
    long long m_calls = 0;
    std::map<std::string, Record> m_records;
};
