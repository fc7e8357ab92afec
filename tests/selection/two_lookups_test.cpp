// Two look-ups by one call, and the query that the component is given.
#include "ItemLookup.h"

namespace
{
class TwoLookups : public ItemLookup
{
protected:
    struct Two
    {
        HRESULT status;
        std::string first;
        std::string planType;
        bool operator==(const Two&) const = default;
    };
    friend std::ostream& operator<<(std::ostream& stream, const Two& two)
    {
        return stream << std::hex << two.status << std::dec << " " << two.first << " " << two.planType;
    }

    Two ProjectAndPlanTypeOf(Data* asked)
    {
        host.calls.clear();
        Data* first = Untouched<Data>();
        Data* second = Untouched<Data>();
        const HRESULT status = item->GetProjectAndPlanType(asked, &first, &second);
        return {status, TakeOver(first), TakeOver(second)};
    }
    Two TypeNameAndPlanTypeOf(Data* asked)
    {
        host.calls.clear();
        BSTR first = reinterpret_cast<BSTR>(Untouched<int>());
        Data* second = Untouched<Data>();
        const HRESULT status = item->GetTypeNameAndPlanType(asked, &first, &second);
        return {status, TakeOver(first), TakeOver(second)};
    }
};

TEST_F(TwoLookups, ProjectAndPlanTypeAreLookedUpInThisOrder)
{
    object->Is(L"XDOOrvoProject")->Set(L"orvoplantype", planType);
    EXPECT_EQ(ProjectAndPlanTypeOf(object.get()), (Two{S_OK, "object", "plantype"}));
    EXPECT_CALLS(Calls{"object.IsDerivedFromClass(XDOOrvoProject)", "object.GetAttribute(orvoplantype)"});
}

TEST_F(TwoLookups, AMissingProjectIsNullAndThePlanTypeFollows)
{
    object->Set(L"orvoplantype", planType);
    EXPECT_EQ(ProjectAndPlanTypeOf(object.get()), (Two{S_OK, "null", "plantype"}));
}

TEST_F(TwoLookups, AnUnreadableProjectEndsItBeforeThePlanType)
{
    object->Is(L"XDOOrvoItem")->Fail(L"orvoproject", E_FAIL)->Set(L"orvoplantype", planType);
    EXPECT_EQ(ProjectAndPlanTypeOf(object.get()), (Two{E_FAIL, "untouched", "untouched"}));
    EXPECT_EQ(host.calls.back(), "object.GetAttribute(orvoproject)");

    const auto component = host.Object("component");
    component->Is(L"XDOOrvoItem")->Is(L"XDOWorkSystemComponent")->Set(L"orvoplantype", planType);
    EXPECT_EQ(ProjectAndPlanTypeOf(component.get()), (Two{S_FALSE, "untouched", "untouched"}));
}

TEST_F(TwoLookups, TheProjectIsWrittenAlsoWhereThePlanTypeFails)
{
    object->Is(L"XDOOrvoProject")->Fail(L"orvoplantype", E_FAIL);
    EXPECT_EQ(ProjectAndPlanTypeOf(object.get()), (Two{E_FAIL, "object", "untouched"}));
    EXPECT_EQ(logBook.Entries(), Entries{LogBook::HostCall("0x80004005", 645, kPlanTypeFailed)});
    object->Fail(L"orvoplantype", S_FALSE);
    EXPECT_EQ(ProjectAndPlanTypeOf(object.get()), (Two{S_FALSE, "object", "untouched"}));
}

TEST_F(TwoLookups, TypeNameAndPlanTypeAreLookedUpInThisOrder)
{
    object->Table(L"item")->Set(L"orvoplantype", planType);
    EXPECT_EQ(TypeNameAndPlanTypeOf(object.get()), (Two{S_OK, "item", "plantype"}));
    EXPECT_CALLS(Calls{"object.GetTableName()", "object.GetAttribute(orvoplantype)"});
}

TEST_F(TwoLookups, TheTypeNameIsWrittenAlsoWhereThePlanTypeFails)
{
    object->Table(L"item")->Fail(L"orvoplantype", E_FAIL);
    EXPECT_EQ(TypeNameAndPlanTypeOf(object.get()), (Two{E_FAIL, "item", "untouched"}));
}

TEST_F(TwoLookups, AnUnreadableTypeNameEndsItBeforeThePlanType)
{
    object->Table(nullptr, E_FAIL)->Set(L"orvoplantype", planType);
    EXPECT_EQ(TypeNameAndPlanTypeOf(object.get()), (Two{E_FAIL, "untouched", "untouched"}));
    EXPECT_CALLS(Calls{"object.GetTableName()"});
}

TEST_F(TwoLookups, NoObjectIsABadArgument)
{
    EXPECT_EQ(ProjectAndPlanTypeOf(nullptr), (Two{E_INVALIDARG, "untouched", "untouched"}));
    EXPECT_EQ(TypeNameAndPlanTypeOf(nullptr), (Two{E_INVALIDARG, "untouched", "untouched"}));
}

TEST_F(TwoLookups, EachResultAddressMayBeNull)
{
    object->Is(L"XDOOrvoProject")->Table(L"item")->Set(L"orvoplantype", planType);
    const ULONG before = References(object) + References(planType);
    EXPECT_EQ(item->GetProjectAndPlanType(object.get(), nullptr, nullptr), S_OK);
    EXPECT_EQ(item->GetTypeNameAndPlanType(object.get(), nullptr, nullptr), S_OK);
    EXPECT_EQ(References(object) + References(planType), before);
    EXPECT_EQ(host.calls.size(), 4u);
}

// The query.

class QueryGiven : public LookupFixture
{
protected:
    /// References to the query that the component holds.
    ULONG Held() { return host.Query().References(); }

    HRESULT Initialize(const VARIANT& value)
    {
        VARIANT given = value;
        return item->Initialize(&given);
    }
};

TEST_F(QueryGiven, IsKeptHoweverItIsReferredTo)
{
    IUnknown* query = &host.Query();
    VARIANT byAddress = Reference(VT_BYREF | VT_UNKNOWN, nullptr);
    byAddress.ppunkVal = &query;
    VARIANT dispatchByAddress = byAddress;
    dispatchByAddress.vt = VT_BYREF | VT_DISPATCH;
    for (const VARIANT& value :
         {Reference(VT_UNKNOWN, query), Reference(VT_DISPATCH, query), byAddress, dispatchByAddress})
    {
        item.reset();
        CreateComObject<qptools::XQPSelectOrvoItem>(nullptr, __uuidof(IQPSelectOrvoItem), item.putVoid());
        ASSERT_EQ(Held(), 0u);
        EXPECT_EQ(Initialize(value), S_OK);
        EXPECT_EQ(Held(), 1u) << value.vt;
    }
    item.reset();
    EXPECT_EQ(Held(), 0u);
}

TEST_F(QueryGiven, IsQueriedForItsInterfaceOnlyIfNew)
{
    host.recordingQueries = true;
    EXPECT_EQ(Initialize(Reference(VT_UNKNOWN, &host.Query())), S_OK);
    EXPECT_EQ(Initialize(Reference(VT_UNKNOWN, &host.Query())), S_OK);
    EXPECT_CALLS(Calls{"QueryInterface(IQP_Query)"});
}

TEST_F(QueryGiven, StaysIfNothingNewIsGiven)
{
    EXPECT_EQ(Initialize(Reference(VT_UNKNOWN, &host.Query())), S_OK);
    VARIANT number = Reference(VT_I8, &host.Query());
    EXPECT_EQ(Initialize(Reference(VT_UNKNOWN, nullptr)), S_OK);
    EXPECT_EQ(Initialize(XQPComVariant()), S_OK);
    EXPECT_EQ(Initialize(XQPComVariant(L"text")), S_OK);
    EXPECT_EQ(Initialize(number), S_OK);
    EXPECT_EQ(item->Initialize(nullptr), S_OK);
    EXPECT_EQ(Initialize(Reference(VT_UNKNOWN, &host.Query())), S_OK) << "the same once more";
    EXPECT_EQ(Held(), 1u);
}

TEST_F(QueryGiven, IsReplacedByAnotherAndRemovedByAnyOtherObject)
{
    MemoryHost another;
    EXPECT_EQ(Initialize(Reference(VT_UNKNOWN, &host.Query())), S_OK);
    EXPECT_EQ(Initialize(Reference(VT_UNKNOWN, &another.Query())), S_OK);
    EXPECT_EQ(Held(), 0u);
    EXPECT_EQ(another.Query().References(), 1u);
    EXPECT_EQ(Initialize(Reference(VT_UNKNOWN, noDataObject.get())), S_OK);
    EXPECT_EQ(another.Query().References(), 0u);
    item.reset();
}
} // namespace
