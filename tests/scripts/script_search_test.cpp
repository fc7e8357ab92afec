// The two steps of which every search consists.
#include "SearchFixture.h"

#include "XScriptSearch.h"

using namespace qptools;

namespace
{
class ScriptSearch : public SearchFixture
{
};

TEST_F(ScriptSearch, WithoutAQueryBothStepsReturnEPointer)
{
    XScriptSearch search(nullptr);
    const XQPComVariant value(L"x");
    EXPECT_EQ(search.SetCatenation(1), E_POINTER);
    EXPECT_EQ(search.SetCriterion(L"type", 1, value), E_POINTER);
}

TEST_F(ScriptSearch, BothStepsReturnWhatTheHostAnswers)
{
    query.catenationStatus = S_FALSE;
    query.criterionStatus = E_ACCESSDENIED;
    XScriptSearch search(&query);
    const XQPComVariant value(L"x");
    EXPECT_EQ(search.SetCatenation(8), S_FALSE);
    EXPECT_EQ(search.SetCriterion(L"type", 1, value), E_ACCESSDENIED);
    EXPECT_CALLS(Calls{"SetSearchCatenation(8)", "SetSearchAttribute(type, 1, BSTR 'x', 0)"});
}

TEST_F(ScriptSearch, TheComparisonIsPassedOn)
{
    XScriptSearch search(&query);
    const XQPComVariant value(L"x");
    EXPECT_EQ(search.SetCriterion(L"type", 6, value), S_OK);
    EXPECT_CALLS(Calls{"SetSearchAttribute(type, 6, BSTR 'x', 0)"});
}

TEST_F(ScriptSearch, TheHostGetsACopyOfTheValueWithReferencesResolved)
{
    XScriptSearch search(&query);
    const Bstr text(L"behind");
    BSTR shared = text.get();
    VARIANT reference;
    reference.vt = VT_BYREF | VT_BSTR;
    reference.pbstrVal = &shared;
    EXPECT_EQ(search.SetCriterion(L"type", 1, reference), S_OK);
    EXPECT_EQ(reference.vt, VT_BYREF | VT_BSTR);

    LONG number = 5;
    reference.vt = VT_BYREF | VT_I4;
    reference.plVal = &number;
    EXPECT_EQ(search.SetCriterion(L"actiontype", 1, reference), S_OK);
    EXPECT_CALLS(
        Calls{"SetSearchAttribute(type, 1, BSTR 'behind', 0)", "SetSearchAttribute(actiontype, 1, I4 5, 0)"});
}

TEST_F(ScriptSearch, AValueThatCannotBeCopiedIsNotPassedOn)
{
    XScriptSearch search(&query);
    VARIANT broken;
    broken.vt = VT_BYREF | VT_VARIANT;
    VARIANT inner;
    inner.vt = VT_BYREF | VT_VARIANT; // a reference to a reference is refused
    inner.pvarVal = &broken;
    broken.pvarVal = &inner;
    EXPECT_EQ(search.SetCriterion(L"type", 1, broken), E_INVALIDARG);
    EXPECT_CALLS(Calls{});
}
} // namespace
