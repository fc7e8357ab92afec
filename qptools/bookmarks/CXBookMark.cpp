#include "CXBookMark.h"

#include "InModule.h"

namespace qptools
{
HRESULT STDMETHODCALLTYPE CXBookMark::ShowDialog(IQPFObjectManager*)
{
    return InModule(*this, [] { return E_NOTIMPL; });
}
} // namespace qptools
