#include "CTranslator.h"

#include "CatalogueReading.h"
#include "UserLanguage.h"

#include <iterator>
#include <string_view>
#include <utility>

CTranslator& CTranslator::Instance()
{
    static CTranslator translator;
    return translator;
}

const wchar_t* CTranslator::Find(const wchar_t* text)
{
    if (!*text)
        return nullptr;
    if (!m_loaded)
        Load(CatalogueDirectory(), UserLanguage());
    for (const auto& catalogue : m_catalogues)
        if (const std::wstring* translation = catalogue->Find(text))
            return translation->c_str();
    return nullptr;
}

wchar_t* CTranslator::Keep(const wchar_t* text)
{
    const std::wstring_view original = text;
    const auto found = m_copies.find(original);
    if (found != m_copies.end() && *found->second == original)
        return found->second->data();
    m_kept.emplace_front(original);
    m_copies.insert_or_assign(std::wstring(original), &m_kept.front());
    return m_kept.front().data();
}

void CTranslator::Use(const std::wstring& directory, const std::wstring& language)
{
    UseEnvironment();
    Load(directory, language);
}

void CTranslator::UseEnvironment()
{
    std::move(m_catalogues.begin(), m_catalogues.end(), std::back_inserter(m_retired));
    m_catalogues.clear();
    m_loaded = false;
}

void CTranslator::Load(const std::wstring& directory, const std::wstring& language)
{
    Catalogues catalogues;
    const std::vector<std::wstring> names =
        directory.empty() ? std::vector<std::wstring>() : LanguageFallbacks(language);
    for (const std::wstring& name : names)
        if (auto catalogue = ReadCatalogue(directory + L"/" + name + L"/qptools.mo"))
            catalogues.push_back(std::move(catalogue));
    m_catalogues = std::move(catalogues);
    m_loaded = true;
}
