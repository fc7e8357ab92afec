// The property dialog of a script command out of memory: each of its own allocations fails once, while it
// opens, shows its lists and saves. Natively only: the system's own allocators on Windows do not fail on
// request.
#include "CommandWords.h"
#include "PropertyMemory.h"

#include "RegisteredProgId.h"

namespace
{
using namespace command_dialog;

class CommandMemory : public PropertyMemory
{
protected:
    /// A record with all its attributes, of a type that is listed.
    CommandMemory() : PropertyMemory(L"XDOScriptCommand")
    {
        MemoryType* cell = host.Config().Type(L"cell");
        cell->Page(L"General", 1);
        cell->Page(L"Costs", 2);
        host.Config().Type(L"scriptcommand");
        set->Children(L"orvoplantype", host.List({milling}));
        drill->Set(L"m_name", L"Drill")->Set(L"name", L"Drill");
        milling->Set(L"m_name", L"Milling")->Set(L"name", L"Milling")->Set(L"configtypename", L"cell");
        object->Set(L"m_name", L"Deburr")->Set(L"m_strPrompt", L"Deburr now")->Set(L"m_pScript", drill);
        object->Set(L"m_strType", L"cell")->Set(L"m_bVisible", 1)->Set(L"m_lUserInterfaceType", 3);
        object->Set(L"m_nameShort", L"0")->Set(L"customizationobjectid", L"2");
        object->Set(L"customizationobjecttype", LONG{0});
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

    /// Releases the reference to a VBA project that stays open on purpose.
    void OnEnded() override
    {
        while (References(vbaProject) > 2)
            vbaProject->Release();
    }

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
    EXPECT_EQ(Sweep({}, false, 50), kClosedOrFailed);
}

TEST_F(CommandMemory, EndsTheDialogOrCostsAList)
{
    EXPECT_EQ(Sweep({[](HWND dialog) { Drop(dialog, kElement); }, [](HWND dialog) { Drop(dialog, kScript); },
                     [](HWND dialog) { Drop(dialog, kMacro); }, [](HWND dialog) { Drop(dialog, kPlanType); },
                     [](HWND dialog) { Drop(dialog, kConfigType); },
                     [](HWND dialog) {
                         Drop(dialog, kExecution);
                     }},
                    false, 50),
              kClosedOrFailed);
}

TEST_F(CommandMemory, WritesAllOfACommandOrNothing)
{
    EXPECT_EQ(Sweep({}, true, 50), kSavedClosedOrFailed);
}

TEST_F(CommandMemory, WritesAllOfAMacroOrNothing)
{
    object->Set(L"m_pScript", L"")->Set(L"m_strVBAMacroName", L"Weld");
    Sweep({[](HWND dialog) {
              Drop(dialog, kMacro);
          }},
          true, 50);
}

TEST_F(CommandMemory, WritesAllOfAPlanTypeOrNothing)
{
    object->Set(L"orvoplantype", milling)->Set(L"m_pPlanType", milling)->Set(L"m_strType", L"");
    EXPECT_EQ(Sweep({}, true, 50), kSavedClosedOrFailed);
}

TEST_F(CommandMemory, DoesNotSpoilTheNextDialog)
{
    RunWith(5, {}, true);
    EXPECT_EQ(RunWith(0, {}, true).status, S_OK);
}
} // namespace
