// Runs a call again and again with another allocation failing each time, and judges the outcomes.
#pragma once

#include "ArrayText.h"
#include "FaultyMemory.h"

#include <windows.h>

#include <oleauto.h>

#include <functional>
#include <string>
#include <vector>

/// The outcome of one run.
struct MemoryRun
{
    HRESULT status = S_OK;
    bool untouched = false; ///< the result variant was not written
    TextRows rows;
    std::vector<std::string> calls; ///< the host's record
    bool struck = false;            ///< an allocation was made to fail
};

/// The number of runs with each outcome.
struct MemoryOutcomes
{
    int refused = 0;   ///< E_OUTOFMEMORY and the variant as it was
    int uncreated = 0; ///< no array: the variant as it was and the status of the walk
    int partial = 0;   ///< E_OUTOFMEMORY and the array filled up to a cell that could not be put
    int whole = 0;     ///< the result is complete
    int lacking = 0;   ///< a search without some of its criteria on texts
};

/// Fails the allocations of a call in turn, until a run needs no more of them, and expects each outcome to be
/// one of those above.
class MemorySweep
{
public:
    /// `run(n)` makes the call with its n-th allocation failing, 0 for none. `liveObjects` counts the host's
    /// objects.
    MemorySweep(std::function<MemoryRun(long n)> run, std::function<long()> liveObjects);

    /// The status of the walk, which differs from that of the cells.
    void ExpectWalkStatus(HRESULT status) { m_walkStatus = status; }

    /// The host evaluates the criteria: a search that lacks one finds something else or fails.
    void CriteriaDecide() { m_criteriaDecide = true; }

    /// Gtest's fatal failures end it early.
    void Run();

    const MemoryOutcomes& Outcomes() const { return m_outcomes; }

private:
    void Judge(const MemoryRun& run);
    bool LacksCriteriaOnly(const std::vector<std::string>& calls) const;

    std::function<MemoryRun(long n)> m_run;
    std::function<long()> m_liveObjects;
    HRESULT m_walkStatus = S_OK;
    bool m_criteriaDecide = false;
    MemoryRun m_whole;
    MemoryOutcomes m_outcomes;
};

/// Something in the variant for a result before the call.
void PutOldValue(VARIANT& result);
bool IsOldValue(const VARIANT& result);

std::string NameOf(FaultyMemory::Failing failing);
