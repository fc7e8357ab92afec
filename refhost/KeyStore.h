// The plant's key store in its database: values by scope, key and name. Keys and names compare without regard
// to case.
#pragma once

#include "Database.h"

#include <optional>
#include <string>
#include <vector>

namespace refhost
{
/// What the scopes of the key store are for. Each is a store of its own, but the user's settings are read
/// where they are written.
inline constexpr long kScopeUserRead = 0;
inline constexpr long kScopeSettings = 1;
inline constexpr long kScopeBookmarks = 2;
inline constexpr long kScopeDefaults = 3;
inline constexpr long kScopeUserWrite = 4;

/// A stored value: text or a number under the variant type it was written with.
struct StoredValue
{
    long long type = 0;
    SqlValue value;
};

struct StoredText
{
    std::string name;
    std::string value;
};

/// Keys are paths with forward slashes; slashes at either end do not count. Values keep the order in which
/// they were first written. Failures are PlantErrors.
class KeyStore
{
public:
    explicit KeyStore(Database& database) : m_database(database) {}

    std::optional<StoredValue> Get(long scope, const std::string& key, const std::string& name);
    void Set(long scope, const std::string& key, const std::string& name, const StoredValue& value);

    /// True if the key exists: it was written, or it has sub keys.
    bool Has(long scope, const std::string& key);

    /// The names, not paths, of the keys directly below.
    std::vector<std::string> SubKeys(long scope, const std::string& key);

    /// All values of one key as text.
    std::vector<StoredText> List(long scope, const std::string& key);

    /// Replaces all values of one key; `type` is that of the values. The key exists then, with an empty list
    /// too.
    void WriteList(long scope, const std::string& key, const std::vector<StoredText>& values, long long type);

    /// Deletes the key with its values and sub keys; false if there was none.
    bool Delete(long scope, const std::string& key);

private:
    void Create(long scope, const std::string& path);

    Database& m_database;
};
} // namespace refhost
