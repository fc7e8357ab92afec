// IUnknown and IClassFactory, and the binding of an interface type to its identifier: __CRT_UUID_DECL and
// __uuidof, in the form that headers generated from IDL expect.
#pragma once

#include "rpcndr.h"
#include "wpbase.h"

extern "C++"
{
    namespace winport
    {
    /// The identifier of an interface or class; __CRT_UUID_DECL specialises it.
    template <class T>
    struct Uuid;

    template <class T>
    struct Uuid<const T> : Uuid<T>
    {
    };

    template <class T>
    constexpr const GUID& uuid_of() noexcept
    {
        return Uuid<T>::value;
    }

    /// The identifier of the interface that an out argument T** is to receive.
    template <class T>
    constexpr const GUID& uuid_of_target(T**) noexcept
    {
        return Uuid<T>::value;
    }

    template <class T>
    void** target_of(T** target) noexcept
    {
        return reinterpret_cast<void**>(target);
    }
    } // namespace winport
}

#define __CRT_UUID_DECL(type, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8)                                     \
    extern "C++"                                                                                             \
    {                                                                                                        \
        template <>                                                                                          \
        struct winport::Uuid<type>                                                                           \
        {                                                                                                    \
            static constexpr GUID value{l, w1, w2, {b1, b2, b3, b4, b5, b6, b7, b8}};                        \
        };                                                                                                   \
    }
#define __uuidof(type) (::winport::uuid_of<type>())

extern "C" const GUID GUID_NULL;
#define IID_NULL GUID_NULL

EXTERN_C const IID IID_IUnknown;
struct IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) = 0;
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;
};
__CRT_UUID_DECL(IUnknown, 0x00000000, 0x0000, 0x0000, 0xc0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46)
using LPUNKNOWN = IUnknown*;

EXTERN_C const IID IID_IClassFactory;
struct IClassFactory : public IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** object) = 0;
    virtual HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) = 0;
};
__CRT_UUID_DECL(IClassFactory, 0x00000001, 0x0000, 0x0000, 0xc0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46)
