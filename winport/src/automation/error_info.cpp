// The error information that a method left for its caller, one a thread.
#include <oleauto.h>

#include <utility>

namespace
{
// Released at the end of the thread.
struct Holder
{
    ~Holder()
    {
        if (info)
            info->Release();
    }
    IErrorInfo* info = nullptr;
};

thread_local Holder t_holder;
} // namespace

/// Replaces the thread's information; null takes it away. Always S_OK.
HRESULT SetErrorInfo(ULONG, IErrorInfo* info)
{
    if (info)
        info->AddRef();
    if (IErrorInfo* old = std::exchange(t_holder.info, info))
        old->Release();
    return S_OK;
}

/// Hands the thread's information over, so that it is asked for once. S_FALSE and null if there is none,
/// E_INVALIDARG if `info` is null or `reserved` is not 0.
HRESULT GetErrorInfo(ULONG reserved, IErrorInfo** info)
{
    if (reserved || !info)
        return E_INVALIDARG;
    *info = std::exchange(t_holder.info, nullptr);
    return *info ? S_OK : S_FALSE;
}
