#include "ObjectStore.h"

#include "PlantCore.h"
#include "PlantError.h"

namespace refhost
{
long long InsertObject(Database& database, const Kind& kind, const std::string& key)
{
    Statement object(database,
                     R"(INSERT OR IGNORE INTO "object"("kind", "key") VALUES(?1, ?2) RETURNING "id")");
    if (!object.Bind(1, std::string(kind.table)).Bind(2, key).Step())
        throw PlantError("there are two of the name \"" + key + "\" in " + kind.table);
    const long long id = object.Integer(0);
    Statement row(database, "INSERT INTO " + Quoted(kind.table) + "(\"id\") VALUES(?1)");
    row.Bind(1, id).Step();
    return id;
}

void RemoveObject(Database& database, const Kind& kind, long long object)
{
    for (const std::string& rows :
         {Quoted(kind.table) + R"( WHERE "id")", std::string(R"("objectright" WHERE "object")"),
          std::string(R"("attributelimit" WHERE "object")"), std::string(R"("object" WHERE "id")")})
        Statement(database, "DELETE FROM " + rows + " = ?1").Bind(1, object).Step();
}

void StoreRights(Database& database, long long object, std::optional<long> rights)
{
    Statement statement(database,
                        rights ? R"(INSERT OR REPLACE INTO "objectright"("object", "bits") VALUES(?1, ?2))"
                               : R"(DELETE FROM "objectright" WHERE "object" = ?1)");
    statement.Bind(1, object);
    if (rights)
        statement.Bind(2, static_cast<long long>(*rights));
    statement.Step();
}

void StoreLimit(Database& database, long long object, const Attribute& attribute, Limit limit)
{
    Statement statement(
        database,
        limit == Limit::None
            ? R"(DELETE FROM "attributelimit" WHERE "object" = ?1 AND "column" = ?2)"
            : R"(INSERT OR REPLACE INTO "attributelimit"("object", "column", "limit") VALUES(?1, ?2, ?3))");
    statement.Bind(1, object).Bind(2, std::string(attribute.column));
    if (limit != Limit::None)
        statement.Bind(3, static_cast<long long>(limit));
    statement.Step();
}
} // namespace refhost
