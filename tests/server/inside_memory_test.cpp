#include "FaultyMemory.h"
#include "InsideModule.h"

#include "ComException.h"
#include "UiState.h"

#include "qptools.h"

#include <functional>

namespace
{
class NoReference final : public IUnknown
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
};

class Memory : public InsideModule, public testing::WithParamInterface<ClassFacts>
{
protected:
    HRESULT MakeWith(IUnknown* outer, void** result)
    {
        return Entry(GetParam().Class()).createInstance(outer, __uuidof(IUnknown), result);
    }
};
INSTANTIATE_TEST_SUITE_P(Classes, Memory, testing::ValuesIn(kSevenClasses), ClassTestName);

TEST_P(Memory, ExhaustedInCreateInstanceIsAStatusAndLeavesNothing)
{
    const CLSID classId = GetParam().Class();
    void* made = this;
    HRESULT status = S_OK;
    {
        const FaultyMemory none(1);
        status = Entry(classId).createInstance(nullptr, __uuidof(IUnknown), &made);
    }
    EXPECT_EQ(status, E_OUTOFMEMORY);
    EXPECT_EQ(E_OUTOFMEMORY, static_cast<HRESULT>(0x8007000Eu));
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(ComModule::Get().LockCount(), 0);
}

TEST_P(Memory, ThatRunsOutWhileAFactoryIsMadeIsItsStatus)
{
    const CLSID classId = GetParam().Class();
    void* made = this;
    HRESULT status = S_OK;
    {
        const FaultyMemory none(1);
        status = ComModule::Get().GetClassObject(classId, __uuidof(IClassFactory), &made);
    }
    EXPECT_EQ(status, E_OUTOFMEMORY);
    EXPECT_EQ(made, nullptr);
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(ComModule::Get().GetClassObject(classId, __uuidof(IClassFactory), factory.putVoid()), S_OK);
}

TEST_P(Memory, IsNotTouchedByARefusalToBeAggregated)
{
    NoReference outer;
    const CLSID classId = GetParam().Class();
    const auto create = Entry(classId).createInstance;
    void* made = this;
    HRESULT status = S_OK;
    long allocations = -1;
    {
        const FaultyMemory memory(0);
        status = create(&outer, __uuidof(IUnknown), &made);
        allocations = memory.Count();
    }
    if (GetParam().aggregatable)
    {
        EXPECT_EQ(status, S_OK);
        EXPECT_GE(allocations, 1);
        static_cast<IUnknown*>(made)->Release();
        return;
    }
    EXPECT_EQ(status, CLASS_E_NOAGGREGATION);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(allocations, 0);
}

class LogWithoutMemory : public InsideModule
{
protected:
    void SetUp() override
    {
        InsideModule::SetUp();
        ASSERT_EQ(Make(CLSID_QPUserActionLog, log), S_OK);
    }
    void TearDown() override
    {
        log.reset();
        InsideModule::TearDown();
    }

    /// The status of the exception that leaves `call` when out of memory, or that of the call itself.
    static HRESULT StatusThatLeaves(const std::function<HRESULT()>& call)
    {
        const FaultyMemory none(1);
        try
        {
            return call();
        }
        catch (const ComException& failure)
        {
            return failure.Status();
        }
    }

    ComPtr<IQPUserActionLog> log;
    wchar_t text[5] = L"text";
};

TEST_F(LogWithoutMemory, LeavesTheMethodAsAnExceptionAndLeavesTheUiState)
{
    const auto call = [this] {
        return log->WriteUserActionInfo(text, text, text, text, text);
    };
    HANDLE before = nullptr;
    GetCurrentActCtx(&before);
    EXPECT_THROW(
        {
            const FaultyMemory none(1);
            call();
        },
        ComException);
    EXPECT_EQ(StatusThatLeaves(call), E_OUTOFMEMORY);
    HANDLE after = nullptr;
    GetCurrentActCtx(&after);
    EXPECT_EQ(after, before);
    EXPECT_EQ(CUiState::Depth(), 0);
    EXPECT_EQ(CurrentModule(), nullptr);
}

TEST_F(LogWithoutMemory, AnythingElseThatLeavesWouldEndTheTest)
{
    for (int failFrom = 1; failFrom < 40; ++failFrom)
    {
        HRESULT status = E_FAIL;
        {
            const FaultyMemory some(failFrom);
            try
            {
                status = log->WriteTimeStampWithInfo(text);
            }
            catch (const ComException& failure)
            {
                status = failure.Status();
            }
        }
        EXPECT_TRUE(status == S_OK || status == E_OUTOFMEMORY) << failFrom;
        EXPECT_EQ(CUiState::Depth(), 0);
    }
}
} // namespace
