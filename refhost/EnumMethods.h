// The names under which the gate counts the methods of the host's enumerators.
#pragma once

#include "qpconfig.h"
#include "qpobjects.h"

namespace refhost
{
struct EnumMethods
{
    const char* remNext;
    const char* skip;
    const char* reset;
    const char* clone;
    const char* getSingleNext;
};

/// The names of one enumerator interface. The gate keeps the addresses, so they are literals.
template <class Enum>
inline constexpr EnumMethods kEnumMethods = {};

template <>
inline constexpr EnumMethods kEnumMethods<IEnumBaseDataObject> = {
    "IEnumBaseDataObject::RemNext", "IEnumBaseDataObject::Skip", "IEnumBaseDataObject::Reset",
    "IEnumBaseDataObject::Clone", "IEnumBaseDataObject::GetSingleNext"};

template <>
inline constexpr EnumMethods kEnumMethods<IEnumQPFObject> = {
    "IEnumQPFObject::RemNext", "IEnumQPFObject::Skip", "IEnumQPFObject::Reset", "IEnumQPFObject::Clone",
    "IEnumQPFObject::GetSingleNext"};

template <>
inline constexpr EnumMethods kEnumMethods<IQPTypeEnum> = {"IQPTypeEnum::RemNext", "IQPTypeEnum::Skip",
                                                          "IQPTypeEnum::Reset", "IQPTypeEnum::Clone",
                                                          "IQPTypeEnum::GetSingleNext"};

template <>
inline constexpr EnumMethods kEnumMethods<IQPPageEnum> = {"IQPPageEnum::RemNext", "IQPPageEnum::Skip",
                                                          "IQPPageEnum::Reset", "IQPPageEnum::Clone",
                                                          "IQPPageEnum::GetSingleNext"};

template <>
inline constexpr EnumMethods kEnumMethods<IQPGroupEnum> = {"IQPGroupEnum::RemNext", "IQPGroupEnum::Skip",
                                                           "IQPGroupEnum::Reset", "IQPGroupEnum::Clone",
                                                           "IQPGroupEnum::GetSingleNext"};

template <>
inline constexpr EnumMethods kEnumMethods<IQPAttributeEnum> = {
    "IQPAttributeEnum::RemNext", "IQPAttributeEnum::Skip", "IQPAttributeEnum::Reset",
    "IQPAttributeEnum::Clone", "IQPAttributeEnum::GetSingleNext"};

template <>
inline constexpr EnumMethods kEnumMethods<IQPAttributeTypeEnum> = {
    "IQPAttributeTypeEnum::RemNext", "IQPAttributeTypeEnum::Skip", "IQPAttributeTypeEnum::Reset",
    "IQPAttributeTypeEnum::Clone", "IQPAttributeTypeEnum::GetSingleNext"};
} // namespace refhost
