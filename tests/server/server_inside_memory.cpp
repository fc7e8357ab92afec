#include "CountedMemory.h"
#include "InsideModule.h"

#include "qptools.h"

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
} // namespace

TEST_P(Memory, ThatRunsOutWhileAnObjectIsMadeIsItsStatusAndLeavesNothing)
{
    const CLSID classId = GetParam().Class();
    void* made = this;
    HRESULT status = S_OK;
    {
        const CountedMemory none(1);
        status = Entry(classId).createInstance(nullptr, __uuidof(IUnknown), &made);
    }
    EXPECT_EQ(status, E_OUTOFMEMORY);
    EXPECT_EQ(E_OUTOFMEMORY, static_cast<HRESULT>(0x8007000Eu));
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(ComModule::Get().LockCount(), 0);
}

TEST_P(Memory, ThatRunsOutWhileAFactoryIsMadeIsItsStatusAndTheNextRequestSucceeds)
{
    const CLSID classId = GetParam().Class();
    void* made = this;
    HRESULT status = S_OK;
    {
        const CountedMemory none(1);
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
    int allocations = -1;
    {
        const CountedMemory counted;
        status = create(&outer, __uuidof(IUnknown), &made);
        allocations = CountedMemory::Count();
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
