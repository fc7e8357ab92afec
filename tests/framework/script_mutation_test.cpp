// Registry scripts with words left out, doubled, exchanged: what they write is taken back to the last value.
#include "Registrar.h"
#include "TestRegistry.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

namespace
{
using Words = std::vector<std::wstring>;

/// Roots of the machine and of the user are not among the words, so that no text writes outside the test's
/// registry.
Words GoodScript()
{
    return {L"HKCR", L"{",      L"A",   L"=",           L"s",   L"'one'",      L"{",    L"val", L"V",
            L"=",    L"d",      L"7",   L"B",           L"=",   L"d",          L"0",    L"{",   L"C",
            L"}",    L"}",      L"D",   L"=",           L"s",   L"'%MODULE%'", L"Gone", L"{",   L"Deeper",
            L"}",    L"Delete", L"Old", L"ForceRemove", L"{E}", L"=",          L"s",    L"''",  L"{",
            L"F",    L"}",      L"}"};
}

/// What may come in the place of any word.
const Words kOdd = {
    L"'",   L"''", L"'open", L"{", L"}",   L"=",  L"HKCR", L"ForceRemove",  L"Delete",
    L"val", L"s",  L"d",     L"A", L"Old", L"-1", L"a\\b", L"\x20AC\xFFFE", std::wstring(300, L'x')};

class Mutations
{
public:
    explicit Mutations(unsigned seed) : m_random(seed) {}

    std::wstring Script()
    {
        Words words = GoodScript();
        for (std::size_t count = 1 + Below(4); count > 0; --count)
            Change(words);
        std::wstring text;
        for (const std::wstring& word : words)
            text += word + L" ";
        return text.substr(0, Below(8) ? text.size() : Below(text.size()));
    }

private:
    std::size_t Below(std::size_t bound) { return m_random() % bound; }

    void Change(Words& words)
    {
        const std::size_t at = Below(words.size());
        switch (Below(4))
        {
        case 0:
            words.erase(words.begin() + static_cast<std::ptrdiff_t>(at));
            break;
        case 1:
            words.insert(words.begin() + static_cast<std::ptrdiff_t>(at), std::wstring(words[at]));
            break;
        case 2:
            std::swap(words[at], words[Below(words.size())]);
            break;
        default:
            words[at] = kOdd[Below(kOdd.size())];
        }
    }

    std::mt19937 m_random;
};
} // namespace

TEST(ChangedScript, IsUndoneOrRefused)
{
    TestRegistry registry;
    registry.Put(L"A", L"old");
    registry.Put(L"Old\\Deep", L"old");
    registry.PutValue(L"D", L"Odd", REG_BINARY, {1, 0, 255});
    const auto before = registry.Dump();
    int applied = 0;
    int refused = 0;
    for (unsigned seed = 1; seed <= 600; ++seed)
    {
        const std::wstring text = Mutations(seed).Script();
        RegistrationReport report;
        {
            Registrar registrar(nullptr, GUID{}, report);
            const HRESULT status = registrar.UpdateScriptText(text, L"script", true);
            applied += status >= 0;
            refused += status < 0;
            EXPECT_EQ(status < 0, !report.failures.empty()) << seed;
        }
        ASSERT_EQ(registry.Dump(), before) << "seed " << seed;
    }
    EXPECT_GT(applied, 50);
    EXPECT_GT(refused, 100);
}
