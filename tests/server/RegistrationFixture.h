// What tests of the module's registration share.
#pragma once

#include "LogFolder.h"
#include "ModuleUnderTest.h"
#include "SevenClasses.h"
#include "TestRegistry.h"

#include <string>
#include <vector>

inline const wchar_t* const kLibraryId = L"{B59FF2AB-0C7E-46F3-8FF1-2D951BC82743}";

/// The module with an empty registry and a log folder of the test's own. The test's registry comes last, so
/// that what ModuleUnderTest registers natively is not in it.
class RegistrationFixture : public testing::Test
{
protected:
    LogFolder logs;
    ModuleUnderTest module;
    TestRegistry registry;

    static std::wstring ClassKey(const ClassFacts& facts) { return std::wstring(L"CLSID\\") + facts.classId; }
    static std::wstring TypeLibraryKey() { return std::wstring(L"TypeLib\\") + kLibraryId; }

    /// Everything but the type library, which is Windows's own business.
    std::vector<std::wstring> Classes() const
    {
        std::vector<std::wstring> lines = registry.Dump();
        std::erase_if(lines,
                      [](const std::wstring& line) {
                          return CompareStringOrdinal(line.substr(0, 7).c_str(), -1, L"TypeLib", -1, TRUE) ==
                                 CSTR_EQUAL;
                      });
        return lines;
    }
};
