// The module's objects as part of the test program.
#pragma once

#include "ClassTable.h"
#include "LogFolder.h"
#include "SevenClasses.h"

#include "ComModule.h"
#include "ComPtr.h"
#include "UiState.h"
#include "WinApp.h"

/// Starts the module in the test program, as loading it would, and ends it. Logs go to a folder of the test's
/// own.
class InsideModule : public testing::Test
{
public:
    static ObjectMapEntry& Entry(REFCLSID classId)
    {
        ObjectMapEntry* entry = qptools::g_classTable;
        while (entry->classId && *entry->classId != classId)
            ++entry;
        return *entry;
    }

protected:
    LogFolder logs;

    void SetUp() override
    {
        ASSERT_TRUE(RunModuleEntry(GetModuleHandleW(nullptr), DLL_PROCESS_ATTACH));
        ASSERT_EQ(ComModule::Get().LockCount(), 0);
    }
    void TearDown() override
    {
        EXPECT_EQ(ComModule::Get().LockCount(), 0);
        RunModuleEntry(GetModuleHandleW(nullptr), DLL_PROCESS_DETACH);
    }

    template <class T>
    static HRESULT Make(REFCLSID classId, ComPtr<T>& result)
    {
        return Entry(classId).createInstance(nullptr, __uuidof(T), result.putVoid());
    }
};
