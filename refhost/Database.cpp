#include "Database.h"

#include "PlantError.h"

#include <sqlite3.h>

namespace refhost
{
namespace
{
/// SQLite calls this when it starts a statement.
int CountStatement(unsigned /*event*/, void* count, void* /*statement*/, void* /*text*/)
{
    ++*static_cast<long long*>(count);
    return 0;
}
} // namespace

Database::Database(const std::string& name)
{
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    if (sqlite3_open_v2(name.c_str(), &m_connection, flags, nullptr) == SQLITE_OK)
    {
        sqlite3_trace_v2(m_connection, SQLITE_TRACE_STMT, &CountStatement, &m_statements);
        return;
    }
    const std::string reason = m_connection ? sqlite3_errmsg(m_connection) : "out of memory";
    sqlite3_close(m_connection);
    throw PlantError(name + ": " + reason);
}

Database::~Database()
{
    for (const auto& [sql, statement] : m_idle)
        sqlite3_finalize(statement);
    sqlite3_close(m_connection);
}

void Database::Execute(const std::string& sql)
{
    if (sqlite3_exec(m_connection, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        Fail();
}

long long Database::LastInsertedId() const
{
    return sqlite3_last_insert_rowid(m_connection);
}

void Database::Fail() const
{
    throw PlantError(sqlite3_errmsg(m_connection));
}

sqlite3_stmt* Database::Take(const std::string& sql)
{
    if (const auto found = m_idle.find(sql); found != m_idle.end())
    {
        sqlite3_stmt* statement = found->second;
        m_idle.erase(found);
        return statement;
    }
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(m_connection, sql.c_str(), static_cast<int>(sql.size()), &statement, nullptr) !=
        SQLITE_OK)
        Fail();
    return statement;
}

void Database::GiveBack(sqlite3_stmt* statement, const std::string& sql) noexcept
{
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    try
    {
        if (m_idle.emplace(sql, statement).second)
            return;
    }
    catch (...)
    {
        // Out of memory: the statement is not cached, and prepared again next time.
    }
    sqlite3_finalize(statement);
}

Statement::Statement(Database& database, std::string sql)
    : m_database(database), m_sql(std::move(sql)), m_statement(database.Take(m_sql))
{
}

Statement::~Statement()
{
    m_database.GiveBack(m_statement, m_sql);
}

Statement& Statement::Bind(int parameter, const SqlValue& value)
{
    int result = SQLITE_OK;
    if (const auto* number = std::get_if<long long>(&value))
        result = sqlite3_bind_int64(m_statement, parameter, *number);
    else if (const auto* text = std::get_if<std::string>(&value))
        result = sqlite3_bind_text(m_statement, parameter, text->c_str(), static_cast<int>(text->size()),
                                   SQLITE_TRANSIENT);
    else
        result = sqlite3_bind_null(m_statement, parameter);
    if (result != SQLITE_OK)
        m_database.Fail();
    return *this;
}

bool Statement::Step()
{
    const int result = sqlite3_step(m_statement);
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        m_database.Fail();
    return result == SQLITE_ROW;
}

void Statement::Again()
{
    sqlite3_reset(m_statement);
}

bool Statement::IsNull(int column) const
{
    return sqlite3_column_type(m_statement, column) == SQLITE_NULL;
}

long long Statement::Integer(int column) const
{
    return sqlite3_column_int64(m_statement, column);
}

std::string Statement::Text(int column) const
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    return text ? std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(m_statement, column)))
                : std::string();
}

Transaction::Transaction(Database& database) : m_database(database)
{
    m_database.Execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    if (!m_open)
        return;
    try
    {
        m_database.Execute("ROLLBACK");
    }
    catch (...)
    {
        // After some errors SQLite has rolled back already.
    }
}

void Transaction::Commit()
{
    m_database.Execute("COMMIT");
    m_open = false;
}
} // namespace refhost
