// Several attributes of a data object, read or written by one host call.
#pragma once

#include "Variant.h"

#include "qpobjects.h"

#include <map>
#include <span>
#include <string>

namespace qptools
{
/// The status of WriteAttributePairs if the host refused some of the attributes.
inline constexpr HRESULT kAttributesRefused = static_cast<HRESULT>(0x8004082A);

/// Attribute values by name. Names are compared by VarCmp in the user's locale.
class AttributeMap
{
public:
    /// Adds or replaces the value of `name`. Both are copies of the host's, with VT_BYREF resolved. Does
    /// nothing if the name has a type that cannot be compared, such as VT_NULL or an object.
    void Store(Variant name, Variant value);

    /// Null if there is no such name; else valid until the map is changed.
    const VARIANT* Find(BSTR name) const;

    std::size_t Size() const noexcept { return m_values.size(); }

private:
    struct Order
    {
        using is_transparent = void;
        bool operator()(const Variant& left, const Variant& right) const noexcept
        {
            return Less(left.get(), right.get());
        }
        bool operator()(const Variant& left, const VARIANT& right) const noexcept
        {
            return Less(left.get(), right);
        }
        bool operator()(const VARIANT& left, const Variant& right) const noexcept
        {
            return Less(left, right.get());
        }
        static bool Less(const VARIANT& left, const VARIANT& right) noexcept;
    };

    std::map<Variant, Variant, Order> m_values;
};

/// Reads the attributes `names`, which are borrowed, of `object`, which must not be null, into `map`: one by
/// GetAttribute, several by one GetAttributes, none without a call.
///
/// One: an attribute without a value (S_FALSE and VT_EMPTY) is the empty text, with S_OK. The value is stored
/// whatever the status, which is returned.
///
/// Several: returns the status of GetAttributes. 0x8004035E and 0x80040344 are the host's way to say that it
/// delivered only a part: the map is filled all the same. With any other status but S_OK, the map is
/// unchanged. If the answer cannot be read, the status of the failure, and the rows before it are kept:
/// DISP_E_TYPEMISMATCH if it is not a two-dimensional array of variants, and then nothing is read of it.
/// E_FAIL if the array of names cannot be created; the status of SafeArrayPutElement if a name cannot be put.
/// Throws ComException(E_OUTOFMEMORY).
HRESULT ReadAttributeMap(IQP_BaseDataObject* object, std::span<const BSTR> names, AttributeMap& map);

/// An attribute to be written.
struct AttributePair
{
    BSTR name; ///< borrowed
    Variant value;
};

/// Writes `pairs` to `object`, which must not be null, in their order: by SetAttributes if `languageId` is 0,
/// else by SetAttributesMultiLingual. No pairs: S_OK without a call.
///
/// With `allowSingle`, one pair alone is written by a call of its own. On purpose the languages are reversed
/// there: SetAttributeMultiLingual with language 0 if `languageId` is 0, else SetAttribute.
///
/// Returns S_OK if all were written; kAttributesRefused if the host refused some; the status of the call if
/// it failed, or of reading its answer; E_FAIL if the array cannot be created. `errorText`, which may be
/// null, gets the names of the refused attributes, each after a line feed; the single form's name without
/// one.
HRESULT WriteAttributePairs(IQP_BaseDataObject* object, std::span<const AttributePair> pairs,
                            std::wstring* errorText, bool allowSingle, LONG languageId);
} // namespace qptools
