// Records and enumerations that cross the host's interfaces: their layout and their numbers.
#include <gtest/gtest.h>

#include "HostConstants.h"
#include "qpservices.h"
#include "qptypes.h"

#include <windows.h>

#include <cstddef>
#include <type_traits>

TEST(HostRecords, InitValueIsANameThenAVariant)
{
    static_assert(std::is_same_v<BSTR, decltype(tagINITVALUE::bstrParamName)>);
    static_assert(std::is_same_v<VARIANT, decltype(tagINITVALUE::varValue)>);
    EXPECT_EQ(0u, offsetof(tagINITVALUE, bstrParamName));
    EXPECT_EQ(8u, offsetof(tagINITVALUE, varValue));
    EXPECT_EQ(24u, sizeof(VARIANT));
    EXPECT_EQ(32u, sizeof(tagINITVALUE));
}

TEST(HostRecords, AListPairIsTwoPointersNameThenValue)
{
    static_assert(std::is_same_v<BSTR, decltype(tagSTRINGPAIR::bstrName)>);
    static_assert(std::is_same_v<BSTR, decltype(tagSTRINGPAIR::bstrValue)>);
    EXPECT_EQ(0u, offsetof(tagSTRINGPAIR, bstrName));
    EXPECT_EQ(8u, offsetof(tagSTRINGPAIR, bstrValue));
    EXPECT_EQ(16u, sizeof(tagSTRINGPAIR));
}

TEST(HostRecords, RectIsFourSignedNumbersOf32Bits)
{
    static_assert(std::is_same_v<LONG, decltype(RECT::left)> && sizeof(LONG) == 4 && std::is_signed_v<LONG>);
    EXPECT_EQ(0u, offsetof(RECT, left));
    EXPECT_EQ(4u, offsetof(RECT, top));
    EXPECT_EQ(8u, offsetof(RECT, right));
    EXPECT_EQ(12u, offsetof(RECT, bottom));
    EXPECT_EQ(16u, sizeof(RECT));
}

TEST(HostEnumerations, DeleteOptions)
{
    EXPECT_EQ(0, QPDO_DELETE_NONE);
    EXPECT_EQ(1, QPDO_DELETE_FLAT);
    EXPECT_EQ(2, QPDO_DELETE_DEEP);
    EXPECT_EQ(4, QPDO_DELETE_ALL);
    EXPECT_EQ(8, QPDO_DELETE_NO_MCM_HANDLING);
}

TEST(HostEnumerations, Rights)
{
    EXPECT_EQ(0, QPRT_specified);
    EXPECT_EQ(1, QPRT_noaccess);
    EXPECT_EQ(2, QPRT_read);
    EXPECT_EQ(4, QPRT_execute);
    EXPECT_EQ(8, QPRT_change);
    EXPECT_EQ(16, QPRT_create);
    EXPECT_EQ(32, QPRT_erase);
    EXPECT_EQ(64, QPRT_take_ownership);
    EXPECT_EQ(128, QPRT_change_rights);
    EXPECT_EQ(256, QPRT_add_child);
    EXPECT_EQ(512, QPRT_remove_child);
    EXPECT_EQ(4u, sizeof(QPRightType));
}

TEST(HostEnumerations, SearchModes)
{
    EXPECT_EQ(0, SM_Normal);
    EXPECT_EQ(1, SM_CompareSubQueries);
}

TEST(HostConstants, ScopesOfTheKeyStore)
{
    EXPECT_EQ(0, qptools::kScopeUserRead);
    EXPECT_EQ(1, qptools::kScopeSettings);
    EXPECT_EQ(2, qptools::kScopeBookmarks);
    EXPECT_EQ(3, qptools::kScopeDefaults);
    EXPECT_EQ(4, qptools::kScopeUserWrite);
    EXPECT_EQ(1, qptools::kSubKeysArgument);
}

TEST(HostConstants, SearchVocabulary)
{
    EXPECT_EQ(0, qptools::kCatenationNone);
    EXPECT_EQ(1, qptools::kCatenationAnd);
    EXPECT_EQ(2, qptools::kCatenationOr);
    EXPECT_EQ(4, qptools::kCatenationOpen);
    EXPECT_EQ(8, qptools::kCatenationClose);
    EXPECT_EQ(9, qptools::kCatenationCloseAnd);
    EXPECT_EQ(1, qptools::kSearchEquals);
    EXPECT_EQ(0, qptools::kResetAll);
    EXPECT_EQ(1, qptools::kOrderAscending);
    EXPECT_EQ(1, qptools::kAutoCreate);
}

TEST(HostConstants, MembersOfConfigurationObjects)
{
    EXPECT_EQ(0, qptools::kPageName);
    EXPECT_EQ(5, qptools::kPageListed);
    EXPECT_EQ(6, qptools::kPageId);
    EXPECT_EQ(0, qptools::kGroupName);
    EXPECT_EQ(2, qptools::kGroupId);
    EXPECT_EQ(9, qptools::kGroupListed);
    EXPECT_EQ(0, qptools::kAttributeMemberName);
    EXPECT_EQ(3, qptools::kAttributeMemberTypeCode);
    EXPECT_EQ(54, qptools::kAttributeMemberEnhancedCopy);
    EXPECT_EQ(4, qptools::kDisplayEnhancedCopy);
    EXPECT_EQ(7, qptools::kDisplayPlacement);
}

TEST(HostConstants, NamesAreSpelledAsTheHostLooksThemUp)
{
    EXPECT_STREQ(L"script", qptools::kTableScript);
    EXPECT_STREQ(L"scriptaction", qptools::kTableScriptAction);
    EXPECT_STREQ(L"scriptcommand", qptools::kTableScriptCommand);
    EXPECT_STREQ(L"vbaproject", qptools::kTableVbaProject);
    EXPECT_STREQ(L"name", qptools::kAttributeName);
    EXPECT_STREQ(L"configtypename", qptools::kAttributeConfigTypeName);
    EXPECT_STREQ(L"orvoplantype", qptools::kAttributePlanType);
    EXPECT_STREQ(L"orvocompbase", qptools::kAttributeCompBase);
    EXPECT_STREQ(L"script", qptools::kAttributeScript);
    EXPECT_STREQ(L"actiontype", qptools::kAttributeActionType);
    EXPECT_STREQ(L"beforeafter", qptools::kAttributeBeforeAfter);
    EXPECT_STREQ(L"dodefaultimpl", qptools::kAttributeDefaultImpl);
    EXPECT_STREQ(L"orvoproject", qptools::kChildrenProjects);
    EXPECT_STREQ(L"scriptaction", qptools::kTypeScriptAction);
    EXPECT_STREQ(L"scriptcommand", qptools::kTypeScriptCommand);
    EXPECT_STREQ(L"orvocompbase", qptools::kTypeCompBase);
    EXPECT_STREQ(L"dodefaultimpl", qptools::kTypeDefaultImpl);
    EXPECT_STREQ(L"XDORelationship", qptools::kClassRelationship);
    EXPECT_STREQ(L"XDOScriptAction", qptools::kClassScriptAction);
    EXPECT_STREQ(L"captionsingular", qptools::kKeyCaptionSingular);
    EXPECT_STREQ(L"isplantype", qptools::kKeyIsPlanType);
    EXPECT_STREQ(L"typename", qptools::kKeyTypeName);
    EXPECT_STREQ(L"attributename", qptools::kKeyAttributeName);
    EXPECT_STREQ(L"name", qptools::kKeyName);
    EXPECT_STREQ(L"value", qptools::kKeyValue);
}
