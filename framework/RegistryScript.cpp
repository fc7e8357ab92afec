#include "RegistryScript.h"

#include <cwchar>

namespace
{
/// Deeper nesting means a damaged script.
constexpr int kDeepest = 64;

struct Token
{
    std::wstring text;
    bool quoted = false;
    bool end = false;
    int line = 0;

    /// Returns true for the token `word`, ignoring case, not in quotes.
    bool Is(std::wstring_view word) const
    {
        return !quoted && !end && text.size() == word.size() && SameLetters(word);
    }

private:
    bool SameLetters(std::wstring_view word) const
    {
        for (std::size_t i = 0; i < word.size(); ++i)
        {
            if (Lower(text[i]) != Lower(word[i]))
                return false;
        }
        return true;
    }
    static wchar_t Lower(wchar_t letter)
    {
        return letter >= L'A' && letter <= L'Z' ? letter + (L'a' - L'A') : letter;
    }
};

bool IsBlank(wchar_t letter)
{
    return letter == L' ' || letter == L'\t' || letter == L'\r' || letter == L'\n';
}

struct KnownRoot
{
    const wchar_t* name;
    HKEY key;
};
const KnownRoot kRoots[] = {{L"HKCR", HKEY_CLASSES_ROOT},
                            {L"HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT},
                            {L"HKCU", HKEY_CURRENT_USER},
                            {L"HKLM", HKEY_LOCAL_MACHINE},
                            {L"HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE},
                            {L"HKEY_CURRENT_USER", HKEY_CURRENT_USER}};

/// Thrown inside the parser.
struct ParseFailure
{
    RegistryScriptError error;
};

class Parser
{
public:
    explicit Parser(std::wstring_view text) : m_text(text) { Advance(); }

    RegistryScript Read()
    {
        RegistryScript script;
        while (!m_token.end)
            script.roots.push_back(ReadRoot());
        return script;
    }

private:
    [[noreturn]] void Fail(std::wstring reason) const
    {
        throw ParseFailure{{m_token.line, std::move(reason)}};
    }

    void SkipBlanks()
    {
        for (; m_at < m_text.size() && IsBlank(m_text[m_at]); ++m_at)
            m_line += m_text[m_at] == L'\n';
    }

    void Advance()
    {
        SkipBlanks();
        m_token = Token();
        m_token.line = m_line;
        m_token.end = m_at == m_text.size();
        if (!m_token.end && m_text[m_at] == L'\'')
            ReadQuoted();
        else
        {
            while (m_at < m_text.size() && !IsBlank(m_text[m_at]))
                m_token.text += m_text[m_at++];
        }
    }

    void ReadQuoted()
    {
        m_token.quoted = true;
        for (++m_at; m_at < m_text.size(); ++m_at)
        {
            if (m_text[m_at] == L'\'')
            {
                if (m_at + 1 == m_text.size() || m_text[m_at + 1] != L'\'')
                {
                    ++m_at;
                    return;
                }
                ++m_at; // doubled: one quote of the text
            }
            m_line += m_text[m_at] == L'\n';
            m_token.text += m_text[m_at];
        }
        Fail(L"a quote is not closed");
    }

    RegistryRoot ReadRoot()
    {
        for (const KnownRoot& root : kRoots)
        {
            if (!m_token.Is(root.name))
                continue;
            RegistryRoot read{root.key, m_token.text, {}};
            Advance();
            if (!m_token.Is(L"{"))
                Fail(L"'{' expected after the root key");
            read.children = ReadBlock(1);
            return read;
        }
        Fail(L"unknown root key '" + m_token.text + L"'");
    }

    /// Parses "{ ... }"; the opening brace is the current token.
    std::vector<RegistryNode> ReadBlock(int depth)
    {
        if (depth > kDeepest)
            Fail(L"keys are nested too deep");
        std::vector<RegistryNode> nodes;
        Advance();
        while (!m_token.Is(L"}"))
        {
            if (m_token.end)
                Fail(L"'}' expected");
            nodes.push_back(ReadNode(depth));
        }
        Advance();
        return nodes;
    }

    RegistryNode ReadNode(int depth)
    {
        using Kind = RegistryNode::Kind;
        RegistryNode node;
        node.kind = ReadKind();
        node.name = ReadName(node.kind);
        if (m_token.Is(L"="))
            node.value = ReadData();
        if (node.kind == Kind::Value && !node.value)
            Fail(L"'=' expected after the name of a value");
        if (m_token.Is(L"{"))
        {
            if (node.kind == Kind::Value || node.kind == Kind::Delete)
                Fail(L"nothing can stand beneath '" + node.name + L"'");
            node.children = ReadBlock(depth + 1);
        }
        return node;
    }

    RegistryNode::Kind ReadKind()
    {
        using Kind = RegistryNode::Kind;
        static constexpr std::pair<std::wstring_view, Kind> words[] = {{L"NoRemove", Kind::NoRemove},
                                                                       {L"ForceRemove", Kind::ForceRemove},
                                                                       {L"Delete", Kind::Delete},
                                                                       {L"val", Kind::Value}};
        for (const auto& [word, kind] : words)
        {
            if (m_token.Is(word))
            {
                Advance();
                return kind;
            }
        }
        return Kind::Key;
    }

    std::wstring ReadName(RegistryNode::Kind kind)
    {
        const bool sign = m_token.Is(L"{") || m_token.Is(L"}") || m_token.Is(L"=");
        if (m_token.end || sign)
            Fail(L"a name expected");
        std::wstring name = m_token.text;
        const bool separator = name.find(L'\\') != std::wstring::npos;
        if (kind != RegistryNode::Kind::Value && (name.empty() || separator))
            Fail(L"'" + name + L"' is no name for a key");
        Advance();
        return name;
    }

    RegistryNode::Data ReadData()
    {
        Advance();
        const bool text = m_token.Is(L"s");
        if (!text && !m_token.Is(L"d"))
            Fail(L"'s' or 'd' expected after '='");
        Advance();
        if (m_token.end)
            Fail(L"a value expected");
        RegistryNode::Data data = text ? RegistryNode::Data(m_token.text) : RegistryNode::Data(ReadNumber());
        Advance();
        return data;
    }

    DWORD ReadNumber() const
    {
        const std::wstring& text = m_token.text;
        const bool hex = text.size() > 2 && text[0] == L'0' && (text[1] == L'x' || text[1] == L'X');
        const std::wstring digits = hex ? text.substr(2) : text;
        const wchar_t* allowed = hex ? L"0123456789abcdefABCDEF" : L"0123456789";
        const bool plain = !digits.empty() && digits.find_first_not_of(allowed) == std::wstring::npos;
        const unsigned long long number = plain ? std::wcstoull(digits.c_str(), nullptr, hex ? 16 : 10) : 0;
        if (!plain || number > 0xFFFFFFFFu)
            Fail(L"'" + text + L"' is no 32-bit number");
        return static_cast<DWORD>(number);
    }

    std::wstring_view m_text;
    std::size_t m_at = 0;
    int m_line = 1;
    Token m_token;
};
} // namespace

std::optional<RegistryScript> ParseRegistryScript(std::wstring_view text, RegistryScriptError& error)
{
    try
    {
        return Parser(text).Read();
    }
    catch (ParseFailure& failure)
    {
        error = std::move(failure.error);
        return std::nullopt;
    }
}
