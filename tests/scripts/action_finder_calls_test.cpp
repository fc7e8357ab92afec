// The calls that a search for script actions makes on the host, one by one.
#include "SearchFixture.h"

#include "XScriptActionFinder.h"

#include "UiState.h"

#include <type_traits>

using namespace qptools;

namespace
{
static_assert(std::has_virtual_destructor_v<XScriptActionFinder>);
static_assert(sizeof(XScriptActionFinder) == 2 * sizeof(void*), "the virtual table and one reference");

class ActionFinderCalls : public SearchFixture
{
protected:
    HRESULT Find(const wchar_t* typeName, const ComPtr<MemoryObject>& ofPlanType, int actionType = 7,
                 int beforeAfter = 1)
    {
        const Bstr type(typeName);
        host.calls.clear();
        return finder.FindScriptActions(&query, set.get(), type.get(), ofPlanType.get(), actionType,
                                        beforeAfter, found.put());
    }

    const Calls begin = {"ResetSearch(0)", "SetSearchTable(scriptaction)"};
    const Calls actionSevenBefore = {Equal("beforeafter", "I4 1"), Cat(1), Equal("actiontype", "I4 7"),
                                     Equal("enabled", "I4 1")};
    const Calls end = {"SetOrderAttribute(sequence, 1)", "GetSearchResult()"};

    XScriptActionFinder finder;
    ComPtr<IEnumBaseDataObject> found;
};

TEST_F(ActionFinderCalls, TypeModeSearchesTheTypeAlone)
{
    EXPECT_EQ(Find(L"machine", nullptr), S_OK);
    EXPECT_CALLS(setMasterRead + begin + Calls{Equal("type", "BSTR 'machine'"), Cat(1)} + inSet +
                 actionSevenBefore + end);
}

TEST_F(ActionFinderCalls, TypeModeWithThePrefixSearchesTheGeneralTypeToo)
{
    EXPECT_EQ(Find(L"orvoplantype_work", nullptr), S_OK);
    EXPECT_CALLS(setMasterRead + begin +
                 Calls{Cat(4), Equal("type", "BSTR 'orvoplantypewsc'"), Cat(2),
                       Equal("type", "BSTR 'orvoplantype_work'"), Cat(8), Cat(1)} +
                 inSet + actionSevenBefore + end);
}

TEST_F(ActionFinderCalls, PlanTypeModeSearchesThePlanTypeOrTheType)
{
    EXPECT_EQ(Find(L"machine", planType), S_OK);
    EXPECT_CALLS(setMasterRead + begin +
                 Calls{Cat(4), Equal("orvoplantype", "UNKNOWN plantype"), Cat(2),
                       Equal("type", "BSTR 'machine'"), Cat(9)} +
                 inSet + actionSevenBefore + end);
}

TEST_F(ActionFinderCalls, WithMastersBothPlanTypesAndBothSetsAreSearched)
{
    GiveSetMaster();
    GivePlanTypeMaster();
    EXPECT_EQ(Find(L"machine", planType), S_OK);
    EXPECT_CALLS(bothMastersRead + begin +
                 Calls{Cat(4), Cat(4), Equal("orvoplantype", "UNKNOWN plantype"), Cat(2),
                       Equal("orvoplantype", "UNKNOWN reference to masterplantype"), Cat(8), Cat(2),
                       Equal("type", "BSTR 'machine'"), Cat(9)} +
                 inSetOrMaster + actionSevenBefore + end);
}

TEST_F(ActionFinderCalls, WithAMasterSetAloneOnePlanTypeIsSearched)
{
    GiveSetMaster();
    EXPECT_EQ(Find(L"machine", planType), S_OK);
    EXPECT_CALLS(bothMastersRead + begin +
                 Calls{Cat(4), Equal("orvoplantype", "UNKNOWN plantype"), Cat(2),
                       Equal("type", "BSTR 'machine'"), Cat(9)} +
                 inSetOrMaster + actionSevenBefore + end);
}

TEST_F(ActionFinderCalls, TypeModeWithAMasterSetSearchesBothSets)
{
    GiveSetMaster();
    EXPECT_EQ(Find(L"machine", nullptr), S_OK);
    EXPECT_CALLS(setMasterRead + begin + Calls{Equal("type", "BSTR 'machine'"), Cat(1)} + inSetOrMaster +
                 actionSevenBefore + end);
}

TEST_F(ActionFinderCalls, ThePlanTypesMasterIsNotReadIfTheSetHasNone)
{
    GivePlanTypeMaster();
    EXPECT_EQ(Find(L"machine", planType), S_OK);
    EXPECT_CALLS(setMasterRead + begin +
                 Calls{Cat(4), Equal("orvoplantype", "UNKNOWN plantype"), Cat(2),
                       Equal("type", "BSTR 'machine'"), Cat(9)} +
                 inSet + actionSevenBefore + end);
}

TEST_F(ActionFinderCalls, TheFixedNamesAreSearchedByTypeDespiteAPlanType)
{
    for (const std::string name : {"scriptaction", "scriptcommand"})
    {
        EXPECT_EQ(Find(std::wstring(name.begin(), name.end()).c_str(), planType), S_OK);
        EXPECT_CALLS(setMasterRead + begin + Calls{Equal("type", "BSTR '" + name + "'"), Cat(1)} + inSet +
                     actionSevenBefore + end);
    }
}

TEST_F(ActionFinderCalls, TypeModeReadsAPlanTypesMasterButDoesNotSearchIt)
{
    GiveSetMaster();
    GivePlanTypeMaster();
    EXPECT_EQ(Find(L"scriptaction", planType), S_OK);
    EXPECT_CALLS(bothMastersRead + begin + Calls{Equal("type", "BSTR 'scriptaction'"), Cat(1)} +
                 inSetOrMaster + actionSevenBefore + end);
}

TEST_F(ActionFinderCalls, SpecialNamesAreComparedWholeAndWithTheirCase)
{
    for (const std::string name :
         {"Scriptaction", "SCRIPTCOMMAND", "scriptaction ", "scriptactions", "script"})
    {
        EXPECT_EQ(Find(std::wstring(name.begin(), name.end()).c_str(), planType), S_OK);
        EXPECT_CALLS(setMasterRead + begin +
                     Calls{Cat(4), Equal("orvoplantype", "UNKNOWN plantype"), Cat(2),
                           Equal("type", "BSTR '" + name + "'"), Cat(9)} +
                     inSet + actionSevenBefore + end)
            << name;
    }
}

TEST_F(ActionFinderCalls, ANullCharacterBelongsToTheTypeName)
{
    const std::wstring name(L"scriptaction\0x", 14);
    const XQPComBSTR type(name.data(), 14);
    EXPECT_EQ(finder.FindScriptActions(&query, set.get(), type, planType.get(), 7, 1, found.put()), S_OK);
    ASSERT_GT(host.calls.size(), 6u);
    EXPECT_EQ(host.calls[6], Equal("type", std::string("BSTR 'scriptaction\0x'", 21)));
}

TEST_F(ActionFinderCalls, ThePrefixIsThirteenExactCharacters)
{
    for (const std::string name : {"orvoplantypewsc", "ORVOPLANTYPE_work", "orvoplantype", "orvoplantyp",
                                   "xorvoplantype_work", "Orvoplantype_work"})
    {
        EXPECT_EQ(Find(std::wstring(name.begin(), name.end()).c_str(), nullptr), S_OK);
        EXPECT_CALLS(setMasterRead + begin + Calls{Equal("type", "BSTR '" + name + "'"), Cat(1)} + inSet +
                     actionSevenBefore + end)
            << name;
    }
}

TEST_F(ActionFinderCalls, ThePrefixAloneIsEnough)
{
    EXPECT_EQ(Find(L"orvoplantype_", nullptr), S_OK);
    EXPECT_CALLS(setMasterRead + begin +
                 Calls{Cat(4), Equal("type", "BSTR 'orvoplantypewsc'"), Cat(2),
                       Equal("type", "BSTR 'orvoplantype_'"), Cat(8), Cat(1)} +
                 inSet + actionSevenBefore + end);
}

TEST_F(ActionFinderCalls, ThePrefixPlaysNoPartInPlanTypeMode)
{
    EXPECT_EQ(Find(L"orvoplantype_work", planType), S_OK);
    EXPECT_CALLS(setMasterRead + begin +
                 Calls{Cat(4), Equal("orvoplantype", "UNKNOWN plantype"), Cat(2),
                       Equal("type", "BSTR 'orvoplantype_work'"), Cat(9)} +
                 inSet + actionSevenBefore + end);
}

TEST_F(ActionFinderCalls, ANullTypeNameWithAPlanTypeIsSearchedAsEmpty)
{
    EXPECT_EQ(Find(nullptr, planType), S_OK);
    EXPECT_CALLS(
        setMasterRead + begin +
        Calls{Cat(4), Equal("orvoplantype", "UNKNOWN plantype"), Cat(2), Equal("type", "BSTR null"), Cat(9)} +
        inSet + actionSevenBefore + end);
}

TEST_F(ActionFinderCalls, AnEmptyTypeNameWithAPlanTypeIsSearched)
{
    EXPECT_EQ(Find(L"", planType), S_OK);
    EXPECT_CALLS(
        setMasterRead + begin +
        Calls{Cat(4), Equal("orvoplantype", "UNKNOWN plantype"), Cat(2), Equal("type", "BSTR ''"), Cat(9)} +
        inSet + actionSevenBefore + end);
}

TEST_F(ActionFinderCalls, ActionTypeZeroIsSearchedWithoutBeforeOrAfter)
{
    EXPECT_EQ(Find(L"machine", nullptr, 0, 1), S_OK);
    EXPECT_CALLS(setMasterRead + begin + Calls{Equal("type", "BSTR 'machine'"), Cat(1)} + inSet +
                 Calls{Equal("actiontype", "I4 0"), Equal("enabled", "I4 1")} + end);
}

TEST_F(ActionFinderCalls, BeforeOrAfterIsPassedOnAsGiven)
{
    for (const int beforeAfter : {0, 1, 5, -1})
    {
        EXPECT_EQ(Find(L"machine", nullptr, -3, beforeAfter), S_OK);
        EXPECT_CALLS(setMasterRead + begin + Calls{Equal("type", "BSTR 'machine'"), Cat(1)} + inSet +
                     Calls{Equal("beforeafter", "I4 " + std::to_string(beforeAfter)), Cat(1),
                           Equal("actiontype", "I4 -3"), Equal("enabled", "I4 1")} +
                     end);
    }
}

TEST_F(ActionFinderCalls, ActionTypeAndEnabledAreTheLastAndHaveNoCatenation)
{
    EXPECT_EQ(Find(L"machine", nullptr), S_OK);
    const auto actionType = std::find(host.calls.begin(), host.calls.end(), Equal("actiontype", "I4 7"));
    ASSERT_NE(actionType, host.calls.end());
    EXPECT_EQ(Calls(actionType, host.calls.end()),
              (Calls{Equal("actiontype", "I4 7"), Equal("enabled", "I4 1"), "SetOrderAttribute(sequence, 1)",
                     "GetSearchResult()"}));
}

TEST_F(ActionFinderCalls, NothingOfTheResultIsRead)
{
    const auto action = host.Object("action");
    query.result = host.List({action});
    EXPECT_EQ(Find(L"machine", nullptr), S_OK);
    EXPECT_EQ(host.calls.back(), "GetSearchResult()");
    EXPECT_EQ(found.get(), query.result.get());
}

TEST_F(ActionFinderCalls, ASecondSearchStartsAnewAndKeepsItsQuery)
{
    EXPECT_EQ(Find(L"machine", planType), S_OK);
    EXPECT_EQ(Find(L"tool", nullptr, 0), S_OK);
    EXPECT_CALLS(setMasterRead + begin + Calls{Equal("type", "BSTR 'tool'"), Cat(1)} + inSet +
                 Calls{Equal("actiontype", "I4 0"), Equal("enabled", "I4 1")} + end);
}

TEST_F(ActionFinderCalls, TheSearchRunsInsideTheUiState)
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
