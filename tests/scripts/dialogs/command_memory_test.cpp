// The property dialog of a script command while memory runs out: at every single allocation of its own, while
// it opens, drops its lists down and saves. Natively only: the system's own allocators on Windows do not fail
// on request.
#include "CommandWords.h"
#include "ModuleAllocations.h"
#include "PatientUser.h"

#include "FaultyMemory.h"
#include "MemoryHost.h"
#include "ModuleUnderTest.h"
#include "RegisteredProgId.h"
#include "Untouched.h"
#include "XQPComBSTR.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <set>

namespace
{
using namespace command_dialog;

void Drop(HWND dialog, int combo)
{
    SendMessageW(GetDlgItem(dialog, combo), CB_SHOWDROPDOWN, TRUE, 0);
    SendMessageW(GetDlgItem(dialog, combo), CB_SHOWDROPDOWN, FALSE, 0);
}

void Press(HWND dialog, int button)
{
    SendMessageW(GetDlgItem(dialog, button), BM_CLICK, 0, 0);
}

PatientUser::Steps operator+(PatientUser::Steps first, const PatientUser::Steps& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

struct Result
{
    HRESULT status = S_OK;
    std::string written;
    bool struck = false;
};

class CommandMemory : public ::testing::Test
{
protected:
    /// A record with all its attributes, of a type that is listed.
    CommandMemory()
    {
        EXPECT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, service), S_OK);
        MemoryType* cell = host.Config().Type(L"cell");
        cell->Page(L"General", 1);
        cell->Page(L"Costs", 2);
        host.Config().Type(L"scriptcommand");
        set->Children(L"orvoplantype", host.List({milling}));
        drill->Set(L"m_name", L"Drill")->Set(L"name", L"Drill");
        milling->Set(L"m_name", L"Milling")->Set(L"name", L"Milling")->Set(L"configtypename", L"cell");
        command->Set(L"m_name", L"Deburr")->Set(L"m_strPrompt", L"Deburr now")->Set(L"m_pScript", drill);
        command->Set(L"m_strType", L"cell")->Set(L"m_bVisible", 1)->Set(L"m_lUserInterfaceType", 3);
        command->Set(L"m_nameShort", L"0")->Set(L"customizationobjectid", L"2");
        command->Set(L"customizationobjecttype", LONG{0});
        host.onCall = [this](const std::string& call) {
            if (call == "SetSearchTable(vbaproject)")
                host.Query().result = projects;
            else if (call == "SetSearchTable(script)")
                host.Query().result = scripts;
        };
        host.Loader().Macros({L"Weld", L"Grind"});
    }
    ~CommandMemory() override
    {
        host.onCall = nullptr;
        host.Query().result.reset();
    }

    /// Does the steps, presses OK if it is to be saved, and then, if that was refused, Cancel. The n-th
    /// allocation fails.
    Result RunWith(long n, const PatientUser::Steps& steps, bool saves)
    {
        const PatientUser user(steps + PatientUser::Steps{[saves](HWND dialog) {
                                                              if (saves)
                                                                  Press(dialog, IDOK);
                                                          },
                                                          [](HWND dialog) {
                                                              Press(dialog, IDCANCEL);
                                                          }});
        host.calls.clear();
        const XQPComBSTR typeName(L"XDOScriptCommand");
        Result run;
        {
            const FaultyMemory memory(n, FaultyMemory::Failing::Once, &IsNotOfModule);
            run.status =
                service->ShowScriptActionOrCommandDlg(&host.Manager(), &host.Config(), &host.Query(),
                                                      project.get(), set.get(), command.get(), typeName);
            run.struck = memory.Struck();
        }
        if (!host.calls.empty() && host.calls.back().find("SetAttributes(") != std::string::npos)
            run.written = host.calls.back();
        ReleaseOpen();
        return run;
    }

    /// The reference to a VBA project that stays open on purpose.
    void ReleaseOpen()
    {
        while (References(vbaProject) > 2)
            vbaProject->Release();
    }

    ULONG Held()
    {
        ULONG held = host.Config().References() + host.Query().References() + host.Manager().References() +
                     host.Loader().References();
        for (const auto& object : {command, set, project, drill, milling})
            held += References(object);
        return held;
    }

    /// Fails every allocation in turn. Returns the results that occurred.
    std::set<HRESULT> Sweep(const PatientUser::Steps& steps, bool saves)
    {
        RunWith(0, steps, saves); // what is made once and kept
        const Result whole = RunWith(0, steps, saves);
        EXPECT_EQ(whole.status, saves ? S_OK : S_FALSE);
        EXPECT_EQ(whole.written.empty(), !saves);
        std::set<HRESULT> results;
        long n = 1;
        for (; !HasFailure(); ++n)
        {
            SCOPED_TRACE("allocation " + std::to_string(n));
            const int objects = host.LiveObjects();
            const ULONG held = Held();
            const Result run = RunWith(n, steps, saves);
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
        EXPECT_GT(n, 50) << "hardly an allocation was found";
        return results;
    }

    ModuleUnderTest module;
    MemoryHost host;
    ComPtr<IScriptActionAndCommandManager> service;
    const ComPtr<MemoryObject> project = host.Object("project");
    const ComPtr<MemoryObject> set = host.Object("set");
    const ComPtr<MemoryObject> drill = host.Object("drill");
    const ComPtr<MemoryObject> milling = host.Object("milling");
    const ComPtr<MemoryObject> command = host.Object("command");
    const RegisteredProgId progId{MemoryLoader::kProgId, MemoryLoader::kClass};
    const ComPtr<MemoryObject> vbaProject = host.Object("vba project");
    const ComPtr<MemoryEnum> projects = host.List({vbaProject});
    const ComPtr<MemoryEnum> scripts = host.List({drill});
};

const std::set<HRESULT> kClosedOrFailed = {S_FALSE, E_OUTOFMEMORY};
/// A list that could not be read makes OK refuse.
const std::set<HRESULT> kSavedClosedOrFailed = {S_OK, S_FALSE, E_OUTOFMEMORY};

TEST_F(CommandMemory, EndsTheDialogThatOpens)
{
    EXPECT_EQ(Sweep({}, false), kClosedOrFailed);
}

TEST_F(CommandMemory, EndsTheDialogOrCostsAList)
{
    EXPECT_EQ(Sweep({[](HWND dialog) { Drop(dialog, kElement); }, [](HWND dialog) { Drop(dialog, kScript); },
                     [](HWND dialog) { Drop(dialog, kMacro); }, [](HWND dialog) { Drop(dialog, kPlanType); },
                     [](HWND dialog) { Drop(dialog, kConfigType); },
                     [](HWND dialog) {
                         Drop(dialog, kExecution);
                     }},
                    false),
              kClosedOrFailed);
}

TEST_F(CommandMemory, WritesAllOfACommandOrNothing)
{
    EXPECT_EQ(Sweep({}, true), kSavedClosedOrFailed);
}

TEST_F(CommandMemory, WritesAllOfAMacroOrNothing)
{
    command->Set(L"m_pScript", L"")->Set(L"m_strVBAMacroName", L"Weld");
    Sweep({[](HWND dialog) {
              Drop(dialog, kMacro);
          }},
          true);
}

TEST_F(CommandMemory, WritesAllOfAPlanTypeOrNothing)
{
    command->Set(L"orvoplantype", milling)->Set(L"m_pPlanType", milling)->Set(L"m_strType", L"");
    EXPECT_EQ(Sweep({}, true), kSavedClosedOrFailed);
}

TEST_F(CommandMemory, DoesNotSpoilTheNextDialog)
{
    RunWith(5, {}, true);
    EXPECT_EQ(RunWith(0, {}, true).status, S_OK);
}
} // namespace
