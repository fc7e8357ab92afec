// How the host's enumerators are walked, and what ends a walk.
//
//     EnumWalk     one object at a time, by RemNext(1) or GetSingleNext
//     WalkBatches  25 objects at a time, by RemNext(25)
//
// The host's enumerators do not agree on how they signal their end, so each caller of EnumWalk names the end
// condition that its contract states (WalkEnd). Batches have one rule everywhere, that of WalkBatches. A walk
// leaves the enumerator where it ended; to walk again, call Reset first.
#pragma once

#include "ComPtr.h"

#include <windows.h>

#include <objbase.h>

#include <algorithm>
#include <utility>

namespace qptools
{
/// The type of object that an enumerator yields, taken from its RemNext.
template <class Interface, class Element>
Element EnumeratedBy(HRESULT (STDMETHODCALLTYPE Interface::*)(ULONG, Element**, ULONG*));
template <class Enumerator>
using EnumElement = decltype(EnumeratedBy(&Enumerator::RemNext));

/// The method that fetches the next object.
enum class WalkBy
{
    RemNext,      ///< RemNext(1)
    GetSingleNext ///< has no fetched count: an object counts as one, null as none
};

/// What ends a walk besides a status other than S_OK, which always does.
enum class WalkEnd
{
    AtNull,           ///< a null object, whatever the fetched count
    AtNothingFetched, ///< a fetched count of zero; a null object that was counted is skipped
    AtStatusOnly      ///< nothing else; null objects are skipped
};

/// A walk that skips null objects gives up after this many in a row: otherwise a host that answers S_OK and
/// null at its end would be asked for ever.
constexpr int kMaxNullsInRow = 1000;

/// Walks an enumerator one object at a time.
///
///     EnumWalk walk(enumerator, WalkBy::RemNext, WalkEnd::AtNull);
///     while (walk.Next())
///         walk.Object()->GetAttribute(...);
template <class Enumerator>
class EnumWalk
{
public:
    using Element = EnumElement<Enumerator>;

    /// `enumerator` must not be null. It is borrowed: the caller keeps it alive until the walk is destroyed.
    EnumWalk(Enumerator* enumerator, WalkBy by, WalkEnd end) noexcept
        : m_enumerator(enumerator), m_by(by), m_end(end)
    {
    }

    /// Releases the current object and fetches the next. Returns false at the end.
    bool Next()
    {
        for (int nulls = 0; nulls < kMaxNullsInRow; ++nulls)
        {
            const ULONG fetched = Fetch();
            if (m_status != S_OK || IsEnd(fetched))
                break;
            if (m_ptrObject)
                return true;
        }
        m_ptrObject.reset();
        return false;
    }

    /// The current object, owned by the walk until the next Next; null before the first and after the end.
    Element* Object() const noexcept { return m_ptrObject.get(); }

    /// Moves the current object to the caller.
    ComPtr<Element> Take() noexcept { return std::move(m_ptrObject); }

    /// The status of the last fetch, S_OK before the first.
    HRESULT Status() const noexcept { return m_status; }

private:
    /// Returns the fetched count.
    ULONG Fetch()
    {
        ULONG fetched = 0;
        if (m_by == WalkBy::RemNext)
        {
            m_status = m_enumerator->RemNext(1, m_ptrObject.put(), &fetched);
            return fetched;
        }
        m_status = m_enumerator->GetSingleNext(m_ptrObject.put());
        return m_ptrObject ? 1 : 0;
    }
    bool IsEnd(ULONG fetched) const noexcept
    {
        return (m_end == WalkEnd::AtNull && !m_ptrObject) ||
               (m_end == WalkEnd::AtNothingFetched && fetched == 0);
    }

    Enumerator* m_enumerator;
    ComPtr<Element> m_ptrObject;
    HRESULT m_status = S_OK;
    WalkBy m_by;
    WalkEnd m_end;
};

/// Objects asked for by one call of a batch walk.
constexpr ULONG kBatchSize = 25;

/// How a batch walk continues after an object.
enum class BatchStep
{
    NextObject, ///< with the next object
    NextBatch,  ///< with the next batch; the rest of this one is dropped
    Stop        ///< the walk ends
};

/// One batch: a zeroed buffer in task memory that owns the objects fetched into it. Only as many pointers as
/// the enumerator counted are references: the destructor releases those and ignores anything behind them.
template <class Enumerator>
class EnumBatch
{
public:
    using Element = EnumElement<Enumerator>;

    EnumBatch() : m_objects(static_cast<Element**>(CoTaskMemAlloc(kBatchSize * sizeof(Element*))))
    {
        if (m_objects)
            std::fill_n(m_objects, kBatchSize, nullptr);
    }
    ~EnumBatch()
    {
        for (ULONG i = 0; i < m_fetched; ++i)
        {
            if (m_objects[i])
                m_objects[i]->Release();
        }
        CoTaskMemFree(m_objects);
    }
    EnumBatch(const EnumBatch&) = delete;
    EnumBatch& operator=(const EnumBatch&) = delete;

    /// Returns false if the buffer could not be allocated.
    bool IsAllocated() const noexcept { return m_objects != nullptr; }

    /// Calls RemNext once and returns its status.
    HRESULT Fetch(Enumerator* enumerator)
    {
        const HRESULT status = enumerator->RemNext(kBatchSize, m_objects, &m_fetched);
        m_fetched = std::min(m_fetched, kBatchSize);
        return status;
    }

    ULONG Fetched() const noexcept { return m_fetched; }
    Element* operator[](ULONG index) const noexcept { return m_objects[index]; }

private:
    Element** m_objects;
    ULONG m_fetched = 0;
};

/// Walks in batches of 25. `visit(Element*) -> BatchStep` is called for every fetched object in order; the
/// object is borrowed and never null. At a null object `onNull()` is called and the rest of the batch
/// dropped.
///
/// The walk ends after a batch with S_FALSE, whose objects are visited; at a failure, whose objects are
/// released unvisited; at a call that succeeds and fetches nothing; or when `visit` returns Stop. Any other
/// success continues. Returns the last status of RemNext, or E_OUTOFMEMORY if a batch could not be allocated.
template <class Enumerator, class Visit, class OnNull>
HRESULT WalkBatches(Enumerator* enumerator, Visit&& visit, OnNull&& onNull)
{
    for (;;)
    {
        EnumBatch<Enumerator> batch;
        if (!batch.IsAllocated())
            return E_OUTOFMEMORY;
        const HRESULT status = batch.Fetch(enumerator);
        if (status < 0)
            return status;
        for (ULONG i = 0; i < batch.Fetched(); ++i)
        {
            if (!batch[i])
            {
                onNull();
                break;
            }
            const BatchStep step = visit(batch[i]);
            if (step == BatchStep::Stop)
                return status;
            if (step == BatchStep::NextBatch)
                break;
        }
        if (status == S_FALSE || batch.Fetched() == 0)
            return status;
    }
}

template <class Enumerator, class Visit>
HRESULT WalkBatches(Enumerator* enumerator, Visit&& visit)
{
    return WalkBatches(enumerator, visit, [] {});
}
} // namespace qptools
