// A data object of a host in memory.
#pragma once

#include "ComPtr.h"
#include "XQPComVariant.h"

#include "qpobjects.h"
#include "qpservices.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

class MemoryEnum;
class MemoryHost;

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

    /// What IsDerivedFromClass answers for that class; S_FALSE for one that was never set.
    MemoryObject* Is(const wchar_t* className, HRESULT status = S_OK);

    /// What GetTableName answers; E_NOTIMPL if it was never set. A null name is a null text.
    MemoryObject* Table(const wchar_t* name, HRESULT status = S_OK);

    /// What GetChildren answers for that list, from its beginning; `list` may be null. E_INVALIDARG for a
    /// list that was never set.
    MemoryObject* Children(const wchar_t* name, const ComPtr<MemoryEnum>& list, HRESULT status = S_OK);

    /// What HasRight answers.
    HRESULT right = S_OK;
    /// Whether the object has IQPObjectRights at all.
    bool offersRights = true;
    /// Whether the object, asked for it, still is a data object.
    bool offersData = true;

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

    struct ChildAnswer
    {
        std::wstring name;
        ComPtr<MemoryEnum> list;
        HRESULT status;
    };

    MemoryHost& m_host;
    std::string m_name;
    std::vector<std::pair<std::wstring, MemoryAnswer>> m_answers;
    std::vector<std::pair<std::wstring, HRESULT>> m_classes;
    std::vector<ChildAnswer> m_children;
    std::optional<MemoryAnswer> m_table;
    ULONG m_count = 0;
};
