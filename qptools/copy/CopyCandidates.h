// The objects that a copy touches, by configured type.
#pragma once

#include "ComPtr.h"
#include "Variant.h"

#include "qpconfig.h"
#include "qpobjects.h"

#include <functional>
#include <map>
#include <vector>

namespace qptools
{
/// The objects of one configured type.
struct CopyCandidateRecord
{
    Variant caption; ///< the type's singular caption, a VT_BSTR, or empty if it has no text
    std::vector<ComPtr<IQP_BaseDataObject>> objects; ///< in the order of the walk, repeated ones included
};

/// The order of interfaces by their address. Equal types that are different objects are different keys.
struct ByAddress
{
    using is_transparent = void;
    static IQPType* Address(const ComPtr<IQPType>& type) noexcept { return type.get(); }
    static IQPType* Address(IQPType* type) noexcept { return type; }

    template <class Left, class Right>
    bool operator()(const Left& left, const Right& right) const noexcept
    {
        return std::less<IQPType*>()(Address(left), Address(right));
    }
};

using CopyCandidates = std::map<ComPtr<IQPType>, CopyCandidateRecord, ByAddress>;

/// Which objects a copy touches.
enum class CopyRoute
{
    Parents,           ///< the given objects, a relationship as itself
    ParentsAndChildren ///< also all objects below them, and in place of a relationship what it relates to
};

/// Adds the objects of `objects`, from its current position on, to `candidates`, which keeps what it holds.
/// The enumerator is left at its end. No status is returned: a failure ends a level of the walk or skips an
/// object, and the walk goes on. An object that is its own descendant is not entered twice.
void CollectCandidates(IEnumBaseDataObject* objects, CopyRoute route, CopyCandidates& candidates);
} // namespace qptools
