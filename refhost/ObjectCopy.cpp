#include "ObjectCopy.h"

#include "ObjectStore.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

namespace refhost
{
namespace
{
/// Each column once; an attribute may have several keys.
std::vector<const Attribute*> ColumnsOf(const Kind& kind)
{
    std::vector<const Attribute*> columns;
    for (const Attribute& attribute : kind.attributes)
        if (kind.FindColumn(attribute.column) == &attribute)
            columns.push_back(&attribute);
    return columns;
}

class Copier
{
public:
    Copier(PlantCore& core, CopyOption option) : m_core(core), m_option(option) {}

    void Collect(const RowPlace& top);
    void CopyAll();
    std::vector<RowPlace> Tops() const;

private:
    bool IsTop(long long id) const { return m_tops.count(id) != 0 && m_below.count(id) == 0; }
    std::string FreeKey(const RowPlace& object);
    std::string NameOf(const RowPlace& object);
    void CopyRow(const RowPlace& object);
    void PointToCopies(const RowPlace& object);

    PlantCore& m_core;
    const CopyOption m_option;
    std::vector<RowPlace> m_objects;         ///< each before those below it
    std::map<long long, long long> m_copies; ///< 0 until the object is copied
    std::set<long long> m_tops;
    std::set<long long> m_below;
};

/// Keeps its own stack: a tree may be of any depth.
void Copier::Collect(const RowPlace& top)
{
    m_tops.insert(top.id);
    std::vector<RowPlace> waiting = {top};
    while (!waiting.empty())
    {
        const RowPlace object = waiting.back();
        waiting.pop_back();
        if (!m_copies.emplace(object.id, 0).second)
            continue;
        m_objects.push_back(object);
        if (m_option != CopyOption::Deep)
            continue;
        const std::vector<RowPlace> children = ChildrenOf(m_core, object);
        for (const RowPlace& child : children)
            if (child.id != top.id)
                m_below.insert(child.id);
        waiting.insert(waiting.end(), children.rbegin(), children.rend());
    }
}

std::string Copier::NameOf(const RowPlace& object)
{
    Statement row(m_core.database,
                  R"(SELECT "name" FROM )" + Quoted(object.kind->table) + R"( WHERE "id" = ?1)");
    const bool named = row.Bind(1, object.id).Step() && !row.IsNull(0) && !row.Text(0).empty();
    return named ? row.Text(0) : m_core.KeyOf(object.id);
}

/// "Copy of X", "Copy of X (2)" ...
std::string Copier::FreeKey(const RowPlace& object)
{
    const std::string base = "Copy of " + (IsTop(object.id) ? NameOf(object) : m_core.KeyOf(object.id));
    std::string key = base;
    for (int number = 2;; ++number)
    {
        Statement taken(m_core.database, R"(SELECT 1 FROM "object" WHERE "kind" = ?1 AND "key" = ?2)");
        if (!taken.Bind(1, std::string(object.kind->table)).Bind(2, key).Step())
            return key;
        key = base + " (" + std::to_string(number) + ")";
    }
}

void Copier::CopyRow(const RowPlace& object)
{
    const std::string key = FreeKey(object);
    const long long copy = InsertObject(m_core.database, *object.kind, key);
    m_copies[object.id] = copy;
    std::string sql = "UPDATE " + Quoted(object.kind->table) + " SET ";
    for (const Attribute* column : ColumnsOf(*object.kind))
        sql += Quoted(column->column) + " = \"source\"." + Quoted(column->column) + ", ";
    sql.resize(sql.size() - 2);
    sql += " FROM " + Quoted(object.kind->table) + " AS \"source\" WHERE \"source\".\"id\" = ?1 AND " +
           Quoted(object.kind->table) + ".\"id\" = ?2";
    const auto run = [&](const std::string& statement) {
        Statement(m_core.database, statement).Bind(1, object.id).Bind(2, copy).Step();
    };
    run(sql);
    run(R"(INSERT INTO "objectright"("object", "bits") SELECT ?2, "bits" FROM "objectright")"
        R"( WHERE "object" = ?1)");
    run(R"(INSERT INTO "attributelimit"("object", "column", "limit") SELECT ?2, "column", "limit")"
        R"( FROM "attributelimit" WHERE "object" = ?1)");
    if (IsTop(object.id))
    {
        Statement(m_core.database,
                  "UPDATE " + Quoted(object.kind->table) + R"( SET "name" = ?1 WHERE "id" = ?2)")
            .Bind(1, key)
            .Bind(2, copy)
            .Step();
    }
}

/// References to copied objects become references to their copies.
void Copier::PointToCopies(const RowPlace& object)
{
    const long long copy = m_copies[object.id];
    for (const Attribute* column : ColumnsOf(*object.kind))
    {
        if (column->type != ColumnType::Object)
            continue;
        Statement row(m_core.database, "SELECT " + Quoted(column->column) + " FROM " +
                                           Quoted(object.kind->table) + R"( WHERE "id" = ?1)");
        if (!row.Bind(1, copy).Step() || row.IsNull(0))
            continue;
        const auto target = m_copies.find(row.Integer(0));
        if (target == m_copies.end())
            continue;
        Statement(m_core.database, "UPDATE " + Quoted(object.kind->table) + " SET " + Quoted(column->column) +
                                       R"( = ?1 WHERE "id" = ?2)")
            .Bind(1, target->second)
            .Bind(2, copy)
            .Step();
    }
}

void Copier::CopyAll()
{
    for (const RowPlace& object : m_objects)
        CopyRow(object);
    for (const RowPlace& object : m_objects)
        PointToCopies(object);
}

std::vector<RowPlace> Copier::Tops() const
{
    std::vector<RowPlace> tops;
    for (const RowPlace& object : m_objects)
        if (IsTop(object.id))
            tops.push_back({object.kind, m_copies.at(object.id)});
    return tops;
}
} // namespace

std::vector<RowPlace> CopyObjects(PlantCore& core, const std::vector<RowPlace>& objects, CopyOption option)
{
    Copier copier(core, option);
    for (const RowPlace& object : objects)
        copier.Collect(object);
    copier.CopyAll();
    return copier.Tops();
}
} // namespace refhost
