// The memory sweeps of both property dialogs: every allocation of the module fails once.
#pragma once

#include "ModuleAllocations.h"
#include "PatientUser.h"

#include "AllocationSweep.h"
#include "FaultyMemory.h"
#include "MemoryHost.h"
#include "ModuleUnderTest.h"
#include "Untouched.h"
#include "XQPComBSTR.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

inline void Drop(HWND dialog, int combo)
{
    SendMessageW(GetDlgItem(dialog, combo), CB_SHOWDROPDOWN, TRUE, 0);
    SendMessageW(GetDlgItem(dialog, combo), CB_SHOWDROPDOWN, FALSE, 0);
}

inline void Press(HWND dialog, int button)
{
    SendMessageW(GetDlgItem(dialog, button), BM_CLICK, 0, 0);
}

class PropertyMemory : public ::testing::Test
{
protected:
    struct Result
    {
        HRESULT status = S_OK;
        std::string written;
        bool struck = false;
    };

    explicit PropertyMemory(const wchar_t* typeName) : m_typeName(typeName)
    {
        EXPECT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, service), S_OK);
    }

    /// After each run.
    virtual void OnEnded() {}

    /// Does the steps, presses OK if it is to be saved, and then, if that was refused, Cancel. The n-th
    /// allocation fails; none for 0.
    Result RunWith(long n, PatientUser::Steps steps, bool saves)
    {
        steps.push_back([saves](HWND dialog) {
            if (saves)
                Press(dialog, IDOK);
        });
        steps.push_back([](HWND dialog) { Press(dialog, IDCANCEL); });
        const PatientUser user(std::move(steps));
        host.calls.clear();
        Result run;
        {
            const FaultyMemory memory(n, FaultyMemory::Failing::Once, &IsNotOfModule);
            run.status =
                service->ShowScriptActionOrCommandDlg(&host.Manager(), &host.Config(), &host.Query(),
                                                      project.get(), set.get(), object.get(), m_typeName);
            run.struck = memory.Struck();
        }
        for (const std::string& call : host.calls)
            if (call.find(".SetAttribute") != std::string::npos)
                run.written += call;
        OnEnded();
        return run;
    }

    /// Fails every allocation in turn, of which there are `least` or more. Returns the results that occurred.
    std::set<HRESULT> Sweep(const PatientUser::Steps& steps, bool saves, long least)
    {
        RunWith(0, steps, saves); // what is allocated once and kept
        const Result whole = RunWith(0, steps, saves);
        EXPECT_EQ(whole.status, saves ? S_OK : S_FALSE);
        EXPECT_EQ(whole.written.empty(), !saves);
        std::set<HRESULT> results;
        int objects = 0;
        ULONG before = 0;
        const auto run = [&](long n) {
            objects = host.LiveObjects();
            before = Held();
            return RunWith(n, steps, saves);
        };
        FailEachAllocation(least, run, [&](const Result& failed) {
            results.insert(failed.status);
            EXPECT_EQ(host.LiveObjects(), objects);
            EXPECT_EQ(Held(), before);
            if (!failed.written.empty())
            {
                EXPECT_EQ(failed.written, whole.written) << "no part and no default is written";
                EXPECT_NE(failed.status, S_FALSE);
            }
        });
        return results;
    }

    ModuleUnderTest module;
    MemoryHost host;
    ComPtr<IScriptActionAndCommandManager> service;
    const ComPtr<MemoryObject> project = host.Object("project");
    const ComPtr<MemoryObject> set = host.Object("set");
    const ComPtr<MemoryObject> drill = host.Object("drill");
    const ComPtr<MemoryObject> milling = host.Object("milling");
    const ComPtr<MemoryObject> object = host.Object("object"); ///< that is edited

private:
    ULONG Held()
    {
        ULONG held = host.Config().References() + host.Query().References() + host.Manager().References() +
                     host.Loader().References();
        for (const ComPtr<MemoryObject>& kept : {object, set, project, drill, milling})
            held += References(kept);
        return held;
    }

    const XQPComBSTR m_typeName;
};
