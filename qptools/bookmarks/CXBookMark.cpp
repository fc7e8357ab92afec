#include "CXBookMark.h"

#include "UiState.h"

namespace qptools
{
HRESULT STDMETHODCALLTYPE CXBookMark::ShowDialog(IQPFObjectManager*)
{
    const CUiState state;
    return E_NOTIMPL;
}
} // namespace qptools
