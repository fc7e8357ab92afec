// A host with a tree of very many objects.
#include "TreeHost.h"

#include "ArrayText.h"

#include <gtest/gtest.h>

#include <array>

namespace
{
ComPtr<IQP_BaseDataObject> Next(IEnumBaseDataObject* list)
{
    ComPtr<IQP_BaseDataObject> object;
    ULONG fetched = 0;
    const HRESULT status = list->RemNext(1, object.put(), &fetched);
    EXPECT_EQ(status, object ? S_OK : S_FALSE);
    EXPECT_EQ(fetched, object ? 1U : 0U);
    return object;
}

/// The number of objects below and with the first one of a list, by its first child, its first child's ...
std::size_t LengthOf(ComPtr<IEnumBaseDataObject> list)
{
    std::size_t length = 0;
    while (const ComPtr<IQP_BaseDataObject> object = Next(list.get()))
    {
        ++length;
        EXPECT_EQ(object->GetChildren(XQPComBSTR(L"nodes"), list.put()), S_OK);
    }
    return length;
}

std::size_t CountOf(const ComPtr<IEnumBaseDataObject>& list)
{
    std::size_t count = 0;
    ComPtr<IQP_BaseDataObject> object;
    while (list->GetSingleNext(object.put()) == S_OK)
        ++count;
    return count;
}

TEST(TreeHost, has_lines_of_the_depth_wanted)
{
    TreeHost host({.objects = 100'000, .depth = 10});
    EXPECT_EQ(CountOf(host.Tops()), 10'000U);
    EXPECT_EQ(CountOf(host.All()), 100'000U);
    EXPECT_EQ(LengthOf(host.Tops()), 10U);
    EXPECT_EQ(host.References(), 0);
}

TEST(TreeHost, may_be_one_line)
{
    TreeHost host({.objects = 100'000, .depth = 100'000});
    EXPECT_EQ(CountOf(host.Tops()), 1U);
    EXPECT_EQ(LengthOf(host.Tops()), 100'000U);
    EXPECT_EQ(host.calls.getChildren, 100'000);
    EXPECT_EQ(host.calls.remNext, 100'001);
    EXPECT_EQ(host.calls.OnObjects(), 100'000);
    EXPECT_EQ(host.calls.unexpected, 0);
}

TEST(TreeHost, may_be_one_tree)
{
    TreeHost host({.objects = 100'000, .fanOut = 3});
    EXPECT_EQ(CountOf(host.Tops()), 1U);
    EXPECT_EQ(LengthOf(host.Tops()), 12U);
    std::size_t below = 0;
    for (std::size_t index = 0; index < 100'000; ++index)
    {
        ComPtr<IEnumBaseDataObject> list;
        EXPECT_EQ(host.At(index)->GetChildren(XQPComBSTR(L"nodes"), list.put()), S_OK);
        below += CountOf(list);
    }
    EXPECT_EQ(below, 99'999U);
}

TEST(TreeHost, gives_one_type_to_all_objects_of_it)
{
    TreeHost host({.objects = 6, .types = 3, .attributes = 20});
    for (const std::size_t index : {1U, 4U})
    {
        XQPComVariant config;
        EXPECT_EQ(host.At(index)->GetAttribute(XQPComBSTR(L"configtypename"), &config), S_OK);
        ComPtr<IQPType> type;
        EXPECT_EQ(host.At(index)->GetType(nullptr, config.Value().bstrVal, type.put()), S_OK);
        EXPECT_EQ(type.get(), host.Type(1));
        XQPComVariant caption;
        EXPECT_EQ(type->Get(XQPComBSTR(L"captionsingular"), &caption), S_OK);
        EXPECT_STREQ(caption.Value().bstrVal, L"Type 2");
    }
    EXPECT_EQ(host.calls, (TreeCalls{.getAttribute = 2, .getType = 2, .getCaption = 2}));
    ComPtr<IQPAttributeEnum> attributes;
    EXPECT_EQ(host.Type(0)->GetDisplayAttributeEnum(4, attributes.put()), S_OK);
    std::size_t count = 0;
    for (ComPtr<IQPAttribute> attribute; attributes->GetSingleNext(attribute.put()) == S_OK;)
        ++count;
    EXPECT_EQ(count, 20U);
}

TEST(TreeHost, has_relationships_to_the_object_before)
{
    TreeHost host({.objects = 4, .relationshipEvery = 2});
    EXPECT_EQ(host.At(0)->IsDerivedFromClass(XQPComBSTR(L"XDORelationship")), S_FALSE);
    EXPECT_EQ(host.At(3)->IsDerivedFromClass(XQPComBSTR(L"XDORelationship")), S_OK);
    XQPComVariant target;
    EXPECT_EQ(host.At(3)->GetAttribute(XQPComBSTR(L"relationobjecttarget"), &target), S_OK);
    EXPECT_EQ(target.Value().punkVal, host.At(2));
    EXPECT_EQ(host.References(), 1);
}

TEST(TreeHost, an_object_may_be_its_own_descendant)
{
    TreeHost host({.objects = 3, .depth = 3});
    host.Link(2, 0);
    ComPtr<IEnumBaseDataObject> list;
    EXPECT_EQ(host.At(2)->GetChildren(XQPComBSTR(L"nodes"), list.put()), S_OK);
    EXPECT_EQ(Next(list.get()).get(), host.At(0));
}

TEST(TreeHost, counts_and_keeps_what_is_written)
{
    TreeHost host({.objects = 1});
    host.keepsWritten = true;
    host.givesResults = true;
    std::array<SAFEARRAYBOUND, 2> bounds{{{1, 0}, {2, 0}}};
    SAFEARRAY* pairs = SafeArrayCreate(VT_VARIANT, 2, bounds.data());
    SAFEARRAY* results = nullptr;
    EXPECT_EQ(host.At(0)->SetAttributes(&pairs, &results), S_OK);
    EXPECT_EQ(host.written, "VARIANT 0..0, 0..1: EMPTY = EMPTY");
    EXPECT_EQ(host.calls, (TreeCalls{.setAttributes = 1}));
    ASSERT_TRUE(results);
    SafeArrayDestroy(results);
    SafeArrayDestroy(pairs);
}
} // namespace
