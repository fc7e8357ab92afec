#include "Schema.h"

#include "ConfigSchema.h"
#include "Database.h"
#include "PlanSchema.h"
#include "PlantError.h"
#include "ScriptSchema.h"

#include <algorithm>
#include <string>

namespace refhost
{
namespace
{
using enum ColumnType;

/// Identify a SQLite file as a plant, and the version of its tables.
constexpr long long kApplicationId = 0x51504C54;
constexpr long long kSchemaVersion = 5;

Kind RootKind()
{
    return {"root",
            "root",
            "XDORoot",
            false,
            {{"m_name", "name"}},
            {{"orvoproject", "project", "coalesce(\"istemplate\", 0) = 0 AND ?1 > 0"},
             {"template", "project", "\"istemplate\" = 1 AND ?1 > 0"}}};
}

Kind ProjectKind()
{
    return {"project",
            "orvoproject",
            "XDOOrvoProject",
            true,
            {{"m_name", "name"},
             {"m_bIsTemplate", "istemplate", Flag},
             {"m_strConfigTypeName", "configtypename"}},
            {{"orvoplantypeset", "plantypeset", "\"orvoproject\" = ?1"},
             {"orvoplantype", "plantype", "\"orvoproject\" = ?1"},
             {"nodes", "plannode", "\"orvoproject\" = ?1 AND \"parent\" IS NULL"},
             {"script", "script", "\"dodefaultimpl\" = ?1"},
             {"scriptactions", "scriptaction",
              "\"orvoplantypeset\" IN (SELECT \"id\" FROM \"plantypeset\" WHERE \"orvoproject\" = ?1)"},
             {"scriptcommands", "scriptcommand",
              "\"orvoplantypeset\" IN (SELECT \"id\" FROM \"plantypeset\" WHERE \"orvoproject\" = ?1)"}}};
}

Kind PlanTypeSetKind()
{
    return {"plantypeset",
            "orvoplantypeset",
            "XDOOrvoPlanTypeSet",
            true,
            {{"m_name", "name"},
             {"m_pMaster", "master", Object, "plantypeset"},
             {"m_pOrvoProject", "orvoproject", Object, "project"},
             {"m_strConfigTypeName", "configtypename"}},
            {{"orvoplantype", "plantype", "\"orvoplantypeset\" = ?1"},
             {"scriptactions", "scriptaction", "\"orvoplantypeset\" = ?1"},
             {"scriptcommands", "scriptcommand", "\"orvoplantypeset\" = ?1"}}};
}

Kind PlanTypeKind()
{
    return {"plantype",
            "orvoplantype",
            "XDOOrvoPlanType",
            true,
            {{"m_name", "name"},
             {"m_pMaster", "master", Object, "plantype"},
             {"m_pOrvoPlanTypeSet", "orvoplantypeset", Object, "plantypeset"},
             {"m_pOrvoProject", "orvoproject", Object, "project"},
             {"m_strConfigTypeName", "configtypename"}},
            {{"scriptactions", "scriptaction", "\"orvoplantype\" = ?1"},
             {"scriptcommands", "scriptcommand", "\"orvoplantype\" = ?1"}}};
}

Kind ItemKind()
{
    return {"orvoitem",
            "orvoitem",
            "XDOOrvoItem",
            true,
            {{"m_name", "name"},
             {"m_pOrvoProject", "orvoproject", Object, "project"},
             {"m_pPlanType", "orvoplantype", Object, "plantype"}},
            {}};
}

/// A component of a work system is an item without a project.
Kind WorkSystemComponentKind()
{
    return {"orvowsc",
            "orvowsc",
            "XDOWorkSystemComponent",
            true,
            {{"m_name", "name"},
             {"m_pOrvoProject", "orvoproject", Object, "project"},
             {"m_pPlanType", "orvoplantype", Object, "plantype"}},
            {},
            {"XDOOrvoItem"}};
}

Kind CompBaseKind()
{
    return {"orvocompbase",
            "orvocompbase",
            "XDOOrvoCompBase",
            true,
            {{"m_name", "name"}, {"m_pOrvoProject", "orvoproject", Object, "project"}},
            {}};
}

Kind SubComponentKind()
{
    return {"subcompitem",
            "subcompitem",
            "XDOSubCompItem",
            true,
            {{"m_name", "name"},
             {"m_pOrvoProject", "orvoproject", Object, "project"},
             {"m_pOrvoCompBase", "orvocompbase", Object, "orvocompbase"}},
            {}};
}

Kind RelationshipKind()
{
    return {"relationship",
            "relationship",
            "XDORelationship",
            false,
            {{"m_name", "name"},
             {"m_pRelationObject1", "relationobject1", Object, "orvoitem"},
             {"m_pRelationObject2", "relationobject2", Object, "orvoitem"}},
            {}};
}

template <class Items, class Test>
auto FindIn(const Items& items, Test test) -> decltype(items.data())
{
    const auto found = std::find_if(items.begin(), items.end(), test);
    return found == items.end() ? nullptr : &*found;
}

std::string ColumnSql(const Attribute& attribute)
{
    std::string sql = std::string("\"") + attribute.column + "\"";
    if (attribute.type == ColumnType::Text || attribute.type == Date)
        return sql + " TEXT";
    sql += " INTEGER";
    if (attribute.type == Object)
        sql += std::string(" REFERENCES \"") + attribute.target + "\"(\"id\")";
    return sql;
}

std::string TableSql(const Kind& kind)
{
    std::string sql = std::string("CREATE TABLE \"") + kind.table +
                      "\"(\"id\" INTEGER PRIMARY KEY REFERENCES \"object\"(\"id\")";
    std::string seen = " ";
    for (const Attribute& attribute : kind.attributes)
    {
        const std::string mark = std::string(attribute.column) + " ";
        if (seen.find(" " + mark) != std::string::npos)
            continue;
        seen += mark;
        sql += ", " + ColumnSql(attribute);
    }
    sql += ");";
    // By these, children are found.
    for (const std::string column : {"orvoplantypeset", "parent"})
    {
        if (kind.FindColumn(column))
            sql += std::string("CREATE INDEX \"") + kind.table + "_" + column + "\" ON \"" + kind.table +
                   "\"(\"" + column + "\");";
    }
    return sql;
}

void CreateTables(Database& database)
{
    database.Execute(
        "CREATE TABLE \"object\"(\"id\" INTEGER PRIMARY KEY AUTOINCREMENT, \"kind\" TEXT NOT NULL, \"key\" "
        "TEXT NOT NULL,"
        " UNIQUE(\"kind\", \"key\"));"
        "CREATE TABLE \"objectright\"(\"object\" INTEGER PRIMARY KEY REFERENCES \"object\"(\"id\"), \"bits\" "
        "INTEGER NOT NULL);"
        "CREATE TABLE \"attributelimit\"(\"object\" INTEGER NOT NULL REFERENCES \"object\"(\"id\"),"
        " \"column\" TEXT NOT NULL, \"limit\" INTEGER NOT NULL, PRIMARY KEY(\"object\", \"column\"));"
        "CREATE TABLE \"storekey\"(\"scope\" INTEGER NOT NULL, \"path\" TEXT NOT NULL COLLATE NOCASE,"
        " PRIMARY KEY(\"scope\", \"path\"));"
        "CREATE TABLE \"storevalue\"(\"id\" INTEGER PRIMARY KEY, \"scope\" INTEGER NOT NULL,"
        " \"path\" TEXT NOT NULL COLLATE NOCASE, \"name\" TEXT NOT NULL COLLATE NOCASE, \"type\" INTEGER NOT "
        "NULL, \"value\","
        " UNIQUE(\"scope\", \"path\", \"name\"));");
    for (const Kind& kind : Kinds())
        database.Execute(TableSql(kind));
    database.Execute("INSERT INTO \"object\"(\"kind\", \"key\") VALUES('root', 'root');"
                     "INSERT INTO \"root\"(\"id\", \"name\") VALUES(last_insert_rowid(), 'root');");
    database.Execute("PRAGMA application_id = " + std::to_string(kApplicationId));
    database.Execute("PRAGMA user_version = " + std::to_string(kSchemaVersion));
}

long long Ask(Database& database, const char* sql)
{
    Statement statement(database, sql);
    return statement.Step() ? statement.Integer(0) : 0;
}
} // namespace

std::string ChildList::Sql() const
{
    const bool any = table == std::string_view(kAnyTable);
    const std::string kind = any ? "\"kind\"" : std::string("'") + table + "'";
    return "SELECT \"id\", " + kind + " FROM \"" + table + "\" WHERE " + condition + " ORDER BY \"id\"";
}

const Attribute* Kind::FindAttribute(std::string_view name) const
{
    return FindIn(attributes, [name](const Attribute& a) { return name == a.key || name == a.column; });
}

const Attribute* Kind::FindColumn(std::string_view column) const
{
    return FindIn(attributes, [column](const Attribute& a) { return column == a.column; });
}

const Attribute* Kind::FindMember(int number) const
{
    const Member* member = FindIn(members, [number](const Member& m) { return number == m.number; });
    return member ? FindColumn(member->column) : nullptr;
}

const ChildList* Kind::FindChildren(std::string_view list) const
{
    return FindIn(children, [list](const ChildList& c) { return list == c.name; });
}

bool Kind::IsOf(std::string_view name) const
{
    return name == className || name == kBaseClass ||
           FindIn(moreClasses, [name](auto c) { return name == c; });
}

const std::vector<Kind>& Kinds()
{
    static const std::vector<Kind> kinds = {RootKind(),         ProjectKind(),
                                            PlanTypeSetKind(),  PlanTypeKind(),
                                            ConfigTypeKind(),   ScriptKind(),
                                            ScriptActionKind(), ScriptCommandKind(),
                                            ItemKind(),         WorkSystemComponentKind(),
                                            CompBaseKind(),     SubComponentKind(),
                                            RelationshipKind(), ConfigPageKind(),
                                            ConfigGroupKind(),  ConfigAttributeKind(),
                                            ConfigValueKind(),  VbaProjectKind(),
                                            VbaMacroKind(),     PlanNodeKind(),
                                            PlanRelationKind()};
    return kinds;
}

const Kind* FindKind(std::string_view table)
{
    return FindIn(Kinds(), [table](const Kind& kind) { return table == kind.table; });
}

void PrepareSchema(Database& database)
{
    database.Execute("PRAGMA foreign_keys = ON");
    if (Ask(database, "SELECT count(*) FROM sqlite_master") == 0)
    {
        Transaction transaction(database);
        CreateTables(database);
        transaction.Commit();
        return;
    }
    if (Ask(database, "PRAGMA application_id") != kApplicationId)
        throw PlantError("the database is not a plant");
    if (Ask(database, "PRAGMA user_version") != kSchemaVersion)
        throw PlantError("the plant was written by another version");
}
} // namespace refhost
