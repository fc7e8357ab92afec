// The kinds of objects in a plant: their tables, attributes and child lists.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace refhost
{
class Database;

enum class ColumnType
{
    Text,
    Number,
    Flag,
    Date, ///< "2026-03-01" or "2026-03-01 08:30:00"
    Object
};

/// One attribute. Objects accept both of its names, searches only the column name.
struct Attribute
{
    const char* key;    ///< name on objects, such as "m_strPrompt"
    const char* column; ///< name in searches, such as "prompt"
    ColumnType type = ColumnType::Text;
    const char* target = nullptr; ///< for Object: the table of the referenced object
};

/// The table of a list whose objects are of several kinds.
inline constexpr const char* kAnyTable = "object";

/// A named list of children: the rows of `table` for which `condition` holds, with ?1 the parent's number.
struct ChildList
{
    const char* name;
    const char* table;
    const char* condition;

    /// Selects number and table of each child, in the order of their numbers.
    std::string Sql() const;
};

/// A member number of a configuration object and the column it reads.
struct Member
{
    int number;
    const char* column;
};

struct Kind
{
    const char* table;
    const char* typeName;
    const char* className;
    bool hasRights; ///< its objects have the rights service unless the data say otherwise
    std::vector<Attribute> attributes;
    std::vector<ChildList> children;
    std::vector<const char*> moreClasses = {}; ///< further base classes of its objects
    std::vector<Member> members = {};          ///< of a configuration object

    /// The attribute of either name, case-sensitive; null if there is none.
    const Attribute* FindAttribute(std::string_view name) const;

    /// The attribute of that column; null if there is none.
    const Attribute* FindColumn(std::string_view column) const;

    /// The attribute that the member number reads; null if there is none.
    const Attribute* FindMember(int number) const;

    const ChildList* FindChildren(std::string_view list) const;

    /// Whether its objects derive from that class; case-sensitive.
    bool IsOf(std::string_view name) const;
};

/// All kinds; each comes before those that refer to it.
const std::vector<Kind>& Kinds();

/// The kind of that table; null if there is none.
const Kind* FindKind(std::string_view table);

/// The base class of all objects.
inline constexpr const char* kBaseClass = "XDOBaseObject";

/// Creates the tables in an empty database. Throws PlantError if the database is not empty and not a plant of
/// this version.
void PrepareSchema(Database& database);
} // namespace refhost
