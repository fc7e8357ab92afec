// The property dialog of a script action out of memory: each of its own allocations fails once, while it
// opens, shows its lists and saves. Natively only: the system's own allocators on Windows do not fail on
// request.
#include "ActionWords.h"
#include "PropertyMemory.h"

namespace
{
using namespace action_dialog;

class ActionMemory : public PropertyMemory
{
protected:
    /// A record with all its attributes, of a plan type that is listed.
    ActionMemory() : PropertyMemory(L"XDOScriptAction")
    {
        set->Children(L"orvoplantype", host.List({milling}));
        host.Query().result = host.List({drill});
        MemoryAttribute* values = host.Config().Type(L"scriptaction")->Attribute(L"actiontype");
        values->Value(L"Open", 1)->Value(L"Close", 2);
        for (const ComPtr<MemoryObject>& named : {drill, milling})
            named->Set(L"m_name", L"A name")->Set(L"name", L"A name");
        object->Set(L"m_name", L"Deburr")->Set(L"m_prompt", L"Ask first")->Set(L"m_pScript", drill);
        object->Set(L"orvoplantype", milling)->Set(L"m_pPlanType", milling)->Set(L"m_actionType", 2);
        object->Set(L"m_beforeAfter", 1)->Set(L"m_iSequence", 30)->Set(L"m_bEnabled", 1);
    }

    const PatientUser::Steps lists = {[](HWND dialog) { Drop(dialog, kScript); },
                                      [](HWND dialog) {
                                          Drop(dialog, kPlanType);
                                      }};
};

TEST_F(ActionMemory, EndsTheDialogOrCostsAList)
{
    EXPECT_EQ(Sweep(lists, false, 80), (std::set<HRESULT>{S_FALSE, E_OUTOFMEMORY}));
}

TEST_F(ActionMemory, WritesEverythingOrNothing)
{
    EXPECT_EQ(Sweep(lists, true, 80), (std::set<HRESULT>{S_OK, S_FALSE, E_OUTOFMEMORY}));
}

TEST_F(ActionMemory, TheNextDialogIsUnaffected)
{
    RunWith(5, lists, true);
    EXPECT_EQ(RunWith(0, lists, true).status, S_OK);
}
} // namespace
