// The demonstration: what the components answer on the sample plant, printed as tables and checked.
#pragma once

#include "DemoCases.h"
#include "Pictures.h"
#include "Results.h"
#include "Table.h"

#include "Plant.h"

#include "ComPtr.h"
#include "Variant.h"

#include "qptools.h"

#include <memory>
#include <string>
#include <vector>

class CDemo
{
public:
    /// `plant` answers the host calls. `language` is that of the dialogs.
    CDemo(std::unique_ptr<refhost::Plant> plant, CPictures pictures, std::wstring language);

    /// Runs all steps. Returns true if every check held; failed ones are printed.
    bool Run();

    /// Runs only the steps that open dialogs.
    bool RunDialogs();

private:
    void ShowDialogs();
    bool Conclude() const;
    void ShowScripts(const ActionCase& search);
    void ShowCommands(const CommandCase& search);
    void ShowLog();
    void ShowHostCalls() const;

    /// Calls `method`, which gets a new script service, the query, the objects of the context and the variant
    /// for the result, and looks at its status and at what it cost the host. Returns the number of rows, -1
    /// without a result.
    template <class Method>
    long Ask(const SearchContext& context, long columns, Variant& result, Method&& method);
    void CheckHostCalls(const SearchContext& context, int count, const char* calls);
    void CheckRows(const SearchContext& context, const ShownRows& rows, const ShownRows& expected);

    ComPtr<IScriptActionAndCommandManager> NewManager();
    ComPtr<IQP_BaseDataObject> Find(const wchar_t* table, const wchar_t* name);
    void Expect(bool held, const std::wstring& what);

    std::unique_ptr<refhost::Plant> m_plant;
    CPictures m_pictures;
    std::wstring m_language;
    CTable m_hostCalls;
    std::vector<std::wstring> m_broken;
};
