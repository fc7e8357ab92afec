// The calls that a search for script commands makes on the host, one by one.
#include "SearchFixture.h"

#include "XScriptCommandFinder.h"

#include "UiState.h"

#include <type_traits>

using namespace qptools;

namespace
{
static_assert(std::has_virtual_destructor_v<XScriptCommandFinder>);
static_assert(sizeof(XScriptCommandFinder) == 2 * sizeof(void*), "the virtual table and one reference");

class CommandFinderCalls : public SearchFixture
{
protected:
    HRESULT Find(const wchar_t* typeName, const ComPtr<MemoryObject>& ofPlanType, int userInterface = 1,
                 const wchar_t* browser = L"browser")
    {
        const Bstr type(typeName);
        const Bstr browserId(browser);
        host.calls.clear();
        return finder.FindScriptCommands(&query, set.get(), type.get(), ofPlanType.get(), userInterface,
                                         browserId.get(), found.put());
    }

    static Calls Offered(int userInterface)
    {
        return {Equal("visible", "BOOL true"),
                Cat(1),
                Cat(4),
                Equal("userinterfacetype", "I4 " + std::to_string(userInterface)),
                Cat(2),
                Equal("userinterfacetype", "I4 3"),
                Cat(8),
                "GetSearchResult()"};
    }

    const Calls begin = {"ResetSearch(0)", "SetSearchTable(scriptcommand)"};

    XScriptCommandFinder finder;
    ComPtr<IEnumBaseDataObject> found;
};

TEST_F(CommandFinderCalls, TypeModeSearchesTheTypeAlone)
{
    EXPECT_EQ(Find(L"machine", nullptr), S_OK);
    EXPECT_CALLS(setMasterRead + begin + Calls{Equal("type", "BSTR 'machine'"), Cat(1)} + inSet + Offered(1));
}

TEST_F(CommandFinderCalls, TypeModeHasNoPrefixRuleAndNoSpecialNames)
{
    for (const std::string name : {"orvoplantype_work", "orvoplantypewsc", "scriptaction", "scriptcommand"})
    {
        EXPECT_EQ(Find(std::wstring(name.begin(), name.end()).c_str(), nullptr), S_OK);
        EXPECT_CALLS(setMasterRead + begin + Calls{Equal("type", "BSTR '" + name + "'"), Cat(1)} + inSet +
                     Offered(1));
    }
}

TEST_F(CommandFinderCalls, PlanTypeModeSearchesThePlanTypeOrTheType)
{
    EXPECT_EQ(Find(L"machine", planType), S_OK);
    EXPECT_CALLS(setMasterRead + begin +
                 Calls{Cat(4), Equal("orvoplantype", "UNKNOWN plantype"), Cat(2),
                       Equal("type", "BSTR 'machine'"), Cat(9)} +
                 inSet + Offered(1));
}

TEST_F(CommandFinderCalls, WithMastersFixedTypesAndBothPlanTypesAreSearched)
{
    GiveSetMaster();
    GivePlanTypeMaster();
    EXPECT_EQ(Find(L"machine", planType), S_OK);
    EXPECT_CALLS(bothMastersRead + begin +
                 Calls{Cat(4), Cat(4), Equal("type", "BSTR 'dodefaultimpl'"), Cat(2),
                       Equal("type", "BSTR 'orvocompbase'"), Cat(2),
                       Equal("orvoplantype", "UNKNOWN plantype"), Cat(2),
                       Equal("orvoplantype", "UNKNOWN reference to masterplantype"), Cat(8), Cat(2),
                       Equal("type", "BSTR 'machine'"), Cat(9)} +
                 inSetOrMaster + Offered(1));
}

TEST_F(CommandFinderCalls, TheFixedTypesNeedAMasterOfThePlanType)
{
    GiveSetMaster();
    EXPECT_EQ(Find(L"machine", planType), S_OK);
    EXPECT_CALLS(bothMastersRead + begin +
                 Calls{Cat(4), Equal("orvoplantype", "UNKNOWN plantype"), Cat(2),
                       Equal("type", "BSTR 'machine'"), Cat(9)} +
                 inSetOrMaster + Offered(1));
}

TEST_F(CommandFinderCalls, TypeModeWithAMasterSetSearchesBothSets)
{
    GiveSetMaster();
    EXPECT_EQ(Find(L"machine", nullptr), S_OK);
    EXPECT_CALLS(setMasterRead + begin + Calls{Equal("type", "BSTR 'machine'"), Cat(1)} + inSetOrMaster +
                 Offered(1));
}

TEST_F(CommandFinderCalls, ThePlanTypesMasterIsNotReadIfTheSetHasNone)
{
    GivePlanTypeMaster();
    EXPECT_EQ(Find(L"machine", planType), S_OK);
    EXPECT_CALLS(setMasterRead + begin +
                 Calls{Cat(4), Equal("orvoplantype", "UNKNOWN plantype"), Cat(2),
                       Equal("type", "BSTR 'machine'"), Cat(9)} +
                 inSet + Offered(1));
}

TEST_F(CommandFinderCalls, ScriptcommandAndScriptactionAreOrdinaryNames)
{
    for (const std::string name : {"scriptcommand", "scriptaction"})
    {
        EXPECT_EQ(Find(std::wstring(name.begin(), name.end()).c_str(), planType), S_OK);
        EXPECT_CALLS(setMasterRead + begin +
                     Calls{Cat(4), Equal("orvoplantype", "UNKNOWN plantype"), Cat(2),
                           Equal("type", "BSTR '" + name + "'"), Cat(9)} +
                     inSet + Offered(1));
    }
}

TEST_F(CommandFinderCalls, ANullTypeNameWithAPlanTypeIsSearchedAsANullText)
{
    EXPECT_EQ(Find(nullptr, planType), S_OK);
    EXPECT_CALLS(
        setMasterRead + begin +
        Calls{Cat(4), Equal("orvoplantype", "UNKNOWN plantype"), Cat(2), Equal("type", "BSTR null"), Cat(9)} +
        inSet + Offered(1));
}

TEST_F(CommandFinderCalls, UserInterfaceTypeIsPassedOnBesideThree)
{
    for (const int userInterface : {1, 2, 0, -1})
    {
        EXPECT_EQ(Find(L"machine", nullptr, userInterface), S_OK);
        EXPECT_CALLS(setMasterRead + begin + Calls{Equal("type", "BSTR 'machine'"), Cat(1)} + inSet +
                     Offered(userInterface));
    }
}

TEST_F(CommandFinderCalls, UserInterfaceTypeThreeIsSearchedTwice)
{
    EXPECT_EQ(Find(L"machine", nullptr, 3), S_OK);
    EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), Equal("userinterfacetype", "I4 3")), 2);
}

TEST_F(CommandFinderCalls, NoOrderIsSetAndNothingOfTheResultIsRead)
{
    query.result = host.List({host.Object("command")});
    EXPECT_EQ(Find(L"machine", planType), S_OK);
    EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), "SetOrderAttribute(sequence, 1)"), 0);
    EXPECT_EQ(host.calls.back(), "GetSearchResult()");
}

TEST_F(CommandFinderCalls, TheBrowserIsNeverRead)
{
    EXPECT_EQ(Find(L"machine", planType, 1, L"one"), S_OK);
    const Calls withOne = host.calls;
    EXPECT_EQ(Find(L"machine", planType, 1, L""), S_OK);
    EXPECT_CALLS(withOne);
    EXPECT_EQ(Find(L"machine", planType, 1, nullptr), S_OK);
    EXPECT_CALLS(withOne);

    // Not even looked at: this one cannot be.
    const Bstr type(L"machine");
    host.calls.clear();
    EXPECT_EQ(finder.FindScriptCommands(&query, set.get(), type.get(), planType.get(), 1,
                                        reinterpret_cast<BSTR>(0x10), found.put()),
              S_OK);
    EXPECT_CALLS(withOne);
}

TEST_F(CommandFinderCalls, ASecondSearchStartsAnew)
{
    EXPECT_EQ(Find(L"machine", planType), S_OK);
    EXPECT_EQ(Find(L"tool", nullptr, 2), S_OK);
    EXPECT_CALLS(setMasterRead + begin + Calls{Equal("type", "BSTR 'tool'"), Cat(1)} + inSet + Offered(2));
}

TEST_F(CommandFinderCalls, TheSearchRunsInsideTheUiState)
{
    std::vector<int> depths;
    host.onCall = [&](const std::string&) {
        depths.push_back(CUiState::Depth());
    };
    const unsigned entries = CUiState::Entries();
    EXPECT_EQ(Find(L"machine", planType), S_OK);
    EXPECT_EQ(depths, std::vector<int>(host.calls.size(), 1));
    EXPECT_EQ(CUiState::Entries() - entries, 1u);
    EXPECT_EQ(CUiState::Depth(), 0);
}
} // namespace
