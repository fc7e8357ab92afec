#include "KeyNames.h"

#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <optional>
#include <sstream>
#include <vector>

namespace
{
struct NamedKey
{
    WORD key = 0;
    unsigned held = 0;
};

std::optional<WORD> KeyOf(const std::string& name)
{
    static const std::map<std::string, WORD> keys = {
        {"Tab", VK_TAB},       {"Return", VK_RETURN},  {"Escape", VK_ESCAPE}, {"space", VK_SPACE},
        {"Up", VK_UP},         {"Down", VK_DOWN},      {"Left", VK_LEFT},     {"Right", VK_RIGHT},
        {"Home", VK_HOME},     {"End", VK_END},        {"Prior", VK_PRIOR},   {"Next", VK_NEXT},
        {"Delete", VK_DELETE}, {"BackSpace", VK_BACK}, {"F2", VK_F2},         {"F4", VK_F4}};
    if (name.size() == 1 && std::isalnum(static_cast<unsigned char>(name[0])))
        return static_cast<WORD>(std::toupper(static_cast<unsigned char>(name[0])));
    const auto found = keys.find(name);
    return found == keys.end() ? std::nullopt : std::optional(found->second);
}

std::optional<NamedKey> Parse(std::string name)
{
    static const std::pair<const char*, unsigned> holds[] = {
        {"shift+", DialogView::kShift}, {"ctrl+", DialogView::kControl}, {"alt+", DialogView::kAlt}};
    NamedKey named;
    for (const auto& [prefix, flag] : holds)
        if (name.starts_with(prefix))
        {
            named.held |= flag;
            name.erase(0, std::string(prefix).size());
        }
    const std::optional<WORD> key = KeyOf(name);
    if (!key)
        return std::nullopt;
    named.key = *key;
    return named;
}
} // namespace

void PressKeys(const DialogView& view, const std::string& keys)
{
    std::vector<NamedKey> all;
    std::istringstream names(keys);
    for (std::string name; names >> name;)
    {
        const std::optional<NamedKey> named = Parse(name);
        if (!named)
        {
            ADD_FAILURE() << "there is no key \"" << name << "\"";
            return;
        }
        all.push_back(*named);
    }
    for (const NamedKey& named : all)
    {
        if (named.held && all.size() > 1)
        {
            ADD_FAILURE() << "held keys need a step of their own: \"" << keys << "\"";
            return;
        }
        view.Press(named.key, named.held);
    }
}
