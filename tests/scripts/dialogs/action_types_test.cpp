// The action types that the property dialog of a script action offers.
#include "ActionFixture.h"

#include "ReferenceValues.h"

#include <optional>
#include <thread>
#include <utility>

namespace
{
using namespace action_dialog;

class ActionTypeList : public ActionFixture
{
protected:
    void Setting(const MemoryValue& value, HRESULT status = S_OK)
    {
        host.Settings().Set(L"properties", L"enablemcmscriptactions", value, status);
        if (!m_offered)
            m_offered.emplace(host.Settings());
    }

    Texts Offered()
    {
        Texts names;
        Open({[&](DialogView& view) {
            names = view.Items(kActionType);
        }});
        return names;
    }

    /// The same on a thread that has no driver yet.
    Texts OfferedHere()
    {
        Texts names;
        DialogDriver user;
        user.OnDialog({[&](DialogView& view) { names = view.Items(kActionType); }, Presses(IDCANCEL)});
        EXPECT_EQ(service->ShowScriptActionOrCommandDlg(manager, factory, query, owner.get(), planTypes.get(),
                                                        action.get(), XQPComBSTR(L"XDOScriptAction")),
                  S_FALSE);
        return names;
    }

    template <class Body>
    static void OnAThread(Body&& body)
    {
        std::thread(std::forward<Body>(body)).join();
    }

    MemoryAttributeType* Entry(std::size_t index) { return values->values.objects.at(index).get(); }

    /// Fills the list up so that the next value is the first of another batch.
    void FillABatch()
    {
        for (std::size_t index = values->values.objects.size(); index < 25; ++index)
        {
            const std::wstring name = L"T" + std::to_wstring(100 + index);
            values->Value(name.c_str(), static_cast<LONG>(100 + index));
        }
    }

    const Texts kOff = {L"Close", L"Open"};
    const Texts kOn = {L"Check in", L"Check out", L"Close", L"Open"};

private:
    std::optional<MemorySettings::Offered> m_offered;
};

// The setting.

TEST_F(ActionTypeList, LacksMcmTypesWithoutASettingsService)
{
    EXPECT_EQ(Offered(), kOff);
}

TEST_F(ActionTypeList, HasMcmTypesIfTheSettingIsOn)
{
    Setting(true);
    EXPECT_EQ(Offered(), kOn);
    EXPECT_EQ(host.calls.at(1), "settings.GetValue(properties, enablemcmscriptactions, 11, 1)");
}

TEST_F(ActionTypeList, LacksMcmTypesIfTheSettingIsOff)
{
    Setting(false);
    EXPECT_EQ(Offered(), kOff);
}

TEST_F(ActionTypeList, LacksMcmTypesIfTheSettingHasNoValue)
{
    Setting(MemoryValue(), S_FALSE);
    EXPECT_EQ(Offered(), kOff);
}

TEST_F(ActionTypeList, HasMcmTypesOnlyWithSOk)
{
    for (const HRESULT status : {S_FALSE, HRESULT{2}, E_FAIL})
    {
        Setting(true, status);
        EXPECT_EQ(Offered(), kOff) << status;
    }
}

TEST_F(ActionTypeList, TakesTheSettingInOtherTypes)
{
    for (const MemoryValue& value :
         {MemoryValue(1), MemoryValue(-1), MemoryValue(L"True"), MemoryValue(L"1")})
    {
        Setting(value);
        EXPECT_EQ(Offered(), kOn);
    }
    for (const MemoryValue& value :
         {MemoryValue(0), MemoryValue(L"False"), MemoryValue(L"on"), MemoryValue()})
    {
        Setting(value);
        EXPECT_EQ(Offered(), kOff);
    }
    VARIANT_BOOL on = VARIANT_TRUE;
    Setting(ByAddress(VT_BOOL, &on));
    EXPECT_EQ(Offered(), kOn);
}

TEST_F(ActionTypeList, LacksMcmTypesIfTheServiceCannotBeCreated)
{
    Setting(true);
    host.Settings().createStatus = E_ACCESSDENIED;
    EXPECT_EQ(Offered(), kOff);
}

TEST_F(ActionTypeList, ReadsTheSettingAlsoWithoutAType)
{
    Setting(true);
    host.Config().typeNull = true;
    EXPECT_EQ(Offered(), Texts{});
    EXPECT_EQ(host.calls.at(1), "settings.GetValue(properties, enablemcmscriptactions, 11, 1)");
}

TEST_F(ActionTypeList, ReleasesTheService)
{
    Setting(true);
    const ULONG held = host.Settings().References();
    Offered();
    EXPECT_EQ(host.Settings().References(), held);
}

TEST_F(ActionTypeList, LeavesTheThreadInItsApartment)
{
    HRESULT again = E_FAIL;
    OnAThread([&] {
        OfferedHere();
        again = CoInitialize(nullptr);
        // That of this test and that of the dialog.
        CoUninitialize();
        CoUninitialize();
    });
    EXPECT_EQ(again, S_FALSE) << "initialised already";
}

TEST_F(ActionTypeList, LacksMcmTypesInAnotherApartment)
{
    Setting(true);
    Texts names;
    OnAThread([&] {
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
        names = OfferedHere();
        CoUninitialize();
    });
    EXPECT_EQ(names, kOff);
}

TEST_F(ActionTypeList, McmTypesAre24To26)
{
    values->values.objects.clear();
    for (const LONG number : {23, 24, 25, 26, 27})
        values->Value(std::to_wstring(number).c_str(), number);
    EXPECT_EQ(Offered(), (Texts{L"23", L"27"}));
    Setting(true);
    EXPECT_EQ(Offered(), (Texts{L"23", L"24", L"25", L"26", L"27"}));
}

TEST_F(ActionTypeList, AStoredMcmTypeIsNotChosenButKept)
{
    action->Set(L"m_actionType", 25);
    EXPECT_EQ(Show({Sees(NoneChosen(kActionType)), Presses(IDOK)}), S_OK);
    EXPECT_TRUE(Wrote("m_actionType = I4 25"));
    Setting(true);
    Open({Sees(Chosen(kActionType, L"Check out"))});
}

// The entries.

TEST_F(ActionTypeList, IsSortedByName)
{
    values->Value(L"beta", 7)->Value(L"Alpha", 9);
    EXPECT_EQ(Offered(), (Texts{L"Alpha", L"beta", L"Close", L"Open"}));
}

TEST_F(ActionTypeList, AnUnreadableNameDropsTheRestOfItsBatch)
{
    FillABatch();
    values->Value(L"Next batch", 300);
    Entry(1)->Fail(L"name", E_FAIL);
    EXPECT_EQ(Offered(), (Texts{L"Next batch", L"Open"}));
}

TEST_F(ActionTypeList, AnUnreadableValueDropsTheRestOfItsBatch)
{
    FillABatch();
    values->Value(L"Next batch", 300);
    Entry(1)->Fail(L"value", E_FAIL);
    EXPECT_EQ(Offered(), (Texts{L"Next batch", L"Open"}));
}

TEST_F(ActionTypeList, ANameWithSFalseStays)
{
    Entry(0)->Set(L"name", L"Opened", S_FALSE);
    EXPECT_EQ(Offered(), (Texts{L"Close", L"Opened"}));
}

TEST_F(ActionTypeList, ANameThatIsNoTextIsEmpty)
{
    Entry(0)->Set(L"name", static_cast<IUnknown*>(nullptr));
    EXPECT_EQ(Offered(), (Texts{L"", L"Close"}));
}

TEST_F(ActionTypeList, AValueThatIsNoNumberIsZero)
{
    Entry(0)->Set(L"value", L"first");
    action->Set(L"m_actionType", LONG{0});
    Open({Sees(Offers(kActionType, kOff)), Sees(Chosen(kActionType, L"Open"))});
}

TEST_F(ActionTypeList, ValuesAreConverted)
{
    LONG number = 2;
    const XQPComBSTR text(L"Shut");
    BSTR name = text;
    Entry(0)->Set(L"value", L"25");
    Entry(1)->Set(L"value", ByAddress(VT_I4, &number));
    Entry(1)->Set(L"name", ByAddress(VT_BSTR, &name));
    Open({Sees(Offers(kActionType, {L"Shut"})), Sees(Chosen(kActionType, L"Shut"))});
}

TEST_F(ActionTypeList, OfEqualNumbersTheLastNameCounts)
{
    values->Value(L"Shut", 2);
    Open({Sees(Offers(kActionType, {L"Open", L"Shut"})), Sees(Chosen(kActionType, L"Shut"))});
}

TEST_F(ActionTypeList, OfEqualNamesTheLastNumberCounts)
{
    values->Value(L"Close", 9);
    EXPECT_EQ(Show({Sees(Offers(kActionType, {L"Close", L"Close", L"Open"})), Presses(IDOK)}), S_OK);
    EXPECT_TRUE(Wrote("m_actionType = I4 9"));
}

TEST_F(ActionTypeList, SelectsByPrefixFromTheTop)
{
    values->Value(L"Open late", 3)->Value(L"Op", 4);
    action->Set(L"m_actionType", 4);
    // The first name that begins with it.
    EXPECT_EQ(Show({Sees(Offers(kActionType, {L"Close", L"Op", L"Open", L"Open late"})),
                    Sees(Chosen(kActionType, L"Op")), Presses(IDOK)}),
              S_OK);
    action->Set(L"m_actionType", 1);
    Open({Sees(Chosen(kActionType, L"Open"))});
}

TEST_F(ActionTypeList, ANullEntryDropsTheRestOfItsBatch)
{
    FillABatch();
    values->Value(L"Next batch", 300);
    values->values.objects.at(1).reset();
    EXPECT_EQ(Offered(), (Texts{L"Next batch", L"Open"}));
}

TEST_F(ActionTypeList, FillsSeveralBatches)
{
    values->values.objects.clear();
    for (LONG number = 100; number < 160; ++number)
        values->Value(std::to_wstring(number).c_str(), number);
    EXPECT_EQ(Offered().size(), 60u);
}

// The list itself.

TEST_F(ActionTypeList, IsEmptyWithoutTheAttribute)
{
    host.Config().types.objects.back()->attributes.objects.clear();
    EXPECT_EQ(Offered(), Texts{});
}

TEST_F(ActionTypeList, IsEmptyIfTheAttributeFails)
{
    host.Config().types.objects.back()->attributeStatus = E_FAIL;
    EXPECT_EQ(Offered(), Texts{});
}

TEST_F(ActionTypeList, IsEmptyIfTheAttributeIsNull)
{
    host.Config().types.objects.back()->attributeNull = true;
    EXPECT_EQ(Offered(), Texts{});
}

TEST_F(ActionTypeList, TakesAnAttributeWithSFalse)
{
    host.Config().types.objects.back()->attributeStatus = S_FALSE;
    EXPECT_EQ(Offered(), kOff);
}

TEST_F(ActionTypeList, IsEmptyIfTheValuesFail)
{
    values->values.status = E_FAIL;
    EXPECT_EQ(Offered(), Texts{});
}

TEST_F(ActionTypeList, IsEmptyIfTheValuesAreNull)
{
    values->values.null = true;
    EXPECT_EQ(Offered(), Texts{});
}

TEST_F(ActionTypeList, EndsAtAFailedBatch)
{
    FillABatch();
    values->Value(L"Next batch", 300);
    values->values.statuses[0] = E_FAIL;
    EXPECT_EQ(Offered(), Texts{});
    values->values.statuses = {{1, E_FAIL}};
    EXPECT_EQ(Offered().size(), 23u) << "those of the first batch, but for the hidden ones";
}
} // namespace
