// Pictures of all dialogs and messages, which the demonstration shows.
#pragma once

#include "ChildProcess.h"
#include "Kit.h"

#include "Report.h"

#include <functional>
#include <set>

class DialogPictures
{
public:
    /// Called with a line for each language.
    using Says = std::function<void(const std::string&)>;

    DialogPictures(const Kit& kit, ULONGLONG patience, Says says);

    /// Takes the pictures in both languages and writes the page that shows them.
    PictureResult Take();

private:
    void TakeIn(const std::string& language);
    void Answer(ChildProcess& demo, const std::string& language, const std::filesystem::path& requests);
    void TakeOne(DWORD process, const std::string& language, const std::filesystem::path& request);
    void Fail(const std::string& sentence) { m_result.failures.push_back(sentence); }
    /// NAME of the files NAME-`where`.png.
    std::set<std::string> Names(const std::string& where) const;

    const Kit& m_kit;
    const ULONGLONG m_patience;
    const Says m_says;
    PictureResult m_result;
};
