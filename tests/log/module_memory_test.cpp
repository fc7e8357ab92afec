// What a host sees when the module is out of memory, and that both can continue. On Windows only, where the
// module is a file of its own with a runtime of its own.
#include "LogFolder.h"
#include "ModuleMemory.h"
#include "ModuleUnderTest.h"
#include "XQPComBSTR.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

namespace
{
/// The codes with which the compiler's runtime raises a C++ exception, and with which it unwinds to the
/// handler that it found.
constexpr DWORD kThrown = 0x20474343;
constexpr DWORD kUnwinding = 0x21474343;

std::vector<DWORD> g_codes;

LONG CALLBACK NoteException(EXCEPTION_POINTERS* exception)
{
    g_codes.push_back(exception->ExceptionRecord->ExceptionCode);
    return EXCEPTION_CONTINUE_SEARCH;
}

/// While it exists, the codes of all exceptions of the process are appended to g_codes.
class NotedExceptions
{
public:
    NotedExceptions()
    {
        g_codes.clear();
        g_codes.reserve(16);
        m_handler = AddVectoredExceptionHandler(1, NoteException);
    }
    ~NotedExceptions() { RemoveVectoredExceptionHandler(m_handler); }
    NotedExceptions(const NotedExceptions&) = delete;
    NotedExceptions& operator=(const NotedExceptions&) = delete;

private:
    void* m_handler;
};

struct Method
{
    const char* name;
    std::function<HRESULT(IQPUserActionLog*)> call;
};

/// Longer than what a string holds without allocating.
const XQPComBSTR& LongText()
{
    static const XQPComBSTR text(
        L"a text that is longer than any string keeps within itself, by a good deal");
    return text;
}

class ModuleWithoutMemory : public ::testing::TestWithParam<Method>
{
protected:
    ModuleWithoutMemory()
    {
        EXPECT_EQ(module.Create(CLSID_QPUserActionLog, log), S_OK);
        // Creates now what the first use creates.
        GetParam().call(log.get());
        Grown();
    }

    /// Calls the method while the module's n-th allocation fails. Returns whether an exception left it.
    bool Leaves(int n, bool& struck)
    {
        const NotedExceptions exceptions;
        const ModuleMemory memory(module.Handle(), n);
        bool caught = false;
        try
        {
            EXPECT_EQ(GetParam().call(log.get()), S_OK);
        }
        catch (...)
        {
            caught = true;
        }
        struck = memory.Struck();
        return caught;
    }

    std::size_t Grown()
    {
        const std::size_t before = std::exchange(size, folder.Bytes().size());
        return size - before;
    }

    const LogFolder folder;
    ModuleUnderTest module;
    ComPtr<IQPUserActionLog> log;
    std::size_t size = 0;
};

TEST_P(ModuleWithoutMemory, AFailedAllocationIsOneCppExceptionOrNotNoticed)
{
    int left = 0;
    bool struck = true;
    for (int n = 1; struck; ++n)
    {
        const bool caught = Leaves(n, struck);
        const std::size_t grown = Grown();
        if (!caught)
            continue;
        ++left;
        ASSERT_FALSE(g_codes.empty());
        EXPECT_EQ(g_codes.front(), kThrown);
        for (const DWORD code : g_codes)
            EXPECT_TRUE(code == kThrown || code == kUnwinding) << std::hex << code;
        EXPECT_EQ(grown, 0u) << "written of a text that could not be composed, allocation " << n;
    }
    EXPECT_GT(left, 0) << "no allocation of the module failed";
    EXPECT_EQ(GetParam().call(log.get()), S_OK);
    EXPECT_GT(Grown(), 0u) << "the object stays usable";
}

INSTANTIATE_TEST_SUITE_P(Methods, ModuleWithoutMemory,
                         ::testing::Values(Method{"WriteTimeStampWithInfo",
                                                  [](IQPUserActionLog* log) {
                                                      return log->WriteTimeStampWithInfo(LongText());
                                                  }},
                                           Method{"WriteLine",
                                                  [](IQPUserActionLog* log) {
                                                      return log->WriteLine(LongText());
                                                  }},
                                           Method{"WriteUserActionInfo",
                                                  [](IQPUserActionLog* log) {
                                                      return log->WriteUserActionInfo(LongText(), LongText(),
                                                                                      LongText(), LongText(),
                                                                                      LongText());
                                                  }},
                                           Method{"WriteTimeStamp",
                                                  [](IQPUserActionLog* log) {
                                                      return log->WriteTimeStamp();
                                                  }}),
                         [](const auto& info) { return std::string(info.param.name); });
} // namespace
