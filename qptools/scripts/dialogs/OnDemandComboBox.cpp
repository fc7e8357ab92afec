#include "OnDemandComboBox.h"

namespace qptools
{
void SelectByPrefix(const CComboBox& box, int after, const std::wstring& text)
{
    if (!text.empty())
        box.SelectString(after, text.c_str());
}
} // namespace qptools
