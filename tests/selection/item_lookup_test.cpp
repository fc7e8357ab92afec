// The other look-ups of an object: its plan type, its table, its component base.
#include "ItemLookup.h"

#include "UiState.h"

namespace
{
// Plan type.

TEST_F(ItemLookup, OnlyThePlanTypeIsReadFromTheObject)
{
    EXPECT_EQ(PlanTypeWith(S_OK, To(planType)), (Answer{S_OK, "plantype"}));
    EXPECT_CALLS(Calls{"object.GetAttribute(orvoplantype)"});
    EXPECT_EQ(PlanTypeWith(S_OK, To(planType, VT_DISPATCH)), (Answer{S_OK, "plantype"}));
}

TEST_F(ItemLookup, ThePlanTypeHasAReferenceForTheCaller)
{
    object->Set(L"orvoplantype", planType);
    const ULONG before = References(planType);
    IQP_BaseDataObject* result = nullptr;
    EXPECT_EQ(item->GetPlanType(object.get(), &result), S_OK);
    EXPECT_EQ(References(planType), before + 1);
    result->Release();
    EXPECT_EQ(item->GetPlanType(object.get(), nullptr), S_OK);
    EXPECT_EQ(References(planType), before);
}

TEST_F(ItemLookup, AMissingPlanTypeIsNullAndNoFailure)
{
    EXPECT_EQ(PlanTypeWith(S_OK, Reference(VT_UNKNOWN, nullptr)), (Answer{S_OK, "null"}));
    EXPECT_EQ(PlanTypeWith(S_OK, Reference(VT_UNKNOWN, noDataObject.get())), (Answer{S_OK, "null"}));
    EXPECT_EQ(PlanTypeWith(S_OK, XQPComVariant()), (Answer{S_OK, "null"}));
    EXPECT_EQ(PlanTypeWith(S_OK, XQPComVariant(L"plantype")), (Answer{S_OK, "null"}));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ItemLookup, AFailedReadOfThePlanTypeIsReportedAndReturned)
{
    EXPECT_EQ(PlanTypeWith(E_FAIL, To(planType)), (Answer{E_FAIL, "untouched"}));
    EXPECT_EQ(logBook.Entries(), Entries{LogBook::HostCall("0x80004005", 645, kPlanTypeFailed)});
}

TEST_F(ItemLookup, AnotherSuccessOfThePlanTypeIsReturnedUnreported)
{
    EXPECT_EQ(PlanTypeWith(S_FALSE, To(planType)), (Answer{S_FALSE, "untouched"}));
    EXPECT_EQ(PlanTypeWith(2, To(planType)), (Answer{2, "untouched"}));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ItemLookup, NoObjectHasNoPlanTypeAndIsABadArgument)
{
    EXPECT_EQ(PlanTypeOf(nullptr), (Answer{E_INVALIDARG, "untouched"}));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

// Table.

TEST_F(ItemLookup, TheTypeNameIsTheNameOfTheTable)
{
    object->Table(L"subcompitem");
    EXPECT_EQ(TypeNameOf(object.get()), (Answer{S_OK, "subcompitem"}));
    EXPECT_CALLS(Calls{"object.GetTableName()"});
    EXPECT_EQ(item->GetTypeName(object.get(), nullptr), S_OK);
}

TEST_F(ItemLookup, LongTypeNamesAndOtherScriptsAreReturnedWhole)
{
    const std::wstring longName(10'000, L'x');
    object->Table(longName.c_str());
    EXPECT_EQ(TypeNameOf(object.get()), (Answer{S_OK, std::string(10'000, 'x')}));
    EXPECT_EQ(CompBaseOf(object.get(), longName.c_str()), (Answer{S_OK, "object"}));
    object->Table(L"\u5de5\u5382");
    EXPECT_EQ(TypeNameOf(object.get()), (Answer{S_OK, "\xe5\xb7\xa5\xe5\x8e\x82"}));
}

TEST_F(ItemLookup, AnyPositiveStatusOfTheTableHandsTheNameOver)
{
    object->Table(L"item", S_FALSE);
    EXPECT_EQ(TypeNameOf(object.get()), (Answer{S_OK, "item"}));
}

TEST_F(ItemLookup, ATableWithoutANameIsNull)
{
    object->Table(nullptr);
    EXPECT_EQ(TypeNameOf(object.get()), (Answer{S_OK, "null"}));
}

TEST_F(ItemLookup, AFailedReadOfTheTableIsReportedAndReturned)
{
    object->Table(L"name that comes along", E_ACCESSDENIED);
    EXPECT_EQ(TypeNameOf(object.get()), (Answer{E_ACCESSDENIED, "untouched"}));
    EXPECT_EQ(logBook.Entries(), Entries{LogBook::HostCall("0x80070005", 668, kTypeNameFailed)});
}

TEST_F(ItemLookup, NoObjectHasNoTableAndIsABadArgument)
{
    EXPECT_EQ(TypeNameOf(nullptr), (Answer{E_INVALIDARG, "untouched"}));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

// Component base.

TEST_F(ItemLookup, AnObjectThatIsNoSubComponentItemIsItsOwnBase)
{
    object->Set(L"orvocompbase", base);
    for (const wchar_t* typeName : {L"orvoitem", L"", L"SubCompItem", L"subcompitem ", L"subcompitemproX"})
    {
        EXPECT_EQ(CompBaseOf(object.get(), typeName), (Answer{S_OK, "object"}));
        EXPECT_CALLS(Calls{});
    }
    EXPECT_EQ(CompBaseOf(object.get(), nullptr), (Answer{S_OK, "object"}));
}

TEST_F(ItemLookup, BothKindsOfSubComponentItemReferToTheirBase)
{
    object->Set(L"orvocompbase", base);
    for (const wchar_t* typeName : {L"subcompitem", L"subcompitempro"})
    {
        EXPECT_EQ(CompBaseOf(object.get(), typeName), (Answer{S_OK, "base"}));
        EXPECT_CALLS(Calls{"object.GetAttribute(orvocompbase)"});
    }
}

TEST_F(ItemLookup, TheBaseHasAReferenceForTheCaller)
{
    const ULONG before = References(object);
    IQP_BaseDataObject* result = nullptr;
    EXPECT_EQ(item->GetOrvoCompBase(object.get(), nullptr, &result), S_OK);
    EXPECT_EQ(References(object), before + 1);
    result->Release();
    EXPECT_EQ(item->GetOrvoCompBase(object.get(), nullptr, nullptr), S_OK);
    EXPECT_EQ(References(object), before);
}

TEST_F(ItemLookup, TheTableOfASubComponentItemSelectsTheAttribute)
{
    object->Table(L"subcompitem")->Set(L"orvocompbase", base);
    XQPComBSTR typeName;
    ASSERT_EQ(item->GetTypeName(object.get(), typeName.put()), S_OK);
    EXPECT_EQ(CompBaseOf(object.get(), typeName), (Answer{S_OK, "base"}));
}

TEST_F(ItemLookup, NoObjectHasNoBaseAndThatIsNoFailure)
{
    EXPECT_EQ(CompBaseOf(nullptr, L"subcompitem"), (Answer{S_OK, "null"}));
    EXPECT_EQ(CompBaseOf(nullptr, L"orvoitem"), (Answer{S_OK, "null"}));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ItemLookup, ABaseThatIsNoDataObjectIsNullAndNoFailure)
{
    EXPECT_EQ(CompBaseWith(S_OK, Reference(VT_UNKNOWN, noDataObject.get())), (Answer{S_OK, "null"}));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(ItemLookup, AFailedReadOfTheBaseIsReportedAndReturned)
{
    EXPECT_EQ(CompBaseWith(E_FAIL, To(base)), (Answer{E_FAIL, "untouched"}));
    EXPECT_EQ(CompBaseWith(S_FALSE, To(base)), (Answer{S_FALSE, "untouched"}));
    EXPECT_EQ(logBook.Entries(), (Entries{LogBook::HostCall("0x80004005", 701, kCompBaseFailed),
                                          LogBook::HostCall("0x00000001", 701, kCompBaseFailed)}));
}

TEST_F(ItemLookup, ABaseThatIsNullIsReportedToo)
{
    EXPECT_EQ(CompBaseWith(S_OK, Reference(VT_UNKNOWN, nullptr)), (Answer{S_OK, "null"}));
    EXPECT_EQ(CompBaseWith(S_OK, XQPComVariant(L"base")), (Answer{S_OK, "null"}));
    EXPECT_EQ(logBook.Entries(), (Entries{LogBook::HostCall("0x00000000", 701, kCompBaseFailed),
                                          LogBook::HostCall("0x00000000", 701, kCompBaseFailed)}));
}

// Around every look-up.

TEST_F(ItemLookup, ALookupShowsTheWaitCursorAndPutsTheOldOneBack)
{
    const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
    const HCURSOR waiting = LoadCursorW(nullptr, IDC_WAIT);
    SetCursor(arrow);
    int seen = 0;
    host.onCall = [&](const std::string& call) {
        EXPECT_EQ(GetCursor(), waiting) << call;
        EXPECT_EQ(CUiState::Depth(), 1) << call;
        ++seen;
    };
    object->Is(L"XDOOrvoItem")->Table(L"subcompitem");
    object->Set(L"orvoproject", project)->Set(L"orvoplantype", planType)->Set(L"orvocompbase", base);
    ProjectOf(object);
    EXPECT_EQ(GetCursor(), arrow);
    PlanTypeOf(object.get());
    EXPECT_EQ(GetCursor(), arrow);
    TypeNameOf(object.get());
    EXPECT_EQ(GetCursor(), arrow);
    CompBaseOf(object.get(), L"subcompitem");
    EXPECT_EQ(GetCursor(), arrow);
    EXPECT_EQ(seen, 4 + 1 + 1 + 1);
    EXPECT_EQ(CUiState::Depth(), 0);
}
} // namespace
