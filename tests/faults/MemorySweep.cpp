#include "MemorySweep.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
constexpr LONG kOldValue = 42;

/// The whole rows with their last cells left out.
bool IsPartOf(const TextRows& rows, const TextRows& whole)
{
    if (rows.size() != whole.size())
        return false;
    bool ended = false;
    for (std::size_t row = 0; row < rows.size(); ++row)
    {
        for (std::size_t column = 0; column < rows[row].size(); ++column)
        {
            ended = ended || rows[row][column] == "-";
            if (rows[row][column] != (ended ? "-" : whole[row][column]))
                return false;
        }
    }
    return ended;
}

std::vector<std::string> SearchOf(const std::vector<std::string>& calls)
{
    const auto end = std::find_if(calls.begin(), calls.end(), [](const std::string& call) {
        return call.find("GetSearchResult(") != std::string::npos;
    });
    return {calls.begin(), end};
}

bool IsCriterionOnText(const std::string& call)
{
    return call.starts_with("SetSearchAttribute(type, 1, BSTR") ||
           call.starts_with("IQP_Query::SetSearchAttribute(\"type\", 1, \"");
}
} // namespace

MemorySweep::MemorySweep(std::function<MemoryRun(long n)> run, std::function<long()> liveObjects)
    : m_run(std::move(run)), m_liveObjects(std::move(liveObjects))
{
}

void MemorySweep::Run()
{
    m_whole = m_run(0);
    ASSERT_EQ(m_whole.status, S_OK);
    ASSERT_FALSE(m_whole.rows.empty());
    for (long n = 1;; ++n)
    {
        SCOPED_TRACE("allocation " + std::to_string(n));
        const long objects = m_liveObjects();
        const MemoryRun run = m_run(n);
        ASSERT_EQ(m_liveObjects(), objects);
        if (!run.struck)
            break;
        ASSERT_NO_FATAL_FAILURE(Judge(run));
    }
    EXPECT_GT(m_outcomes.refused, 0);
    EXPECT_GT(m_outcomes.uncreated, 0)
        << "without an array the variant stays and the walk's status is returned";
}

void MemorySweep::Judge(const MemoryRun& run)
{
    if (run.untouched)
    {
        if (run.status == E_OUTOFMEMORY)
        {
            ++m_outcomes.refused;
            return;
        }
        // A host that judges the whole search refuses one that lacks a criterion; then there is no array
        // either.
        if (m_criteriaDecide && run.status == E_FAIL)
        {
            ASSERT_NE(SearchOf(run.calls), SearchOf(m_whole.calls));
            ASSERT_TRUE(LacksCriteriaOnly(SearchOf(run.calls)));
            ++m_outcomes.lacking;
            return;
        }
        ASSERT_EQ(run.status, m_walkStatus);
        ASSERT_EQ(run.calls, m_whole.calls);
        ++m_outcomes.uncreated;
    }
    else if (run.status == E_OUTOFMEMORY)
    {
        ASSERT_EQ(run.calls, m_whole.calls);
        ASSERT_TRUE(IsPartOf(run.rows, m_whole.rows));
        ++m_outcomes.partial;
    }
    else if (SearchOf(run.calls) != SearchOf(m_whole.calls))
    {
        ASSERT_TRUE(LacksCriteriaOnly(SearchOf(run.calls)));
        if (m_criteriaDecide)
        {
            ASSERT_TRUE(run.status == S_OK || (run.status == E_FAIL && run.rows.empty())) << run.status;
        }
        else
        {
            ASSERT_EQ(run.status, S_OK);
            ASSERT_EQ(run.rows, m_whole.rows);
        }
        ++m_outcomes.lacking;
    }
    else
    {
        ASSERT_EQ(run.status, S_OK);
        ASSERT_EQ(run.rows, m_whole.rows);
        ASSERT_EQ(run.calls, m_whole.calls);
        ++m_outcomes.whole;
    }
}

/// The search did without some of its criteria on texts, and was otherwise whole.
bool MemorySweep::LacksCriteriaOnly(const std::vector<std::string>& calls) const
{
    std::size_t next = 0;
    for (const std::string& call : SearchOf(m_whole.calls))
    {
        if (next < calls.size() && calls[next] == call)
            ++next;
        else if (!IsCriterionOnText(call))
            return false;
    }
    return next == calls.size();
}

void PutOldValue(VARIANT& result)
{
    result.vt = VT_I4;
    result.lVal = kOldValue;
}

bool IsOldValue(const VARIANT& result)
{
    return result.vt == VT_I4 && result.lVal == kOldValue;
}

std::string NameOf(FaultyMemory::Failing failing)
{
    return failing == FaultyMemory::Failing::Once ? "Once" : "FromThere";
}
