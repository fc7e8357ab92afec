// What tests of the module's registration share.
#pragma once

#include "LogFolder.h"
#include "ModuleUnderTest.h"
#include "SevenClasses.h"
#include "TestRegistry.h"

#include "Resources.h"

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
    /// The same as the log book shows it.
    static std::string LoggedKey(const ClassFacts& facts)
    {
        const std::wstring id = facts.classId;
        return "HKCR\\\\CLSID\\\\" + std::string(id.begin(), id.end());
    }
    static std::wstring TypeLibraryKey() { return std::wstring(L"TypeLib\\") + kLibraryId; }

    /// The keys and values of one class, in no order.
    std::vector<std::wstring> ExpectedOf(const ClassFacts& facts) const
    {
        const std::wstring title = std::wstring(facts.name) + L" Class";
        const std::wstring shown = facts.shownPrefix + std::wstring(facts.name);
        std::vector<std::wstring> lines;
        const auto key = [&](const std::wstring& path, const std::wstring& value) {
            lines.push_back(path);
            lines.push_back(path + L" [] 1:" + value);
        };
        for (const std::wstring& progId : {facts.ProgId(), facts.ProgId() + L".1"})
        {
            key(progId, title);
            key(progId + L"\\CLSID", facts.classId);
        }
        key(facts.ProgId() + L"\\CurVer", shown + L".1");
        key(ClassKey(facts), title);
        lines.push_back(ClassKey(facts) + L" [TypeLib] 1:" + kLibraryId);
        key(ClassKey(facts) + L"\\ProgID", shown + L".1");
        key(ClassKey(facts) + L"\\VersionIndependentProgID", shown);
        key(ClassKey(facts) + L"\\InprocServer32", ModulePath(module.Handle()));
        if (facts.apartment)
            lines.push_back(ClassKey(facts) + L"\\InprocServer32 [ThreadingModel] 1:Apartment");
        if (facts.programmable)
            lines.push_back(ClassKey(facts) + L"\\Programmable");
        return lines;
    }

    /// Denies access to the class's key.
    void Close(const ClassFacts& facts)
    {
        registry.Put(ClassKey(facts), L"closed");
        registry.Deny(ClassKey(facts));
    }

    /// Everything but the type library, which is Windows's own business.
    std::vector<std::wstring> Classes() const
    {
        std::vector<std::wstring> lines = registry.Dump();
        std::erase_if(lines, [](const std::wstring& line) {
            return CompareStringOrdinal(line.substr(0, 7).c_str(), -1, L"TypeLib", -1, TRUE) == CSTR_EQUAL;
        });
        return lines;
    }
};
