// The component that shows the bookmark dialog.
#pragma once

#include "ComObject.h"

#include "qptools.h"

#include <memory>
#include <vector>

namespace qptools
{
class XOpenBookmarkDlg;

/// Each call creates a dialog object, which is freed with the component. The class cannot be aggregated.
class CXBookMark final : public ComObject<CXBookMark, IXBookMark>
{
public:
    CXBookMark();
    ~CXBookMark();

    /// Shows the bookmarks of the host that `pIQPFObjectManager` belongs to; null shows an empty dialog.
    /// Returns S_OK, whatever the user does, or E_OUTOFMEMORY.
    HRESULT STDMETHODCALLTYPE ShowDialog(IQPFObjectManager* pIQPFObjectManager) override;

private:
    std::vector<std::unique_ptr<XOpenBookmarkDlg>> m_dialogs;
};
} // namespace qptools
