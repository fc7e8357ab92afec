#include "SessionDataManager.h"

#include "HostCall.h"
#include "HostVariant.h"

#include "Bstr.h"

#include <algorithm>
#include <new>

namespace refhost
{
/// A list that was returned. The strings are owned here and not by the list, whose pointers the caller may
/// change.
class SessionDataManager::StringList
{
public:
    explicit StringList(std::size_t count)
        : m_memory(static_cast<BSTR*>(CoTaskMemAlloc((count + 1) * sizeof(BSTR))))
    {
        if (!m_memory)
            throw std::bad_alloc();
        std::fill_n(m_memory, count + 1, nullptr);
    }
    ~StringList() { CoTaskMemFree(m_memory); }
    StringList(const StringList&) = delete;
    StringList& operator=(const StringList&) = delete;

    void Fill(const std::vector<std::string>& texts)
    {
        m_strings.reserve(texts.size());
        for (const std::string& text : texts)
            m_strings.emplace_back(FromUtf8(text));
        std::transform(m_strings.begin(), m_strings.end(), m_memory,
                       [](const Bstr& text) { return text.get(); });
    }
    BSTR* Memory() const { return m_memory; }

private:
    BSTR* m_memory;
    std::vector<Bstr> m_strings;
};

namespace
{
std::string Text(BSTR string)
{
    return Utf8FromWide(TextOf(string));
}

Variant FromStored(const StoredValue& stored)
{
    if (const auto* number = std::get_if<long long>(&stored.value))
        return stored.type == VT_BOOL ? OfFlag(*number != 0) : OfNumber(static_cast<LONG>(*number));
    return Variant::OfText(FromUtf8(std::get<std::string>(stored.value)));
}

StoredValue ToStored(const VARIANT& value)
{
    Variant direct = Resolved(value);
    switch (direct->vt)
    {
    case VT_BOOL:
        return {VT_BOOL, static_cast<long long>(direct->boolVal ? 1 : 0)};
    case VT_I2:
    case VT_I4:
    case VT_INT:
        Become(direct, VT_I4);
        return {VT_I4, static_cast<long long>(direct->lVal)};
    default:
        Become(direct, VT_BSTR);
        return {VT_BSTR, Text(direct->bstrVal)};
    }
}
} // namespace

SessionDataManager::SessionDataManager(Core core) : m_core(std::move(core)), m_store(m_core->database) {}

SessionDataManager::~SessionDataManager() = default;

ComPtr<IQPSessionDataManager> SessionDataManager::Make(const Core& core)
{
    return ComPtr<IQPSessionDataManager>(new SessionDataManager(core));
}

template <class Outputs, class Body, class... Arguments>
HRESULT SessionDataManager::Call(const char* method, const Outputs& outputs, Body&& body,
                                 const Arguments&... arguments) noexcept
{
    return HostCall(
        *m_core, method, [&] { return CallText(method, {}, arguments...); }, outputs, body);
}

HRESULT SessionDataManager::Reserved(const char* method) noexcept
{
    return Call(method, std::tuple(), [] { return E_NOTIMPL; });
}

HRESULT SessionDataManager::Reserved1()
{
    return Reserved("IQPSessionDataManager::Reserved1");
}

HRESULT SessionDataManager::Reserved2()
{
    return Reserved("IQPSessionDataManager::Reserved2");
}

HRESULT SessionDataManager::Reserved3()
{
    return Reserved("IQPSessionDataManager::Reserved3");
}

HRESULT SessionDataManager::Reserved4()
{
    return Reserved("IQPSessionDataManager::Reserved4");
}

HRESULT SessionDataManager::Reserved5()
{
    return Reserved("IQPSessionDataManager::Reserved5");
}

BSTR* SessionDataManager::Keep(const std::vector<std::string>& texts)
{
    auto list = std::make_unique<StringList>(texts.size());
    list->Fill(texts);
    m_lists.push_back(std::move(list));
    return m_lists.back()->Memory();
}

HRESULT SessionDataManager::GetSubKeys(BSTR key, LONG number, ULONG* count, BSTR** keys, LONG scope)
{
    return Call(
        "IQPSessionDataManager::GetSubKeys", std::tuple(Out{count}, Out{keys}),
        [&] {
            if (!m_store.Has(scope, Text(key)))
                return S_FALSE;
            const std::vector<std::string> names = m_store.SubKeys(scope, Text(key));
            *keys = Keep(names);
            *count = static_cast<ULONG>(names.size());
            return S_OK;
        },
        key, number, scope);
}

HRESULT SessionDataManager::ReadValue(const std::string& key, const std::string& name, VARTYPE type,
                                      LONG scope, VARIANT& value)
{
    const std::optional<StoredValue> stored = m_store.Get(scope, key, name);
    if (!stored)
        return S_FALSE;
    Variant found = FromStored(*stored);
    if (type != VT_EMPTY)
        Become(found, type);
    value = found.detach();
    return S_OK;
}

HRESULT SessionDataManager::GetValue(BSTR key, BSTR valueName, unsigned short vt, VARIANT* value, LONG scope)
{
    return Call(
        "IQPSessionDataManager::GetValue", std::tuple(InOut{value}),
        [&] { return ReadValue(Text(key), Text(valueName), vt, scope, *value); }, key, valueName, vt, scope);
}

HRESULT SessionDataManager::SetValue(BSTR key, BSTR valueName, VARIANT* value, LONG scope)
{
    const VARIANT nothing{};
    return Call(
        "IQPSessionDataManager::SetValue", std::tuple(),
        [&] {
            Require(value != nullptr, E_POINTER);
            m_store.Set(scope, Text(key), Text(valueName), ToStored(*value));
            return S_OK;
        },
        key, valueName, value ? *value : nothing, scope);
}

HRESULT SessionDataManager::GetStringList(BSTR key, ULONG* count, struct tagSTRINGPAIR** list, LONG scope)
{
    return Call(
        "IQPSessionDataManager::GetStringList", std::tuple(Out{count}, Out{list}),
        [&] {
            if (!m_store.Has(scope, Text(key)))
                return S_FALSE;
            std::vector<std::string> texts;
            for (StoredText& value : m_store.List(scope, Text(key)))
            {
                texts.push_back(std::move(value.name));
                texts.push_back(std::move(value.value));
            }
            static_assert(sizeof(tagSTRINGPAIR) == 2 * sizeof(BSTR));
            *list = reinterpret_cast<tagSTRINGPAIR*>(Keep(texts));
            *count = static_cast<ULONG>(texts.size() / 2);
            return S_OK;
        },
        key, scope);
}

HRESULT SessionDataManager::WriteStringList(BSTR key, ULONG count, struct tagSTRINGPAIR* list, LONG scope)
{
    return Call(
        "IQPSessionDataManager::WriteStringList", std::tuple(),
        [&] {
            Require(list || count == 0, E_POINTER);
            std::vector<StoredText> values;
            for (ULONG i = 0; i < count; ++i)
                values.push_back({Text(list[i].bstrName), Text(list[i].bstrValue)});
            m_store.WriteList(scope, Text(key), values, VT_BSTR);
            return S_OK;
        },
        key, count, scope);
}

HRESULT SessionDataManager::DeleteKey(BSTR key, LONG scope)
{
    return Call(
        "IQPSessionDataManager::DeleteKey", std::tuple(),
        [&] { return m_store.Delete(scope, Text(key)) ? S_OK : S_FALSE; }, key, scope);
}

HRESULT SessionDataManager::PrepareScope(LONG scope)
{
    return Call(
        "IQPSessionDataManager::PrepareScope", std::tuple(), [] { return S_OK; }, scope);
}
} // namespace refhost
