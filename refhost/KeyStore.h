// The plant's key store in its database: values by scope, key and name. Keys and names are case-insensitive.
#pragma once

#include "Database.h"

#include <optional>
#include <string>
#include <vector>

namespace refhost
{
/// The scopes of the key store. Each is a separate store, except that reading the user's settings (0) also
/// finds what was written to them (4).
inline constexpr long kScopeUserRead = 0;
inline constexpr long kScopeSettings = 1;
inline constexpr long kScopeBookmarks = 2;
inline constexpr long kScopeDefaults = 3;
inline constexpr long kScopeUserWrite = 4;

/// A stored value: text or a number, with the variant type it was written as.
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

/// Keys are paths with forward slashes; leading and trailing slashes are ignored. Values keep the order in
/// which they were first written. Failures throw PlantError.
class KeyStore
{
public:
    explicit KeyStore(Database& database) : m_database(database) {}

    std::optional<StoredValue> Get(long scope, const std::string& key, const std::string& name);
    void Set(long scope, const std::string& key, const std::string& name, const StoredValue& value);

    /// Whether the key exists: it was written, or it has sub keys.
    bool Has(long scope, const std::string& key);

    /// The names, not paths, of the keys directly below.
    std::vector<std::string> SubKeys(long scope, const std::string& key);

    /// All values of one key as text.
    std::vector<StoredText> List(long scope, const std::string& key);

    /// A line "<scope> <key>: <name>=<value>" for each value and "<scope> <key>:" for a key without values:
    /// by scope and key, the values of a key in their order.
    std::vector<std::string> Content();

    /// Replaces all values of one key with values of that type. The key then exists, even if the list is
    /// empty.
    void WriteList(long scope, const std::string& key, const std::vector<StoredText>& values, long long type);

    /// Deletes the key with its values and sub keys. Returns false if there is no such key.
    bool Delete(long scope, const std::string& key);

private:
    void Create(long scope, const std::string& path);

    Database& m_database;
};
} // namespace refhost
