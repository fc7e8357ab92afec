// A data object of a host in memory.
#pragma once

#include "CountedObject.h"
#include "MemoryRecord.h"
#include "MemoryValue.h"

#include "ComPtr.h"

#include "qpobjects.h"
#include "qpservices.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

template <class Enum, class Element>
class MemoryList;
using MemoryEnum = MemoryList<IEnumBaseDataObject, IQP_BaseDataObject>;

class MemoryFactory;
class MemoryObject;
class MemoryType;

using MemoryObjects = std::vector<ComPtr<MemoryObject>>;

/// A data object. An attribute that was never set answers S_FALSE and VT_EMPTY.
class MemoryObject final : public CountedObject<IQP_BaseDataObject, IQPObjectRights>
{
public:
    MemoryObject(MemoryRecord& record, std::string name);

    MemoryObject* Set(const wchar_t* attribute, const wchar_t* text);
    MemoryObject* Set(const wchar_t* attribute, LONG number);
    MemoryObject* Set(const wchar_t* attribute, const ComPtr<MemoryObject>& object);
    MemoryObject* Set(const wchar_t* attribute, IUnknown* object);
    MemoryObject* Answer(const wchar_t* attribute, HRESULT status, const VARIANT& value);
    MemoryObject* Fail(const wchar_t* attribute, HRESULT status);

    // What is set again replaces what was set before.

    /// The status of IsDerivedFromClass for that class; S_FALSE for one that was never set.
    MemoryObject* Is(const wchar_t* className, HRESULT status = S_OK);

    /// What GetTableName answers; E_NOTIMPL if it was never set. A null name is a null text.
    MemoryObject* Table(const wchar_t* name, HRESULT status = S_OK);

    /// What GetChildren answers for that list, from its beginning; `list` may be null. E_INVALIDARG for a
    /// list that was never set.
    MemoryObject* Children(const wchar_t* name, const ComPtr<MemoryEnum>& list, HRESULT status = S_OK);

    /// As before, with a new enumerator for each call, which the record names after the object and the list:
    /// `cell nodes.RemNext(1)`. Children may be null, and an object may be its own descendant: see
    /// MemoryHost::CutTrees.
    MemoryObject* FreshChildren(const wchar_t* name, const MemoryObjects& children, HRESULT status = S_OK);

    /// Removes all lists of children.
    void ForgetChildren();

    /// What GetTypeName answers; E_NOTIMPL if it was never set.
    MemoryObject* TypeName(const wchar_t* name, HRESULT status = S_OK);

    /// What GetType answers, whatever the names; `type` may be null. E_NOTIMPL if it was never set.
    MemoryObject* Type(MemoryType* type, HRESULT status = S_OK);

    /// Lets GetType answer what the factory's GetType would for those names; the call on the factory is not
    /// recorded.
    MemoryObject* TypedBy(MemoryFactory& factory);

    /// Makes writes of that attribute fail: `status` is the result of its row and the status of a single
    /// write. The value is unchanged.
    MemoryObject* RefuseWrite(const wchar_t* attribute, HRESULT status);

    /// The attribute's value in the form of the record, such as `I4 5`; "EMPTY" if there is no value.
    std::string ValueText(const wchar_t* attribute) const;

    /// What GetAttributes returns in place of its own status, with the rows all the same. Its own is S_OK, or
    /// 0x8004035E without the rows of attributes whose read fails.
    std::optional<HRESULT> readStatus;
    /// What SetAttributes and SetAttributesMultiLingual return in place of S_OK. Nothing is written if it is
    /// a failure.
    HRESULT writeStatus = S_OK;
    /// Runs at the start of SetAttributes and may throw.
    std::function<void()> onWrite;
    /// The array that SetAttributes was last given, to the last row: see ArrayLine. Kept while calls are
    /// recorded.
    std::string written;
    /// Whether the three hand out an array.
    bool givesArrays = true;
    /// The shape of that array. One of other dimensions or another type than these has empty elements.
    struct ArrayShape
    {
        UINT dimensions = 2;
        VARTYPE type = VT_VARIANT;
        LONG firstRow = 0;
        LONG firstColumn = 0;
    } shape;

    /// What GetClientId answers.
    LONG clientId = 1;

    /// What HasRight answers.
    HRESULT right = S_OK;
    /// Whether the object has IQPObjectRights at all.
    bool offersRights = true;
    /// Whether QueryInterface of the object supports the data object's interface.
    bool offersData = true;

    const std::string& Name() const noexcept { return m_name; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override;

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
    struct ChildAnswer
    {
        std::wstring name;
        ComPtr<MemoryEnum> list;
        std::optional<MemoryObjects> children; ///< in place of the list
        HRESULT status;
    };

    ~MemoryObject() override;
    MemoryObject* SetChildren(ChildAnswer answer);
    HRESULT Unexpected(const char* method);
    const MemoryAnswer* Find(std::wstring_view attribute) const;
    HRESULT Write(std::wstring_view attribute, const VARIANT& value);
    std::string PairList(SAFEARRAY* pairs) const;
    HRESULT WriteAll(SAFEARRAY** pairs, SAFEARRAY** results);

    MemoryRecord& m_record;
    const MemoryRecord::Life m_life;
    std::string m_name;
    std::vector<std::pair<std::wstring, MemoryAnswer>> m_answers;
    std::vector<std::pair<std::wstring, HRESULT>> m_classes;
    std::vector<ChildAnswer> m_children;
    std::optional<MemoryAnswer> m_table;
    std::optional<MemoryAnswer> m_typeName;
    std::optional<MemoryAnswer> m_type;
    MemoryFactory* m_typedBy = nullptr; ///< borrowed
    std::vector<std::pair<std::wstring, HRESULT>> m_refusals;
};
