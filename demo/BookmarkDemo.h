// Bookmarks, as the navigator makes them and a user opens, renames and deletes them.
#pragma once

#include "DialogDemo.h"
#include "StoredBookmarks.h"

#include "Steps.h"

#include "qptools.h"

#include <string>
#include <vector>

class BoxAnswers;
class CTable;

/// Makes bookmarks on the sample plant, goes through the dialog as a user would, and prints the key store
/// after each step. At the end the plant and its key store are as they were.
class CBookmarkDemo : public CDialogDemo
{
public:
    /// `hostCalls` gets a row for what the list of a project costs.
    CBookmarkDemo(refhost::Plant& plant, CPictures& pictures, CTable& hostCalls, Expectation expect);

    void Run();

private:
    void MakeBookmarks();
    void ListAndSort();
    void Rename();
    void Open();
    void Delete();
    void DeleteAll();
    void FindNone();

    // The user.
    Steps ShowsBothProjects();
    Steps SortsByBothHeadings();
    Steps MakesTheDialogLarger();
    Steps Renames(const wchar_t* bookmark, const wchar_t* typed, const char* key = "Return");
    Steps FindsNoObject(const wchar_t* bookmark);
    Steps DeletesOne();
    Steps DeletesTwo();
    DialogStep Prints(std::vector<std::wstring> bookmarks);

    // The host.
    void AddBookmark(const wchar_t* project, const wchar_t* table, const wchar_t* object,
                     const wchar_t* name);
    void Show(Steps steps);

    /// Shows the dialog, which ends by itself.
    void Show();
    void ChooseAndCount(const DialogView& view, const wchar_t* project);

    /// Prints the next box, and answers it.
    void AnswerQuestion(BoxAnswers& boxes, const char* picture, int answer);

    /// `expected`: what InOneLine says of each project, behind its name and ": ".
    void PrintStore(const std::vector<std::wstring>& expected);

    CTable& m_hostCalls;
    ObjectNames m_names;
};
