#include "BenchData.h"

#include <algorithm>
#include <cwchar>
#include <numeric>
#include <random>

namespace
{
const wchar_t* const kVerbs[] = {L"Check",  L"Report", L"Export", L"Create", L"Balance", L"Assign",
                                 L"Update", L"Print",  L"Lock",   L"Send",   L"Record",  L"Compare"};
const wchar_t* const kNouns[] = {L"clamp",  L"weldspots", L"cycletime", L"robot", L"paintlot",  L"tool",
                                 L"torque", L"picklist",  L"fixture",   L"seam",  L"inspection"};

std::wstring PromptOf(std::size_t number)
{
    wchar_t text[64];
    std::swprintf(text, std::size(text), L"%ls %ls %06d", kVerbs[number % std::size(kVerbs)],
                  kNouns[number % std::size(kNouns)], static_cast<int>(number));
    return text;
}

std::vector<std::size_t> Shuffled(std::size_t count)
{
    std::vector<std::size_t> numbers(count);
    std::iota(numbers.begin(), numbers.end(), std::size_t{0});
    std::shuffle(numbers.begin(), numbers.end(), std::mt19937(7)); // the same order in every run
    return numbers;
}

std::vector<ComPtr<MemoryObject>> MakeScripts(MemoryHost& host)
{
    std::vector<ComPtr<MemoryObject>> scripts;
    for (std::size_t i = 0; i < BenchHost::kScripts; ++i)
        scripts.push_back(host.Named(L"script"));
    return scripts;
}
} // namespace

BenchHost::BenchHost(std::size_t count, Prompts prompts)
{
    m_host.recording = false;
    m_set = m_host.Object("set");
    m_scripts = MakeScripts(m_host);
    std::vector<ComPtr<MemoryObject>> commands;
    for (const std::size_t number : Shuffled(count))
    {
        commands.push_back(m_host.Object("command"));
        const std::wstring prompt = prompts == Prompts::AllDifferent ? PromptOf(number) : PromptOf(0);
        commands.back()->Set(L"m_strPrompt", prompt.c_str());
        commands.back()->Set(L"m_nameShort", number % 2 ? L"1" : L"0");
        commands.back()->Set(L"script", m_scripts[number % kScripts]);
    }
    m_host.Query().result = m_host.List(std::move(commands));
}

BenchHost::BenchHost(std::size_t count)
{
    m_host.recording = false;
    m_set = m_host.Object("set");
    m_scripts = MakeScripts(m_host);
    std::vector<ComPtr<MemoryObject>> actions;
    for (std::size_t i = 0; i < count; ++i)
    {
        actions.push_back(m_host.Object("action"));
        actions.back()->Set(L"script", m_scripts[i % kScripts]);
    }
    m_host.Query().result = m_host.List(std::move(actions));
}
