// The component that shows the bookmark dialog.
#pragma once

#include "ComObject.h"

#include "qptools.h"

namespace qptools
{
/// The dialog is not there yet: ShowDialog returns E_NOTIMPL. The class cannot be part of another object.
class CXBookMark final : public ComObject<CXBookMark, IXBookMark>
{
public:
    HRESULT STDMETHODCALLTYPE ShowDialog(IQPFObjectManager* pIQPFObjectManager) override;
};
} // namespace qptools
