// The one base of all component classes: reference count, aggregation, interface list, hold on the module.
//
// A component class names itself and the interfaces that QueryInterface answers besides IUnknown:
//
//     class QPUserActionLog final : public ComObject<QPUserActionLog, IQPUserActionLog>
//     {
//     public:
//         HRESULT STDMETHODCALLTYPE WriteLine(BSTR bstrInfoLine) override;
//         HRESULT FinalConstruct(); // optional
//     };
//
// It declares the methods of its interfaces and nothing of IUnknown, which the base has. No virtual
// destructor is needed: the base deletes the class by its own type. The class has a default constructor and
// its members are ordinary members. A class whose interface has the four dispatch operations behind its
// published methods writes DispatchTail<IThatInterface> (DispatchTail.h) in place of IThatInterface.
//
// Objects come from CreateComObject, normally through the class table (ObjectMap.h), where one line names the
// class, its identifier, its registry script and whether it may be aggregated. Tests may create one directly:
//
//     ComPtr<IQPUserActionLog> log;
//     CreateComObject<qptools::QPUserActionLog>(nullptr, __uuidof(IQPUserActionLog), log.putVoid());
#pragma once

#include "ComBoundary.h"
#include "ComModule.h"

#include <unknwn.h>

#include <memory>
#include <type_traits>

/// The identifier under which an interface of the list is published. A class template that stands for an
/// interface (DispatchTail) names the interface as its member type Published.
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

/// Counts are plain: an object belongs to one apartment. An object starts at count 0 and holds the module
/// from its construction to its destruction.
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

    /// Called once the object stands and knows its outer object, at count 0. References to the object may be
    /// taken and given back meanwhile, which does not end it. A failure deletes the object and is what its
    /// creator gets. A class that needs it hides this one.
    HRESULT FinalConstruct() { return S_OK; }

    /// The object's own IUnknown, whose QueryInterface does not go to the outer object.
    IUnknown* NonDelegatingUnknown() noexcept { return &m_inner; }

    /// Makes `outer`, which outlives the object and is not counted, the one that answers for its interfaces.
    void SetOuter(IUnknown* outer) noexcept { m_controlling = outer ? outer : &m_inner; }

    /// From now on the object belongs to its references and ends with the last of them. Until then it belongs
    /// to its creator.
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

    /// The interface as its IUnknown, which has the same address, or null for another identifier.
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
            // Whatever the destructor hands out and takes back must not end the object a second time.
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

/// Makes an object of `Class` and asks it for `iid`; with `outer`, an aggregated one, whose non-delegating
/// IUnknown is what answers. Returns E_POINTER for a null `result`, else writes null there first;
/// CLASS_E_NOAGGREGATION, with nothing allocated, for an outer object where aggregation is refused;
/// E_OUTOFMEMORY; the failure of FinalConstruct or of QueryInterface, after deleting the object; S_OK with
/// one reference, which is the caller's.
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
        // The reference that the caller now has keeps the object.
        if (status >= 0)
            object.release()->LeaveToReferences();
        return status;
    });
}
