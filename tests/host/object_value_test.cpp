// References to objects as values.
#include <gtest/gtest.h>

#include "ObjectValue.h"

#include <cstring>

using qptools::BorrowedObject;
using qptools::ObjectOf;

namespace
{
/// Counts the references that are taken; nothing else may be asked of it.
class Counted final : public IUnknown
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }

    ULONG references = 0;
};

/// A variant of `type` whose value is `object` and whose other bytes are set.
VARIANT Dirty(VARTYPE type, void* object)
{
    VARIANT value;
    std::memset(&value, 0xFF, sizeof value);
    value.vt = type;
    value.byref = object;
    return value;
}
} // namespace

TEST(ObjectValue, AReferenceIsItsObjectAndTakesNoReference)
{
    Counted object;
    EXPECT_EQ(ObjectOf(Dirty(VT_UNKNOWN, &object)), &object);
    EXPECT_EQ(ObjectOf(Dirty(VT_DISPATCH, &object)), &object);
    EXPECT_EQ(object.references, 0u);
}

TEST(ObjectValue, AReferenceByAddressIsFollowed)
{
    Counted object;
    IUnknown* pointer = &object;
    EXPECT_EQ(ObjectOf(Dirty(VT_BYREF | VT_UNKNOWN, &pointer)), &object);
    EXPECT_EQ(ObjectOf(Dirty(VT_BYREF | VT_DISPATCH, &pointer)), &object);
    VARIANT inner = Dirty(VT_UNKNOWN, &object);
    EXPECT_EQ(ObjectOf(Dirty(VT_BYREF | VT_VARIANT, &inner)), &object);
    inner = Dirty(VT_BYREF | VT_DISPATCH, &pointer);
    EXPECT_EQ(ObjectOf(Dirty(VT_BYREF | VT_VARIANT, &inner)), &object);
}

TEST(ObjectValue, AReferenceToNothingIsNoObject)
{
    IUnknown* pointer = nullptr;
    EXPECT_EQ(ObjectOf(Dirty(VT_UNKNOWN, nullptr)), nullptr);
    EXPECT_EQ(ObjectOf(Dirty(VT_DISPATCH, nullptr)), nullptr);
    EXPECT_EQ(ObjectOf(Dirty(VT_BYREF | VT_UNKNOWN, &pointer)), nullptr);
    EXPECT_EQ(ObjectOf(Dirty(VT_BYREF | VT_UNKNOWN, nullptr)), nullptr);
    EXPECT_EQ(ObjectOf(Dirty(VT_BYREF | VT_VARIANT, nullptr)), nullptr);
}

TEST(ObjectValue, NoOtherValueIsAnObject)
{
    Counted object;
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_BSTR, VT_I4, VT_I8, VT_UI8, VT_BOOL, VT_DATE, VT_RECORD})
        EXPECT_EQ(ObjectOf(Dirty(static_cast<VARTYPE>(type), &object)), nullptr) << type;
    EXPECT_EQ(ObjectOf(Dirty(VT_ARRAY | VT_UNKNOWN, &object)), nullptr);
    IUnknown* pointer = &object;
    EXPECT_EQ(ObjectOf(Dirty(VT_BYREF | VT_BSTR, &pointer)), nullptr);
}

/// A ring of references would never end; one step is all that the platform allows.
TEST(ObjectValue, AVariantThatRefersToItselfIsNoObject)
{
    VARIANT ring = Dirty(VT_BYREF | VT_VARIANT, nullptr);
    ring.pvarVal = &ring;
    EXPECT_EQ(ObjectOf(ring), nullptr);
}

TEST(ObjectValue, ABorrowedObjectIsAReferenceThatCountsNothing)
{
    Counted object;
    const VARIANT value = BorrowedObject(&object);
    EXPECT_EQ(value.vt, VT_UNKNOWN);
    EXPECT_EQ(value.punkVal, &object);
    EXPECT_EQ(object.references, 0u);
    EXPECT_EQ(BorrowedObject(nullptr).vt, VT_UNKNOWN);
    EXPECT_EQ(BorrowedObject(nullptr).punkVal, nullptr);
}
