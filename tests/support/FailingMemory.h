// Makes memory run out in the middle of an operation. Natively only: Windows has no way to ask for that.
#pragma once

/// While it lives, the allocation number `first` (counted from 0) and all after it fail: operator new of this
/// program and the memory that passes between components.
class FailingMemory
{
public:
    explicit FailingMemory(int first);
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    /// True if an allocation failed since it was made.
    bool Failed() const;
};
