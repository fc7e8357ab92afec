// Hosts in memory with as many script commands or actions as a benchmark asks for.
#pragma once

#include "MemoryHost.h"

#include <cstddef>

/// How the commands of a host are called.
enum class Prompts
{
    AllDifferent,
    AllTheSame
};

/// A host whose query finds `count` objects. Nothing is recorded.
class BenchHost
{
public:
    static constexpr std::size_t kScripts = 200;

    /// Script commands with prompts as users write them, in no particular order.
    BenchHost(std::size_t count, Prompts prompts);

    /// Script actions.
    explicit BenchHost(std::size_t count);

    IQP_Query* Query() { return &m_host.Query(); }
    IQP_BaseDataObject* Set() { return m_set.get(); }

private:
    MemoryHost m_host;
    ComPtr<MemoryObject> m_set;
    std::vector<ComPtr<MemoryObject>> m_scripts;
};
