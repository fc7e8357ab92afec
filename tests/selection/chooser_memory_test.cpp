// A chooser that runs out of memory while its dialog is opened: the dialog is destroyed, the caller gets the
// status, and no reference is kept. The host throws in place of an allocation of the dialog; natively an
// exception may pass from one to the other.
#include "ProjectChoiceFixture.h"
#include "ScriptPickerFixture.h"

#include <new>

namespace
{
class ProjectChoiceMemory : public ProjectChoiceFixture
{
protected:
    ProjectChoiceMemory()
    {
        Has({Child("a", L"A"), child});
        host.onCall = [](const std::string& call) {
            if (call == "b.GetAttribute(name)")
                throw std::bad_alloc();
        };
    }
    ~ProjectChoiceMemory() override { host.onCall = nullptr; }

    const ComPtr<MemoryObject> child = Child("b", L"B");
};

TEST_F(ProjectChoiceMemory, ReadsAsCancelledAndNothingElseIsWritten)
{
    const ULONG held = References(root) + References(child);
    EXPECT_EQ(Show({}), (Outcome{E_OUTOFMEMORY, 1, kUnchanged, "untouched"}));
    EXPECT_EQ(ShowEx({}), (Outcome{E_OUTOFMEMORY, 1, kUnchanged, "untouched"}));
    EXPECT_EQ(References(root) + References(child), held);
}

TEST_F(ProjectChoiceMemory, TheNextChoiceIsUnaffected)
{
    Show({});
    host.onCall = nullptr;
    EXPECT_EQ(Show({Selects(1), Presses(IDOK)}), (Outcome{S_OK, 0, kUnchanged, "b"}));
}

class ScriptPickerMemory : public ScriptPickerFixture
{
};

TEST_F(ScriptPickerMemory, IsTheStatusAndNothingIsWritten)
{
    const auto script = Script("s");
    Finds({script});
    const ULONG held = References(project) + References(script);
    host.onCall = [](const std::string& call) {
        if (call == "s.GetAttribute(creationdate)")
            throw std::bad_alloc();
    };
    EXPECT_EQ(Show({}), (Outcome{E_OUTOFMEMORY, "untouched"}));
    EXPECT_EQ(References(project) + References(script), held);
    host.onCall = nullptr;
    EXPECT_EQ(Show({Presses(IDOK)}), (Outcome{S_OK, "s"}));
}
} // namespace
