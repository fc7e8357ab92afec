// The catalogues in use and the texts handed out. Inside this library and its tests only.
#pragma once

#include "CMessageCatalogue.h"

#include <forward_list>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

/// Reads the catalogues of the user's language when it is first asked, and keeps all that it ever gave out.
/// Translation belongs to the host's user interface thread, on which alone the components are called, and
/// locks nothing. The class factories, which serve any thread, and the log book do not translate.
class CTranslator
{
public:
    /// The module's own.
    static CTranslator& Instance();

    /// The translation of `text`, null without one and for the empty text.
    const wchar_t* Find(const wchar_t* text);

    /// A changeable copy of `text`, kept until the module is unloaded. It is the same one each time, so that
    /// as many are kept as there are different texts, until somebody changes it: whoever did has that one for
    /// himself, and the next call makes another. Throws std::bad_alloc.
    wchar_t* Keep(const wchar_t* text);

    /// For tests: from now on the catalogues of `directory` in `language`. What was given out stays good.
    void Use(const std::wstring& directory, const std::wstring& language);

    /// For tests: from now on what the environment says, read anew.
    void UseEnvironment();

private:
    using Catalogues = std::vector<std::unique_ptr<CMessageCatalogue>>;
    using Copies = std::unordered_map<std::wstring, std::wstring*, WideTextHash, std::equal_to<>>;

    void Load(const std::wstring& directory, const std::wstring& language);

    bool m_loaded = false;
    Catalogues m_catalogues; // the one asked first at the front
    Catalogues m_retired;
    std::forward_list<std::wstring> m_kept;
    Copies m_copies; // by the text that each of them had when it was made
};
