// The script service while memory runs out: at every single allocation of its own, once and for good, in
// every mode of searching.
#include "ArrayText.h"
#include "FaultyMemory.h"
#include "MemoryHost.h"
#include "MemorySweep.h"
#include "XQPComBSTR.h"

#include "XScriptActionAndCommandManager.h"

#include "UiState.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
struct MemoryCase
{
    const char* name;
    const wchar_t* typeName;
    bool byPlanType;
    bool withMasters;
    FaultyMemory::Failing failing;
};

std::ostream& operator<<(std::ostream& stream, const MemoryCase& memoryCase)
{
    return stream << memoryCase.name << NameOf(memoryCase.failing);
}

std::vector<MemoryCase> MemoryCases()
{
    std::vector<MemoryCase> cases;
    for (const auto failing : {FaultyMemory::Failing::Once, FaultyMemory::Failing::FromThere})
    {
        cases.push_back({"ByPlanTypeWithMasters", L"machine", true, true, failing});
        cases.push_back({"ByPlanType", L"machine", true, false, failing});
        cases.push_back({"ByType", L"machine", false, true, failing});
        cases.push_back({"ByTypeAndGeneralType", L"orvoplantype_work", false, false, failing});
    }
    return cases;
}

class ScriptMemory : public ::testing::TestWithParam<MemoryCase>
{
protected:
    ScriptMemory()
    {
        if (GetParam().withMasters)
        {
            set->Set(L"master", host.Object("masterset"));
            planType->Set(L"master", host.Object("masterplantype"));
        }
        host.Query().result = host.List({});
    }

    ComPtr<MemoryObject> Script(const wchar_t* name) { return host.Named(name); }

    ComPtr<MemoryObject> Command(const wchar_t* prompt, const ComPtr<MemoryObject>& script)
    {
        auto command = host.Object("command");
        command->Set(L"m_strPrompt", prompt);
        command->Set(L"script", script);
        return command;
    }

    ComPtr<MemoryObject> Macro(const wchar_t* prompt, const wchar_t* macro)
    {
        auto command = host.Object("macro");
        command->Set(L"m_strPrompt", prompt);
        command->Set(L"m_strVBAMacroName", macro);
        return command;
    }

    void FindsCommands()
    {
        const auto weld = Script(L"weld");
        auto number = Command(L"", weld);
        number->Set(L"m_strPrompt", LONG{17}); // needs a conversion
        host.Query().result = host.List(
            {Command(L"Check", weld), Macro(L"Draw", L"DrawAll"), Command(L"Check", weld), number,
             Command(L"", weld), Macro(L"", L"Unprompted"), Command(L"Check", weld), Macro(L"Check", L"Last"),
             Command(L"Check(5)", weld), Command(L"Check", weld), Command(L"Check", weld),
             // The last read that counts: S_FALSE.
             Command(L"", host.Object("nameless"))});
    }

    void FindsActions()
    {
        std::vector<ComPtr<MemoryObject>> actions;
        for (int i = 0; i < 9; ++i)
        {
            actions.push_back(host.Object("action" + std::to_string(i)));
            actions.back()->Set(L"script", Script(L"weld"));
        }
        // The last read that counts: S_FALSE.
        actions.push_back(host.Object("without"));
        host.Query().result = host.List(std::move(actions));
    }

    template <class Call>
    MemoryRun With(long n, Call&& call)
    {
        ComPtr<IScriptActionAndCommandManager> manager;
        CreateComObject<qptools::XScriptActionAndCommandManager>(
            nullptr, __uuidof(IScriptActionAndCommandManager), manager.putVoid());
        XQPComVariant result;
        PutOldValue(result.Value());
        host.calls.clear();
        MemoryRun run;
        {
            const FaultyMemory memory(n, GetParam().failing, &MemoryHost::InCall);
            run.status = call(manager.get(), &result.Value());
            run.struck = memory.Struck();
        }
        EXPECT_EQ(CUiState::Depth(), 0);
        run.untouched = IsOldValue(result.Value());
        if (!run.untouched)
            run.rows = RowsOf(result.Value(), [this](IUnknown* object) { return host.NameOf(object); });
        run.calls = host.calls;
        return run;
    }

    IQP_BaseDataObject* OfPlanType() { return GetParam().byPlanType ? planType.get() : nullptr; }

    MemoryRun Commands(long n)
    {
        return With(n, [this](IScriptActionAndCommandManager* manager, VARIANT* result) {
            return manager->GetScriptCommands(&host.Query(), set.get(), type, OfPlanType(), 1, nullptr,
                                              result);
        });
    }

    MemoryRun Scripts(long n)
    {
        return With(n, [this](IScriptActionAndCommandManager* manager, VARIANT* result) {
            return manager->GetScriptsForAction(&host.Query(), set.get(), type, OfPlanType(), 7, 1, result);
        });
    }

    MemoryOutcomes Sweep(std::function<MemoryRun(long n)> call)
    {
        MemorySweep sweep(std::move(call), [this] { return host.LiveObjects(); });
        sweep.ExpectWalkStatus(S_FALSE);
        sweep.Run();
        if (GetParam().failing == FaultyMemory::Failing::Once)
        {
            EXPECT_GT(sweep.Outcomes().lacking, 0) << "a criterion whose value cannot be copied is left out";
        }
        return sweep.Outcomes();
    }

    MemoryHost host;
    ComPtr<MemoryObject> set = host.Object("set");
    ComPtr<MemoryObject> planType = host.Object("plantype");
    const XQPComBSTR type{GetParam().typeName};
};

TEST_P(ScriptMemory, EveryAllocationOfGetScriptCommands)
{
    FindsCommands();
    EXPECT_GT(Sweep([this](long n) { return Commands(n); }).partial, 0) << "cells that could not be put";
}

TEST_P(ScriptMemory, EveryAllocationOfGetScriptsForAction)
{
    FindsActions();
    EXPECT_EQ(Sweep([this](long n) { return Scripts(n); }).partial, 0) << "references need no memory";
}

TEST_P(ScriptMemory, ACallAfterOneWithoutMemoryReturnsTheRowsOfBoth)
{
    FindsActions();
    TextRows once;
    for (long n = 0;; ++n)
    {
        ComPtr<IScriptActionAndCommandManager> manager;
        CreateComObject<qptools::XScriptActionAndCommandManager>(
            nullptr, __uuidof(IScriptActionAndCommandManager), manager.putVoid());
        HRESULT first = S_OK;
        bool struck = false;
        {
            const FaultyMemory memory(n, GetParam().failing, &MemoryHost::InCall);
            first = manager->GetScriptsForAction(&host.Query(), set.get(), type, OfPlanType(), 7, 1, nullptr);
            struck = memory.Struck();
        }
        // How far the first walk got: each action whose pair could be stored is kept.
        const auto reads = std::count_if(host.calls.begin(), host.calls.end(), [](const std::string& call) {
            return call.ends_with(".GetAttribute(script)");
        });
        host.calls.clear();
        XQPComVariant result;
        ASSERT_EQ(manager->GetScriptsForAction(&host.Query(), set.get(), type, OfPlanType(), 7, 1, &result),
                  S_OK)
            << "allocation " << n;
        host.calls.clear();
        const TextRows both =
            RowsOf(result.Value(), [this](IUnknown* object) { return host.NameOf(object); });
        if (n == 0)
        {
            ASSERT_EQ(both.size(), 18u);
            once.assign(both.begin(), both.begin() + 9);
            continue;
        }
        if (!struck)
            break;
        ASSERT_GE(both.size(), once.size()) << "allocation " << n;
        const std::size_t kept = both.size() - once.size();
        TextRows expected(once.begin(), once.begin() + static_cast<std::ptrdiff_t>(kept));
        expected.insert(expected.end(), once.begin(), once.end());
        ASSERT_EQ(both, expected) << "allocation " << n;
        // The read at which memory ran out is of an action that could not be kept.
        ASSERT_EQ(kept, first == E_OUTOFMEMORY
                            ? static_cast<std::size_t>(std::max<std::ptrdiff_t>(reads, 1) - 1)
                            : 9u)
            << "allocation " << n;
    }
}

INSTANTIATE_TEST_SUITE_P(Modes, ScriptMemory, ::testing::ValuesIn(MemoryCases()), [](const auto& info) {
    return std::string(info.param.name) + NameOf(info.param.failing);
});
} // namespace
