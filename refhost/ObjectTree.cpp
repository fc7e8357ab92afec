#include "ObjectTree.h"

#include "ObjectStore.h"

#include <set>

namespace refhost
{
namespace
{
constexpr const char* kChildList = "nodes";
} // namespace

std::vector<RowPlace> ChildrenOf(PlantCore& core, const RowPlace& object)
{
    std::vector<RowPlace> children;
    const ChildList* list = object.kind->FindChildren(kChildList);
    if (!list)
        return children;
    Statement rows(core.database, list->Sql());
    rows.Bind(1, object.id);
    while (rows.Step())
        children.push_back({FindKind(rows.Text(1)), rows.Integer(0)});
    return children;
}

/// Keeps its own stack: a tree may be of any depth.
void RemoveObjects(PlantCore& core, const std::vector<RowPlace>& objects)
{
    // Objects of a tree refer to each other: what is left counts, at the end of the transaction.
    core.database.Execute("PRAGMA defer_foreign_keys = ON");
    std::set<long long> seen;
    std::vector<RowPlace> waiting = objects;
    while (!waiting.empty())
    {
        const RowPlace object = waiting.back();
        waiting.pop_back();
        if (!seen.insert(object.id).second)
            continue;
        const std::vector<RowPlace> children = ChildrenOf(core, object);
        waiting.insert(waiting.end(), children.begin(), children.end());
        RemoveObject(core.database, *object.kind, object.id);
    }
}
} // namespace refhost
