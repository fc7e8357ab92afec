// The command line as one text, and its words.
#include "text.h"

#include <shellapi.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <vector>

#include "modules.h"

using namespace winport;

namespace
{
// Quotes a word so that CommandLineToArgvW gives it back.
std::wstring Quoted(const std::wstring& word)
{
    if (!word.empty() && word.find_first_of(L" \t\n\"") == std::wstring::npos)
        return word;
    std::wstring out = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t character : word)
    {
        if (character == L'"')
            out.append(backslashes + 1, L'\\');
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        out += character;
    }
    out.append(backslashes, L'\\');
    return out + L'"';
}

std::wstring ReadCommandLine()
{
    std::ifstream file("/proc/self/cmdline", std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    std::wstring line;
    for (std::size_t start = 0; start < bytes.size();)
    {
        const std::size_t end = bytes.find('\0', start);
        line +=
            (line.empty() ? L"" : L" ") + Quoted(Wide(std::string_view(bytes).substr(start, end - start)));
        start = end == std::string::npos ? bytes.size() : end + 1;
    }
    return line;
}

bool IsBlank(wchar_t character)
{
    return character == L' ' || character == L'\t';
}

// The program's name: quotes group, backslashes are plain.
std::wstring ProgramWord(const wchar_t*& p)
{
    const bool quoted = *p == L'"';
    const wchar_t* start = quoted ? ++p : p;
    while (*p && (quoted ? *p != L'"' : !IsBlank(*p)))
        ++p;
    std::wstring word(start, p);
    if (quoted && *p)
        ++p;
    return word;
}

// Any further word. Backslashes escape a quote and, before a quote, each other. Two quotes inside quotes
// stand for one quote and end the quoted part.
std::wstring NextWord(const wchar_t*& p)
{
    std::wstring word;
    bool quoted = false;
    for (; *p && (quoted || !IsBlank(*p)); ++p)
    {
        std::size_t backslashes = 0;
        for (; *p == L'\\'; ++p)
            ++backslashes;
        if (*p != L'"')
        {
            word.append(backslashes, L'\\');
            if (!*p || (!quoted && IsBlank(*p)))
                break;
            word += *p;
            continue;
        }
        word.append(backslashes / 2, L'\\');
        if (backslashes % 2 == 1)
            word += L'"';
        else if (quoted && p[1] == L'"')
        {
            word += L'"';
            ++p;
            quoted = false;
        }
        else
            quoted = !quoted;
    }
    return word;
}

std::vector<std::wstring> Words(const wchar_t* p)
{
    std::vector<std::wstring> words;
    if (!*p)
        return {ProgramDirectory() + L"/" + std::wstring(ModuleOf(nullptr)->FileName())};
    words.push_back(ProgramWord(p));
    while (true)
    {
        while (IsBlank(*p))
            ++p;
        if (!*p)
            return words;
        words.push_back(NextWord(p));
    }
}

// One block: the array of pointers, a null pointer, then the words themselves.
LPWSTR* Pack(const std::vector<std::wstring>& words)
{
    std::size_t characters = 0;
    for (const std::wstring& word : words)
        characters += word.size() + 1;
    void* block = std::malloc((words.size() + 1) * sizeof(LPWSTR) + characters * sizeof(wchar_t));
    if (!block)
    {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    auto* pointers = static_cast<LPWSTR*>(block);
    auto* text = reinterpret_cast<wchar_t*>(pointers + words.size() + 1);
    for (std::size_t i = 0; i < words.size(); ++i)
    {
        pointers[i] = text;
        words[i].copy(text, words[i].size());
        text += words[i].size();
        *text++ = L'\0';
    }
    pointers[words.size()] = nullptr;
    return pointers;
}
} // namespace

LPWSTR GetCommandLineW()
{
    return WithMemory<LPWSTR>(nullptr, [] {
        static std::wstring& line = *new std::wstring(ReadCommandLine());
        return line.data();
    });
}

LPWSTR* CommandLineToArgvW(LPCWSTR commandLine, int* count)
{
    if (!commandLine || !count)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return WithMemory<LPWSTR*>(nullptr, [&] {
        const std::vector<std::wstring> words = Words(commandLine);
        LPWSTR* packed = Pack(words);
        if (packed)
            *count = static_cast<int>(words.size());
        return packed;
    });
}

HLOCAL LocalFree(HLOCAL memory)
{
    std::free(memory);
    return nullptr;
}
