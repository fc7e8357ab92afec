#include "ObjectRow.h"

#include "ObjectStore.h"
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
HRESULT ObjectRow::Read(const Attribute& attribute, VARIANT& value, NameUsed name) const
{
    Statement statement(core->database, "SELECT " + Quoted(attribute.column) + ", (" + kLimitOfColumn +
                                            InSqlQuotes(attribute.column) + ") FROM " + Quoted(kind.table) +
                                            " WHERE \"id\" = ?1");
    if (!statement.Bind(1, id).Step())
        throw PlantError(Label() + " is gone");
    const Limit limit = statement.IsNull(1) ? Limit::None : static_cast<Limit>(statement.Integer(1));
    if (limit == Limit::Hidden)
        return E_ACCESSDENIED;
    if (limit == Limit::KeyOnly && name == NameUsed::Column)
        return S_FALSE;
    return ReadColumn(core, attribute, statement, value);
}

void ObjectRow::Write(const Attribute& attribute, const VARIANT& value) const
{
    const Limit limit = LimitOf(attribute);
    Require(limit == Limit::None || limit == Limit::KeyOnly, E_ACCESSDENIED);
    const SqlValue stored = ToColumn(*core, attribute, value);
    Statement statement(core->database, "UPDATE " + Quoted(kind.table) + " SET " + Quoted(attribute.column) +
                                            " = ?1 WHERE \"id\" = ?2 RETURNING \"id\"");
    if (!statement.Bind(1, stored).Bind(2, id).Step())
        throw PlantError(Label() + " is gone");
    if (limit == Limit::KeyOnly)
        StoreLimit(core->database, id, attribute, Limit::None);
}

Limit ObjectRow::LimitOf(const Attribute& attribute) const
{
    Statement statement(core->database, kLimitOfColumn + InSqlQuotes(attribute.column));
    return statement.Bind(1, id).Step() ? static_cast<Limit>(statement.Integer(0)) : Limit::None;
}
} // namespace refhost
