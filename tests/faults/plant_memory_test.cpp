// The script service on the sample plant while memory runs out, in every mode of searching: the host answers
// by what reaches it.
#include "FaultyMemory.h"
#include "HostWork.h"
#include "LetterModel.h"
#include "MemorySweep.h"
#include "NameInPlant.h"
#include "Plant.h"
#include "SampleFolder.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "XScriptActionAndCommandManager.h"

#include "UiState.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
struct PlantCase
{
    const char* name;
    const wchar_t* set;
    const wchar_t* typeName;
    const wchar_t* planType;
    HRESULT commandsLeave; ///< what the last host call of GetScriptCommands that counts returns
    FaultyMemory::Failing failing;
};

std::ostream& operator<<(std::ostream& stream, const PlantCase& plantCase)
{
    return stream << plantCase.name << NameOf(plantCase.failing);
}

std::vector<PlantCase> PlantCases()
{
    std::vector<PlantCase> cases;
    for (const auto failing : {FaultyMemory::Failing::Once, FaultyMemory::Failing::FromThere})
    {
        cases.push_back({"Weld", L"Body Shop", L"orvoplantype_workcell", L"Welding", S_OK, failing});
        cases.push_back({"Paint", L"Body Shop", L"orvoplantype_workcell", L"Painting", S_OK, failing});
        cases.push_back({"Turning", L"Machining", L"machine", L"Turning", S_OK, failing});
        // The last one found has neither a script nor a macro.
        cases.push_back({"Robot", L"Body Shop", L"robot", nullptr, S_FALSE, failing});
        cases.push_back({"WorkCell", L"Body Shop", L"orvoplantype_workcell", nullptr, S_OK, failing});
    }
    return cases;
}

class PlantMemory : public ::testing::TestWithParam<PlantCase>
{
protected:
    PlantMemory()
    {
        plant->Load(refhost::SampleFolder());
        query = plant->NewQuery();
        set = plant->Find(L"plantypeset", GetParam().set);
        if (GetParam().planType)
            planType = plant->Find(L"plantype", GetParam().planType);
    }

    template <class Call>
    MemoryRun With(long n, Call&& call)
    {
        ComPtr<IScriptActionAndCommandManager> manager;
        CreateComObject<qptools::XScriptActionAndCommandManager>(
            nullptr, __uuidof(IScriptActionAndCommandManager), manager.putVoid());
        XQPComVariant result;
        PutOldValue(result.Value());
        plant->Calls().Clear();
        plant->Calls().Record(true);
        MemoryRun run;
        {
            const FaultyMemory memory(n, GetParam().failing, &refhost::HostWork::GoesOn);
            run.status = call(manager.get(), &result.Value());
            run.struck = memory.Struck();
        }
        plant->Calls().Record(false);
        EXPECT_EQ(CUiState::Depth(), 0);
        run.calls = plant->Calls().Calls();
        run.untouched = IsOldValue(result.Value());
        if (!run.untouched)
            run.rows = RowsOf(result.Value(), NameInPlant);
        return run;
    }

    MemoryOutcomes Sweep(HRESULT walkStatus, std::function<MemoryRun(long n)> call)
    {
        MemorySweep sweep(std::move(call), [] { return refhost::Plant::LiveObjects(); });
        sweep.ExpectWalkStatus(walkStatus);
        sweep.CriteriaDecide();
        sweep.Run();
        return sweep.Outcomes();
    }

    const std::unique_ptr<refhost::Plant> plant = refhost::Plant::OpenMemory();
    ComPtr<IQP_Query> query;
    ComPtr<IQP_BaseDataObject> set;
    ComPtr<IQP_BaseDataObject> planType;
    const XQPComBSTR type{GetParam().typeName};
};

TEST_P(PlantMemory, EveryAllocationOfGetScriptCommands)
{
    const MemoryOutcomes outcomes = Sweep(GetParam().commandsLeave, [this](long n) {
        return With(n, [this](IScriptActionAndCommandManager* manager, VARIANT* result) {
            return manager->GetScriptCommands(query.get(), set.get(), type, planType.get(), 1, nullptr,
                                              result);
        });
    });
    EXPECT_GT(outcomes.partial, 0);
}

TEST_P(PlantMemory, EveryAllocationOfGetScriptsForAction)
{
    Sweep(S_OK, [this](long n) {
        return With(n, [this](IScriptActionAndCommandManager* manager, VARIANT* result) {
            return manager->GetScriptsForAction(query.get(), set.get(), type, planType.get(), 1, 0, result);
        });
    });
}

INSTANTIATE_TEST_SUITE_P(Places, PlantMemory, ::testing::ValuesIn(PlantCases()), [](const auto& info) {
    return std::string(info.param.name) + NameOf(info.param.failing);
});
} // namespace
