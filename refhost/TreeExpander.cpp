#include "TreeExpander.h"

#include "HostCall.h"
#include "HostText.h"
#include "Navigator.h"
#include "ObjectId.h"

#include <algorithm>

namespace refhost
{
ComPtr<IQPFObject> TreeExpander::Make(const Core& core)
{
    return ComPtr<IQPFObject>(new TreeExpander(core));
}

template <class Outputs, class Body, class... Arguments>
HRESULT TreeExpander::Call(const char* method, const Outputs& outputs, Body&& body,
                           const Arguments&... arguments) noexcept
{
    return HostCall(
        *m_core, method, [&] { return CallText(method, {}, arguments...); }, outputs, body);
}

// Both interfaces have a first entry that is not used; the name does not tell which.
HRESULT TreeExpander::Reserved1()
{
    return Call("IQPBrowserTreeExpander::Reserved1", std::tuple(), [] { return E_NOTIMPL; });
}

HRESULT TreeExpander::Reserved2()
{
    return Call("IQPBrowserTreeExpander::Reserved2", std::tuple(), [] { return E_NOTIMPL; });
}

HRESULT TreeExpander::ExpandTree(BSTR treeString, BSTR projectId)
{
    return Call(
        "IQPBrowserTreeExpander::ExpandTree", std::tuple(),
        [&] {
            Statement statement(m_core->database, R"(SELECT 1 FROM "object" WHERE "id" = ?1)");
            Require(statement.Bind(1, ObjectOfTree(Utf8FromWide(TextOf(treeString)))).Step());
            m_core->expanded.push_back({std::wstring(TextOf(treeString)), std::wstring(TextOf(projectId))});
            return S_OK;
        },
        treeString, projectId);
}

HRESULT TreeExpander::IsProjectShown(BSTR projectId)
{
    return Call(
        "IQPExplorerView::IsProjectShown", std::tuple(),
        [&] {
            const std::optional<long long> project = NumberOfId(Utf8FromWide(TextOf(projectId)));
            const auto& shown = m_core->shownProjects;
            return project && std::find(shown.begin(), shown.end(), *project) != shown.end() ? S_OK : S_FALSE;
        },
        projectId);
}
} // namespace refhost
