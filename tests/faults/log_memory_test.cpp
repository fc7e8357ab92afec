// The user action log when out of memory: one exception, one status, nothing is written, and the UI state is
// left.
#include "FaultyMemory.h"
#include "LogFolder.h"
#include "QPUserActionLog.h"
#include "XQPComBSTR.h"

#include "ComException.h"
#include "ComPtr.h"
#include "UiState.h"

#include <gtest/gtest.h>

#include <functional>

namespace
{
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

const std::vector<Method>& Methods()
{
    static const std::vector<Method> methods = {
        {"WriteTimeStampWithInfo",
         [](IQPUserActionLog* log) {
             return log->WriteTimeStampWithInfo(LongText());
         }},
        {"WriteLine",
         [](IQPUserActionLog* log) {
             return log->WriteLine(LongText());
         }},
        {"WriteUserActionInfo",
         [](IQPUserActionLog* log) {
             return log->WriteUserActionInfo(LongText(), LongText(), LongText(), LongText(), LongText());
         }},
        {"WriteTimeStamp", [](IQPUserActionLog* log) {
             return log->WriteTimeStamp();
         }}};
    return methods;
}

class LogMemory : public ::testing::TestWithParam<Method>
{
protected:
    LogMemory()
    {
        CreateComObject<qptools::QPUserActionLog>(nullptr, __uuidof(IQPUserActionLog), log.putVoid());
        // Creates now what the first use creates.
        GetParam().call(log.get());
        size = folder.Bytes().size();
    }

    const LogFolder folder;
    ComPtr<IQPUserActionLog> log;
    std::size_t size = 0;
};

TEST_P(LogMemory, AFailedAllocationLeavesAsOneExceptionOrIsNotSeen)
{
    for (const auto failing : {FaultyMemory::Failing::Once, FaultyMemory::Failing::FromThere})
    {
        int thrown = 0;
        bool struck = true;
        for (long n = 1; struck; ++n)
        {
            HRESULT status = S_OK;
            HRESULT exception = S_OK;
            {
                const FaultyMemory memory(n, failing);
                try
                {
                    status = GetParam().call(log.get());
                }
                catch (const ComException& failure)
                {
                    exception = failure.Status();
                }
                struck = memory.Struck();
            }
            ASSERT_EQ(CUiState::Depth(), 0) << "allocation " << n;
            ASSERT_EQ(status, S_OK) << "allocation " << n;
            const std::size_t grown = folder.Bytes().size() - size;
            size += grown;
            if (exception != S_OK)
            {
                ASSERT_EQ(exception, E_OUTOFMEMORY) << "allocation " << n;
                ASSERT_EQ(grown, 0u) << "nothing is written of a text that could not be composed";
                ++thrown;
            }
        }
        EXPECT_GT(thrown, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Methods, LogMemory, ::testing::ValuesIn(Methods()),
                         [](const auto& info) { return std::string(info.param.name); });
} // namespace
