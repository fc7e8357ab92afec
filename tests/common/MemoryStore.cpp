#include "MemoryStore.h"

#include "Utf8.h"

#include <algorithm>

namespace
{
constexpr LONG kUserRead = 0;
constexpr LONG kBookmarks = 2;
constexpr LONG kUserWrite = 4;

std::wstring_view TextOf(BSTR text)
{
    return {text, SysStringLen(text)};
}

std::wstring Lower(std::wstring_view text)
{
    std::wstring lower(text);
    for (wchar_t& character : lower)
        if (character >= L'A' && character <= L'Z')
            character = static_cast<wchar_t>(character - L'A' + L'a');
    return lower;
}

/// Without slashes at the ends.
std::wstring_view Path(std::wstring_view key)
{
    const std::size_t first = key.find_first_not_of(L'/');
    if (first == std::wstring_view::npos)
        return {};
    return key.substr(first, key.find_last_not_of(L'/') - first + 1);
}

/// The scopes that a read of `scope` looks into, in this order.
std::vector<LONG> ScopesOf(LONG scope)
{
    return scope == kUserRead ? std::vector<LONG>{kUserWrite, kUserRead} : std::vector<LONG>{scope};
}

/// Whether a key is below `path`, both in lower case.
bool IsBelow(std::wstring_view key, std::wstring_view path)
{
    return path.empty()
               ? !key.empty()
               : key.size() > path.size() && key.substr(0, path.size()) == path && key[path.size()] == L'/';
}

std::wstring AsText(const VARIANT& value)
{
    XQPComVariant text;
    return text.ChangeType(VT_BSTR, &value) >= 0 ? text.GetString() : L"";
}

std::string PairText(ULONG count, const tagSTRINGPAIR* list)
{
    if (!list)
        return "null";
    std::string text;
    for (ULONG entry = 0; entry < count; ++entry)
        text += (entry == 0 ? "" : ", ") + Utf8OrNull(list[entry].bstrName) + " = " +
                Utf8OrNull(list[entry].bstrValue);
    return "{" + text + "}";
}
} // namespace

HRESULT MemoryStore::QueryInterface(REFIID iid, void** result)
{
    if (iid == __uuidof(IQPSessionDataManager) && !offersStore)
        return Refuse(result);
    return CountedObject::QueryInterface(iid, result);
}

HRESULT MemoryStore::Unexpected(const char* method)
{
    m_record.Record(std::string("store.") + method + "()");
    return E_NOTIMPL;
}

void MemoryStore::Record(const char* method, const std::string& arguments)
{
    m_record.Record(std::string("store.") + method + "(" + arguments + ")");
}

// The keys.

MemoryStore::Key& MemoryStore::KeyAt(LONG scope, std::wstring_view path)
{
    const auto [found, isNew] = m_keys.try_emplace({scope, Lower(Path(path))});
    if (isNew)
    {
        found->second.path = Path(path);
        found->second.born = m_births++;
    }
    return found->second;
}

void MemoryStore::Write(Key& key, std::wstring_view name, const VARIANT& value)
{
    const auto [found, isNew] = key.places.try_emplace(Lower(name), key.entries.size());
    if (isNew)
        key.entries.push_back({std::wstring(name), {}});
    key.entries[found->second].value = value;
}

std::vector<const MemoryStore::Key*> MemoryStore::Read(LONG scope, std::wstring_view path) const
{
    std::vector<const Key*> keys;
    for (const LONG each : ScopesOf(scope))
        if (const auto found = m_keys.find({each, Lower(Path(path))}); found != m_keys.end())
            keys.push_back(&found->second);
    return keys;
}

bool MemoryStore::Has(LONG scope, std::wstring_view path) const
{
    return !Read(scope, path).empty() || !SubKeys(scope, path).empty();
}

std::vector<std::wstring> MemoryStore::SubKeys(LONG scope, std::wstring_view path) const
{
    const std::wstring above = Lower(Path(path));
    std::map<long long, std::wstring> below; // paths, in the order of creation
    for (const auto& [place, key] : m_keys)
    {
        const std::vector<LONG> scopes = ScopesOf(scope);
        if (std::find(scopes.begin(), scopes.end(), place.first) != scopes.end() &&
            IsBelow(place.second, above))
            below[key.born] = key.path;
    }
    std::vector<std::wstring> names;
    for (const auto& [born, whole] : below)
    {
        const std::wstring rest = whole.substr(above.empty() ? 0 : above.size() + 1);
        const std::wstring name = rest.substr(0, rest.find(L'/'));
        if (std::none_of(names.begin(), names.end(),
                         [&](const std::wstring& known) { return Lower(known) == Lower(name); }))
            names.push_back(name);
    }
    return names;
}

MemoryStore* MemoryStore::Set(LONG scope, std::wstring_view key, std::wstring_view name,
                              const MemoryValue& value)
{
    Write(KeyAt(scope, key), name, value.Value());
    return this;
}

MemoryStore* MemoryStore::Bookmark(const std::wstring& project, int number, const wchar_t* name,
                                   const wchar_t* tree)
{
    const std::wstring browser = L"QPR-Navigator/BrowserConfiguration1/";
    const std::wstring digits = std::to_wstring(number);
    Set(kBookmarks, browser + L"gotoitemname/" + project, L"gotoitemname" + digits, name);
    return Set(kBookmarks, browser + L"gotoitemtree/" + project, digits, tree);
}

std::vector<std::string> MemoryStore::Content() const
{
    std::vector<std::string> lines;
    for (const auto& [place, key] : m_keys)
    {
        const std::string start = std::to_string(place.first) + " " + Utf8FromWide(place.second) + ":";
        if (key.entries.empty())
            lines.push_back(start);
        for (const Entry& entry : key.entries)
            lines.push_back(start + " " + Utf8FromWide(entry.name) + "=" +
                            Utf8FromWide(AsText(entry.value.Value())));
    }
    return lines;
}

// The calls.

HRESULT MemoryStore::GetSubKeys(BSTR key, LONG number, ULONG* count, BSTR** keys, LONG scope)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        Record("GetSubKeys", Utf8OrNull(key) + ", " + std::to_string(number) + ", " + std::to_string(scope));
    return script.Run("GetSubKeys", [&](const ScriptedCall& scripted) {
        const bool exists = Has(scope, TextOf(key));
        const std::vector<std::wstring> names = SubKeys(scope, TextOf(key));
        *count = scripted.count.value_or(static_cast<ULONG>(names.size()));
        *keys = nullptr;
        if (!exists || scripted.givesNull)
            return exists ? S_OK : S_FALSE;
        List<BSTR>& list = m_subKeys.emplace_back();
        list.items.reset(new BSTR[std::max<std::size_t>(*count, names.size())]());
        for (std::size_t index = 0; index < names.size(); ++index)
            list.items[index] = list.strings.emplace_back(names[index]).get();
        *keys = list.items.get();
        return S_OK;
    });
}

HRESULT MemoryStore::GetValue(BSTR key, BSTR name, unsigned short type, VARIANT* value, LONG scope)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        Record("GetValue", Utf8OrNull(key) + ", " + Utf8OrNull(name) + ", " + std::to_string(type) + ", " +
                               std::to_string(scope));
    return script.Run("GetValue", [&](const ScriptedCall&) {
        VariantClear(value);
        for (const Key* found : Read(scope, TextOf(key)))
            if (const auto place = found->places.find(Lower(TextOf(name))); place != found->places.end())
            {
                auto& stored = const_cast<VARIANT&>(found->entries[place->second].value.Value());
                return type == VT_EMPTY ? VariantCopy(value, &stored)
                                        : VariantChangeType(value, &stored, 0, type);
            }
        return S_FALSE;
    });
}

HRESULT MemoryStore::SetValue(BSTR key, BSTR name, VARIANT* value, LONG scope)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        Record("SetValue", Utf8OrNull(key) + ", " + Utf8OrNull(name) + ", " + m_record.Describe(*value) +
                               ", " + std::to_string(scope));
    return script.Run("SetValue", [&](const ScriptedCall&) {
        Write(KeyAt(scope, TextOf(key)), TextOf(name), *value);
        return S_OK;
    });
}

HRESULT MemoryStore::GetStringList(BSTR key, ULONG* count, struct tagSTRINGPAIR** list, LONG scope)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        Record("GetStringList", Utf8OrNull(key) + ", " + std::to_string(scope));
    return script.Run("GetStringList", [&](const ScriptedCall& scripted) {
        const bool exists = Has(scope, TextOf(key));
        std::vector<const Entry*> entries;
        for (const Key* found : Read(scope, TextOf(key)))
            for (const Entry& entry : found->entries)
                entries.push_back(&entry);
        *count = scripted.count.value_or(static_cast<ULONG>(entries.size()));
        *list = nullptr;
        if (!exists || scripted.givesNull)
            return exists ? S_OK : S_FALSE;
        List<tagSTRINGPAIR>& made = m_lists.emplace_back();
        made.items.reset(new tagSTRINGPAIR[std::max<std::size_t>(*count, entries.size())]());
        for (std::size_t index = 0; index < entries.size(); ++index)
        {
            made.items[index].bstrName = made.strings.emplace_back(entries[index]->name).get();
            made.items[index].bstrValue =
                made.strings.emplace_back(AsText(entries[index]->value.Value())).get();
        }
        *list = made.items.get();
        return S_OK;
    });
}

HRESULT MemoryStore::WriteStringList(BSTR key, ULONG count, struct tagSTRINGPAIR* list, LONG scope)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        Record("WriteStringList", Utf8OrNull(key) + ", " + std::to_string(count) + ", " +
                                      PairText(count, list) + ", " + std::to_string(scope));
    return script.Run("WriteStringList", [&](const ScriptedCall&) {
        if (!list && count > 0)
            return E_POINTER;
        Key& written = KeyAt(scope, TextOf(key));
        written.entries.clear();
        written.places.clear();
        for (ULONG entry = 0; entry < count; ++entry)
            Write(written, TextOf(list[entry].bstrName),
                  XQPComVariant(std::wstring(TextOf(list[entry].bstrValue)).c_str()).Value());
        return S_OK;
    });
}

HRESULT MemoryStore::DeleteKey(BSTR key, LONG scope)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        Record("DeleteKey", Utf8OrNull(key) + ", " + std::to_string(scope));
    return script.Run("DeleteKey", [&](const ScriptedCall&) {
        const std::wstring path = Lower(Path(TextOf(key)));
        const std::size_t erased = std::erase_if(m_keys, [&](const Keys::value_type& each) {
            return each.first.first == scope &&
                   (each.first.second == path || IsBelow(each.first.second, path));
        });
        return erased > 0 ? S_OK : S_FALSE;
    });
}

HRESULT MemoryStore::PrepareScope(LONG scope)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        Record("PrepareScope", std::to_string(scope));
    return script.Run("PrepareScope", [](const ScriptedCall&) { return S_OK; });
}
