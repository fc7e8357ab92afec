// The demonstration: what the components answer on the sample plant, printed as tables and checked.
#pragma once

#include "Table.h"

#include "Plant.h"

#include "ComPtr.h"

#include "qptools.h"

#include <memory>
#include <string>
#include <vector>

/// A search for the scripts of an action, and what the sample plant holds for it.
struct ActionCase
{
    const wchar_t* title;
    const wchar_t* planTypeSet;
    const wchar_t* typeName;
    const wchar_t* planType; ///< null: a search by type
    int actionType;
    int beforeAfter; ///< 0 after, 1 before
    long rows;
};

/// A search for commands, and what the sample plant holds for it.
struct CommandCase
{
    const wchar_t* title;
    const wchar_t* planTypeSet;
    const wchar_t* typeName;
    const wchar_t* planType; ///< null: a search by type
    int userInterfaceType;   ///< 1 context menu, 2 properties sheet
    long rows;
};

class CDemo
{
public:
    /// Takes the plant that the host side answers from.
    explicit CDemo(std::unique_ptr<refhost::Plant> plant);

    /// Runs all steps. Returns true if everything held; what did not has been printed.
    bool Run();

private:
    void ShowScripts(const ActionCase& search);
    void ShowCommands(const CommandCase& search);
    void ShowLog();
    void ShowHostCalls() const;

    ComPtr<IScriptActionAndCommandManager> NewManager();
    ComPtr<IQP_BaseDataObject> Find(const wchar_t* table, const wchar_t* name);
    void CountHostCalls(const wchar_t* title, long rows);
    void Expect(bool held, const std::wstring& what);

    std::unique_ptr<refhost::Plant> m_plant;
    CTable m_hostCalls;
    std::vector<std::wstring> m_broken;
};
