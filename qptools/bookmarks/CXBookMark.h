// The component that shows the bookmark dialog.
#pragma once

#include "ComObject.h"

#include "qptools.h"

namespace qptools
{
/// Not implemented: ShowDialog returns E_NOTIMPL. The class cannot be aggregated.
class CXBookMark final : public ComObject<CXBookMark, IXBookMark>
{
public:
    HRESULT STDMETHODCALLTYPE ShowDialog(IQPFObjectManager* pIQPFObjectManager) override;
};
} // namespace qptools
