// The base of the application object as a recorder. It takes the place of the framework's own when the test
// program is linked: one header, another source.
#pragma once

#include <windows.h>

#include <ostream>
#include <string>
#include <vector>

/// One call of the base class, and the state at the time.
struct BaseCall
{
    std::string name;
    int depth;    ///< of the module's UI state
    bool started; ///< the module object has its table

    bool operator==(const BaseCall&) const = default;
};

std::ostream& operator<<(std::ostream& out, const BaseCall& call);

/// What the base is to answer, and the calls that it got.
struct RecordedBase
{
    BOOL init = TRUE;
    int exit = 0;
    HRESULT unload = S_OK;
    BOOL entry = TRUE;
    std::vector<BaseCall> calls;
    HINSTANCE entryInstance = nullptr;
    DWORD entryReason = 0;
    bool entryProcessEnds = false;
};

extern RecordedBase g_base;
