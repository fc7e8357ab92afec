// The kinds of objects a plant holds: their tables, attributes and child lists, each written down once.
#pragma once

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
    Object
};

/// One attribute. Object paths accept both of its names, searches the column's alone.
struct Attribute
{
    const char* key;    ///< name on objects, such as "m_strPrompt"
    const char* column; ///< name in searches, such as "prompt"
    ColumnType type = ColumnType::Text;
    const char* target = nullptr; ///< for Object: the table of the object referred to
};

/// A named list of children: the rows of `table` for which `condition` holds, with ?1 the parent's number.
struct ChildList
{
    const char* name;
    const char* table;
    const char* condition;
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
    bool hasRights; ///< its objects offer the rights service unless the data say otherwise
    std::vector<Attribute> attributes;
    std::vector<ChildList> children;
    std::vector<const char*> moreClasses = {}; ///< which its objects derive from besides `className`
    std::vector<Member> members = {};          ///< of a kind of the configuration

    /// The attribute of either name, case counting; null if there is none.
    const Attribute* FindAttribute(std::string_view name) const;

    /// The attribute of that column; null if there is none.
    const Attribute* FindColumn(std::string_view column) const;

    /// The attribute that the member number reads; null if there is none.
    const Attribute* FindMember(int number) const;

    const ChildList* FindChildren(std::string_view list) const;

    /// Whether its objects derive from that class, case counting.
    bool IsOf(std::string_view name) const;
};

/// All kinds, a kind before those that refer to it.
const std::vector<Kind>& Kinds();

/// The kind of that table; null if there is none.
const Kind* FindKind(std::string_view table);

/// The class all objects derive from.
inline constexpr const char* kBaseClass = "XDOBaseObject";

/// Makes the tables in an empty database, or checks that the database is a plant of this version. Throws
/// PlantError.
void PrepareSchema(Database& database);
} // namespace refhost
