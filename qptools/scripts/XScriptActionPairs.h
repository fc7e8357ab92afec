// The script actions found so far, each with the script that it runs.
#pragma once

#include "ComPtr.h"

#include "qpobjects.h"

#include <vector>

namespace qptools
{
/// An ordered list that only grows, for as long as it lives.
class XScriptActionPairs
{
public:
    /// Walks `actions`, which may be null, and appends each action together with the data object of its
    /// attribute "script". An action without one is skipped. The walk ends if that attribute cannot be read,
    /// and with E_NOINTERFACE if it refers to anything but a data object, null included.
    ///
    /// Returns the status of the last read of that attribute, or `status` if there was none. Throws
    /// ComException(E_OUTOFMEMORY) and std::bad_alloc; what was appended stays.
    HRESULT AppendFrom(IEnumBaseDataObject* actions, HRESULT status);

    /// Creates an array with one row per pair, the action in column 0 and its script in column 1, and moves
    /// it into `*target`, whose old value is cleared; a null `target` discards it.
    ///
    /// Returns the status of the last cell put, or `status` if there was none. The first cell that cannot be
    /// put ends the filling, and the array is delivered as it is. If no array can be created, `*target` is
    /// untouched.
    HRESULT Deliver(VARIANT* target, HRESULT status) const;

private:
    struct Pair
    {
        ComPtr<IQP_BaseDataObject> action;
        ComPtr<IQP_BaseDataObject> script;
    };

    std::vector<Pair> m_pairs;
};
} // namespace qptools
