// The ways in which a host call can fail, for sweeps.
#pragma once

#include "CallGate.h"

#include <windows.h>

#include <ostream>

/// One way to fail a host call.
struct Way
{
    const char* name;
    refhost::Fault fault;
    HRESULT status;
};

inline std::ostream& operator<<(std::ostream& stream, const Way& way)
{
    return stream << way.name;
}

inline constexpr Way kWays[] = {{"Failure", refhost::Fault::Status, E_FAIL},
                                {"NegativeAnswer", refhost::Fault::Status, S_FALSE},
                                {"NullObject", refhost::Fault::NullObject, S_OK},
                                {"EmptyVariant", refhost::Fault::EmptyVariant, S_OK}};
