// Which pages, groups and attributes of a type the property dialog of a script command lists.
#include "CommandFixture.h"

#include <algorithm>
#include <functional>

namespace
{
using namespace command_dialog;

class CommandElements : public CommandFixture
{
protected:
    CommandElements() { command->Set(L"customizationobjectid", L""); }

    /// Opening selects an empty entry, because no element has the empty identifier.
    void ShowElements(int type, Texts elements)
    {
        command->Set(L"customizationobjecttype", type);
        Texts opened = elements;
        opened.insert(opened.begin(), L"");
        Show({Sees(Offers(kElement, opened)), Sees(Chosen(kElement, L"")), Drops(kElement),
              Sees(Offers(kElement, elements)), Sees(Shows(kElement, L"")), Presses(IDCANCEL)});
    }
    void ShowPages(Texts pages) { ShowElements(0, std::move(pages)); }
    void ShowGroups(Texts groups) { ShowElements(1, std::move(groups)); }
    void ShowAttributes(Texts attributes) { ShowElements(2, std::move(attributes)); }

    /// The list cannot be filled: nothing is shown, not even an empty entry.
    void ShowNone(int type)
    {
        command->Set(L"customizationobjecttype", type);
        Show({Sees(Checked(kPage + type)), Sees(Offers(kElement, {})), Drops(kElement),
              Sees(Offers(kElement, {})), Presses(IDCANCEL)});
    }
};

TEST_F(CommandElements, AreListedSorted)
{
    ShowPages({L"Costs", L"General"});
    ShowGroups({L"Limits", L"Usage"});
    cell->Attribute(L"length");
    ShowAttributes({L"length", L"weight"});
}

TEST_F(CommandElements, AreAttributesOfThePlacementMask)
{
    cell->Attribute(L"hidden")->mask = 8;
    cell->Attribute(L"shown")->mask = 4;
    ShowAttributes({L"shown", L"weight"});
    EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), "cell.GetDisplayAttributeEnum(7)"), 2);
}

// Whether a page or group is listed: a value that is not zero, in any type.

struct Flag
{
    const char* name;
    std::function<void(VARIANT&)> set;
    bool isListed;
};

LONG g_one = 1;
LONG g_zero = 0;

class ListedFlag : public CommandElements, public ::testing::WithParamInterface<Flag>
{
protected:
    ListedFlag()
    {
        VariantInit(&value);
        GetParam().set(value);
    }
    ~ListedFlag() override { VariantClear(&value); }

    VARIANT value{};
};

TEST_P(ListedFlag, ListsAPageIfItIsNotZero)
{
    cell->Page(L"Asked", 9)->Set(5, MemoryValue(value));
    ShowPages(GetParam().isListed ? Texts{L"Asked", L"Costs", L"General"} : Texts{L"Costs", L"General"});
}

TEST_P(ListedFlag, ListsAGroupIfItIsNotZero)
{
    cell->Group(L"Asked", 9)->Set(9, MemoryValue(value));
    ShowGroups(GetParam().isListed ? Texts{L"Asked", L"Limits", L"Usage"} : Texts{L"Limits", L"Usage"});
}

template <VARTYPE Type>
void OfType(VARIANT& value)
{
    value.vt = Type;
}

const Flag kFlags[] = {
    {"Empty", OfType<VT_EMPTY>, false},
    {"Null", OfType<VT_NULL>, false},
    {"False", OfType<VT_BOOL>, false},
    {"True", [](VARIANT& value) { value.vt = VT_BOOL, value.boolVal = VARIANT_TRUE; }, true},
    {"Zero", OfType<VT_I4>, false},
    {"One", [](VARIANT& value) { value.vt = VT_I4, value.lVal = 1; }, true},
    {"MinusOne", [](VARIANT& value) { value.vt = VT_I2, value.iVal = -1; }, true},
    {"ByteZero", OfType<VT_UI1>, false},
    {"ByteTwo", [](VARIANT& value) { value.vt = VT_UI1, value.bVal = 2; }, true},
    {"UnsignedOne", [](VARIANT& value) { value.vt = VT_UI4, value.ulVal = 1; }, true},
    {"IntZero", OfType<VT_INT>, false},
    {"IntOne", [](VARIANT& value) { value.vt = VT_INT, value.intVal = 1; }, true},
    {"RealZero", OfType<VT_R8>, false},
    {"RealOne", [](VARIANT& value) { value.vt = VT_R8, value.dblVal = 1.0; }, true},
    {"DateZero", OfType<VT_DATE>, false},
    {"EmptyText", [](VARIANT& value) { value.vt = VT_BSTR, value.bstrVal = SysAllocString(L""); }, true},
    {"TextZero", [](VARIANT& value) { value.vt = VT_BSTR, value.bstrVal = SysAllocString(L"0"); }, true},
    {"NullObject", OfType<VT_UNKNOWN>, false},
    {"NullDispatch", OfType<VT_DISPATCH>, false},
    {"NullArray", OfType<VT_ARRAY | VT_I4>, false},
    {"Array",
     [](VARIANT& value) { value.vt = VT_ARRAY | VT_I4, value.parray = SafeArrayCreateVector(VT_I4, 0, 1); },
     true},
    {"ReferenceToOne", [](VARIANT& value) { value.vt = VT_I4 | VT_BYREF, value.plVal = &g_one; }, true},
    {"ReferenceToZero", [](VARIANT& value) { value.vt = VT_I4 | VT_BYREF, value.plVal = &g_zero; }, false}};

INSTANTIATE_TEST_SUITE_P(Values, ListedFlag, ::testing::ValuesIn(kFlags),
                         [](const auto& info) { return info.param.name; });

TEST_F(CommandElements, AreListedIfTheFlagIsAnObject)
{
    cell->Page(L"Asked", 9)->Set(5, static_cast<IQP_BaseDataObject*>(drill.get()));
    ShowPages({L"Asked", L"Costs", L"General"});
}

TEST_F(CommandElements, WithoutAReadableFlagAreSkipped)
{
    cell->Page(L"Asked", 9)->Fail(5, E_FAIL);
    ShowPages({L"Costs", L"General"});
    cell->Group(L"Asked", 9)->Fail(9, E_FAIL);
    ShowGroups({L"Limits", L"Usage"});
}

/// A status of success is one.
TEST_F(CommandElements, AreListedWithASuccessStatus)
{
    cell->Page(L"Asked", 9)->Set(5, true, S_FALSE)->Set(0, L"Asked", S_FALSE);
    ShowPages({L"Asked", L"Costs", L"General"});
}

// Names.

TEST_F(CommandElements, WithoutAReadableNameAreSkipped)
{
    cell->Page(L"Asked", 9)->Fail(0, E_FAIL);
    ShowPages({L"Costs", L"General"});
    cell->Group(L"Asked", 9)->Fail(0, E_FAIL);
    ShowGroups({L"Limits", L"Usage"});
    cell->Attribute(L"asked")->Fail(L"attributename", E_FAIL);
    ShowAttributes({L"weight"});
}

TEST_F(CommandElements, WhoseNameIsNoTextAreSkipped)
{
    auto* const object = static_cast<IQP_BaseDataObject*>(drill.get());
    cell->Page(L"Asked", 9)->Set(0, object);
    ShowPages({L"Costs", L"General"});
    cell->Group(L"Asked", 9)->Set(0, object);
    ShowGroups({L"Limits", L"Usage"});
    cell->Attribute(L"asked")->Set(L"attributename", object);
    ShowAttributes({L"weight"});
}

TEST_F(CommandElements, WhoseNameIsANumberAreListedByIt)
{
    cell->Page(L"Asked", 9)->Set(0, 17);
    ShowPages({L"17", L"Costs", L"General"});
    cell->Attribute(L"asked")->Set(L"attributename", 18);
    ShowAttributes({L"18", L"weight"});
}

/// Groups alone: an empty name is an entry of the others.
TEST_F(CommandElements, WithoutANameAreSkippedIfGroups)
{
    cell->Group(L"", 9);
    ShowGroups({L"Limits", L"Usage"});
    cell->Page(L"", 9)->Fail(6, E_FAIL);
    ShowPages({L"", L"Costs", L"General"});
    cell->Attribute(L"")->Fail(0, E_FAIL);
    ShowAttributes({L"", L"weight"});
}

TEST_F(CommandElements, OfEqualNamesAreAllListed)
{
    cell->Page(L"Costs", 4);
    ShowPages({L"Costs", L"Costs", L"General"});
}

// Enumerators.

TEST_F(CommandElements, ThatAreNullAreSkipped)
{
    cell->pages.objects.insert(cell->pages.objects.begin(), ComPtr<MemoryPage>());
    ShowPages({L"Costs", L"General"});
    cell->groups.objects.insert(cell->groups.objects.begin(), ComPtr<MemoryGroup>());
    ShowGroups({L"Limits", L"Usage"});
    cell->attributes.objects.insert(cell->attributes.objects.begin(), ComPtr<MemoryAttribute>());
    ShowAttributes({L"weight"});
}

TEST_F(CommandElements, EndAfterAThousandNullsInARow)
{
    for (std::size_t call = 0; call < 1500; ++call)
        cell->pages.statuses[call] = S_OK;
    long asked = 0;
    host.onCall = [&](const std::string& call) {
        asked += call == "cell pages.GetSingleNext()";
    };
    command->Set(L"customizationobjecttype", LONG{0});
    Show({Sees(Offers(kElement, {L"", L"Costs", L"General"})), Presses(IDCANCEL)});
    host.onCall = nullptr;
    EXPECT_EQ(asked, 3 + 1000);
}

TEST_F(CommandElements, EndAtAStatusWhateverItBrings)
{
    cell->pages.statuses[1] = S_FALSE;
    ShowPages({L"General"});
    cell->groups.statuses[1] = E_FAIL;
    ShowGroups({L"Usage"});
    cell->attributes.statuses[0] = S_FALSE;
    ShowAttributes({});
}

TEST_F(CommandElements, OfFailingEnumeratorsAreNone)
{
    cell->pages.status = E_FAIL;
    ShowNone(0);
    cell->attributes.status = E_FAIL;
    ShowNone(2);
}

/// On purpose groups are not told from an empty list then, which has the empty entry of no match.
TEST_F(CommandElements, OfAFailingGroupEnumeratorAreAnEmptyEntry)
{
    cell->groups.status = E_FAIL;
    ShowGroups({});
}

TEST_F(CommandElements, OfNoEnumeratorAreAnEmptyEntry)
{
    cell->pages.null = true;
    ShowPages({});
    cell->groups.null = true;
    ShowGroups({});
    cell->attributes.null = true;
    ShowAttributes({});
}

TEST_F(CommandElements, OfNoEnumeratorAndAStatusAreNone)
{
    cell->pages.null = true;
    cell->pages.status = S_FALSE;
    ShowNone(0);
    cell->attributes.null = true;
    cell->attributes.status = S_FALSE;
    ShowNone(2);
}

TEST_F(CommandElements, OfASuccessStatusAreListed)
{
    cell->pages.status = S_FALSE;
    ShowPages({L"Costs", L"General"});
}
} // namespace
