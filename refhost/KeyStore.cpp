#include "KeyStore.h"

#include <algorithm>

namespace refhost
{
namespace
{
/// Leading and trailing slashes are ignored.
std::string PathOf(const std::string& key)
{
    const std::size_t first = key.find_first_not_of('/');
    if (first == std::string::npos)
        return {};
    return key.substr(first, key.find_last_not_of('/') - first + 1);
}

/// The second store that a scope reads.
long AlsoReadIn(long scope)
{
    return scope == kScopeUserRead ? kScopeUserWrite : scope;
}

/// ?1 and ?2 are the scopes to read, ?3 is the path.
void BindPlace(Statement& statement, long scope, const std::string& path)
{
    statement.Bind(1, static_cast<long long>(scope))
        .Bind(2, static_cast<long long>(AlsoReadIn(scope)))
        .Bind(3, path);
}

/// Keys below the path ?3, which may be empty. LIKE is not used because a key may contain its wildcards.
constexpr const char* kBelow = R"((?3 = '' OR substr("path", 1, length(?3) + 1) = ?3 || '/' COLLATE NOCASE))";
} // namespace

std::optional<StoredValue> KeyStore::Get(long scope, const std::string& key, const std::string& name)
{
    Statement statement(m_database, R"(SELECT "type", "value", typeof("value") FROM "storevalue"
        WHERE "scope" IN (?1, ?2) AND "path" = ?3 AND "name" = ?4 ORDER BY "scope" DESC)");
    BindPlace(statement, scope, PathOf(key));
    statement.Bind(4, name);
    if (!statement.Step())
        return std::nullopt;
    StoredValue found{statement.Integer(0), {}};
    if (statement.Text(2) == "integer")
        found.value = statement.Integer(1);
    else
        found.value = statement.Text(1);
    return found;
}

void KeyStore::Create(long scope, const std::string& path)
{
    Statement statement(m_database, R"(INSERT OR IGNORE INTO "storekey"("scope", "path") VALUES(?1, ?2))");
    statement.Bind(1, static_cast<long long>(scope)).Bind(2, path).Step();
}

void KeyStore::Set(long scope, const std::string& key, const std::string& name, const StoredValue& value)
{
    const std::string path = PathOf(key);
    Create(scope, path);
    Statement statement(m_database, R"(INSERT INTO "storevalue"("scope", "path", "name", "type", "value")
        VALUES(?1, ?2, ?3, ?4, ?5)
        ON CONFLICT("scope", "path", "name") DO UPDATE SET "type" = ?4, "value" = ?5)");
    statement.Bind(1, static_cast<long long>(scope)).Bind(2, path).Bind(3, name);
    statement.Bind(4, value.type).Bind(5, value.value).Step();
}

bool KeyStore::Has(long scope, const std::string& key)
{
    Statement statement(
        m_database,
        std::string(R"(SELECT 1 FROM "storekey" WHERE "scope" IN (?1, ?2) AND ("path" = ?3 OR )") + kBelow +
            ")");
    BindPlace(statement, scope, PathOf(key));
    return statement.Step();
}

std::vector<std::string> KeyStore::SubKeys(long scope, const std::string& key)
{
    const std::string path = PathOf(key);
    Statement statement(
        m_database,
        std::string(R"(SELECT "path" FROM "storekey" WHERE "scope" IN (?1, ?2) AND "path" <> ?3 AND )") +
            kBelow + R"( ORDER BY "rowid")");
    BindPlace(statement, scope, path);
    std::vector<std::string> names;
    std::vector<std::string> folded;
    const std::size_t start = path.empty() ? 0 : path.size() + 1;
    while (statement.Step())
    {
        std::string name = statement.Text(0).substr(start);
        name.resize(std::min(name.find('/'), name.size()));
        std::string fold = name;
        for (char& c : fold)
            c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        if (std::find(folded.begin(), folded.end(), fold) != folded.end())
            continue;
        folded.push_back(std::move(fold));
        names.push_back(std::move(name));
    }
    return names;
}

std::vector<StoredText> KeyStore::List(long scope, const std::string& key)
{
    Statement statement(m_database, R"(SELECT "name", "value" FROM "storevalue"
        WHERE "scope" IN (?1, ?2) AND "path" = ?3 ORDER BY "scope" DESC, "id")");
    BindPlace(statement, scope, PathOf(key));
    std::vector<StoredText> values;
    while (statement.Step())
        values.push_back({statement.Text(0), statement.Text(1)});
    return values;
}

std::vector<std::string> KeyStore::Content()
{
    Statement statement(m_database, R"(SELECT k."scope", k."path", v."name", v."value" FROM "storekey" k
        LEFT JOIN "storevalue" v ON v."scope" = k."scope" AND v."path" = k."path"
        ORDER BY k."scope", k."path", v."id")");
    std::vector<std::string> lines;
    while (statement.Step())
    {
        const std::string value =
            statement.IsNull(2) ? std::string() : " " + statement.Text(2) + "=" + statement.Text(3);
        lines.push_back(statement.Text(0) + " " + statement.Text(1) + ":" + value);
    }
    return lines;
}

void KeyStore::WriteList(long scope, const std::string& key, const std::vector<StoredText>& values,
                         long long type)
{
    const std::string path = PathOf(key);
    Transaction transaction(m_database);
    {
        Statement clear(m_database, R"(DELETE FROM "storevalue" WHERE "scope" = ?1 AND "path" = ?2)");
        clear.Bind(1, static_cast<long long>(scope)).Bind(2, path).Step();
    }
    Create(scope, path);
    for (const StoredText& value : values)
        Set(scope, path, value.name, {type, value.value});
    transaction.Commit();
}

bool KeyStore::Delete(long scope, const std::string& key)
{
    const std::string path = PathOf(key);
    const auto remove = [&](const char* table) {
        Statement statement(m_database, std::string("DELETE FROM ") + table +
                                            R"( WHERE "scope" IN (?1, ?2) AND ("path" = ?3 OR )" + kBelow +
                                            R"() RETURNING "path")");
        statement.Bind(1, static_cast<long long>(scope)).Bind(2, static_cast<long long>(scope)).Bind(3, path);
        return statement.Step();
    };
    Transaction transaction(m_database);
    remove("\"storevalue\"");
    const bool was = remove("\"storekey\"");
    transaction.Commit();
    return was;
}
} // namespace refhost
