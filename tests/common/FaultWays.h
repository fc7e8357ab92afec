// The ways in which a host call can fail, for sweeps.
#pragma once

#include "CallGate.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <ostream>
#include <string>

/// One way to fail a host call.
struct Way
{
    const char* name;
    refhost::Fault fault;
    HRESULT status;

    /// True if the failing call returns a status of its own; otherwise it returns S_OK with empty results.
    bool SaysSo() const { return fault == refhost::Fault::Status; }
    bool Fails() const { return SaysSo() && status < 0; }
};

inline std::ostream& operator<<(std::ostream& stream, const Way& way)
{
    return stream << way.name;
}

inline constexpr Way kWays[] = {{"Failure", refhost::Fault::Status, E_FAIL},
                                {"NegativeAnswer", refhost::Fault::Status, S_FALSE},
                                {"NullObject", refhost::Fault::NullObject, S_OK},
                                {"EmptyVariant", refhost::Fault::EmptyVariant, S_OK}};

/// Names the instances of a sweep over kWays.
inline std::string NameOfWay(const ::testing::TestParamInfo<Way>& info)
{
    return info.param.name;
}
