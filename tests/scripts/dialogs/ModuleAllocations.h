// Which allocations are the module's own, for sweeps of a dialog that runs out of memory. Native builds only.
#pragma once

/// For FaultyMemory: true for allocations of the host, of the window system and of the test, which must not
/// fail. It looks at the functions that lead to the allocation: the module's are counted unless they called
/// the window system in between. The program must export its symbols.
bool IsNotOfModule() noexcept;
