// Every host call of a whole run fails once, in each way a call can: each run ends, keeps nothing of the
// host, and delivers what the rules say for exactly that failure.
#include "LetterModel.h"
#include "ModuleUnderTest.h"
#include "Plant.h"
#include "XQPComBSTR.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <memory>

using refhost::CallGate;
using refhost::Fault;
using refhost::Plant;

namespace
{

/// One way to fail a host call.
struct Way
{
    const char* name;
    Fault fault;
    HRESULT status;
};

std::ostream& operator<<(std::ostream& stream, const Way& way)
{
    return stream << way.name;
}

const Way kWays[] = {{"Failure", Fault::Status, E_FAIL},
                     {"NegativeAnswer", Fault::Status, S_FALSE},
                     {"NullObject", Fault::NullObject, S_OK},
                     {"EmptyVariant", Fault::EmptyVariant, S_OK}};

struct Context
{
    const wchar_t* set;
    const wchar_t* typeName;
    const wchar_t* planType;
};

const Context kContexts[] = {{L"Body Shop", L"orvoplantype_workcell", L"Welding"},
                             {L"Body Shop", L"tool", L"Painting"},
                             {L"Body Shop", L"robot", nullptr},
                             {L"Body Shop", L"orvoplantype_workcell", nullptr},
                             {L"Machining", L"machine", L"Turning"}};

/// What one run gave and which host calls it made.
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
    FaultSweep() { plant->Load(QP_SAMPLE_DIR); }

    ScriptContext Enter(const Context& context)
    {
        m_query = plant->NewQuery();
        m_set = plant->Find(L"plantypeset", context.set);
        m_planType.reset();
        if (context.planType)
            m_planType = plant->Find(L"plantype", context.planType);
        return {m_query.get(), m_set.get(), context.typeName, m_planType.get()};
    }

    /// Makes `run` with the n-th host call failing; 0 fails none. `run` gives the status and something to be
    /// written as rows, which is done when no call can fail any more.
    template <class Call, class Rows>
    Outcome With(long long n, Call&& run, Rows&& rows)
    {
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

    Outcome Commands(const ScriptContext& context, long long n)
    {
        ComPtr<IScriptActionAndCommandManager> manager;
        EXPECT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, manager), S_OK);
        XQPComVariant result;
        return With(
            n,
            [&]
            {
                return manager->GetScriptCommands(context.query, context.set,
                                                  XQPComBSTR(context.typeName.c_str()), context.planType, 1,
                                                  nullptr, &result);
            },
            [&] { return RowsOf(result.Value(), NameInPlant); });
    }
    Outcome CommandsModel(const ScriptContext& context, long long n)
    {
        ModelResult model;
        return With(
            n,
            [&]
            {
                model = CommandsByTheLetter(context, 1);
                return model.status;
            },
            [&] { return TextOf(model); });
    }

    Outcome Scripts(const ScriptContext& context, long long n)
    {
        ComPtr<IScriptActionAndCommandManager> manager;
        EXPECT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, manager), S_OK);
        XQPComVariant result;
        return With(
            n,
            [&]
            {
                return manager->GetScriptsForAction(context.query, context.set,
                                                    XQPComBSTR(context.typeName.c_str()), context.planType, 1,
                                                    0, &result);
            },
            [&] { return RowsOf(result.Value(), NameInPlant); });
    }
    Outcome ScriptsModel(const ScriptContext& context, long long n)
    {
        ModelResult model;
        return With(
            n,
            [&]
            {
                model = ScriptsByTheLetter(context, 1, 0);
                return model.status;
            },
            [&] { return TextOf(model); });
    }

    /// Fails every call of `real` in turn and compares with `model`, whose calls and results must be the
    /// same.
    template <class Real, class Model>
    void Sweep(Real&& real, Model&& model)
    {
        int failed = 0;
        for (const Context& place : kContexts)
        {
            const ScriptContext context = Enter(place);
            const Outcome whole = real(context, 0);
            ASSERT_FALSE(whole.rows.empty());
            for (long long n = 0; n <= static_cast<long long>(whole.calls.size()); ++n)
            {
                const long before = Plant::LiveObjects();
                const Outcome run = real(context, n);
                EXPECT_EQ(Plant::LiveObjects(), before) << "objects of the host are left";
                const Outcome expected = model(context, n);
                const std::string failing = n == 0 ? "no call" : run.calls[static_cast<std::size_t>(n) - 1];
                EXPECT_EQ(run.struck, n > 0);
                EXPECT_EQ(run.status, expected.status) << failing;
                EXPECT_EQ(run.rows, expected.rows) << failing;
                EXPECT_EQ(run.calls, expected.calls) << failing;
                failed += run.struck ? 1 : 0;
                if (HasFailure())
                    return;
            }
        }
        EXPECT_GT(failed, 100) << "calls that were made to fail";
    }

    ModuleUnderTest module;
    const std::unique_ptr<Plant> plant = Plant::OpenMemory();

private:
    ComPtr<IQP_Query> m_query;
    ComPtr<IQP_BaseDataObject> m_set;
    ComPtr<IQP_BaseDataObject> m_planType;
};

TEST_P(FaultSweep, EveryCallOfGetScriptCommands)
{
    Sweep([this](const ScriptContext& context, long long n) { return Commands(context, n); },
          [this](const ScriptContext& context, long long n) { return CommandsModel(context, n); });
}

TEST_P(FaultSweep, EveryCallOfGetScriptsForAction)
{
    Sweep([this](const ScriptContext& context, long long n) { return Scripts(context, n); },
          [this](const ScriptContext& context, long long n) { return ScriptsModel(context, n); });
}

/// The rows of a whole run, and which of them a failed read of an action's script or a failed step of the
/// walk leaves.
TEST_P(FaultSweep, AFailedStepOfTheWalkLeavesTheRowsBeforeItAndAFailedReadItsOwnRowOut)
{
    const ScriptContext context = Enter(kContexts[0]);
    const Outcome whole = Scripts(context, 0);
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
        EXPECT_EQ(Scripts(context, step).rows, before);

        const bool stops = GetParam().status == E_FAIL || GetParam().fault == Fault::NullObject;
        EXPECT_EQ(Scripts(context, step + 1).rows, stops ? before : others);
    }
}

INSTANTIATE_TEST_SUITE_P(Ways, FaultSweep, ::testing::ValuesIn(kWays),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
