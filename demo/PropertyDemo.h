// The properties of script actions and commands, as a host opens them and a user changes them.
#pragma once

#include "DialogDemo.h"

#include "qptools.h"

#include <string>

/// Opens both dialogs on the sample plant, changes a script action and a script command as a user would, and
/// prints what the script service finds before and after. At the end both are as they were.
class CPropertyDemo : public CDialogDemo
{
public:
    CPropertyDemo(refhost::Plant& plant, CPictures& pictures, Expectation expect);

    void Run();

private:
    void ChangeAction();
    void RestoreAction();
    void LeaveActionWithoutScript();
    void ChangeCommand();
    void RestoreCommand();

    /// Shows the dialog of an object of `table`. Returns whether it ended with OK.
    bool ShowDialog(const wchar_t* table, const wchar_t* name, const wchar_t* typeName);
    bool ShowAction(const wchar_t* name);
    bool ShowCommand(const wchar_t* name);

    /// Prints the scripts that run after a weld is created; the first of them, and its sequence, is expected
    /// to be this.
    void PrintActions(const wchar_t* heading, const std::wstring& first);

    /// Prints what the command with that prompt runs in the context menu of a painting step; that is expected
    /// to be this.
    void PrintCommand(const wchar_t* heading, const std::wstring& prompt, const std::wstring& runs);

    ComPtr<IScriptActionAndCommandManager> NewManager();
};
