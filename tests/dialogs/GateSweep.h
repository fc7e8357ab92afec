// Runs over a plant in which one host call fails, and the sweep over all of them.
#pragma once

#include "FaultWays.h"
#include "Plant.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

class GateSweep
{
public:
    using Lines = std::vector<std::string>;

    explicit GateSweep(refhost::Plant& plant) : m_gate(plant.Calls()) {}

    /// Runs `body`, in which the n-th call fails, none for 0, and checks that it happened and that no object
    /// of the host is left. Returns the calls.
    template <class Body>
    Lines Run(long long n, const Way& way, Body&& body)
    {
        const long before = refhost::Plant::LiveObjects();
        m_gate.Clear();
        m_gate.Record(true);
        m_gate.FailCall(n, n == 0 ? refhost::Fault::None : way.fault, way.status);
        body();
        EXPECT_EQ(m_gate.Struck(), n > 0);
        EXPECT_EQ(refhost::Plant::LiveObjects(), before) << "objects of the host are left";
        m_gate.FailCall(0, refhost::Fault::None);
        m_gate.Record(false);
        return m_gate.Calls();
    }

    /// Fails every call of `lines` from the `first` on, in turn, numbered from 1. `run` is given the number,
    /// `look` gets the calls, the index of the one that failed, and what `run` returned.
    template <class Run, class Look>
    static void Each(const Lines& lines, long long first, Run&& run, Look&& look)
    {
        ASSERT_GT(static_cast<long long>(lines.size()), first);
        for (long long n = first; n <= static_cast<long long>(lines.size()) && !testing::Test::HasFailure();
             ++n)
        {
            SCOPED_TRACE(lines[static_cast<std::size_t>(n) - 1]);
            look(lines, static_cast<std::size_t>(n) - 1, run(n));
        }
    }

private:
    refhost::CallGate& m_gate;
};
