#include "PlantCore.h"

namespace refhost
{
PlantCore::PlantCore(const std::string& name) : database(name)
{
    PrepareSchema(database);
}

std::string PlantCore::KeyOf(long long id)
{
    Statement statement(database, R"(SELECT "key" FROM "object" WHERE "id" = ?1)");
    statement.Bind(1, id);
    return statement.Step() ? statement.Text(0) : std::string("#").append(std::to_string(id));
}

void PlantCore::NoteError(const char* text) noexcept
{
    try
    {
        lastError = text;
    }
    catch (...)
    {
        // Out of memory for a text that only serves diagnosis.
        lastError.clear();
    }
}

std::string Quoted(const char* name)
{
    return std::string("\"") + name + "\"";
}
} // namespace refhost
