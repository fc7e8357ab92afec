// Every host call of ApplyEnhanceCopy fails once, in each way a call can: the other objects get their values,
// and only a write that fails is reported.
#include "GridSteps.h"
#include "PlanModel.h"

#include "DialogDriver.h"
#include "LogBook.h"
#include "ModuleUnderTest.h"
#include "SampleFolder.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
using namespace copy_dialog;
using Lines = std::vector<std::string>;

class ApplyFaults : public ::testing::TestWithParam<Way>
{
protected:
    ApplyFaults() : m_objects(refhost::Plant::LiveObjects()), plant(refhost::Plant::OpenMemory())
    {
        plant->Load(refhost::SampleFolder());
        plan = ReadPlan(*plant);
        EXPECT_EQ(module.Create(CLSID_QPCopyOptDlg, copy), S_OK);
    }
    ~ApplyFaults() override
    {
        EXPECT_EQ(plant->Calls().Misuses(), Lines{}) << "variants that were not empty before the call";
        copy->DeleteObjects();
        copy.reset();
        plant.reset();
        EXPECT_EQ(refhost::Plant::LiveObjects(), m_objects) << "objects of the host are left";
    }

    /// Types a value for the stations and one for the resources, and ends with this button.
    void Enter(int button)
    {
        EXPECT_EQ(copy->Initialize(PlanTops(*plant).get(), plant->ConfigFactory().get()), S_OK);
        dialogs.OnDialog(Steps{Presses(kAdvanced), Checks(kDeepRadio), Chooses(kPlanType, L"Station"),
                               Sees(InRow(2, {L"operators", L""}))} +
                         OpensEditor(2) +
                         Steps{TypesInEditor(L"7"), Types("Return"), Sees(NoEditor()),
                               Chooses(kPlanType, L"Resource"), Sees(InRow(3, {L"supplier", L""}))} +
                         OpensEditor(3) +
                         Steps{TypesInEditor(L"Robot works"), Types("Return"), Sees(NoEditor()),
                               Presses(kAdvanced), Presses(button)});
        EXPECT_EQ(copy->ShowDialog(), S_OK);
        EXPECT_TRUE(dialogs.AllShown());
        EXPECT_EQ(copy->ApplyEnhanceCopy(nullptr), S_OK) << "releases what the dialog found";
    }

    /// Applies the values with the n-th call failing. Returns the objects that are written to, sorted.
    Lines Apply(long long n)
    {
        const ComPtr<IEnumBaseDataObject> tops = PlanTops(*plant);
        refhost::CallGate& gate = plant->Calls();
        gate.Clear();
        gate.Record(true);
        gate.FailCall(n, n == 0 ? refhost::Fault::None : GetParam().fault, GetParam().status);
        EXPECT_EQ(copy->ApplyEnhanceCopy(tops.get()), S_OK);
        EXPECT_EQ(gate.Struck(), n > 0);
        gate.FailCall(0, refhost::Fault::None);
        gate.Record(false);
        calls = gate.Calls();
        EXPECT_EQ(copy->ApplyEnhanceCopy(nullptr), S_OK);
        Lines written;
        for (const std::string& call : calls)
            if (call.find("::SetAttributes(") != std::string::npos)
                written.push_back(call.substr(call.find(' ') + 1, call.find(">::") - call.find(' ') - 1));
        std::sort(written.begin(), written.end());
        return written;
    }

    /// Fails every call. `walk` is the walk of the model.
    template <class Walk>
    void Sweep(Walk&& walk)
    {
        const long before = refhost::Plant::LiveObjects();
        PlanWalk whole(0, GetParam());
        walk(whole);
        EXPECT_EQ(Apply(0), Written(whole));
        const std::size_t count = calls.size();
        ASSERT_EQ(count, static_cast<std::size_t>(whole.Calls()) + 1 + Written(whole).size());
        for (long long n = 1; n <= static_cast<long long>(count) && !HasFailure(); ++n)
        {
            SCOPED_TRACE("call " + std::to_string(n));
            PlanWalk failing(n, GetParam());
            walk(failing);
            const std::size_t reports = logBook.Entries().size();
            EXPECT_EQ(Apply(n), Written(failing));
            const bool isWrite = n > whole.Calls() + 1;
            EXPECT_EQ(logBook.Entries().size() - reports, isWrite && GetParam().SaysSo() ? 1u : 0u);
            EXPECT_EQ(refhost::Plant::LiveObjects(), before);
        }
        for (const std::string& entry : logBook.Entries())
            EXPECT_EQ(entry, "note\tOrvoexplorer\tCEnhancedCopyDialog::ApplyAttributeSettings\t705\t-\t-\t"
                             "pDBO->SetAttributes(pNameValuePairs,&pSafeArrayResult");
    }

    /// The objects of the types that have values.
    static Lines Written(const PlanWalk& walk)
    {
        Lines written;
        for (const auto& [type, record] : walk.Records())
            if (record.caption == "Station" || record.caption == "Resource")
                written.insert(written.end(), record.names.begin(), record.names.end());
        std::sort(written.begin(), written.end());
        return written;
    }

private:
    const long m_objects;

protected:
    const LogBook logBook;
    const ModuleUnderTest module;
    std::unique_ptr<refhost::Plant> plant;
    PlanObjects plan;
    ComPtr<IQPCopyOptDlg> copy;
    DialogDriver dialogs;
    Lines calls;
};

TEST_P(ApplyFaults, EveryCallForADeepCopy)
{
    Enter(kDeep);
    Sweep([this](PlanWalk& walk) { walk.ParentsAndChildren(plan); });
}

TEST_P(ApplyFaults, EveryCallForANormalCopy)
{
    Enter(kNormal);
    Sweep([this](PlanWalk& walk) { walk.Parents(plan); });
}

INSTANTIATE_TEST_SUITE_P(Ways, ApplyFaults, ::testing::ValuesIn(kWays), NameOfWay);
} // namespace
