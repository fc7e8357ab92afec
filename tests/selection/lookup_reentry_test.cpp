// The look-ups when the host releases the component inside a host call.
#include "LookupFixture.h"

#include "ComModule.h"

namespace
{
class LookupReentry : public LookupFixture
{
protected:
    /// Releases the last reference at every host call; the component must stay alive.
    void GiveUpInside()
    {
        const LONG before = ComModule::Get().LockCount();
        host.onCall = [this, before](const std::string&) {
            item.reset();
            EXPECT_EQ(ComModule::Get().LockCount(), before) << "destroyed inside its own call";
        };
    }

    const ComPtr<MemoryObject> object = host.Object("object");
    const LONG withoutItem = ComModule::Get().LockCount() - 1;
};

TEST_F(LookupReentry, TheComponentOutlivesALookUp)
{
    const auto project = host.Object("project");
    object->Is(L"XDOOrvoItem")->Set(L"orvoproject", project);
    GiveUpInside();
    EXPECT_EQ(ProjectOf(object), (Answer{S_OK, "project"}));
    EXPECT_EQ(ComModule::Get().LockCount(), withoutItem);
}

TEST_F(LookupReentry, TheComponentOutlivesTwoLookUps)
{
    object->Table(L"item")->Set(L"orvoplantype", host.Object("plantype"));
    GiveUpInside();
    BSTR name = nullptr;
    const Answer answer =
        Ask([&](Data** result) { return item->GetTypeNameAndPlanType(object.get(), &name, result); });
    EXPECT_EQ(TakeOver(name), "item");
    EXPECT_EQ(answer.status, S_OK);
    EXPECT_EQ(ComModule::Get().LockCount(), withoutItem);
}

TEST_F(LookupReentry, TheComponentOutlivesItsInitialisation)
{
    host.recordingQueries = true;
    GiveUpInside();
    VARIANT query = Reference(VT_UNKNOWN, &host.Query());
    EXPECT_EQ(item->Initialize(&query), S_OK);
    EXPECT_EQ(ComModule::Get().LockCount(), withoutItem);
    EXPECT_EQ(host.Query().References(), 0u) << "the query went with the component";
}
} // namespace
