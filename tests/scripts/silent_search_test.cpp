// The script service reports failures to its caller alone: no message box, no line in any log.
#include "BoxAnswers.h"
#include "LogFolder.h"
#include "ManagerFixture.h"

#include "XScriptActionFinder.h"
#include "XScriptCommandFinder.h"

namespace
{
class SilentSearch : public ManagerFixture
{
protected:
    ~SilentSearch() override
    {
        EXPECT_TRUE(std::filesystem::is_empty(m_logs.Path())) << "a log was written";
        EXPECT_TRUE(m_boxes.Shown().empty()) << "a message was shown";
    }

    /// Every kind of search, in every mode.
    void AskForEverything(IQP_Query* asked, IQP_BaseDataObject* ofSet)
    {
        for (const wchar_t* typeName :
             {static_cast<const wchar_t*>(nullptr), L"", L"machine", L"orvoplantype_work", L"scriptaction"})
        {
            for (const ComPtr<MemoryObject>& ofPlanType : {ComPtr<MemoryObject>(), planType})
            {
                const Bstr type(typeName);
                qptools::XScriptActionFinder actions;
                ComPtr<IEnumBaseDataObject> found;
                actions.FindScriptActions(asked, ofSet, type.get(), ofPlanType.get(), 7, 1, found.put());
                qptools::XScriptCommandFinder commands;
                commands.FindScriptCommands(asked, ofSet, type.get(), ofPlanType.get(), 1, nullptr,
                                            found.put());
                manager->GetScriptsForAction(asked, ofSet, type.get(), ofPlanType.get(), 7, 1, &result);
                manager->GetScriptCommands(asked, ofSet, type.get(), ofPlanType.get(), 1, nullptr, &result);
                ++asks;
            }
        }
    }
    void AskForEverything() { AskForEverything(&query, set.get()); }

    int asks = 0;

private:
    const LogFolder m_logs;
    BoxAnswers m_boxes;
};

TEST_F(SilentSearch, WithoutAQueryOrASet)
{
    AskForEverything(nullptr, set.get());
    AskForEverything(&query, nullptr);
    EXPECT_EQ(asks, 20);
}

TEST_F(SilentSearch, WhereEveryStepIsRefused)
{
    query.result = host.List({});
    for (HRESULT* step : {&query.resetStatus, &query.tableStatus, &query.catenationStatus,
                          &query.criterionStatus, &query.orderStatus, &query.resultStatus})
    {
        *step = E_ACCESSDENIED;
        AskForEverything();
        *step = S_OK;
    }
    EXPECT_EQ(asks, 60);
}

TEST_F(SilentSearch, WhereNothingThatIsFoundCanBeRead)
{
    const auto broken = Action("broken", Script("weld"));
    broken->Fail(L"script", E_FAIL);
    const auto wrong = Action("wrong", Script("weld"));
    wrong->Set(L"script", static_cast<IUnknown*>(nullptr));
    const auto mute = Action("mute", Script("weld"));
    mute->offersRights = false;
    const auto forbidden = Action("forbidden", Script("weld"));
    forbidden->right = E_ACCESSDENIED;
    const auto macro = MacroCommand("macro", nullptr, nullptr);
    for (const auto& object : {broken, wrong, mute, forbidden, macro, ComPtr<MemoryObject>()})
    {
        Finds({object});
        AskForEverything();
        query.result->statuses[0] = E_FAIL;
        AskForEverything();
    }
    EXPECT_EQ(asks, 120);
}

TEST_F(SilentSearch, WhereAllGoesWell)
{
    GiveSetMaster();
    GivePlanTypeMaster();
    Finds({Action("one", Script("weld")), Action("two", Script("weld"))});
    AskForEverything();
    EXPECT_EQ(Rows(), (TextRows{{"weld", "<weld>", "1"}, {"weld(2)", "<weld>", "1"}}));
}
} // namespace
