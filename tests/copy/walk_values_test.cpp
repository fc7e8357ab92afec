// What the host answers for the type of an object: statuses, and values that are no texts.
#include "BareList.h"
#include "BorrowedValues.h"
#include "OddValues.h"
#include "ReferenceValues.h"
#include "WalkFixture.h"

#include "Bstr.h"

namespace
{
class WalkValues : public WalkFixture
{
protected:
    /// The record of the press with this answer for the name of its configuration.
    Calls WalkNamed(const VARIANT& configName, HRESULT status = S_OK)
    {
        candidates.clear();
        press->Answer(L"configtypename", status, configName);
        return Walk(kParents, {press});
    }

    /// The same with this caption of the type.
    Calls WalkCaptioned(const MemoryValue& caption, HRESULT status = S_OK)
    {
        candidates.clear();
        Type(L"Station")->Set(L"captionsingular", caption, status);
        return Walk(kParents, {press});
    }

    const ComPtr<MemoryObject> press = host.Node(L"press", L"Station");
    const ComPtr<MemoryObject> lathe = host.Node(L"lathe", L"Station");
    const ComPtr<MemoryObject> cell = host.Node(L"cell", L"Cell", {press});
    const Calls whole = {"BSTR 'Station': press"};
};

TEST_F(WalkValues, NoStatusOfTheTypeMatters)
{
    for (const HRESULT status : {E_FAIL, S_FALSE})
    {
        EXPECT_EQ(WalkNamed(MemoryValue(L"Station").Value(), status), whole);
        press->TypeName(L"node", status);
        EXPECT_EQ(Walk(kParents, {press}), Calls{"BSTR 'Station': press press"});
        press->Type(Type(L"Station"), status);
        EXPECT_EQ(Walk(kParents, {press}), Calls{"BSTR 'Station': press press press"});
        EXPECT_EQ(WalkCaptioned(L"Station", status), whole);
    }
}

TEST_F(WalkValues, AnObjectWithoutATypeIsLeftOutAndEnteredAllTheSame)
{
    cell->Type(nullptr);
    EXPECT_EQ(Walk(kAll, {cell, lathe}), Calls{"BSTR 'Station': press lathe"});
    EXPECT_CALLS((Calls{"selection.RemNext(1)", "cell.IsDerivedFromClass(XDORelationship)",
                        "cell.GetAttribute(configtypename)", "cell.GetTypeName()", "cell.GetType(node, Cell)",
                        "cell.GetChildren(nodes)", "cell nodes.RemNext(1)"}) +
                 VisitingLeaf("press", "Station") + Calls{"cell nodes.RemNext(1)", "selection.RemNext(1)"} +
                 VisitingLeaf("lathe", "Station") + Calls{"selection.RemNext(1)"});
    candidates.clear();
    EXPECT_EQ(Walk(kParents, {cell, lathe}), Calls{"BSTR 'Station': lathe"});
}

TEST_F(WalkValues, ATypeThatCannotBeHadIsNoType)
{
    press->Type(nullptr, E_FAIL);
    EXPECT_EQ(Walk(kParents, {press, lathe}), Calls{"BSTR 'Station': lathe"});
}

TEST_F(WalkValues, AConfigurationIsNamedByAnythingThatHasAText)
{
    host.Config().Type(L"12");
    EXPECT_EQ(WalkNamed(NumberValue(12)), Calls{"BSTR '12': press"});
    EXPECT_EQ(host.calls[3], "press.GetType(node, 12)");
    Bstr text(L"Station");
    BSTR address = text.get();
    EXPECT_EQ(WalkNamed(ByAddress(VT_BSTR, &address)), whole);
    VARIANT inner = MemoryValue(L"Station").Value();
    inner.bstrVal = address;
    EXPECT_EQ(WalkNamed(ByAddress(VT_VARIANT, &inner)), whole);
    LONG number = 12;
    EXPECT_EQ(WalkNamed(ByAddress(VT_I4, &number)), Calls{"BSTR '12': press"});
    press->Answer(L"configtypename", S_OK, VARIANT{});
}

TEST_F(WalkValues, WithoutANameOfAConfigurationTheTypeIsAskedForAllTheSame)
{
    host.Config().Type(L"node");
    EXPECT_EQ(WalkNamed(VARIANT{}, S_FALSE), Calls{"BSTR 'node': press"}) << "no value";
    EXPECT_EQ(host.calls[3], "press.GetType(node, )");
    EXPECT_EQ(WalkNamed(ObjectReference(nullptr)), Calls{"BSTR 'node': press"}) << "no text";
    EXPECT_EQ(host.calls[3], "press.GetType(node, null)");
    for (const VARIANT& nothing : NullAddresses())
        EXPECT_EQ(WalkNamed(nothing), Calls{"BSTR 'node': press"}) << nothing.vt;
}

TEST_F(WalkValues, TheNameOfATypeMayBeNull)
{
    press->TypeName(nullptr);
    EXPECT_EQ(Walk(kParents, {press}), whole);
    EXPECT_EQ(host.calls[3], "press.GetType(null, Station)");
}

TEST_F(WalkValues, ACaptionOfAnotherTypeIsItsText)
{
    EXPECT_EQ(WalkCaptioned(7), Calls{"BSTR '7': press"});
    EXPECT_EQ(WalkCaptioned({}), Calls{"BSTR '': press"});
    Bstr text(L"Machine");
    BSTR address = text.get();
    EXPECT_EQ(WalkCaptioned(ByAddress(VT_BSTR, &address)), Calls{"BSTR 'Machine': press"});
    Type(L"Station")->Set(L"captionsingular", L"Station");
}

TEST_F(WalkValues, ACaptionWithoutATextIsEmpty)
{
    EXPECT_EQ(WalkCaptioned(static_cast<IQP_BaseDataObject*>(lathe.get())), Calls{"EMPTY: press"});
    VARIANT null{};
    null.vt = VT_NULL;
    EXPECT_EQ(WalkCaptioned(null), Calls{"EMPTY: press"});
    Type(L"Station")->Set(L"captionsingular", L"Station");
    EXPECT_EQ(Walk(kParents, {lathe}), Calls{"EMPTY: press lathe"}) << "a record keeps the first caption";
}

TEST_F(WalkValues, TextsMayHoldNullCharacters)
{
    const Bstr caption(std::wstring_view(L"a\0b", 3));
    VARIANT value{};
    value.vt = VT_BSTR;
    value.bstrVal = caption.get();
    Type(L"Station")->Set(L"captionsingular", MemoryValue(value));
    Walk(kParents, {press});
    ASSERT_EQ(candidates.size(), 1u);
    EXPECT_EQ(candidates.begin()->second.caption.View(), std::wstring_view(L"a\0b", 3));
}

/// An object whose attributes are all the one value. It is a relationship as well.
class OddNode final : public BareObject
{
public:
    OddNode(const VARIANT& value, IQPType* type) : m_value(value), m_type(type) {}

    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR, VARIANT* value) override
    {
        *value = m_value;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeName(BSTR* name) override
    {
        *name = nullptr;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetType(BSTR, BSTR, IQPType** type) override
    {
        return ComPtr(m_type).copyTo(type);
    }
    HRESULT STDMETHODCALLTYPE IsDerivedFromClass(BSTR) override { return S_OK; }

private:
    const VARIANT m_value;
    IQPType* const m_type;
};

TEST_F(WalkValues, NoTypeOfValueStopsAWalk)
{
    for (const VARIANT& value : OddValues())
    {
        OddNode node(value, Type(L"Station"));
        BareList list({&node});
        qptools::CollectCandidates(&list, kParents, candidates);
        ASSERT_EQ(candidates.size(), 1u) << value.vt;
        EXPECT_EQ(candidates.begin()->second.objects.size(), 1u) << value.vt;
        list.Reset();
        qptools::CollectCandidates(&list, kAll, candidates);
        EXPECT_EQ(candidates.begin()->second.objects.size(), 1u) << "a relationship to nothing: " << value.vt;
        candidates.clear();
        EXPECT_EQ(node.Count(), 0u) << value.vt;
    }
}
} // namespace
