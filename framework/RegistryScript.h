// Registry scripts: what a class writes to the registry, as text.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// A script lists roots and, in braces, their subkeys:
///
///     HKCR
///     {
///         Product.Name = s 'default value'
///         {
///             Subkey = s 'text'
///             val 'named value' = d '1'
///         }
///         NoRemove CLSID { ForceRemove '{...}' = s 'text' }
///         Delete 'Old key'
///     }
///
/// Words are separated by blanks or enclosed in single quotes, in which a quote is doubled. A brace or an
/// equals sign is a token if it is a word of its own. Types of values are s (text) and d (a number, decimal
/// or 0x...).
struct RegistryNode
{
    enum class Kind
    {
        Key,         ///< created; removed when it is empty
        ForceRemove, ///< deleted and created; removed with its subkeys
        NoRemove,    ///< created, never removed
        Delete,      ///< deleted when the script is applied
        Value        ///< a named value of the enclosing key
    };
    using Data = std::variant<std::wstring, DWORD>;

    Kind kind = Kind::Key;
    std::wstring name;
    std::optional<Data> value; ///< a key's default value, a value's data
    std::vector<RegistryNode> children;
};

struct RegistryRoot
{
    HKEY key;
    std::wstring name; ///< as in the script
    std::vector<RegistryNode> children;
};

struct RegistryScript
{
    std::vector<RegistryRoot> roots;
};

/// Why a text is not a valid script. Lines are counted from 1.
struct RegistryScriptError
{
    int line = 0;
    std::wstring reason;
};

/// Parses a script. Empty if the text is not a valid script, with the reason in `error`.
std::optional<RegistryScript> ParseRegistryScript(std::wstring_view text, RegistryScriptError& error);
