// The loaded catalogues and the texts handed out. Used only inside this library and its tests.
#pragma once

#include "CMessageCatalogue.h"

#include <forward_list>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

/// Reads the catalogues of the user's language at the first call and keeps every text that it has returned.
/// Not thread-safe: it is called on the host's user interface thread only, like the components. The class
/// factories and the log book, which are called on any thread, do not translate.
class CTranslator
{
public:
    /// The one of the module.
    static CTranslator& Instance();

    /// The translation of `text`; null if it is not found, and for the empty text.
    const wchar_t* Find(const wchar_t* text);

    /// A writable copy of `text` that lives until the module is unloaded. Calls with equal text share one
    /// copy. Once a caller has modified its copy, the next call creates a new one. Throws std::bad_alloc.
    wchar_t* Keep(const wchar_t* text);

    /// For tests: loads the catalogues of `directory` for `language`. Texts returned before stay valid.
    void Use(const std::wstring& directory, const std::wstring& language);

    /// For tests: reads the environment again at the next call.
    void UseEnvironment();

private:
    using Catalogues = std::vector<std::unique_ptr<CMessageCatalogue>>;
    using Copies = std::unordered_map<std::wstring, std::wstring*, WideTextHash, std::equal_to<>>;

    void Load(const std::wstring& directory, const std::wstring& language);

    bool m_loaded = false;
    Catalogues m_catalogues; // in the order in which they are searched
    Catalogues m_retired;
    std::forward_list<std::wstring> m_kept;
    Copies m_copies; // by the text that each copy had when it was created
};
