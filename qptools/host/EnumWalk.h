// How the host's enumerators are walked: one object at a time, or in batches.
//
// The host's enumerators do not agree on how they say that they are at their end, so a walk names the ends
// that hold for its site. All of them leave the enumerator where the walk ended; who walks twice calls Reset
// first.
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

/// What ends a walk besides a status other than S_OK, which always does.
enum class WalkEnd
{
    AtNull,           ///< a null object, whatever count came with it
    AtNothingFetched, ///< a fetched count of zero; a null object that was counted is passed over
    AtStatusOnly      ///< nothing else; null objects are passed over
};

/// A walk that passes over null objects gives up after this many in a row: a host that answers S_OK and null
/// at its end would be asked for ever.
constexpr int kMaxNullsInRow = 1000;

/// Walks by RemNext(1). The fetched count is looked at only with WalkEnd::AtNothingFetched.
///
///     RemNextWalk walk(enumerator, WalkEnd::AtNull);
///     while (walk.Next())
///         walk.Object()->GetAttribute(...);
template <class Enumerator>
class RemNextWalk
{
public:
    using Element = EnumElement<Enumerator>;

    /// `enumerator` must not be null and must outlive the walk, which takes no reference of its own to it.
    RemNextWalk(Enumerator* enumerator, WalkEnd end) noexcept : m_ptrEnumerator(enumerator), m_end(end) {}

    /// Goes on to the next object and releases the one before. Returns false at the end.
    bool Next()
    {
        for (int nulls = 0; nulls < kMaxNullsInRow; ++nulls)
        {
            ULONG fetched = 0;
            m_status = m_ptrEnumerator->RemNext(1, m_ptrObject.put(), &fetched);
            const bool atEnd = m_status != S_OK || (m_end == WalkEnd::AtNothingFetched && fetched == 0);
            if (atEnd || (m_end == WalkEnd::AtNull && !m_ptrObject))
                break;
            if (m_ptrObject)
                return true;
        }
        m_ptrObject.reset();
        return false;
    }

    /// The object that Next found; the walk owns it until the next Next.
    Element* Object() const noexcept { return m_ptrObject.get(); }

    /// Gives the object that Next found to the caller; the walk has none until the next Next.
    ComPtr<Element> Take() noexcept { return std::move(m_ptrObject); }

    /// What the last RemNext returned, S_OK before the first.
    HRESULT Status() const noexcept { return m_status; }

private:
    Enumerator* m_ptrEnumerator;
    ComPtr<Element> m_ptrObject;
    HRESULT m_status = S_OK;
    WalkEnd m_end;
};

/// Walks by GetSingleNext. There is no count, so WalkEnd::AtNothingFetched means the same as WalkEnd::AtNull.
template <class Enumerator>
class SingleNextWalk
{
public:
    using Element = EnumElement<Enumerator>;

    /// `enumerator` must not be null and must outlive the walk, which takes no reference of its own to it.
    SingleNextWalk(Enumerator* enumerator, WalkEnd end) noexcept : m_ptrEnumerator(enumerator), m_end(end) {}

    /// Goes on to the next object and releases the one before. Returns false at the end.
    bool Next()
    {
        for (int nulls = 0; nulls < kMaxNullsInRow; ++nulls)
        {
            m_status = m_ptrEnumerator->GetSingleNext(m_ptrObject.put());
            if (m_status != S_OK || (!m_ptrObject && m_end != WalkEnd::AtStatusOnly))
                break;
            if (m_ptrObject)
                return true;
        }
        m_ptrObject.reset();
        return false;
    }

    /// The object that Next found; the walk owns it until the next Next.
    Element* Object() const noexcept { return m_ptrObject.get(); }

    /// What the last GetSingleNext returned, S_OK before the first.
    HRESULT Status() const noexcept { return m_status; }

private:
    Enumerator* m_ptrEnumerator;
    ComPtr<Element> m_ptrObject;
    HRESULT m_status = S_OK;
    WalkEnd m_end;
};

/// Objects asked for by one call of a batch walk.
constexpr ULONG kBatchSize = 25;

/// How a batch walk goes on after an object.
enum class BatchStep
{
    NextObject, ///< with the next object
    NextBatch,  ///< with the next batch; the rest of this one is dropped
    Stop        ///< not at all
};

/// One batch: a zeroed buffer of the task allocator and a reference to every object fetched into it. Its end
/// releases what the enumerator counted and nothing behind that, whatever stands there: the count alone says
/// which pointers are references.
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

    /// False if there was no memory for the buffer.
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

/// Walks in batches of 25. `visit(Element*) -> BatchStep` gets every fetched object in order, none of them
/// null, and owns none of them. A null object calls `onNull()` and drops the rest of its batch.
///
/// The walk ends when a batch came with S_FALSE (its objects are visited) or with a failure (they are not,
/// but are released), when a call that did not fail fetched nothing, or when `visit` says so. Returns the
/// last status of RemNext, or E_OUTOFMEMORY if there was no memory for a batch.
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
