// A host that lives in memory: data objects, one query and its enumerators, each answer and status of which a
// test can set, and each call of which it can read back.
#pragma once

#include "ComPtr.h"
#include "XQPComVariant.h"

#include "qpobjects.h"
#include "qpservices.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

class MemoryObject;
class MemoryQuery;
class MemoryEnum;

/// Makes the objects, counts them and keeps the record of what was called. It must outlive all of them.
class MemoryHost
{
public:
    MemoryHost();
    ~MemoryHost();
    MemoryHost(const MemoryHost&) = delete;
    MemoryHost& operator=(const MemoryHost&) = delete;

    /// A data object under a name that the record calls it by.
    ComPtr<MemoryObject> Object(std::string name);

    /// A data object with an attribute "name".
    ComPtr<MemoryObject> Named(const wchar_t* name);

    /// An object that is no data object itself but, asked for one, gives `object`.
    ComPtr<IUnknown> ReferenceTo(std::string name, const ComPtr<MemoryObject>& object);

    /// An enumerator over `objects`, in this order.
    ComPtr<MemoryEnum> List(std::vector<ComPtr<MemoryObject>> objects);

    MemoryQuery& Query() noexcept { return *m_ptrQuery; }

    /// The record: one line per call, for example `set.GetAttribute(master)` or `SetSearchCatenation(4)`.
    std::vector<std::string> calls;
    /// Whether calls are recorded at all; benchmarks do without.
    bool recording = true;
    /// Whether requests for interfaces are recorded as well.
    bool recordingQueries = false;
    /// Runs after each recorded call.
    std::function<void(const std::string& call)> onCall;

    /// The name under which `object` is recorded.
    std::string NameOf(IUnknown* object) const;

    /// Objects alive, the query not among them.
    int LiveObjects() const noexcept { return m_liveObjects; }

    /// Whether a call of any host is running: what is allocated then is the host's.
    static bool InCall() noexcept { return s_depth > 0; }

    /// Stands for the duration of a host call.
    class CallScope
    {
    public:
        CallScope() noexcept { ++s_depth; }
        ~CallScope() { --s_depth; }
        CallScope(const CallScope&) = delete;
        CallScope& operator=(const CallScope&) = delete;
    };

private:
    friend class MemoryObject;
    friend class MemoryQuery;
    friend class MemoryEnum;
    friend class MemoryReference;

    void Record(const std::string& call);
    std::string Describe(const VARIANT& value) const;

    static int s_depth;

    int m_liveObjects = 0;
    std::map<IUnknown*, std::string> m_names;
    ComPtr<MemoryQuery> m_ptrQuery;
};

/// What the host answers to one read of an attribute.
struct MemoryAnswer
{
    HRESULT status = S_OK;
    XQPComVariant value;
};

/// A data object. An attribute that was never set answers S_FALSE and VT_EMPTY.
class MemoryObject final : public IQP_BaseDataObject, public IQPObjectRights
{
public:
    MemoryObject(MemoryHost& host, std::string name);

    MemoryObject* Set(const wchar_t* attribute, const wchar_t* text);
    MemoryObject* Set(const wchar_t* attribute, LONG number);
    MemoryObject* Set(const wchar_t* attribute, const ComPtr<MemoryObject>& object);
    MemoryObject* Set(const wchar_t* attribute, IUnknown* object);
    MemoryObject* Answer(const wchar_t* attribute, HRESULT status, const VARIANT& value);
    MemoryObject* Fail(const wchar_t* attribute, HRESULT status);

    /// What HasRight answers.
    HRESULT right = S_OK;
    /// Whether the object has IQPObjectRights at all.
    bool offersRights = true;

    const std::string& Name() const noexcept { return m_name; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE HasRight(enum QPRightType asked) override;
    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR name, VARIANT* value) override;

    HRESULT STDMETHODCALLTYPE GetTableName(BSTR*) override;
    HRESULT STDMETHODCALLTYPE GetTypeName(BSTR*) override;
    HRESULT STDMETHODCALLTYPE GetAttributes(SAFEARRAY**, SAFEARRAY**) override;
    HRESULT STDMETHODCALLTYPE SetAttribute(BSTR, VARIANT) override;
    HRESULT STDMETHODCALLTYPE SetAttributes(SAFEARRAY**, SAFEARRAY**) override;
    HRESULT STDMETHODCALLTYPE GetChildren(BSTR, IEnumBaseDataObject**) override;
    HRESULT STDMETHODCALLTYPE GetType(BSTR, BSTR, IQPType**) override;
    HRESULT STDMETHODCALLTYPE GetClientId(LONG*) override;
    HRESULT STDMETHODCALLTYPE IsDerivedFromClass(BSTR) override;
    HRESULT STDMETHODCALLTYPE SetAttributeMultiLingual(BSTR, LONG, VARIANT) override;
    HRESULT STDMETHODCALLTYPE SetAttributesMultiLingual(SAFEARRAY**, LONG, SAFEARRAY**) override;

private:
    ~MemoryObject();
    HRESULT Unexpected(const char* method);

    MemoryHost& m_host;
    std::string m_name;
    std::vector<std::pair<std::wstring, MemoryAnswer>> m_answers;
    ULONG m_count = 0;
};

/// Answers its objects one by one and S_FALSE after the last.
class MemoryEnum final : public IEnumBaseDataObject
{
public:
    MemoryEnum(MemoryHost& host, std::vector<ComPtr<MemoryObject>> objects);

    /// Statuses that RemNext returns in place of its own, by the number of the call from 0. The object is
    /// handed out all the same.
    std::map<std::size_t, HRESULT> statuses;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE RemNext(ULONG count, IQP_BaseDataObject** objects, ULONG* fetched) override;
    HRESULT STDMETHODCALLTYPE Reset() override;

    HRESULT STDMETHODCALLTYPE Skip(ULONG) override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumBaseDataObject**) override;
    HRESULT STDMETHODCALLTYPE GetSingleNext(IQP_BaseDataObject**) override;

private:
    ~MemoryEnum();

    MemoryHost& m_host;
    std::vector<ComPtr<MemoryObject>> m_objects;
    std::size_t m_next = 0;
    std::size_t m_calls = 0;
    ULONG m_count = 0;
};

/// The host's query. It answers every search with the enumerator that it was given.
class MemoryQuery final : public IQP_Query
{
public:
    explicit MemoryQuery(MemoryHost& host) : m_host(host) {}

    /// What GetSearchResult hands out, from its beginning; may be null.
    ComPtr<MemoryEnum> result;
    /// What GetSearchResult hands out, along with `result`.
    HRESULT resultStatus = S_OK;
    HRESULT resetStatus = S_OK;
    HRESULT tableStatus = S_OK;
    HRESULT criterionStatus = S_OK;
    HRESULT catenationStatus = S_OK;
    HRESULT orderStatus = S_OK;

    /// References held by others than the host.
    ULONG References() const noexcept { return m_count - 1; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_count; }
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE ResetSearch(LONG onlyWhereClause) override;
    HRESULT STDMETHODCALLTYPE SetSearchTable(BSTR table) override;
    HRESULT STDMETHODCALLTYPE SetSearchCatenation(LONG catenation) override;
    HRESULT STDMETHODCALLTYPE SetSearchAttribute(BSTR attribute, LONG comparison, VARIANT value,
                                                 LONG catenation) override;
    HRESULT STDMETHODCALLTYPE SetOrderAttribute(BSTR attribute, LONG ascending) override;
    HRESULT STDMETHODCALLTYPE GetSearchResult(IEnumBaseDataObject** found) override;
    HRESULT STDMETHODCALLTYPE GetObjectById(BSTR id, IUnknown** object) override;

private:
    ~MemoryQuery() = default;

    MemoryHost& m_host;
    ULONG m_count = 0;
};

/// A text in UTF-8; null reads as "".
std::string Utf8Of(BSTR text);
