// Reference counting and QueryInterface of the host's objects, the number of live ones, and the record of
// their QueryInterface calls.
#pragma once

#include <unknwn.h>
#include <windows.h>

#include <atomic>
#include <vector>

namespace refhost
{
/// Counts the live objects of the process.
class LiveObject
{
public:
    LiveObject() noexcept { ++s_alive; }
    LiveObject(const LiveObject&) = delete;
    LiveObject& operator=(const LiveObject&) = delete;
    static long Alive() noexcept { return s_alive; }

protected:
    ~LiveObject() { --s_alive; }

private:
    static inline std::atomic<long> s_alive{0};
};

/// QueryInterface for this identifier returns the HostDataObject itself, to objects of the reference host.
inline constexpr IID kOwnIdentity = {
    0x5f2e7a3c, 0x91b4, 0x4d0e, {0x8c, 0x57, 0x2b, 0xe6, 0x90, 0x14, 0xfd, 0x3a}};

/// Records the QueryInterface calls on all host objects of the process, failed ones included.
class AskedInterfaces
{
public:
    /// Starts with an empty list, or stops.
    static void Note(bool on)
    {
        s_noting = on;
        if (on)
            s_list.clear();
    }
    static const std::vector<IID>& List() { return s_list; }
    static void Add(REFIID iid)
    {
        if (s_noting && iid != kOwnIdentity)
            s_list.push_back(iid);
    }

private:
    static inline bool s_noting = false;
    static inline std::vector<IID> s_list;
};

/// Base of the final class `Derived`, which implements the interfaces `First` and `Rest`. An object is
/// created with a reference count of 0; its creator puts it into a ComPtr.
template <class Derived, class First, class... Rest>
class HostObject : public First, public Rest..., private LiveObject
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** found) override
    {
        if (!found)
            return E_POINTER;
        AskedInterfaces::Add(iid);
        *found = static_cast<Derived*>(this)->Interface(iid);
        if (!*found)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }

    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --m_references;
        if (left == 0)
            delete static_cast<Derived*>(this);
        return left;
    }

protected:
    ~HostObject() = default;

    /// The interface of that identifier; null if there is none. A derived class with further interfaces
    /// hides this function with one of its own.
    void* Interface(REFIID iid) noexcept
    {
        if (iid == IID_IUnknown || iid == __uuidof(First))
            return static_cast<First*>(this);
        void* found = nullptr;
        (void)((iid == __uuidof(Rest) && (found = static_cast<Rest*>(this))) || ...);
        return found;
    }

private:
    ULONG m_references = 0;
};
} // namespace refhost
