// The base of all component classes: reference count, aggregation, interface list, lock on the module.
//
// A component class names itself and its interfaces; QueryInterface supports these and IUnknown:
//
//     class QPUserActionLog final : public ComObject<QPUserActionLog, IQPUserActionLog>
//     {
//     public:
//         HRESULT STDMETHODCALLTYPE WriteLine(BSTR bstrInfoLine) override;
//         HRESULT FinalConstruct(); // optional
//     };
//
// It declares the methods of its interfaces; the base implements IUnknown. It needs a default constructor but
// no virtual destructor: the base deletes the object by its own type. If the interface is followed by the
// four methods of IDispatch in its method table, the class lists DispatchTail<ITheInterface> (DispatchTail.h)
// in place of ITheInterface. Its methods run their bodies by InModule (InModule.h).
//
// CreateComObject creates objects, normally through the class table (ObjectMap.h), in which one line names
// the class, its identifier, its registry script and whether it may be aggregated. Tests may call it
// directly:
//
//     ComPtr<IQPUserActionLog> log;
//     CreateComObject<qptools::QPUserActionLog>(nullptr, __uuidof(IQPUserActionLog), log.putVoid());
#pragma once

#include "ComBoundary.h"
#include "ComModule.h"

#include <unknwn.h>

#include <memory>
#include <type_traits>

/// The interface whose identifier stands for a class of the list: the class itself, or its member type
/// Published if it has one (DispatchTail).
template <class T, class = void>
struct PublishedInterface
{
    using Type = T;
};
template <class T>
struct PublishedInterface<T, std::void_t<typename T::Published>>
{
    using Type = typename T::Published;
};

/// Reference counts are not atomic: an object is used in one apartment. An object starts with a count of 0
/// and locks the module from construction to destruction.
template <class Class, class... Interfaces>
class ComObject : public Interfaces...
{
public:
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) final
    {
        return m_controlling->QueryInterface(iid, result);
    }
    ULONG STDMETHODCALLTYPE AddRef() final { return m_controlling->AddRef(); }
    ULONG STDMETHODCALLTYPE Release() final { return m_controlling->Release(); }

    /// Called once after construction, with the outer object set and a reference count of 0. AddRef and
    /// Release during the call do not delete the object. On failure the object is deleted and its creator
    /// gets the status. A class that needs it hides this one.
    HRESULT FinalConstruct() { return S_OK; }

    /// The non-delegating IUnknown: its methods do not go to the outer object.
    IUnknown* NonDelegatingUnknown() noexcept { return &m_inner; }

    /// Sets the outer object, to which the interfaces delegate IUnknown. It is not AddRef'd and must outlive
    /// this object. Null makes the object its own.
    void SetOuter(IUnknown* outer) noexcept { m_controlling = outer ? outer : &m_inner; }

    /// From now on the last Release deletes the object. Before this call it is owned by its creator.
    void LeaveToReferences() noexcept { m_endsWithLast = true; }

protected:
    ComObject() noexcept : m_inner(*this), m_controlling(&m_inner) { ComModule::Get().Lock(); }
    ~ComObject() { ComModule::Get().Unlock(); }

private:
    class Inner final : public IUnknown
    {
    public:
        explicit Inner(ComObject& owner) noexcept : m_owner(owner) {}

        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override
        {
            return m_owner.Answer(iid, result);
        }
        ULONG STDMETHODCALLTYPE AddRef() override { return ++m_owner.m_count; }
        ULONG STDMETHODCALLTYPE Release() override { return m_owner.Drop(); }

    private:
        ComObject& m_owner;
    };

    HRESULT Answer(REFIID iid, void** result) noexcept
    {
        if (!result)
            return E_POINTER;
        IUnknown* found = IsEqualIID(iid, __uuidof(IUnknown)) ? &m_inner : nullptr;
        ((found = found ? found : Match<Interfaces>(iid)), ...);
        *result = found;
        if (!found)
            return E_NOINTERFACE;
        found->AddRef();
        return S_OK;
    }

    /// The IUnknown of the interface T, which has the same address; null if `iid` is not T's identifier.
    template <class T>
    IUnknown* Match(REFIID iid) noexcept
    {
        using Published = typename PublishedInterface<T>::Type;
        return IsEqualIID(iid, __uuidof(Published)) ? static_cast<Published*>(static_cast<T*>(this))
                                                    : nullptr;
    }

    ULONG Drop() noexcept
    {
        const ULONG left = --m_count;
        if (left == 0 && m_endsWithLast)
        {
            // AddRef and Release from within the destructor must not delete the object again.
            m_endsWithLast = false;
            delete static_cast<Class*>(this);
        }
        return left;
    }

    Inner m_inner;
    IUnknown* m_controlling;
    ULONG m_count = 0;
    bool m_endsWithLast = false;
};

/// Whether a class may be created as part of another object.
enum class Aggregation
{
    Refused,
    Allowed
};

/// Creates an object of `Class` and queries it for `iid`; with `outer`, an aggregated object, whose
/// non-delegating IUnknown is queried. Returns E_POINTER if `result` is null, else sets it to null first;
/// CLASS_E_NOAGGREGATION, with nothing allocated, if `outer` is not null and `Rule` refuses aggregation;
/// E_OUTOFMEMORY; the failure of FinalConstruct or QueryInterface, after deleting the object; S_OK with one
/// reference, owned by the caller.
template <class Class, Aggregation Rule = Aggregation::Allowed>
HRESULT CreateComObject(IUnknown* outer, REFIID iid, void** result) noexcept
{
    if (!result)
        return E_POINTER;
    *result = nullptr;
    if (Rule == Aggregation::Refused && outer)
        return CLASS_E_NOAGGREGATION;
    return ComBoundary([&] {
        auto object = std::make_unique<Class>();
        object->SetOuter(outer);
        HRESULT status = object->FinalConstruct();
        if (status >= 0)
            status = object->NonDelegatingUnknown()->QueryInterface(iid, result);
        // The caller's reference owns the object now.
        if (status >= 0)
            object.release()->LeaveToReferences();
        return status;
    });
}
