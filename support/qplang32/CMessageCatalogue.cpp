#include "CMessageCatalogue.h"

#include "CCatalogueFile.h"

#include "TextCompare.h"
#include "Utf8.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr std::string_view kCharset = "charset=";
constexpr std::wstring_view kUtf8 = L"utf-8";

// A header without a character set is taken for UTF-8, which is checked text by text.
bool SaysOtherThanUtf8(std::string_view header)
{
    const std::size_t found = header.find(kCharset);
    if (found == std::string_view::npos)
        return false;
    const std::string_view named = header.substr(found + kCharset.size());
    std::wstring name;
    return !WideFromUtf8(named.substr(0, named.find_first_of(" \t\r\n;")), name) ||
           !SameIgnoringCase(name, kUtf8);
}

// The forms of a plural entry are separated by null characters.
void KeepFirstForm(std::wstring& text)
{
    text.resize(std::min(text.size(), text.find(L'\0')));
}
} // namespace

const wchar_t* CMessageCatalogue::Read(std::string_view bytes)
{
    m_texts.clear();
    CCatalogueFile file(bytes);
    if (const wchar_t* wrong = file.Check())
        return wrong;
    Texts texts;
    for (std::uint32_t index = 0; index < file.Count(); ++index)
    {
        if (file.Text(index).empty() && SaysOtherThanUtf8(file.Translation(index)))
            return L"the texts are not in UTF-8";
        std::wstring text;
        std::wstring translation;
        if (!WideFromUtf8(file.Text(index), text) || !WideFromUtf8(file.Translation(index), translation))
            return L"a text is not valid UTF-8";
        KeepFirstForm(text);
        KeepFirstForm(translation);
        if (!text.empty() && !translation.empty())
            texts.try_emplace(std::move(text), std::move(translation));
    }
    m_texts = std::move(texts);
    return nullptr;
}

const std::wstring* CMessageCatalogue::Find(std::wstring_view text) const
{
    const auto found = m_texts.find(text);
    return found == m_texts.end() ? nullptr : &found->second;
}
