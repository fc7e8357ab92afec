// What a search for script commands returns, and how it takes failures of the host.
#include "SearchFixture.h"

#include "XScriptCommandFinder.h"

#include "UiState.h"

using namespace qptools;

namespace
{
IEnumBaseDataObject* const kUntouched = Untouched<IEnumBaseDataObject>();

class CommandFinderResult : public SearchFixture
{
protected:
    CommandFinderResult() { query.result = host.List({}); }

    HRESULT Find(IQP_Query* asked, IQP_BaseDataObject* ofSet, const wchar_t* typeName,
                 IQP_BaseDataObject* ofPlanType)
    {
        const Bstr type(typeName);
        host.calls.clear();
        const HRESULT status =
            finder.FindScriptCommands(asked, ofSet, type.get(), ofPlanType, 1, nullptr, &found);
        EXPECT_EQ(CUiState::Depth(), 0);
        return status;
    }
    HRESULT FindMachines() { return Find(&query, set.get(), L"machine", nullptr); }

    bool Called(const std::string& call) const
    {
        return std::find(host.calls.begin(), host.calls.end(), call) != host.calls.end();
    }

    const Calls wholeSearch = {"set.GetAttribute(master)",
                               "ResetSearch(0)",
                               "SetSearchTable(scriptcommand)",
                               Equal("type", "BSTR 'machine'"),
                               Cat(1),
                               Equal("orvoplantypeset", "UNKNOWN set"),
                               Cat(1),
                               Equal("visible", "BOOL true"),
                               Cat(1),
                               Cat(4),
                               Equal("userinterfacetype", "I4 1"),
                               Cat(2),
                               Equal("userinterfacetype", "I4 3"),
                               Cat(8),
                               "GetSearchResult()"};

    XScriptCommandFinder finder;
    IEnumBaseDataObject* found = kUntouched;
};

TEST_F(CommandFinderResult, ANullQueryIsAMissingPointer)
{
    EXPECT_EQ(Find(nullptr, nullptr, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(found, kUntouched);
    EXPECT_CALLS(Calls{});
}

TEST_F(CommandFinderResult, ANullSetIsABadArgument)
{
    EXPECT_EQ(Find(&query, nullptr, L"machine", planType.get()), E_INVALIDARG);
    EXPECT_EQ(found, kUntouched);
    EXPECT_CALLS(Calls{});
}

TEST_F(CommandFinderResult, TypeModeWithoutATypeNameIsRefusedBeforeHostCalls)
{
    for (const wchar_t* name : {static_cast<const wchar_t*>(nullptr), L""})
    {
        EXPECT_EQ(Find(&query, set.get(), name, nullptr), E_INVALIDARG);
        EXPECT_EQ(found, kUntouched);
        EXPECT_CALLS(Calls{});
    }
}

TEST_F(CommandFinderResult, APlanTypeNeedsNoTypeName)
{
    for (const wchar_t* name : {static_cast<const wchar_t*>(nullptr), L""})
    {
        EXPECT_EQ(Find(&query, set.get(), name, planType.get()), S_OK);
        found->Release();
    }
}

TEST_F(CommandFinderResult, TheEnumeratorIsHandedOutWithItsOwnReference)
{
    EXPECT_EQ(FindMachines(), S_OK);
    EXPECT_CALLS(wholeSearch);
    ASSERT_EQ(found, query.result.get());
    query.result.reset();
    EXPECT_EQ(found->Release(), 0u);
}

TEST_F(CommandFinderResult, ANullOutArgumentReleasesTheEnumerator)
{
    const Bstr type(L"machine");
    EXPECT_EQ(finder.FindScriptCommands(&query, set.get(), type.get(), nullptr, 1, nullptr, nullptr), S_OK);
    query.result->AddRef();
    EXPECT_EQ(query.result->Release(), 1u);
}

TEST_F(CommandFinderResult, AnotherStatusOfTheResultIsReturnedAndNothingWritten)
{
    for (const HRESULT status : {S_FALSE, E_FAIL, E_ACCESSDENIED})
    {
        query.resultStatus = status;
        EXPECT_EQ(FindMachines(), status);
        EXPECT_EQ(found, kUntouched);
        query.result->AddRef();
        EXPECT_EQ(query.result->Release(), 1u);
    }
}

TEST_F(CommandFinderResult, SuccessWithoutAnEnumeratorIsSuccessAndNothingWritten)
{
    query.result.reset();
    EXPECT_EQ(FindMachines(), S_OK);
    EXPECT_EQ(found, kUntouched);
}

TEST_F(CommandFinderResult, AFailedResetEndsTheSearchWithItsStatus)
{
    query.resetStatus = E_ACCESSDENIED;
    EXPECT_EQ(FindMachines(), E_ACCESSDENIED);
    EXPECT_EQ(found, kUntouched);
    EXPECT_CALLS(Calls{"set.GetAttribute(master)", "ResetSearch(0)"});
}

TEST_F(CommandFinderResult, AFailedTableEndsTheSearchWithItsStatus)
{
    query.tableStatus = E_ABORT;
    EXPECT_EQ(FindMachines(), E_ABORT);
    EXPECT_EQ(found, kUntouched);
    EXPECT_CALLS(Calls{"set.GetAttribute(master)", "ResetSearch(0)", "SetSearchTable(scriptcommand)"});
}

TEST_F(CommandFinderResult, OnlyAFailureOfResetOrTableStopsTheSearch)
{
    query.resetStatus = S_FALSE;
    query.tableStatus = S_FALSE;
    EXPECT_EQ(FindMachines(), S_OK);
    EXPECT_CALLS(wholeSearch);
    found->Release();
}

TEST_F(CommandFinderResult, FailedCatenationsAndCriteriaAreIgnored)
{
    query.catenationStatus = E_FAIL;
    query.criterionStatus = E_FAIL;
    EXPECT_EQ(FindMachines(), S_OK);
    EXPECT_CALLS(wholeSearch);
    found->Release();
}

TEST_F(CommandFinderResult, AMasterThatIsUnreadableOrNoDataObjectIsNone)
{
    for (const NoMaster& none : NoMasters(masterSetReference))
    {
        none.give(*set);
        EXPECT_EQ(FindMachines(), S_OK);
        found->Release();
        EXPECT_CALLS(wholeSearch) << none.way;
    }
}

TEST_F(CommandFinderResult, AMasterOfThePlanTypeCountsUnderTheSameConditions)
{
    GiveSetMaster();
    for (const NoMaster& none : NoMasters(masterPlanTypeReference))
    {
        none.give(*planType);
        EXPECT_EQ(Find(&query, set.get(), L"machine", planType.get()), S_OK);
        found->Release();
        EXPECT_CALLS((bothMastersRead +
                      Calls{"ResetSearch(0)", "SetSearchTable(scriptcommand)", Cat(4),
                            Equal("orvoplantype", "UNKNOWN plantype"), Cat(2),
                            Equal("type", "BSTR 'machine'"), Cat(9)} +
                      inSetOrMaster + Calls(wholeSearch.end() - 8, wholeSearch.end())))
            << none.way;
    }
}

TEST_F(CommandFinderResult, TheQueryIsHeldUntilTheFinderEndsOrSearchesAnother)
{
    {
        XScriptCommandFinder own;
        const Bstr type(L"machine");
        EXPECT_EQ(own.FindScriptCommands(&query, set.get(), type.get(), nullptr, 1, nullptr, nullptr), S_OK);
        EXPECT_EQ(query.References(), 1u);
        EXPECT_EQ(own.FindScriptCommands(nullptr, set.get(), type.get(), nullptr, 1, nullptr, nullptr),
                  E_POINTER);
        EXPECT_EQ(query.References(), 0u);
        EXPECT_EQ(own.FindScriptCommands(&query, nullptr, type.get(), nullptr, 1, nullptr, nullptr),
                  E_INVALIDARG);
        EXPECT_EQ(query.References(), 1u);
    }
    EXPECT_EQ(query.References(), 0u);
}
} // namespace
