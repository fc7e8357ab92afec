// The lists of the property dialog of a script action: which host calls fill them, and what a failure leaves.
#include "ActionFixture.h"

#include "ReferenceValues.h"

namespace
{
using namespace action_dialog;

class ActionLists : public ActionFixture
{
protected:
    /// The entries after the first drop-down.
    Texts Dropped(int combo)
    {
        Texts items;
        Open({[this](DialogView&) { host.calls.clear(); }, Drops(combo),
              [&, combo](DialogView& view) {
                  items = view.Items(combo);
              }});
        return items;
    }

    void PlanTypes(const std::vector<ComPtr<MemoryObject>>& objects, HRESULT status = S_OK)
    {
        planTypes = host.Object("types of the plant");
        planTypes->Children(L"orvoplantype", host.List(objects), status);
    }

    std::vector<ComPtr<MemoryObject>> Many(int count)
    {
        std::vector<ComPtr<MemoryObject>> objects;
        for (int index = 0; index < count; ++index)
        {
            const std::wstring name = std::to_wstring(100 + index);
            objects.push_back(Named("many", name.c_str()));
        }
        return objects;
    }

    /// 26 objects, whose second has the attribute `name` fail or is null.
    std::vector<ComPtr<MemoryObject>> ManyWithABadSecond(bool null)
    {
        auto objects = Many(26);
        if (null)
            objects[1].reset();
        else
            objects[1]->Fail(L"name", E_FAIL);
        return objects;
    }

    MemoryType* Type(std::size_t index) { return host.Config().types.objects.at(index).get(); }

    const Texts kFirstAndNextBatch = {L"100", L"125"};
};

// Plan types.

TEST_F(ActionLists, PlanTypesNeedASet)
{
    planTypes.reset();
    EXPECT_EQ(Dropped(kPlanType), Texts{});
    EXPECT_EQ(host.calls, Calls{});
}

TEST_F(ActionLists, PlanTypesThatFailAreNone)
{
    PlanTypes({assembly}, E_FAIL);
    EXPECT_EQ(Dropped(kPlanType), Texts{});
}

TEST_F(ActionLists, PlanTypesWithoutAListAreNone)
{
    planTypes = host.Object("types of the plant");
    planTypes->Children(L"orvoplantype", nullptr);
    EXPECT_EQ(Dropped(kPlanType), Texts{});
}

TEST_F(ActionLists, PlanTypesWithSFalseAreTaken)
{
    PlanTypes({assembly}, S_FALSE);
    EXPECT_EQ(Dropped(kPlanType), Texts{L"Assembly"});
}

TEST_F(ActionLists, AnUnreadablePlanTypeDropsTheRestOfItsBatch)
{
    PlanTypes(ManyWithABadSecond(false));
    EXPECT_EQ(Dropped(kPlanType), kFirstAndNextBatch);
}

TEST_F(ActionLists, ANullPlanTypeDropsTheRestOfItsBatch)
{
    PlanTypes(ManyWithABadSecond(true));
    EXPECT_EQ(Dropped(kPlanType), kFirstAndNextBatch);
}

TEST_F(ActionLists, APlanTypeWhoseNameIsNoTextIsAnEmptyEntry)
{
    assembly->Set(L"name", weld);
    EXPECT_EQ(Dropped(kPlanType), (Texts{L"", L"Milling"}));
}

TEST_F(ActionLists, APlanTypeWithoutANameIsAnEmptyEntry)
{
    assembly->Fail(L"name", S_FALSE);
    EXPECT_EQ(Dropped(kPlanType), (Texts{L"", L"Milling"}));
}

TEST_F(ActionLists, AnEmptyPlanTypeCanBeChosenAndClears)
{
    assembly->Fail(L"name", S_FALSE);
    EXPECT_EQ(Show({Chooses(kPlanType, 0), Presses(IDOK)}), S_OK);
    EXPECT_TRUE(Wrote("m_pType = BSTR '', m_pPlanType = EMPTY"));
}

TEST_F(ActionLists, PlanTypesComeInBatches)
{
    PlanTypes(Many(60));
    EXPECT_EQ(Dropped(kPlanType).size(), 60u);
    EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), "RemNext(25)"), 3);
}

TEST_F(ActionLists, OfEqualPlanTypesTheLastCounts)
{
    PlanTypes({Named("first", L"Same"), Named("last", L"Same")});
    EXPECT_EQ(Show({Drops(kPlanType), Sees(Offers(kPlanType, {L"Same"})), Chooses(kPlanType, L"Same"),
                    Presses(IDOK)}),
              S_OK);
    EXPECT_TRUE(Wrote("m_pPlanType = UNKNOWN last"));
}

TEST_F(ActionLists, AreReadByNameAndShownByTheStoredName)
{
    drill->Set(L"name", L"Drill a hole")->Set(L"m_name", L"Drill");
    assembly->Set(L"name", L"Assembly line")->Set(L"m_name", L"Assembly");
    BindToPlanType(assembly);
    Open({Sees(Chosen(kScript, L"Drill")), Sees(Chosen(kPlanType, L"Assembly")), Drops(kScript),
          Sees(Offers(kScript, {L"Drill a hole", L"Weld"})), Sees(Chosen(kScript, L"Drill a hole")),
          Drops(kPlanType), Sees(Offers(kPlanType, {L"Assembly line", L"Milling"})),
          Sees(Chosen(kPlanType, L"Assembly line"))});
}

TEST_F(ActionLists, AreSortedWhateverTheirOrder)
{
    PlanTypes({Named("c", L"c"), Named("B", L"B"), Named("a", L"a")});
    EXPECT_EQ(Dropped(kPlanType), (Texts{L"a", L"B", L"c"}));
}

// Configured types.

TEST_F(ActionLists, TypesNeedAFactory)
{
    factory = nullptr;
    EXPECT_EQ(Dropped(kConfigType), Texts{});
    EXPECT_EQ(host.calls, Calls{});
}

TEST_F(ActionLists, TypesLackPlanTypes)
{
    EXPECT_EQ(Dropped(kConfigType), (Texts{L"cell", L"line", L"scriptaction"}));
}

TEST_F(ActionLists, TypesThatFailAreNone)
{
    host.Config().types.status = E_FAIL;
    EXPECT_EQ(Dropped(kConfigType), Texts{});
}

TEST_F(ActionLists, TypesWithoutAListAreNone)
{
    host.Config().types.null = true;
    EXPECT_EQ(Dropped(kConfigType), Texts{});
}

TEST_F(ActionLists, ATypeWhoseMarkFailsDropsTheRestOfItsBatch)
{
    Type(1)->Fail(L"isplantype", E_FAIL);
    for (int index = 4; index < 26; ++index)
        host.Config().Type((L"t" + std::to_wstring(index)).c_str());
    EXPECT_EQ(Dropped(kConfigType), (Texts{L"cell", L"t25"}));
}

TEST_F(ActionLists, ATypeWhoseMarkIsNoFlagDropsTheRestOfItsBatch)
{
    for (const MemoryValue& value : {MemoryValue(0), MemoryValue(L"False"), MemoryValue()})
    {
        Type(1)->Set(L"isplantype", value);
        EXPECT_EQ(Dropped(kConfigType), Texts{L"cell"});
    }
}

TEST_F(ActionLists, AMarkByAddressIsAFlag)
{
    VARIANT_BOOL no = VARIANT_FALSE;
    Type(1)->Set(L"isplantype", ByAddress(VT_BOOL, &no));
    EXPECT_EQ(Dropped(kConfigType), (Texts{L"cell", L"line", L"scriptaction"}));
}

TEST_F(ActionLists, AFailedNameThatIsDeliveredIsTaken)
{
    Type(1)->Set(L"typename", L"delivered", E_FAIL);
    EXPECT_EQ(Dropped(kConfigType), (Texts{L"cell", L"delivered", L"scriptaction"}));
}

TEST_F(ActionLists, AFailedNameIsAnEmptyEntry)
{
    Type(1)->Fail(L"typename", E_FAIL);
    EXPECT_EQ(Dropped(kConfigType), (Texts{L"", L"cell", L"scriptaction"}));
}

TEST_F(ActionLists, ANullTypeDropsTheRestOfItsBatch)
{
    for (int index = 4; index < 26; ++index)
        host.Config().Type((L"t" + std::to_wstring(index)).c_str());
    host.Config().types.objects.at(1).reset();
    EXPECT_EQ(Dropped(kConfigType), (Texts{L"cell", L"t25"}));
}

TEST_F(ActionLists, ATypeIsWrittenByItsName)
{
    EXPECT_EQ(Show({Chooses(kConfigType, L"line"), Presses(IDOK)}), S_OK);
    EXPECT_TRUE(Wrote("m_pType = BSTR 'line', m_pPlanType = EMPTY"));
}

// Scripts.

TEST_F(ActionLists, ScriptsOfNoProjectLackItsCriterion)
{
    owner.reset();
    EXPECT_EQ(Dropped(kScript), (Texts{L"Drill", L"Weld"}));
    EXPECT_EQ(host.calls, (Calls{"ResetSearch(0)", "SetSearchTable(script)",
                                 "SetSearchAttribute(dodefaultimpl, 1, EMPTY, 2)", "GetSearchResult()",
                                 "RemNext(25)", "drill.GetAttribute(name)", "weld.GetAttribute(name)"}));
}

TEST_F(ActionLists, ScriptsNeedAQuery)
{
    query = nullptr;
    EXPECT_EQ(Dropped(kScript), Texts{});
    EXPECT_EQ(host.calls, Calls{});
}

TEST_F(ActionLists, ScriptsNeedAReset)
{
    for (const HRESULT status : {E_FAIL, S_FALSE})
    {
        host.Query().resetStatus = status;
        EXPECT_EQ(Dropped(kScript), Texts{});
        EXPECT_EQ(host.calls, Calls{"ResetSearch(0)"});
    }
}

TEST_F(ActionLists, ScriptsNeedTheirTable)
{
    for (const HRESULT status : {E_FAIL, S_FALSE})
    {
        host.Query().tableStatus = status;
        EXPECT_EQ(Dropped(kScript), Texts{});
        EXPECT_EQ(host.calls, (Calls{"ResetSearch(0)", "SetSearchTable(script)"}));
    }
}

TEST_F(ActionLists, ScriptsNeedTheirCriteria)
{
    for (const HRESULT status : {E_FAIL, S_FALSE})
    {
        host.Query().criterionStatus = status;
        EXPECT_EQ(Dropped(kScript), Texts{});
        EXPECT_EQ(host.calls, (Calls{"ResetSearch(0)", "SetSearchTable(script)",
                                     "SetSearchAttribute(dodefaultimpl, 1, UNKNOWN project, 1)",
                                     "SetSearchAttribute(dodefaultimpl, 1, EMPTY, 2)"}));
    }
}

TEST_F(ActionLists, ScriptsNeedAResult)
{
    host.Query().resultStatus = E_FAIL;
    EXPECT_EQ(Dropped(kScript), Texts{});
    host.Query().resultStatus = S_OK;
    host.Query().result.reset();
    EXPECT_EQ(Dropped(kScript), Texts{});
}

TEST_F(ActionLists, ScriptsWithSFalseAreTaken)
{
    host.Query().resultStatus = S_FALSE;
    EXPECT_EQ(Dropped(kScript), (Texts{L"Drill", L"Weld"}));
}

TEST_F(ActionLists, AnUnreadableScriptDropsTheRestOfItsBatch)
{
    host.Query().result = host.List(ManyWithABadSecond(false));
    EXPECT_EQ(Dropped(kScript), kFirstAndNextBatch);
}

TEST_F(ActionLists, ANullScriptDropsTheRestOfItsBatch)
{
    host.Query().result = host.List(ManyWithABadSecond(true));
    EXPECT_EQ(Dropped(kScript), kFirstAndNextBatch);
}

TEST_F(ActionLists, AFailedBatchKeepsThoseBefore)
{
    host.Query().result = host.List(Many(60));
    host.Query().result->statuses[1] = E_FAIL;
    EXPECT_EQ(Dropped(kScript).size(), 25u);
    host.Query().result->statuses = {{0, E_FAIL}};
    EXPECT_EQ(Dropped(kScript), Texts{});
}
} // namespace
