// The text form of what a class writes to the registry.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// A script names roots and, in braces, the keys beneath them:
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
/// Words stand between blanks or in single quotes, in which a quote is written twice. A brace or an equals
/// sign counts as such where it stands alone. Values are s (text) and d (a number, decimal or 0x...).
struct RegistryNode
{
    enum class Kind
    {
        Key,         ///< made; taken out when nothing is left beneath it
        ForceRemove, ///< made anew, whatever was there; taken out with everything beneath it
        NoRemove,    ///< made, never taken out
        Delete,      ///< taken out when the script is applied
        Value        ///< a named value of the key around it
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
    std::wstring name; ///< as the script writes it
    std::vector<RegistryNode> children;
};

struct RegistryScript
{
    std::vector<RegistryRoot> roots;
};

/// Where and why a text is no script. Lines count from 1.
struct RegistryScriptError
{
    int line = 0;
    std::wstring reason;
};

/// Reads a script. Returns nothing, and fills `error`, for a text that is none.
std::optional<RegistryScript> ParseRegistryScript(std::wstring_view text, RegistryScriptError& error);
