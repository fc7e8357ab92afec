// The key store of a host in memory.
#pragma once

#include "CallScript.h"
#include "CountedObject.h"
#include "MemoryRecord.h"
#include "MemoryValue.h"

#include "Bstr.h"

#include "qpobjects.h"
#include "qpservices.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Keys, with slashes between their parts, and their values, in scopes that are stores of their own; but
/// scope 0 reads what 4 wrote, too. The letters A to Z of keys and names count without regard to case,
/// slashes at the ends of a key not at all. Values keep the order in which they were first written.
///
/// Owns the lists that it hands out for as long as it lives. A caller may exchange the pointers in them: the
/// strings of a caller remain the caller's. Each call is recorded, and can be made to differ:
///
///     store.GetValue(QPR-Navigator/BrowserConfiguration1/gotoitemtree/$7), 0, 8, 2)
///     store.WriteStringList(common, 2, {a = text of a, b = text of b}, 2)
class MemoryStore final : public CountedObject<IQPFObject, IQPSessionDataManager>
{
public:
    explicit MemoryStore(MemoryRecord& record) : m_record(record) {}

    /// The calls that differ.
    CallScript script;
    /// Whether the object, asked for IQPSessionDataManager, has it.
    bool offersStore = true;

    // For the tests: no calls, and not recorded.

    /// Writes a value.
    MemoryStore* Set(LONG scope, std::wstring_view key, std::wstring_view name, const MemoryValue& value);

    /// Writes an entry of a project's bookmarks, as the navigator does: the name "gotoitemname<number>" and
    /// the tree string "<number>".
    MemoryStore* Bookmark(const std::wstring& project, int number, const wchar_t* name, const wchar_t* tree);

    /// Deletes everything.
    void Clear() { m_keys.clear(); }

    /// A line "<scope> <key>: <name>=<value>" for each value and "<scope> <key>:" for a key without values:
    /// by scope and key, the values of a key in their order. Keys are in lower case.
    std::vector<std::string> Content() const;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;

    HRESULT STDMETHODCALLTYPE Reserved1() override { return Unexpected("Reserved1"); }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return Unexpected("Reserved2"); }
    HRESULT STDMETHODCALLTYPE Reserved3() override { return Unexpected("Reserved3"); }
    HRESULT STDMETHODCALLTYPE Reserved4() override { return Unexpected("Reserved4"); }
    HRESULT STDMETHODCALLTYPE Reserved5() override { return Unexpected("Reserved5"); }

    /// The names of the direct sub keys, in the order of creation. S_FALSE, 0 and null without such a key.
    HRESULT STDMETHODCALLTYPE GetSubKeys(BSTR key, LONG number, ULONG* count, BSTR** keys,
                                         LONG scope) override;

    /// The value in the wanted type, VT_EMPTY for that in which it was written. S_FALSE and VT_EMPTY without
    /// such a value; the status of a failed conversion.
    HRESULT STDMETHODCALLTYPE GetValue(BSTR key, BSTR name, unsigned short type, VARIANT* value,
                                       LONG scope) override;
    HRESULT STDMETHODCALLTYPE SetValue(BSTR key, BSTR name, VARIANT* value, LONG scope) override;

    /// The values of a key as text. S_FALSE, 0 and null without such a key.
    HRESULT STDMETHODCALLTYPE GetStringList(BSTR key, ULONG* count, struct tagSTRINGPAIR** list,
                                            LONG scope) override;

    /// Replaces the values of a key, which exists afterwards in any case. E_POINTER for entries without a
    /// list.
    HRESULT STDMETHODCALLTYPE WriteStringList(BSTR key, ULONG count, struct tagSTRINGPAIR* list,
                                              LONG scope) override;

    /// With all sub keys. S_FALSE without such a key.
    HRESULT STDMETHODCALLTYPE DeleteKey(BSTR key, LONG scope) override;
    HRESULT STDMETHODCALLTYPE PrepareScope(LONG scope) override;

private:
    struct Entry
    {
        std::wstring name;
        XQPComVariant value;
    };

    /// The values of one key.
    struct Key
    {
        std::wstring path; ///< as it was first written
        long long born = 0;
        std::vector<Entry> entries;
        std::map<std::wstring, std::size_t> places; ///< by the name in lower case
    };
    using Keys = std::map<std::pair<LONG, std::wstring>, Key>; ///< by scope, and path in lower case

    /// Lists that were handed out: the pointers, which callers change, and the strings.
    template <class Item>
    struct List
    {
        std::unique_ptr<Item[]> items;
        std::vector<Bstr> strings;
    };

    ~MemoryStore() override = default;
    HRESULT Unexpected(const char* method);
    void Record(const char* method, const std::string& arguments);
    Key& KeyAt(LONG scope, std::wstring_view path);
    static void Write(Key& key, std::wstring_view name, const VARIANT& value);
    std::vector<const Key*> Read(LONG scope, std::wstring_view path) const;
    bool Has(LONG scope, std::wstring_view path) const;
    std::vector<std::wstring> SubKeys(LONG scope, std::wstring_view path) const;

    MemoryRecord& m_record;
    Keys m_keys;
    long long m_births = 0;
    std::vector<List<BSTR>> m_subKeys;
    std::vector<List<tagSTRINGPAIR>> m_lists;
};
