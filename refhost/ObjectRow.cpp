#include "ObjectRow.h"

#include "PlantError.h"
#include "SqlVariant.h"
#include "StatusError.h"

namespace refhost
{
namespace
{
const char* const kLimitOfColumn =
    R"(SELECT "limit" FROM "attributelimit" WHERE "object" = ?1 AND "column" = )";

std::string InSqlQuotes(const char* name)
{
    return std::string("'") + name + "'";
}
} // namespace

std::string ObjectRow::Label() const
{
    return std::string("<") + kind.table + " " + core->KeyOf(id) + ">";
}

/// Value and limit come by one statement, so that a read stays one round trip to the database.
HRESULT ObjectRow::Read(const Attribute& attribute, VARIANT& value) const
{
    Statement statement(core->database, "SELECT " + Quoted(attribute.column) + ", (" + kLimitOfColumn +
                                            InSqlQuotes(attribute.column) + ") FROM " + Quoted(kind.table) +
                                            " WHERE \"id\" = ?1");
    if (!statement.Bind(1, id).Step())
        throw PlantError(Label() + " is gone");
    if (!statement.IsNull(1) && statement.Integer(1) == static_cast<long long>(Limit::Hidden))
        return E_ACCESSDENIED;
    return ReadColumn(core, attribute, statement, value);
}

void ObjectRow::Write(const Attribute& attribute, const VARIANT& value) const
{
    Require(!IsLimited(attribute), E_ACCESSDENIED);
    const SqlValue stored = ToColumn(*core, attribute, value);
    Statement statement(core->database, "UPDATE " + Quoted(kind.table) + " SET " + Quoted(attribute.column) +
                                            " = ?1 WHERE \"id\" = ?2 RETURNING \"id\"");
    if (!statement.Bind(1, stored).Bind(2, id).Step())
        throw PlantError(Label() + " is gone");
}

bool ObjectRow::IsLimited(const Attribute& attribute) const
{
    Statement statement(core->database, kLimitOfColumn + InSqlQuotes(attribute.column));
    return statement.Bind(1, id).Step();
}
} // namespace refhost
