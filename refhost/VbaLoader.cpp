#include "VbaLoader.h"

#include "HostCall.h"
#include "HostDataObject.h"
#include "HostText.h"

#include "Bstr.h"
#include "Variant.h"

#include <objbase.h>

#include <algorithm>
#include <array>
#include <new>

namespace refhost
{
namespace
{
struct Parameter
{
    const wchar_t* name;
    VARTYPE type;
};

constexpr Parameter kOperation = {L"Menupath", VT_BSTR};
constexpr Parameter kProjects = {L"pVBAProjectsArray", VT_ARRAY | VT_VARIANT};

/// What else every request consists of, in any order.
constexpr std::array<Parameter, 6> kOthers = {{{L"pProject", VT_UNKNOWN},
                                               {L"pQuery", VT_UNKNOWN},
                                               {L"pConfigFactory", VT_UNKNOWN},
                                               {L"bstrConfigName", VT_BSTR},
                                               {L"bLogEnabled", VT_I4},
                                               {L"pSelectedObject", VT_UNKNOWN}}};

const VARIANT& ValueOf(const ParameterBag& request, const Parameter& parameter)
{
    const tagINITVALUE* const end = request.values + request.count;
    const tagINITVALUE* const found = std::find_if(request.values, end, [&](const tagINITVALUE& entry) {
        return TextOf(entry.bstrParamName) == parameter.name;
    });
    Require(found != end && found->varValue.vt == parameter.type);
    return found->varValue;
}

/// The array of projects of a request that is as it should be.
SAFEARRAY* ProjectsIn(const ParameterBag& request)
{
    Require(request.values || request.count == 0);
    for (const Parameter& parameter : kOthers)
        ValueOf(request, parameter);
    Require(TextOf(ValueOf(request, kOperation).bstrVal) == L"GetListOfMacros");
    SAFEARRAY* const projects = ValueOf(request, kProjects).parray;
    Require(projects && SafeArrayGetDim(projects) == 1);
    return projects;
}

/// An array in task memory while it is filled.
class Reply
{
public:
    explicit Reply(std::size_t size)
        : m_values(static_cast<tagINITVALUE*>(CoTaskMemAlloc(size * sizeof(tagINITVALUE))))
    {
        if (!m_values)
            throw std::bad_alloc();
    }
    ~Reply()
    {
        for (ULONG index = 0; m_values && index < m_count; ++index)
        {
            SysFreeString(m_values[index].bstrParamName);
            VariantClear(&m_values[index].varValue);
        }
        CoTaskMemFree(m_values);
    }
    Reply(const Reply&) = delete;
    Reply& operator=(const Reply&) = delete;

    void Add(const std::wstring& name, const std::wstring& text)
    {
        Bstr key(name);
        Variant value = Variant::OfText(text);
        m_values[m_count] = {key.detach(), value.detach()};
        ++m_count;
    }
    tagINITVALUE* release() { return std::exchange(m_values, nullptr); }

private:
    tagINITVALUE* m_values;
    ULONG m_count = 0;
};
} // namespace

ComPtr<IVBALoaderManager> VbaLoader::Make(const Core& core)
{
    return ComPtr<IVBALoaderManager>(new VbaLoader(core));
}

template <class Outputs, class Body, class... Arguments>
HRESULT VbaLoader::Call(const char* method, const Outputs& outputs, Body&& body,
                        const Arguments&... arguments) noexcept
{
    return HostCall(
        *m_core, method, [&] { return CallText(method, {}, arguments...); }, outputs, body);
}

HRESULT VbaLoader::Reserved1()
{
    return Call("IVBALoaderManager::Reserved1", std::tuple(), [] { return E_NOTIMPL; });
}

HRESULT VbaLoader::Invoke(ULONG count, struct tagINITVALUE* values, ULONG* resultCount,
                          struct tagINITVALUE** resultValues)
{
    const ParameterBag request{count, values};
    return Call(
        "IVBALoaderManager::Invoke", std::tuple(Out{resultCount}, Out{resultValues}),
        [&] {
            const std::vector<std::string> macros = MacrosOf(ProjectsIn(request));
            if (macros.empty())
                return S_OK;
            Reply reply(macros.size());
            int number = 0;
            for (const std::string& macro : macros)
                reply.Add(L"Macro" + std::to_wstring(++number), FromUtf8(macro));
            *resultCount = static_cast<ULONG>(macros.size());
            *resultValues = reply.release();
            return S_OK;
        },
        request);
}

std::vector<std::string> VbaLoader::MacrosOf(SAFEARRAY* projects) const
{
    LONG low = 0;
    LONG high = -1;
    Check(SafeArrayGetLBound(projects, 1, &low));
    Check(SafeArrayGetUBound(projects, 1, &high));
    std::vector<std::string> macros;
    for (LONG index = low; index <= high; ++index)
    {
        Variant element;
        Check(SafeArrayGetElement(projects, &index, element.put()));
        Require(element.Type() == VT_UNKNOWN);
        const ComPtr<HostDataObject> project = HostDataObject::From(element->punkVal);
        Require(project && project->IsOf(*m_core) &&
                project->KindOf().table == std::string_view("vbaproject"));
        Statement rows(m_core->database,
                       R"(SELECT "name" FROM "vbamacro" WHERE "vbaproject" = ?1 ORDER BY "id")");
        rows.Bind(1, project->Id());
        while (rows.Step())
            macros.push_back(rows.Text(0));
    }
    return macros;
}
} // namespace refhost
