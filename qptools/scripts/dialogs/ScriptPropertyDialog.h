// What the property dialogs of a script action and of a script command have in common.
#pragma once

#include "OnDemandComboBox.h"
#include "ScriptRecord.h"

#include "ComPtr.h"
#include "Dialog.h"

#include "qpconfig.h"
#include "qpobjects.h"

#include <map>
#include <span>
#include <string>

namespace qptools
{
/// Edits one data object: its attributes are read into the controls when the dialog opens, and OK writes all
/// of them by one call. The object is never saved; the caller decides on that.
///
/// The object runs a script on objects of one configured type or of one plan type. Each list is read when its
/// combo box first drops down. Names are the keys: of equal names the last one counts, and an entry that was
/// read stays until the dialog ends.
class ScriptPropertyDialog : public CDialog
{
protected:
    template <class Element>
    using ByName = std::map<std::wstring, ComPtr<Element>>;

    /// Every argument may be null. The dialog holds references to all of them.
    ScriptPropertyDialog(UINT templateId, IQPConfigFactory* factory, IQP_Query* query,
                         IQP_BaseDataObject* project, IQP_BaseDataObject* planTypeSet,
                         IQP_BaseDataObject* object, HWND parent);

    /// Whether all arguments but the project are there. Without them the dialog opens with empty controls and
    /// its OK writes nothing.
    bool IsComplete() const noexcept;

    /// Gets the configured type `typeName` and makes `record` the attributes of the dialog. If the call
    /// fails and returns no type, that is reported with `function` and `line`, and the dialog has no
    /// attributes. Any other answer counts. Returns the type, which may be null.
    ComPtr<IQPType> OpenRecord(const FixedText& typeName, std::span<const ScriptRecordEntry> record,
                               const wchar_t* function, ULONG line);

    /// Reads the attributes. E_POINTER without an object; else the first status that is not S_OK: of the
    /// read, or of an attribute, after which none is loaded. What was loaded before stays.
    HRESULT LoadRecord();

    /// Writes the attributes. Failures are ignored, on purpose.
    void SaveRecord();

    /// Whether the user may change the object. Only S_OK means yes; no rights interface means no.
    bool MayChange() const;

    /// Shows a warning; the dialog stays. Title and text are not translated, on purpose.
    static void Warn(const wchar_t* title, const wchar_t* text);

    // Entries of the record.

    HRESULT LoadScript(const VARIANT& value);
    Variant ScriptValue() const;
    HRESULT LoadPlanTypeMark(const VARIANT& value);
    HRESULT LoadConfigType(const VARIANT& value);
    Variant ConfigTypeValue() const;
    HRESULT LoadPlanType(const VARIANT& value);
    Variant PlanTypeValue() const;

    // The lists. A failure leaves a list shorter or empty.

    /// Returns S_FALSE without a plan type set; the status of GetChildren if it failed or gave no list; else
    /// S_OK.
    HRESULT LoadPlanTypes();

    /// The configured types that are no plan types. Returns E_POINTER without a factory; else the status of
    /// the last step, whatever failed before it: S_OK if the last type could be read.
    HRESULT LoadConfigTypes();

    /// The scripts of the project and those of no project. Returns E_POINTER without a query; else the status
    /// of the last step.
    HRESULT LoadScripts();

    // What a drop-down shows.

    const ByName<IQP_BaseDataObject>& ReadPlanTypes();
    const ByName<IQPType>& ReadConfigTypes();
    const ByName<IQP_BaseDataObject>& ReadScripts();

    /// Takes over what the user chose in `box`: the object of that name in `list`; what `object` was, if the
    /// text is of no entry (a stored object whose list was never opened); null for an empty text.
    static void TakeChoice(const OnDemandComboBox& box, const ByName<IQP_BaseDataObject>& list,
                           ComPtr<IQP_BaseDataObject>& object);

    ComPtr<IQPConfigFactory> m_ptrFactory;
    ComPtr<IQP_Query> m_ptrQuery;
    ComPtr<IQP_BaseDataObject> m_ptrProject;
    ComPtr<IQP_BaseDataObject> m_ptrPlanTypeSet;
    ComPtr<IQP_BaseDataObject> m_ptrObject;

    ComPtr<IQP_BaseDataObject> m_ptrScript;
    ComPtr<IQP_BaseDataObject> m_ptrPlanType;

    OnDemandComboBox m_scriptBox;
    OnDemandComboBox m_planTypeBox;
    OnDemandComboBox m_configTypeBox;

    ByName<IQP_BaseDataObject> m_scripts;
    ByName<IQP_BaseDataObject> m_planTypes;
    ByName<IQPType> m_configTypes;

private:
    /// Queries the object that `value` refers to and reads its name. Returns S_OK, with nothing changed, if
    /// the value is no reference; E_NOINTERFACE for a null reference and for an object that is no data
    /// object; the status of a failed read. `name` stays empty if it is not text.
    static HRESULT LoadObject(const VARIANT& value, ComPtr<IQP_BaseDataObject>& object, Variant& name);

    std::span<const ScriptRecordEntry> m_record;
    bool m_hasPlanType = false; ///< the record is bound to a plan type, not to a configured type
};

/// The text of a value of the host; empty if it has none.
std::wstring TextOrEmpty(const VARIANT& value);
} // namespace qptools
