// The plant's SQLite database and its statements.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>

struct sqlite3;
struct sqlite3_stmt;

namespace refhost
{
/// A value of the database: NULL, a number or UTF-8 text.
using SqlValue = std::variant<std::monostate, long long, std::string>;

/// One connection. Every failure throws a PlantError with SQLite's message.
class Database
{
public:
    /// Opens or creates the file; `name` is UTF-8. ":memory:" creates a private database in memory.
    explicit Database(const std::string& name);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Runs statements that return no rows.
    void Execute(const std::string& sql);

    long long LastInsertedId() const;

    /// The number of statements that SQLite has started on this connection.
    long long Statements() const { return m_statements; }

private:
    friend class Statement;
    sqlite3_stmt* Take(const std::string& sql);
    void GiveBack(sqlite3_stmt* statement, const std::string& sql) noexcept;
    [[noreturn]] void Fail() const;

    sqlite3* m_connection = nullptr;
    long long m_statements = 0;
    std::unordered_map<std::string, sqlite3_stmt*> m_idle;
};

/// One run of a statement. Prepared statements are cached by their text.
class Statement
{
public:
    Statement(Database& database, std::string sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    /// The first parameter is 1.
    Statement& Bind(int parameter, const SqlValue& value);

    /// Moves to the next row. Returns false after the last one.
    bool Step();

    /// Resets the statement for another run.
    void Again();

    /// The first column is 0.
    bool IsNull(int column) const;
    long long Integer(int column) const;
    std::string Text(int column) const;

private:
    Database& m_database;
    std::string m_sql;
    sqlite3_stmt* m_statement;
};

/// Rolls back on destruction unless Commit was called.
class Transaction
{
public:
    explicit Transaction(Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit();

private:
    Database& m_database;
    bool m_open = true;
};
} // namespace refhost
