// One data object of a plant.
#pragma once

#include "HostObject.h"
#include "ObjectPlaces.h"
#include "ObjectRow.h"

#include "ComPtr.h"

#include "qpobjects.h"
#include "qpservices.h"

#include <string>
#include <string_view>

namespace refhost
{
/// A row of one of the plant's tables. Any number of objects may stand for one row.
class HostDataObject final : public HostObject<HostDataObject, IQP_BaseDataObject, IQPObjectRights>
{
public:
    static ComPtr<IQP_BaseDataObject> Make(const Core& core, const Kind& kind, long long id);

    /// The object of that number, whatever its kind. `kind` is ignored: it makes this fit RowEnumerator.
    static ComPtr<IQP_BaseDataObject> MakeOfAnyKind(const Core& core, const Kind& kind, long long id);

    /// `object` as an object of the reference host; null if it is null or of another host.
    static ComPtr<HostDataObject> From(IUnknown* object);

    long long Id() const { return m_row.id; }
    const Kind& KindOf() const { return m_row.kind; }
    bool IsOf(const PlantCore& core) const { return m_row.core.get() == &core; }
    std::string Label() const { return m_row.Label(); }

    HRESULT STDMETHODCALLTYPE GetTableName(BSTR* tableName) override;
    HRESULT STDMETHODCALLTYPE GetTypeName(BSTR* typeName) override;

    /// S_FALSE and VT_EMPTY for an attribute without a value, E_ACCESSDENIED for a hidden one, E_INVALIDARG
    /// for one that the object does not have. "configured_name", which can only be read, is the name.
    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR name, VARIANT* value) override;

    /// One row per readable attribute, in the order of the names. 0x8004035E if the object does not have all
    /// of them, else 0x80040344 if some are hidden: the rows come with both.
    HRESULT STDMETHODCALLTYPE GetAttributes(SAFEARRAY** names, SAFEARRAY** values) override;

    /// An empty value or a null reference removes the attribute's value. E_INVALIDARG for an attribute that
    /// the object does not have and for an object of the wrong kind or plant, E_ACCESSDENIED for a locked or
    /// hidden attribute; else the status of a failed conversion.
    HRESULT STDMETHODCALLTYPE SetAttribute(BSTR name, VARIANT value) override;

    /// S_OK with a result for each row: 0 or the status that SetAttribute would have given, as VT_I4. A row
    /// whose name is VT_EMPTY is skipped; its name and result are VT_EMPTY.
    HRESULT STDMETHODCALLTYPE SetAttributes(SAFEARRAY** pairs, SAFEARRAY** results) override;

    /// E_INVALIDARG for a list that the object does not have.
    HRESULT STDMETHODCALLTYPE GetChildren(BSTR list, IEnumBaseDataObject** children) override;

    /// The configured type named `configName` or, if that is null or empty, `typeName`. E_INVALIDARG if there
    /// is none.
    HRESULT STDMETHODCALLTYPE GetType(BSTR typeName, BSTR configName, IQPType** type) override;

    HRESULT STDMETHODCALLTYPE GetClientId(LONG* clientId) override;

    /// S_OK or S_FALSE.
    HRESULT STDMETHODCALLTYPE IsDerivedFromClass(BSTR className) override;

    /// The plant keeps one text for all languages: these do what the forms without a language do.
    HRESULT STDMETHODCALLTYPE SetAttributeMultiLingual(BSTR name, LONG language, VARIANT value) override;
    HRESULT STDMETHODCALLTYPE SetAttributesMultiLingual(SAFEARRAY** pairs, LONG language,
                                                        SAFEARRAY** results) override;

    /// S_OK if the user holds every right of the mask, else S_FALSE.
    HRESULT STDMETHODCALLTYPE HasRight(enum QPRightType right) override;

private:
    friend class HostObject<HostDataObject, IQP_BaseDataObject, IQPObjectRights>;
    HostDataObject(Core core, const Kind& kind, long long id);
    ~HostDataObject();
    static void* operator new(std::size_t size) { return ObjectPlaces::Take(size); }
    static void operator delete(void* place) noexcept { ObjectPlaces::Give(place); }

    void* Interface(REFIID iid) noexcept;
    bool OffersRights() noexcept;
    const Attribute& Known(BSTR name) const;
    HRESULT WriteNamed(BSTR name, const VARIANT& value) const noexcept;
    HRESULT ReadAll(SAFEARRAY* names, SAFEARRAY** values) const;
    HRESULT WriteAll(SAFEARRAY* pairs, SAFEARRAY** results) const;

    template <class Outputs, class Body, class... Arguments>
    HRESULT Call(const char* method, const Outputs& outputs, Body&& body,
                 const Arguments&... arguments) noexcept;

    const ObjectRow m_row;
};
} // namespace refhost
