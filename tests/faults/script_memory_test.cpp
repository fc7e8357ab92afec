// The script service while memory runs out: at every single allocation of its own, once and for good.
#include "ArrayText.h"
#include "FaultyMemory.h"
#include "MemoryHost.h"
#include "XQPComBSTR.h"

#include "XScriptActionAndCommandManager.h"

#include "UiState.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

constexpr LONG kOldValue = 42;

class ScriptMemory : public ::testing::TestWithParam<FaultyMemory::Failing>
{
protected:
    ScriptMemory()
    {
        set->Set(L"master", host.Object("masterset"));
        planType->Set(L"master", host.Object("masterplantype"));
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
             Command(L"Check(5)", weld), Command(L"Check", weld), Command(L"Check", weld)});
    }

    void FindsActions()
    {
        std::vector<ComPtr<MemoryObject>> actions;
        for (int i = 0; i < 9; ++i)
        {
            actions.push_back(host.Object("action" + std::to_string(i)));
            actions.back()->Set(L"script", Script(L"weld"));
        }
        host.Query().result = host.List(std::move(actions));
    }

    /// What one call gave.
    struct Outcome
    {
        HRESULT status = S_OK;
        bool untouched = false;
        TextRows rows;
        std::vector<std::string> calls;
        bool struck = false;
    };

    template <class Call>
    Outcome With(long n, Call&& call)
    {
        ComPtr<IScriptActionAndCommandManager> manager;
        CreateComObject<qptools::XScriptActionAndCommandManager>(
            nullptr, __uuidof(IScriptActionAndCommandManager), manager.putVoid());
        XQPComVariant result;
        result.Value().vt = VT_I4;
        result.Value().lVal = kOldValue;
        host.calls.clear();
        Outcome outcome;
        {
            const FaultyMemory memory(n, GetParam(), &MemoryHost::InCall);
            outcome.status = call(manager.get(), &result.Value());
            outcome.struck = memory.Struck();
        }
        EXPECT_EQ(CUiState::Depth(), 0);
        outcome.untouched = result.Type() == VT_I4 && result.Value().lVal == kOldValue;
        if (!outcome.untouched)
            outcome.rows = RowsOf(result.Value(), [this](IUnknown* object) { return host.NameOf(object); });
        outcome.calls = host.calls;
        return outcome;
    }

    Outcome Commands(long n)
    {
        return With(n,
                    [this](IScriptActionAndCommandManager* manager, VARIANT* result) {
                        return manager->GetScriptCommands(&host.Query(), set.get(), type, planType.get(), 1,
                                                          nullptr, result);
                    });
    }

    Outcome Scripts(long n)
    {
        return With(n,
                    [this](IScriptActionAndCommandManager* manager, VARIANT* result) {
                        return manager->GetScriptsForAction(&host.Query(), set.get(), type, planType.get(), 7,
                                                            1, result);
                    });
    }

    /// A whole run with its last cells left out.
    static bool IsPartOf(const TextRows& rows, const TextRows& whole)
    {
        if (rows.size() != whole.size())
            return false;
        bool ended = false;
        for (std::size_t row = 0; row < rows.size(); ++row)
        {
            for (std::size_t column = 0; column < rows[row].size(); ++column)
            {
                ended = ended || rows[row][column] == "-";
                if (rows[row][column] != (ended ? "-" : whole[row][column]))
                    return false;
            }
        }
        return ended;
    }

    /// The search did without some of its criteria on texts, and was otherwise whole.
    static bool LacksCriteriaOnly(const std::vector<std::string>& calls,
                                  const std::vector<std::string>& whole)
    {
        std::size_t next = 0;
        for (const std::string& call : whole)
        {
            if (next < calls.size() && calls[next] == call)
                ++next;
            else if (!call.starts_with("SetSearchAttribute(type, 1, BSTR"))
                return false;
        }
        return next == calls.size();
    }

    /// Fails every allocation in turn. Each run says that there was no memory and leaves the variant alone,
    /// or delivers a valid array: filled up to the cell that could not be put, or whole.
    template <class Call>
    void Sweep(Call&& call, bool cellsAllocate)
    {
        const Outcome whole = call(0);
        ASSERT_EQ(whole.status, S_OK);
        ASSERT_FALSE(whole.rows.empty());
        int refused = 0;
        int uncreated = 0;
        int partial = 0;
        int lacking = 0;
        for (long n = 1;; ++n)
        {
            const int objects = host.LiveObjects();
            const Outcome outcome = call(n);
            ASSERT_EQ(host.LiveObjects(), objects) << "allocation " << n;
            if (!outcome.struck)
                break;
            if (outcome.untouched)
            {
                // Without an array the status is what the walk left.
                ASSERT_TRUE(outcome.status == E_OUTOFMEMORY || outcome.calls == whole.calls)
                    << "allocation " << n;
                ++(outcome.status == E_OUTOFMEMORY ? refused : uncreated);
            }
            else if (outcome.status == E_OUTOFMEMORY)
            {
                ASSERT_TRUE(IsPartOf(outcome.rows, whole.rows)) << "allocation " << n;
                ++partial;
            }
            else
            {
                ASSERT_EQ(outcome.status, S_OK) << "allocation " << n;
                ASSERT_EQ(outcome.rows, whole.rows) << "allocation " << n;
                ASSERT_TRUE(LacksCriteriaOnly(outcome.calls, whole.calls)) << "allocation " << n;
                lacking += outcome.calls != whole.calls ? 1 : 0;
            }
        }
        EXPECT_GT(refused, 0);
        EXPECT_GT(uncreated, 0) << "without an array the variant stays and the walk's status is returned";
        EXPECT_EQ(partial > 0, cellsAllocate) << "cells that could not be put: " << partial;
        if (GetParam() == FaultyMemory::Failing::Once)
        {
            EXPECT_GT(lacking, 0) << "a criterion whose value cannot be copied is left out";
        }
    }

    MemoryHost host;
    ComPtr<MemoryObject> set = host.Object("set");
    ComPtr<MemoryObject> planType = host.Object("plantype");
    const XQPComBSTR type{L"machine"};
};

TEST_P(ScriptMemory, EveryAllocationOfGetScriptCommands)
{
    FindsCommands();
    Sweep([this](long n) { return Commands(n); }, true);
}

TEST_P(ScriptMemory, EveryAllocationOfGetScriptsForAction)
{
    FindsActions();
    // Its cells are references, which need no memory.
    Sweep([this](long n) { return Scripts(n); }, false);
}

INSTANTIATE_TEST_SUITE_P(Failing, ScriptMemory,
                         ::testing::Values(FaultyMemory::Failing::Once, FaultyMemory::Failing::FromThere),
                         [](const auto& info) {
                             return std::string(info.param == FaultyMemory::Failing::Once ? "Once"
                                                                                          : "FromThere");
                         });

} // namespace
