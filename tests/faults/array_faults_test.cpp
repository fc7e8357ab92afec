// Both methods of the script service when the array cannot be created or one of its cells cannot be put.
#include "ArrayText.h"
#include "MemoryHost.h"
#include "MemorySweep.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "XScriptActionAndCommandManager.h"

#include <gtest/gtest.h>

// The linker leads the module's calls of these two functions here, and those to __real_... on to the
// platform.
extern "C"
{
    // NOLINTBEGIN(bugprone-reserved-identifier): the linker's names
    SAFEARRAY* __real_SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds);
    HRESULT __real_SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* value);
    SAFEARRAY* __wrap_SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds);
    HRESULT __wrap_SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* value);
    // NOLINTEND(bugprone-reserved-identifier)
}

namespace
{
bool g_refusesArrays = false;
int g_cells = 0;             ///< put so far
int g_brokenCell = 0;        ///< the n-th cell from 1, 0 for none
HRESULT g_cellStatus = S_OK; ///< what it answers

class ArrayFaults : public ::testing::Test
{
protected:
    ArrayFaults()
    {
        CreateComObject<qptools::XScriptActionAndCommandManager>(
            nullptr, __uuidof(IScriptActionAndCommandManager), manager.putVoid());
        g_refusesArrays = false;
        g_cells = 0;
        g_brokenCell = 0;
        PutOldValue(result.Value());
    }
    ~ArrayFaults() override { g_brokenCell = 0; }

    ComPtr<MemoryObject> Entry(const char* name, const wchar_t* prompt, const ComPtr<MemoryObject>& script)
    {
        ComPtr<MemoryObject> entry = host.Object(name);
        entry->Set(L"m_strPrompt", prompt);
        entry->Set(L"script", script);
        return entry;
    }
    /// Two rows for either method; the last read that counts answers `last`.
    void FindsTwo(HRESULT last)
    {
        const auto broken = host.Object("broken");
        broken->Fail(L"script", last);
        host.Query().result = host.List(
            {Entry("one", L"A", host.Named(L"weld")), Entry("two", L"B", host.Named(L"drill")), broken});
    }

    HRESULT Commands()
    {
        return manager->GetScriptCommands(&host.Query(), set.get(), type, nullptr, 1, nullptr,
                                          &result.Value());
    }
    HRESULT Scripts()
    {
        return manager->GetScriptsForAction(&host.Query(), set.get(), type, nullptr, 7, 1, &result.Value());
    }
    TextRows Rows() const
    {
        return RowsOf(result.Value(), [this](IUnknown* object) { return host.NameOf(object); });
    }

    /// The first `count` cells of these rows, in the order in which they are put.
    static TextRows First(TextRows rows, int count)
    {
        for (auto& row : rows)
        {
            for (auto& cell : row)
                cell = count-- > 0 ? cell : "-";
        }
        return rows;
    }

    MemoryHost host;
    ComPtr<MemoryObject> set = host.Object("set");
    const XQPComBSTR type{L"machine"};
    ComPtr<IScriptActionAndCommandManager> manager;
    XQPComVariant result;
    const TextRows scripts = {{"<one>", "<weld>"}, {"<two>", "<drill>"}};
    const TextRows commands = {{"A", "<weld>", "1"}, {"B", "<drill>", "1"}};
};

TEST_F(ArrayFaults, WithoutAnArrayTheWalksStatusIsReturned)
{
    g_refusesArrays = true;
    for (const HRESULT last : {E_ACCESSDENIED, E_ABORT})
    {
        FindsTwo(last);
        EXPECT_EQ(Commands(), last);
        EXPECT_TRUE(IsOldValue(result.Value()));
        EXPECT_EQ(Scripts(), last);
        EXPECT_TRUE(IsOldValue(result.Value()));
    }
    host.Query().resultStatus = S_FALSE;
    EXPECT_EQ(Commands(), S_FALSE);
    EXPECT_EQ(Scripts(), S_FALSE);
    EXPECT_TRUE(IsOldValue(result.Value()));
    EXPECT_EQ(g_cells, 0);
}

TEST_F(ArrayFaults, PairsThatWereNotDeliveredAreDeliveredNextTime)
{
    FindsTwo(E_ACCESSDENIED);
    g_refusesArrays = true;
    EXPECT_EQ(Scripts(), E_ACCESSDENIED);
    g_refusesArrays = false;
    host.Query().result = host.List({});
    EXPECT_EQ(Scripts(), S_OK);
    EXPECT_EQ(Rows(), scripts);
}

TEST_F(ArrayFaults, ACellOfAnActionThatCannotBePutIsTheStatus)
{
    FindsTwo(E_ACCESSDENIED);
    for (int cell = 1; cell <= 4; ++cell)
    {
        CreateComObject<qptools::XScriptActionAndCommandManager>(
            nullptr, __uuidof(IScriptActionAndCommandManager), manager.putVoid());
        g_cells = 0;
        g_brokenCell = cell;
        g_cellStatus = cell % 2 ? DISP_E_BADINDEX : E_OUTOFMEMORY;
        EXPECT_EQ(Scripts(), g_cellStatus) << "cell " << cell;
        EXPECT_EQ(Rows(), First(scripts, cell - 1)) << "cell " << cell;
        EXPECT_EQ(g_cells, cell) << "no cell is put after it";
    }
    g_brokenCell = 0;
    EXPECT_EQ(Scripts(), S_OK);
    EXPECT_EQ(Rows().size(), 4u) << "the pairs were kept";
}

TEST_F(ArrayFaults, ACellOfACommandThatCannotBePutIsTheStatus)
{
    FindsTwo(E_ACCESSDENIED);
    for (int cell = 1; cell <= 6; ++cell)
    {
        g_cells = 0;
        g_brokenCell = cell;
        g_cellStatus = cell % 2 ? DISP_E_BADINDEX : E_OUTOFMEMORY;
        EXPECT_EQ(Commands(), g_cellStatus) << "cell " << cell;
        EXPECT_EQ(Rows(), First(commands, cell - 1)) << "cell " << cell;
        EXPECT_EQ(g_cells, cell) << "no cell is put after it";
    }
}

TEST_F(ArrayFaults, CellsThatAreAllPutHideTheStatusOfTheWalk)
{
    FindsTwo(E_ACCESSDENIED);
    EXPECT_EQ(Scripts(), S_OK);
    EXPECT_EQ(Rows(), scripts);
    EXPECT_EQ(g_cells, 4);
    EXPECT_EQ(Commands(), S_OK);
    EXPECT_EQ(Rows(), commands);
    EXPECT_EQ(g_cells, 10);
}
} // namespace

SAFEARRAY* __wrap_SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds)
{
    return g_refusesArrays ? nullptr : __real_SafeArrayCreate(type, dimensions, bounds);
}

HRESULT __wrap_SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* value)
{
    return ++g_cells == g_brokenCell ? g_cellStatus : __real_SafeArrayPutElement(array, indices, value);
}
