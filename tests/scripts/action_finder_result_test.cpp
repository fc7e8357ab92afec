// What a search for script actions returns, and how it takes failures of the host.
#include "SearchFixture.h"

#include "XScriptActionFinder.h"

#include "UiState.h"

using namespace qptools;

namespace
{
IEnumBaseDataObject* const kUntouched = Untouched<IEnumBaseDataObject>();

class ActionFinderResult : public SearchFixture
{
protected:
    ActionFinderResult() { query.result = host.List({}); }

    HRESULT Find(IQP_Query* asked, IQP_BaseDataObject* ofSet, const wchar_t* typeName,
                 IQP_BaseDataObject* ofPlanType)
    {
        const Bstr type(typeName);
        host.calls.clear();
        const HRESULT status = finder.FindScriptActions(asked, ofSet, type.get(), ofPlanType, 7, 1, &found);
        EXPECT_EQ(CUiState::Depth(), 0);
        return status;
    }
    HRESULT FindMachines() { return Find(&query, set.get(), L"machine", nullptr); }
    HRESULT FindMachinesOfPlanType() { return Find(&query, set.get(), L"machine", planType.get()); }

    bool Called(const std::string& call) const
    {
        return std::find(host.calls.begin(), host.calls.end(), call) != host.calls.end();
    }
    bool SearchedMasterSet() const
    {
        return Called(Equal("orvoplantypeset", "UNKNOWN reference to masterset"));
    }

    const Calls wholeSearch = {"set.GetAttribute(master)",
                               "ResetSearch(0)",
                               "SetSearchTable(scriptaction)",
                               Equal("type", "BSTR 'machine'"),
                               Cat(1),
                               Equal("orvoplantypeset", "UNKNOWN set"),
                               Cat(1),
                               Equal("beforeafter", "I4 1"),
                               Cat(1),
                               Equal("actiontype", "I4 7"),
                               Equal("enabled", "I4 1"),
                               "SetOrderAttribute(sequence, 1)",
                               "GetSearchResult()"};

    XScriptActionFinder finder;
    IEnumBaseDataObject* found = kUntouched;
};

TEST_F(ActionFinderResult, ANullQueryIsAMissingPointer)
{
    EXPECT_EQ(Find(nullptr, set.get(), L"machine", nullptr), E_POINTER);
    EXPECT_EQ(found, kUntouched);
    EXPECT_CALLS(Calls{});
}

TEST_F(ActionFinderResult, ANullQueryIsReportedBeforeANullSetAndAnEmptyType)
{
    EXPECT_EQ(Find(nullptr, nullptr, nullptr, nullptr), E_POINTER);
}

TEST_F(ActionFinderResult, ANullSetIsABadArgument)
{
    EXPECT_EQ(Find(&query, nullptr, L"machine", planType.get()), E_INVALIDARG);
    EXPECT_EQ(found, kUntouched);
    EXPECT_CALLS(Calls{});
}

TEST_F(ActionFinderResult, TypeModeWithoutATypeNameIsRefusedBeforeHostCalls)
{
    for (const wchar_t* name : {static_cast<const wchar_t*>(nullptr), L""})
    {
        EXPECT_EQ(Find(&query, set.get(), name, nullptr), E_INVALIDARG);
        EXPECT_EQ(found, kUntouched);
        EXPECT_CALLS(Calls{});
    }
}

TEST_F(ActionFinderResult, TheEnumeratorIsHandedOutWithItsOwnReference)
{
    EXPECT_EQ(FindMachines(), S_OK);
    ASSERT_EQ(found, query.result.get());
    query.result.reset();
    ULONG fetched = 1;
    IQP_BaseDataObject* object = nullptr;
    EXPECT_EQ(found->RemNext(1, &object, &fetched), S_FALSE);
    EXPECT_EQ(found->Release(), 0u);
}

TEST_F(ActionFinderResult, ANullOutArgumentReleasesTheEnumerator)
{
    const Bstr type(L"machine");
    EXPECT_EQ(finder.FindScriptActions(&query, set.get(), type.get(), nullptr, 7, 1, nullptr), S_OK);
    EXPECT_CALLS(wholeSearch);
    query.result->AddRef();
    EXPECT_EQ(query.result->Release(), 1u);
}

TEST_F(ActionFinderResult, AnotherStatusOfTheResultIsReturnedAndNothingWritten)
{
    for (const HRESULT status : {S_FALSE, E_FAIL, E_ACCESSDENIED, static_cast<HRESULT>(2)})
    {
        query.resultStatus = status;
        EXPECT_EQ(FindMachines(), status);
        EXPECT_EQ(found, kUntouched);
        query.result->AddRef();
        EXPECT_EQ(query.result->Release(), 1u);
    }
}

TEST_F(ActionFinderResult, SuccessWithoutAnEnumeratorIsSuccessAndNothingWritten)
{
    query.result.reset();
    EXPECT_EQ(FindMachines(), S_OK);
    EXPECT_EQ(found, kUntouched);
}

TEST_F(ActionFinderResult, AFailedResetEndsTheSearchWithItsStatus)
{
    query.resetStatus = E_ACCESSDENIED;
    EXPECT_EQ(FindMachines(), E_ACCESSDENIED);
    EXPECT_EQ(found, kUntouched);
    EXPECT_CALLS(Calls{"set.GetAttribute(master)", "ResetSearch(0)"});
}

TEST_F(ActionFinderResult, AFailedTableEndsTheSearchWithItsStatus)
{
    query.tableStatus = E_ABORT;
    EXPECT_EQ(FindMachines(), E_ABORT);
    EXPECT_EQ(found, kUntouched);
    EXPECT_CALLS(Calls{"set.GetAttribute(master)", "ResetSearch(0)", "SetSearchTable(scriptaction)"});
}

TEST_F(ActionFinderResult, OnlyAFailureOfResetOrTableStopsTheSearch)
{
    query.resetStatus = S_FALSE;
    query.tableStatus = S_FALSE;
    EXPECT_EQ(FindMachines(), S_OK);
    EXPECT_CALLS(wholeSearch);
    found->Release();
}

TEST_F(ActionFinderResult, FailedCatenationsCriteriaAndOrderAreIgnored)
{
    query.catenationStatus = E_FAIL;
    query.criterionStatus = E_FAIL;
    query.orderStatus = E_FAIL;
    EXPECT_EQ(FindMachines(), S_OK);
    EXPECT_CALLS(wholeSearch);
    EXPECT_EQ(found, query.result.get());
    found->Release();
}

TEST_F(ActionFinderResult, AMasterCountsOnlyIfTheReadSucceedsExactly)
{
    VARIANT reference;
    reference.vt = VT_UNKNOWN;
    reference.punkVal = masterSetReference.get();
    for (const HRESULT status : {S_FALSE, E_FAIL, static_cast<HRESULT>(2)})
    {
        set->Answer(L"master", status, reference);
        EXPECT_EQ(FindMachinesOfPlanType(), S_OK);
        found->Release();
        EXPECT_FALSE(SearchedMasterSet());
        EXPECT_FALSE(Called("plantype.GetAttribute(master)"));
    }
}

TEST_F(ActionFinderResult, AMasterThatIsNoObjectIsNoMaster)
{
    set->Set(L"master", L"masterset");
    EXPECT_EQ(FindMachinesOfPlanType(), S_OK);
    found->Release();
    EXPECT_FALSE(Called("plantype.GetAttribute(master)"));
    set->Set(L"master", static_cast<IUnknown*>(nullptr));
    EXPECT_EQ(FindMachinesOfPlanType(), S_OK);
    found->Release();
    EXPECT_FALSE(Called("plantype.GetAttribute(master)"));
    EXPECT_TRUE(Called(Equal("orvoplantypeset", "UNKNOWN set")));
}

TEST_F(ActionFinderResult, AMasterThatIsNoDataObjectIsNoMaster)
{
    set->Set(L"master", static_cast<IUnknown*>(static_cast<IEnumBaseDataObject*>(query.result.get())));
    EXPECT_EQ(FindMachinesOfPlanType(), S_OK);
    found->Release();
    EXPECT_FALSE(Called("plantype.GetAttribute(master)"));
    set->Fail(L"master", S_OK);
}

TEST_F(ActionFinderResult, AMasterOfThePlanTypeCountsUnderTheSameConditions)
{
    GiveSetMaster();
    for (const NoMaster& none : NoMasters(masterPlanTypeReference))
    {
        none.give(*planType);
        EXPECT_EQ(FindMachinesOfPlanType(), S_OK);
        found->Release();
        EXPECT_CALLS((bothMastersRead +
                      Calls{"ResetSearch(0)", "SetSearchTable(scriptaction)", Cat(4),
                            Equal("orvoplantype", "UNKNOWN plantype"), Cat(2),
                            Equal("type", "BSTR 'machine'"), Cat(9)} +
                      inSetOrMaster +
                      Calls{Equal("beforeafter", "I4 1"), Cat(1), Equal("actiontype", "I4 7"),
                            Equal("enabled", "I4 1"), "SetOrderAttribute(sequence, 1)", "GetSearchResult()"}))
            << none.way;
    }
}

TEST_F(ActionFinderResult, AMasterByReferenceIsPassedToTheHostResolved)
{
    IUnknown* object = masterSetReference.get();
    VARIANT reference;
    reference.vt = VT_BYREF | VT_UNKNOWN;
    reference.ppunkVal = &object;
    set->Answer(L"master", S_OK, reference);
    EXPECT_EQ(FindMachines(), S_OK);
    found->Release();
    EXPECT_TRUE(SearchedMasterSet());

    VARIANT inner;
    inner.vt = VT_UNKNOWN;
    inner.punkVal = object;
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &inner;
    set->Answer(L"master", S_OK, reference);
    EXPECT_EQ(FindMachines(), S_OK);
    found->Release();
    EXPECT_TRUE(SearchedMasterSet());
    set->Fail(L"master", S_FALSE);
}

TEST_F(ActionFinderResult, TheQueryIsHeldUntilTheFinderEnds)
{
    {
        XScriptActionFinder own;
        const Bstr type(L"machine");
        EXPECT_EQ(own.FindScriptActions(&query, set.get(), type.get(), nullptr, 7, 1, nullptr), S_OK);
        EXPECT_EQ(query.References(), 1u);
        EXPECT_EQ(own.FindScriptActions(&query, set.get(), type.get(), nullptr, 7, 1, nullptr), S_OK);
        EXPECT_EQ(query.References(), 1u);
    }
    EXPECT_EQ(query.References(), 0u);
}

TEST_F(ActionFinderResult, TheQueryIsHeldAlsoWhenTheArgumentsAreRefused)
{
    EXPECT_EQ(Find(&query, nullptr, L"machine", nullptr), E_INVALIDARG);
    EXPECT_EQ(query.References(), 1u);
}

TEST_F(ActionFinderResult, ASearchWithANullQueryReleasesTheEarlierOne)
{
    EXPECT_EQ(FindMachines(), S_OK);
    found->Release();
    EXPECT_EQ(query.References(), 1u);
    EXPECT_EQ(Find(nullptr, set.get(), L"machine", nullptr), E_POINTER);
    EXPECT_EQ(query.References(), 0u);
}
} // namespace
