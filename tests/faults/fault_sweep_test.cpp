// Every host call of a whole run fails once, in each way a call can: each run ends, keeps no reference to the
// host, and delivers what the rules say for that failure.
#include "FaultWays.h"
#include "LetterModel.h"
#include "ModuleUnderTest.h"
#include "NameInPlant.h"
#include "Plant.h"
#include "SampleFolder.h"
#include "XQPComBSTR.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

using refhost::CallGate;
using refhost::Fault;
using refhost::Plant;

namespace
{
struct Context
{
    const wchar_t* set;
    const wchar_t* typeName;
    const wchar_t* planType;
    int number; ///< the action type, or the user interface
    int before; ///< of an action: 1 before, 0 after it
};

const Context kActionContexts[] = {{L"Body Shop", L"orvoplantype_workcell", L"Welding", 1, 0},
                                   {L"Body Shop", L"orvoplantype_workcell", L"Welding", 1, 1},
                                   {L"Body Shop", L"orvoplantype_workcell", L"Welding", 0, 1},
                                   {L"Body Shop", L"tool", L"Painting", 1, 0},
                                   {L"Body Shop", L"tool", L"Painting", 5, 0},
                                   {L"Body Shop", L"robot", nullptr, 1, 0},
                                   {L"Body Shop", L"robot", nullptr, 2, 1},
                                   {L"Body Shop", L"orvoplantypewsc", nullptr, 1, 0},
                                   {L"Body Shop", L"orvoplantype_workcell", nullptr, 1, 0},
                                   {L"Body Shop", L"scriptaction", L"Welding", 2, 0},
                                   {L"Machining", L"machine", L"Turning", 1, 0}};

const Context kCommandContexts[] = {{L"Body Shop", L"orvoplantype_workcell", L"Welding", 1},
                                    {L"Body Shop", L"tool", L"Welding", 2},
                                    {L"Body Shop", L"tool", L"Painting", 1},
                                    {L"Body Shop", L"robot", nullptr, 1},
                                    {L"Body Shop", L"fixture", nullptr, 3},
                                    {L"Body Shop", L"orvoplantype_workcell", nullptr, 1},
                                    {L"Machining", L"machine", L"Turning", 1},
                                    {L"Machining", L"scriptcommand", L"Milling", 1}};

/// The result of one run and its host calls.
struct Outcome
{
    HRESULT status = S_OK;
    TextRows rows;
    std::vector<std::string> calls;
    bool struck = false;
};

class FaultSweep : public ::testing::TestWithParam<Way>
{
protected:
    FaultSweep() { plant->Load(refhost::SampleFolder()); }
    ~FaultSweep() override
    {
        EXPECT_EQ(plant->Calls().Misuses(), std::vector<std::string>{})
            << "variants that were not empty before the call";
    }

    void Enter(const Context& context)
    {
        m_set = plant->Find(L"plantypeset", context.set);
        m_planType.reset();
        if (context.planType)
            m_planType = plant->Find(L"plantype", context.planType);
        m_context = {nullptr, m_set.get(), context.typeName, m_planType.get()};
        m_number = context.number;
        m_before = context.before;
    }

    /// Makes `run` with the n-th host call failing; 0 fails none. `run` returns the status and a result,
    /// which `rows` turns into rows when no call can fail any more.
    template <class Call, class Rows>
    Outcome With(long long n, Call&& run, Rows&& rows)
    {
        // A new query, because a failed step may have left parts of an earlier search in the old one.
        m_query = plant->NewQuery();
        m_context.query = m_query.get();
        CallGate& gate = plant->Calls();
        gate.Clear();
        gate.Record(true);
        gate.FailCall(n, n == 0 ? Fault::None : GetParam().fault, GetParam().status);
        Outcome result;
        result.status = run();
        result.struck = gate.Struck();
        gate.FailCall(0, Fault::None);
        gate.Record(false);
        result.calls = gate.Calls();
        result.rows = rows();
        return result;
    }

    ComPtr<IScriptActionAndCommandManager> NewManager() const
    {
        ComPtr<IScriptActionAndCommandManager> manager;
        EXPECT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, manager), S_OK);
        return manager;
    }

    Outcome Commands(const ComPtr<IScriptActionAndCommandManager>& manager, long long n)
    {
        XQPComVariant result;
        return With(
            n,
            [&] {
                return manager->GetScriptCommands(m_context.query, m_context.set,
                                                  XQPComBSTR(m_context.typeName.c_str()), m_context.planType,
                                                  m_number, nullptr, &result);
            },
            [&] { return RowsOf(result.Value(), NameInPlant); });
    }
    Outcome CommandsModel(long long n)
    {
        ModelResult model;
        return With(
            n,
            [&] {
                model = CommandsByTheLetter(m_context, m_number);
                return model.status;
            },
            [&] { return TextOf(model); });
    }

    Outcome Scripts(const ComPtr<IScriptActionAndCommandManager>& manager, long long n)
    {
        XQPComVariant result;
        return With(
            n,
            [&] {
                return manager->GetScriptsForAction(m_context.query, m_context.set,
                                                    XQPComBSTR(m_context.typeName.c_str()),
                                                    m_context.planType, m_number, m_before, &result);
            },
            [&] { return RowsOf(result.Value(), NameInPlant); });
    }
    Outcome ScriptsModel(long long n)
    {
        ModelResult model;
        return With(
            n,
            [&] {
                model = ScriptsByTheLetter(m_context, m_number, m_before);
                return model.status;
            },
            [&] { return TextOf(model); });
    }

    /// Fails every call of `real` in turn and compares with `model`, whose calls and results must be the
    /// same. Then the same manager is called without the fault and once more with it: each call delivers its
    /// rows, with `keeps` behind the rows of earlier calls.
    template <class Contexts, class Real, class Model>
    void Sweep(const Contexts& contexts, Real&& real, Model&& model, bool keeps)
    {
        int failed = 0;
        for (const Context& place : contexts)
        {
            Enter(place);
            SCOPED_TRACE(::testing::Message() << "context " << (&place - &contexts[0]));
            const Outcome whole = real(NewManager(), 0);
            ASSERT_FALSE(whole.rows.empty());
            for (long long n = 0; n <= static_cast<long long>(whole.calls.size()); ++n)
            {
                const std::string failing = n == 0 ? "no call" : whole.calls[static_cast<std::size_t>(n) - 1];
                SCOPED_TRACE(failing);
                const long before = Plant::LiveObjects();
                auto manager = NewManager();
                const Outcome run = real(manager, n);
                const Outcome expected = model(n);
                EXPECT_EQ(run.struck, n > 0);
                EXPECT_EQ(run.status, expected.status);
                EXPECT_EQ(run.rows, expected.rows);
                EXPECT_EQ(run.calls, expected.calls);
                TextRows rows = run.rows;
                for (const auto& [found, fault] : {std::pair(&whole, 0LL), std::pair(&run, n)})
                {
                    if (!keeps)
                        rows.clear();
                    rows.insert(rows.end(), found->rows.begin(), found->rows.end());
                    const Outcome next = real(manager, fault);
                    EXPECT_EQ(next.status, rows.empty() ? run.status : S_OK);
                    EXPECT_EQ(next.rows, rows) << "a call after it";
                    EXPECT_EQ(next.calls, found->calls);
                }
                manager.reset();
                EXPECT_EQ(Plant::LiveObjects(), before) << "objects of the host are left";
                failed += run.struck ? 1 : 0;
                if (HasFailure())
                    return;
            }
        }
        EXPECT_GT(failed, 200) << "calls that were made to fail";
    }

    ModuleUnderTest module;
    const std::unique_ptr<Plant> plant = Plant::OpenMemory();

private:
    ComPtr<IQP_Query> m_query;
    ComPtr<IQP_BaseDataObject> m_set;
    ComPtr<IQP_BaseDataObject> m_planType;
    ScriptContext m_context;
    int m_number = 0;
    int m_before = 0;
};

TEST_P(FaultSweep, EveryCallOfGetScriptCommands)
{
    Sweep(
        kCommandContexts, [this](const auto& manager, long long n) { return Commands(manager, n); },
        [this](long long n) { return CommandsModel(n); }, false);
}

TEST_P(FaultSweep, EveryCallOfGetScriptsForAction)
{
    Sweep(
        kActionContexts, [this](const auto& manager, long long n) { return Scripts(manager, n); },
        [this](long long n) { return ScriptsModel(n); }, true);
}

/// The rows of a whole run, and which of them remain after a failed read of an action's script or a failed
/// step of the walk.
TEST_P(FaultSweep, AFailedStepEndsTheRowsAndAFailedReadOmitsItsOwn)
{
    Enter(kActionContexts[0]);
    const Outcome whole = Scripts(NewManager(), 0);
    ASSERT_EQ(whole.rows.size(), 6u);
    // A step and a read for each row, and the step that finds the end.
    const std::size_t walk = 2 * whole.rows.size() + 1;
    ASSERT_GT(whole.calls.size(), walk);
    const std::size_t firstStep = whole.calls.size() - walk;
    for (std::size_t row = 0; row < whole.rows.size(); ++row)
    {
        const TextRows before(whole.rows.begin(), whole.rows.begin() + static_cast<std::ptrdiff_t>(row));
        TextRows others = whole.rows;
        others.erase(others.begin() + static_cast<std::ptrdiff_t>(row));

        const long long step = static_cast<long long>(firstStep + 2 * row) + 1;
        EXPECT_EQ(whole.calls[static_cast<std::size_t>(step) - 1], "IEnumBaseDataObject::RemNext(1)");
        EXPECT_EQ(Scripts(NewManager(), step).rows, before);

        const bool stops = GetParam().status == E_FAIL || GetParam().fault == Fault::NullObject;
        EXPECT_EQ(Scripts(NewManager(), step + 1).rows, stops ? before : others);
    }
}

INSTANTIATE_TEST_SUITE_P(Ways, FaultSweep, ::testing::ValuesIn(kWays), NameOfWay);
} // namespace
