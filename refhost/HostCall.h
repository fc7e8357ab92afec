// The frame of every method of a host object: gate, outputs, injected faults and the exception boundary.
#pragma once

#include "CallText.h"
#include "HostWork.h"
#include "PlantCore.h"
#include "PlantError.h"
#include "StatusError.h"

#include "ComException.h"

#include <new>
#include <tuple>

namespace refhost
{
/// An output that need not be initialised by the caller.
template <class T>
struct Out
{
    T* target;
    bool Given() const { return target != nullptr; }
    bool Fresh() const { return true; }
    void Empty() const { *target = T{}; }
    void GiveNull() const {}
};
template <class T>
Out(T*) -> Out<T>;

template <>
struct Out<VARIANT>
{
    VARIANT* target;
    bool Given() const { return target != nullptr; }
    /// The caller initialises each VARIANT before the call and clears it afterwards.
    bool Fresh() const { return target->vt == VT_EMPTY; }
    void Empty() const { VariantInit(target); }
    void GiveNull() const
    {
        target->vt = VT_UNKNOWN;
        target->punkVal = nullptr;
    }
};

/// A VARIANT that the caller has initialised and that may hold a value.
struct InOut
{
    VARIANT* target;
    bool Given() const { return target != nullptr; }
    bool Fresh() const { return true; }
    void Empty() const { VariantClear(target); }
    void GiveNull() const {}
};

/// The two outputs of RemNext. Fault::NullObject delivers all elements, each null.
template <class T>
struct Batch
{
    ULONG wanted;
    T** elements;
    ULONG* fetched;
    bool Given() const { return elements && fetched; }
    bool Fresh() const { return true; }
    void Empty() const
    {
        std::fill(elements, elements + wanted, nullptr);
        *fetched = 0;
    }
    void GiveNull() const { *fetched = wanted; }
};
template <class T>
Batch(ULONG, T**, ULONG*) -> Batch<T>;

/// The exception boundary: runs `body` and returns its status. Returns E_OUTOFMEMORY if out of memory; E_FAIL
/// if the database fails, with its message in PlantCore::lastError.
template <class Body>
HRESULT WithBoundary(PlantCore& core, Body&& body) noexcept
try
{
    return body();
}
catch (const StatusError& error)
{
    return error.status;
}
catch (const ComException& error)
{
    return error.Status();
}
catch (const std::bad_alloc&)
{
    return E_OUTOFMEMORY;
}
catch (const PlantError& error)
{
    core.NoteError(error.what());
    return E_FAIL;
}
catch (...)
{
    return E_FAIL;
}

/// Runs `body`, which returns the call's status, as one host call.
///
/// `describe` returns the line to record. `outputs` is a tuple of the call's outputs: all are emptied first,
/// and one that the caller should have passed empty is noted as a misuse.
/// Returns E_POINTER if an output is null; else the status of the body, as WithBoundary gives it, or of the
/// injected fault.
template <class Describe, class Outputs, class Body>
HRESULT HostCall(PlantCore& core, const char* method, Describe&& describe, const Outputs& outputs,
                 Body&& body) noexcept
{
    return WithBoundary(core, [&]() -> HRESULT {
        const HostWork atWork;
        const CallGate::Verdict verdict = core.gate.Enter(method, describe);
        if (!std::apply([](const auto&... out) { return (out.Given() && ...); }, outputs))
            return E_POINTER;
        if (!std::apply([](const auto&... out) { return (out.Fresh() && ...); }, outputs))
            core.gate.NoteMisuse(method);
        std::apply([](const auto&... out) { (out.Empty(), ...); }, outputs);
        if (verdict.fault == Fault::None)
            return body();
        if (verdict.fault == Fault::NullObject)
            std::apply([](const auto&... out) { (out.GiveNull(), ...); }, outputs);
        return verdict.fault == Fault::Status ? verdict.status : S_OK;
    });
}
} // namespace refhost
