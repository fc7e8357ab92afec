// The facts in which the module's classes differ, for tests that run over all of them.
#pragma once

#include <unknwn.h>

#include <gtest/gtest.h>

#include <ostream>
#include <string>

struct ClassFacts
{
    const wchar_t* name;
    const wchar_t* classId; ///< as the class's registry script spells it
    const wchar_t* interfaceId;
    int script;
    bool aggregatable;
    bool apartment; ///< has ThreadingModel "Apartment"; the others have no such value
    bool programmable;
    const wchar_t* shownPrefix; ///< of the ProgIDs that stand as values

    CLSID Class() const;
    IID Interface() const;
    std::wstring ProgId() const { return std::wstring(L"Qptools.") + name; }
};

/// In the order of the class table.
extern const ClassFacts kSevenClasses[7];

std::ostream& operator<<(std::ostream& out, const ClassFacts& facts);

/// The name of a class as the name of a test.
std::string ClassTestName(const testing::TestParamInfo<ClassFacts>& info);
