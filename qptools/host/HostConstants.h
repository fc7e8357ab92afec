// Names and numbers of the host's contract that several places use. Names are case-sensitive.
#pragma once

#include "FixedText.h"

#include <windows.h>

#include <objbase.h>

namespace qptools
{
// Classes created by the host's object manager, its gateway or the system.

/// IQPIPDClient, the gateway to server-side objects.
inline constexpr CLSID kClassIpdClient{
    0xD7C07373, 0x29C3, 0x43A4, {0x87, 0xCF, 0xF6, 0xD5, 0xE9, 0x47, 0xD6, 0xE6}};
/// IQPSessionDataManager, the key store; IQPHostSettings is the same class.
inline constexpr CLSID kClassSessionDataManager{
    0xEDB6CC40, 0x0DC9, 0x11D3, {0x89, 0xFF, 0x00, 0x40, 0x05, 0xA1, 0xD9, 0x1C}};
/// Server class of the query object, requested as IQP_Query.
inline constexpr CLSID kClassQuery{
    0xABF23E6F, 0x1714, 0x4A08, {0x85, 0xA3, 0x8E, 0x8A, 0x8D, 0xB5, 0x16, 0x6F}};

// Scopes of the key store. Their meaning is up to the host; a value written with kScopeUserWrite is read back
// with kScopeUserRead.

inline constexpr LONG kScopeUserRead = 0;
inline constexpr LONG kScopeSettings = 1;
inline constexpr LONG kScopeBookmarks = 2;
inline constexpr LONG kScopeDefaults = 3;
inline constexpr LONG kScopeUserWrite = 4;

/// The number argument of GetSubKeys, always this one.
inline constexpr LONG kSubKeysArgument = 1;

// Tables of IQP_Query.

inline constexpr FixedText kTableScript = L"script";
inline constexpr FixedText kTableScriptAction = L"scriptaction";
inline constexpr FixedText kTableScriptCommand = L"scriptcommand";
inline constexpr FixedText kTableVbaProject = L"vbaproject";

// Vocabulary of a search. SetSearchCatenation puts a catenation between two criteria; the last argument of
// SetSearchAttribute joins its criterion to the one before.

inline constexpr LONG kCatenationNone = 0;
inline constexpr LONG kCatenationAnd = 1;
inline constexpr LONG kCatenationOr = 2;
inline constexpr LONG kCatenationOpen = 4;
inline constexpr LONG kCatenationClose = 8;
inline constexpr LONG kCatenationCloseAnd = 9;

inline constexpr LONG kSearchEquals = 1;   ///< enumSearchOp
inline constexpr LONG kResetAll = 0;       ///< bOnlyWhereClause: reset everything, the table included
inline constexpr LONG kOrderAscending = 1; ///< bAscending
inline constexpr LONG kAutoCreate = 1;     ///< bAutoCreate: start the object if it is not running

// Attributes and child lists of data objects that more than one subsystem reads.

inline constexpr FixedText kAttributeName = L"name";
inline constexpr FixedText kAttributeConfigTypeName = L"configtypename";
inline constexpr FixedText kAttributePlanType =
    L"orvoplantype"; ///< also a project's child list of plan types
inline constexpr FixedText kAttributeCompBase = L"orvocompbase";
inline constexpr FixedText kAttributeScript = L"script";
inline constexpr FixedText kAttributeActionType = L"actiontype";
inline constexpr FixedText kAttributeBeforeAfter = L"beforeafter";
inline constexpr FixedText kAttributeDefaultImpl = L"dodefaultimpl";
inline constexpr FixedText kChildrenProjects = L"orvoproject";

// Type names and class names.

inline constexpr FixedText kTypeScriptAction = L"scriptaction";
inline constexpr FixedText kTypeScriptCommand = L"scriptcommand";
inline constexpr FixedText kTypeCompBase = L"orvocompbase";
inline constexpr FixedText kTypeDefaultImpl = L"dodefaultimpl";
inline constexpr FixedText kClassRelationship = L"XDORelationship";   ///< for IsDerivedFromClass
inline constexpr FixedText kClassScriptAction = L"XDOScriptAction";   ///< class name and type name
inline constexpr FixedText kClassScriptCommand = L"XDOScriptCommand"; ///< type name

// Keys of IQPConfigObject::Get.

inline constexpr FixedText kKeyCaptionSingular = L"captionsingular";
inline constexpr FixedText kKeyIsPlanType = L"isplantype";
inline constexpr FixedText kKeyTypeName = L"typename";
inline constexpr FixedText kKeyAttributeName = L"attributename";
inline constexpr FixedText kKeyName = L"name";   ///< of an attribute type
inline constexpr FixedText kKeyValue = L"value"; ///< of an attribute type

// Members of IQPConfigObject::GetProperty. The same number means different things on different objects.

/// Members of an IQPPage.
enum PageMember : int
{
    kPageName = 0,   ///< display name
    kPageListed = 5, ///< offered for placement if its value word is not zero
    kPageId = 6      ///< identifier, a number
};

/// Members of an IQPGroup.
enum GroupMember : int
{
    kGroupName = 0,  ///< display name
    kGroupId = 2,    ///< identifier, a number
    kGroupListed = 9 ///< offered for placement if its value word is not zero
};

/// Members of an IQPAttribute.
enum AttributeMember : int
{
    kAttributeMemberName = 0,         ///< name, which is also its identifier
    kAttributeMemberTypeCode = 3,     ///< code of the value's type
    kAttributeMemberEnhancedCopy = 54 ///< 4 if the attribute may be set by an enhanced copy
};

// Masks of IQPType::GetDisplayAttributeEnum.

inline constexpr LONG kDisplayEnhancedCopy = 4;
inline constexpr LONG kDisplayPlacement = 7;
} // namespace qptools
