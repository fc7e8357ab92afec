// Hosts that answer what no host should: odd types of values, exceptions, many threads.
#include "BareObject.h"
#include "MemoryHost.h"
#include "ModuleUnderTest.h"
#include "OddValues.h"
#include "PatientUser.h"
#include "SevenClasses.h"
#include "XQPComBSTR.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <new>
#include <set>
#include <stdexcept>
#include <thread>

namespace
{
/// A data object that answers every read with the same value.
class OddObject final : public BareObject
{
public:
    explicit OddObject(const VARIANT& value) : m_value(value) {}
    ~OddObject() override { EXPECT_EQ(Count(), 0u); }

    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR, VARIANT* value) override
    {
        *value = m_value;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE IsDerivedFromClass(BSTR) override { return S_OK; }

private:
    const VARIANT m_value;
};

using Object = IQP_BaseDataObject;

/// All look-ups of the class, one after another.
void LookUpAll(IQPSelectOrvoItem& lookup, Object* of)
{
    ComPtr<Object> one;
    ComPtr<Object> two;
    XQPComBSTR name;
    lookup.GetProject(of, one.put());
    lookup.GetPlanType(of, one.put());
    lookup.GetTypeName(of, name.put());
    lookup.GetProjectAndPlanType(of, one.put(), two.put());
    lookup.GetTypeNameAndPlanType(of, name.put(), two.put());
    lookup.GetOrvoCompBase(of, XQPComBSTR(L"orvoitem"), one.put());
}

class HostileHost : public testing::Test
{
protected:
    void TearDown() override { EXPECT_EQ(module.CanUnloadNow(), S_OK); }

    const ModuleUnderTest module;
};

/// A host that throws at its n-th call.
class ThrowingHost : public HostileHost
{
protected:
    /// Runs `calls` on a host that throws with `thrower` out of its first, second, ... call, until it is not
    /// called so often. Returns how often it was called.
    int ThrowAtEach(const std::function<void()>& thrower, const std::function<void()>& calls)
    {
        for (int last = 1;; ++last)
        {
            int count = 0;
            host.onCall = [&](const std::string&) {
                if (++count == last)
                    thrower();
            };
            calls();
            host.onCall = nullptr;
            if (count < last)
                return count;
        }
    }

    MemoryHost host;
};

std::function<void(HWND)> Press(int button)
{
    return [button](HWND dialog) {
        SendMessageW(GetDlgItem(dialog, button), BM_CLICK, 0, 0);
    };
}

const std::function<void()> kThrowers[] = {[] { throw std::bad_alloc(); },
                                           [] { throw std::runtime_error("of the host"); },
                                           [] {
                                               throw 7;
                                           }};
} // namespace

TEST_F(HostileHost, InitialisesALookUpWithAValueOfAnyType)
{
    const std::vector<VARIANT> values = OddValues();
    ASSERT_EQ(values.size(), 377u);
    ComPtr<IQPSelectOrvoItem> lookup;
    ASSERT_EQ(module.Create(CLSID_QPSelectOrvoItem, lookup), S_OK);
    for (VARIANT value : values)
        EXPECT_EQ(lookup->Initialize(&value), S_OK) << value.vt;
}

TEST_F(HostileHost, AnswersLookUpsWithAValueOfAnyType)
{
    ComPtr<IQPSelectOrvoItem> lookup;
    ASSERT_EQ(module.Create(CLSID_QPSelectOrvoItem, lookup), S_OK);
    for (const VARIANT& value : OddValues())
    {
        OddObject object(value);
        LookUpAll(*lookup, &object);
    }
}

TEST_F(HostileHost, GivesTheScriptServiceObjectsWithValuesOfAnyType)
{
    ComPtr<IScriptActionAndCommandManager> manager;
    ASSERT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, manager), S_OK);
    MemoryHost host;
    const XQPComBSTR type(L"robot");
    for (const VARIANT& value : OddValues())
    {
        OddObject object(value);
        VARIANT result = {};
        manager->GetScriptsForAction(&host.Query(), &object, type, &object, 1, 0, &result);
        VariantClear(&result);
        manager->GetScriptCommands(&host.Query(), &object, type, &object, 1, XQPComBSTR(L""), &result);
        VariantClear(&result);
    }
}

TEST_F(ThrowingHost, InTheLookUpsLeavesNothingBehind)
{
    for (const std::function<void()>& thrower : kThrowers)
    {
        const int count = ThrowAtEach(thrower, [this] {
            ComPtr<IQPSelectOrvoItem> lookup;
            ASSERT_EQ(module.Create(CLSID_QPSelectOrvoItem, lookup), S_OK);
            const ComPtr<MemoryObject> object = host.Object("object");
            object->Set(L"project", host.Object("project"));
            LookUpAll(*lookup, object.get());
        });
        EXPECT_GT(count, 5);
        EXPECT_EQ(host.LiveObjects(), 0);
        host.calls.clear();
    }
}

TEST_F(ThrowingHost, InTheSearchForScriptsLeavesNothingBehind)
{
    for (const std::function<void()>& thrower : kThrowers)
    {
        const int count = ThrowAtEach(thrower, [this] {
            ComPtr<IScriptActionAndCommandManager> manager;
            ASSERT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, manager), S_OK);
            const ComPtr<MemoryObject> script = host.Named(L"Check");
            const ComPtr<MemoryObject> command = host.Object("command");
            command->Set(L"m_strPrompt", L"Check");
            command->Set(L"script", script);
            host.Query().result = host.List({command, command});
            VARIANT result = {};
            const ComPtr<MemoryObject> set = host.Object("set");
            manager->GetScriptCommands(&host.Query(), set.get(), XQPComBSTR(L"robot"), nullptr, 1,
                                       XQPComBSTR(L""), &result);
            VariantClear(&result);
            manager->GetScriptsForAction(&host.Query(), set.get(), XQPComBSTR(L"robot"), nullptr, 1, 0,
                                         &result);
            VariantClear(&result);
            host.Query().result.reset();
        });
        EXPECT_GT(count, 5);
        EXPECT_EQ(host.LiveObjects(), 0);
        host.calls.clear();
    }
}

// An exception ends the dialog with its status; after it, the component can be used as before.
TEST_F(ThrowingHost, InTheCopyOptionsLeavesNothingBehind)
{
    constexpr int advanced = 371;
    constexpr int cancel = 369;
    std::set<HRESULT> statuses;
    for (const std::function<void()>& thrower : kThrowers)
    {
        const int count = ThrowAtEach(thrower, [this, &statuses] {
            ComPtr<IQPCopyOptDlg> copy;
            ASSERT_EQ(module.Create(CLSID_QPCopyOptDlg, copy), S_OK);
            const ComPtr<MemoryEnum> list = host.List({host.Node(L"cell", L"Cell")});
            ASSERT_EQ(copy->Initialize(list.get(), &host.Config()), S_OK);
            const std::size_t before = host.calls.size();
            {
                const PatientUser user({Press(advanced), Press(advanced), Press(cancel)});
                statuses.insert(copy->ShowDialog());
            }
            EXPECT_GT(host.calls.size(), before);
            LONG option = 77;
            EXPECT_EQ(copy->GetButtonIDClicked(&option), S_OK);
            EXPECT_EQ(option, -1);
            EXPECT_EQ(copy->ApplyEnhanceCopy(list.get()), S_OK);
            EXPECT_EQ(copy->DeleteObjects(), S_OK);
        });
        EXPECT_GT(count, 20);
        EXPECT_EQ(host.LiveObjects(), 1) << "the type";
        host.calls.clear();
    }
    EXPECT_EQ(statuses, (std::set<HRESULT>{S_OK, E_OUTOFMEMORY, E_FAIL}));
}

TEST(ManyThreads, TakeAndLockFactoriesAsTheyLike)
{
    const ModuleUnderTest module;
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i)
    {
        threads.emplace_back([&module, i] {
            for (int round = 0; round < 700; ++round)
            {
                const ClassFacts& facts = kSevenClasses[(round + i) % 7];
                ComPtr<IClassFactory> factory;
                ASSERT_EQ(module.GetClassObject(facts.Class(), __uuidof(IClassFactory), factory.putVoid()),
                          S_OK);
                EXPECT_EQ(factory->LockServer(TRUE), S_OK);
                ComPtr<IUnknown> object;
                EXPECT_EQ(factory->CreateInstance(nullptr, facts.Interface(), object.putVoid()), S_OK);
                EXPECT_EQ(module.CanUnloadNow(), S_FALSE);
                EXPECT_EQ(factory->LockServer(FALSE), S_OK);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}

TEST(ManyApartments, EachHaveObjectsOfTheirOwn)
{
    const ModuleUnderTest module; // the main apartment
    std::atomic<int> created{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 6; ++i)
    {
        threads.emplace_back([&] {
            for (int round = 0; round < 50; ++round)
            {
                EXPECT_GE(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), 0);
                for (const ClassFacts& facts : kSevenClasses)
                {
                    ComPtr<IClassFactory> factory;
                    module.GetClassObject(facts.Class(), __uuidof(IClassFactory), factory.putVoid());
                    ComPtr<IUnknown> object;
                    created += factory->CreateInstance(nullptr, facts.Interface(), object.putVoid()) == S_OK;
                }
                CoUninitialize();
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(created, 6 * 50 * 7);
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}
