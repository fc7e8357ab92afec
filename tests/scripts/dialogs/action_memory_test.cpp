// The property dialog of a script action while memory runs out: at every single allocation of its own, while
// it opens, drops its lists down and saves. Natively only: the system's own allocators on Windows do not fail
// on request.
#include "ModuleAllocations.h"
#include "PatientUser.h"

#include "FaultyMemory.h"
#include "MemoryHost.h"
#include "ModuleUnderTest.h"
#include "Untouched.h"
#include "XQPComBSTR.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace
{
struct Outcome
{
    HRESULT status = S_OK;
    std::string written;
    bool struck = false;
};

class ActionMemory : public ::testing::Test
{
protected:
    static constexpr int kScript = 256;
    static constexpr int kPlanType = 266;

    /// A record with all its attributes, of a plan type that is listed.
    ActionMemory()
    {
        EXPECT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, service), S_OK);
        set->Children(L"orvoplantype", host.List({assembly}));
        host.Query().result = host.List({drill});
        MemoryAttribute* values = host.Config().Type(L"scriptaction")->Attribute(L"actiontype");
        values->Value(L"Open", 1)->Value(L"Close", 2);
        for (const ComPtr<MemoryObject>& object : {drill, assembly})
            object->Set(L"m_name", L"A name")->Set(L"name", L"A name");
        action->Set(L"m_name", L"Deburr")->Set(L"m_prompt", L"Ask first")->Set(L"m_pScript", drill);
        action->Set(L"orvoplantype", assembly)->Set(L"m_pPlanType", assembly)->Set(L"m_actionType", 2);
        action->Set(L"m_beforeAfter", 1)->Set(L"m_iSequence", 30)->Set(L"m_bEnabled", 1);
    }

    static void Drop(HWND dialog, int combo)
    {
        SendMessageW(GetDlgItem(dialog, combo), CB_SHOWDROPDOWN, TRUE, 0);
        SendMessageW(GetDlgItem(dialog, combo), CB_SHOWDROPDOWN, FALSE, 0);
    }

    /// Opens the lists, presses OK and then, if that was refused, Cancel. The n-th allocation fails.
    Outcome RunWith(long n, bool saves)
    {
        const PatientUser user({[](HWND dialog) { Drop(dialog, kScript); },
                                [](HWND dialog) { Drop(dialog, kPlanType); },
                                [saves](HWND dialog) {
                                    if (saves)
                                        SendMessageW(GetDlgItem(dialog, IDOK), BM_CLICK, 0, 0);
                                },
                                [](HWND dialog) {
                                    SendMessageW(GetDlgItem(dialog, IDCANCEL), BM_CLICK, 0, 0);
                                }});
        host.calls.clear();
        const XQPComBSTR typeName(L"XDOScriptAction");
        Outcome run;
        {
            const FaultyMemory memory(n, FaultyMemory::Failing::Once, &IsNotOfModule);
            run.status =
                service->ShowScriptActionOrCommandDlg(&host.Manager(), &host.Config(), &host.Query(),
                                                      project.get(), set.get(), action.get(), typeName);
            run.struck = memory.Struck();
        }
        for (const std::string& call : host.calls)
            if (call.find(".SetAttribute") != std::string::npos)
                run.written += call;
        return run;
    }

    ULONG Held()
    {
        return host.Config().References() + host.Query().References() + References(action) + References(set) +
               References(project) + References(drill) + References(assembly);
    }

    /// Fails every allocation in turn. Returns the results that occurred.
    std::set<HRESULT> Sweep(bool saves)
    {
        RunWith(0, saves); // what is made once and kept
        const Outcome whole = RunWith(0, saves);
        EXPECT_EQ(whole.status, saves ? S_OK : S_FALSE);
        EXPECT_EQ(whole.written.empty(), !saves);
        std::set<HRESULT> results;
        long n = 1;
        for (; !HasFailure(); ++n)
        {
            SCOPED_TRACE("allocation " + std::to_string(n));
            const int objects = host.LiveObjects();
            const ULONG held = Held();
            const Outcome run = RunWith(n, saves);
            if (!run.struck)
                break;
            results.insert(run.status);
            EXPECT_EQ(host.LiveObjects(), objects);
            EXPECT_EQ(Held(), held);
            if (!run.written.empty())
            {
                EXPECT_EQ(run.written, whole.written) << "no part and no default is written";
                EXPECT_NE(run.status, S_FALSE);
            }
        }
        EXPECT_GT(n, 80);
        return results;
    }

    ModuleUnderTest module;
    MemoryHost host;
    ComPtr<IScriptActionAndCommandManager> service;
    const ComPtr<MemoryObject> project = host.Object("project");
    const ComPtr<MemoryObject> set = host.Object("set");
    const ComPtr<MemoryObject> drill = host.Object("drill");
    const ComPtr<MemoryObject> assembly = host.Object("assembly");
    const ComPtr<MemoryObject> action = host.Object("action");
};

TEST_F(ActionMemory, EndsTheDialogOrCostsAList)
{
    EXPECT_EQ(Sweep(false), (std::set<HRESULT>{S_FALSE, E_OUTOFMEMORY}));
}

TEST_F(ActionMemory, WritesEverythingOrNothing)
{
    EXPECT_EQ(Sweep(true), (std::set<HRESULT>{S_OK, S_FALSE, E_OUTOFMEMORY}));
}

TEST_F(ActionMemory, TheNextDialogIsUnaffected)
{
    RunWith(5, true);
    EXPECT_EQ(RunWith(0, true).status, S_OK);
}
} // namespace
