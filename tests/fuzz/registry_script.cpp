// Registry scripts: any text is refused with the line of a reason, or becomes keys that have names.
#include "RegistryScript.h"
#include "Utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace
{
bool IsWhole(const RegistryNode& node)
{
    const bool isValue = node.kind == RegistryNode::Kind::Value;
    const bool named = isValue ? node.value.has_value() && node.children.empty()
                               : !node.name.empty() && node.name.find(L'\\') == std::wstring::npos;
    return named && std::all_of(node.children.begin(), node.children.end(), IsWhole);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::wstring text;
    if (!WideFromUtf8({reinterpret_cast<const char*>(data), size}, text))
        return -1; // refused before it is read as a script
    RegistryScriptError error;
    const auto script = ParseRegistryScript(text, error);
    if (!script)
    {
        const auto lines = std::count(text.begin(), text.end(), L'\n') + 1;
        if (error.reason.empty() || error.line < 1 || error.line > lines)
            std::abort();
        return 0;
    }
    for (const RegistryRoot& root : script->roots)
        if (!root.key || !std::all_of(root.children.begin(), root.children.end(), IsWhole))
            std::abort();
    return 0;
}
