#include "NavigatorView.h"

#include "HostCall.h"
#include "HostText.h"
#include "ObjectId.h"

namespace refhost
{
ComPtr<IQPFObject> NavigatorView::Make(const Core& core, const Kind& /*kind*/, long long project)
{
    return ComPtr<IQPFObject>(new NavigatorView(core, project));
}

template <class Outputs, class Body, class... Arguments>
HRESULT NavigatorView::Call(const char* method, const Outputs& outputs, Body&& body,
                            const Arguments&... arguments) noexcept
{
    return HostCall(
        *m_core, method, [&] { return CallText(method, {}, arguments...); }, outputs, body);
}

HRESULT NavigatorView::Reserved1()
{
    return Call("IQPExplorerView::Reserved1", std::tuple(), [] { return E_NOTIMPL; });
}

HRESULT NavigatorView::IsProjectShown(BSTR projectId)
{
    return Call(
        "IQPExplorerView::IsProjectShown", std::tuple(),
        [&] { return NumberOfId(Utf8FromWide(TextOf(projectId))) == m_project ? S_OK : S_FALSE; }, projectId);
}
} // namespace refhost
