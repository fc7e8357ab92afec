// Runs the programs of the kit, several at once.
#pragma once

#include "ChildProcess.h"
#include "Kit.h"

#include "ProgramResult.h"

#include <functional>
#include <memory>

class ProgramRuns
{
public:
    /// Called for each program when it is done.
    using Done = std::function<void(const ProgramResult&)>;

    /// `patience`: after so many milliseconds without output a program is ended.
    ProgramRuns(const Kit& kit, unsigned atOnce, ULONGLONG patience, Done done);

    /// The results in the kit's order. Programs that want to be alone run at the end.
    std::vector<ProgramResult> Run();

private:
    struct Running
    {
        std::size_t index;
        std::unique_ptr<ChildProcess> process;
        std::uintmax_t logBegin; ///< where this run begins in the log
    };

    void RunSome(bool alone, unsigned atOnce);
    void Start(std::size_t index);
    void WaitForAny() const;
    void FinishEnded();
    /// How it ended, if it did or took too long.
    bool HasEnded(Running& running, ProgramEnd& end) const;
    void Finish(Running& running, const ProgramEnd& end);

    std::filesystem::path LogOf(std::size_t index) const;

    const Kit& m_kit;
    const unsigned m_atOnce;
    const ULONGLONG m_patience;
    const Done m_done;
    std::vector<ProgramResult> m_results;
    std::vector<Running> m_running;
};
