// Objects removed with everything below them.
#include "PlantFixture.h"

#include "PlantCore.h"

namespace
{
using refhost::CopyOption;
using Objects = std::vector<ComPtr<IQP_BaseDataObject>>;

class Removal : public SamplePlant
{
protected:
    ComPtr<IQP_BaseDataObject> Node(const wchar_t* name) const { return Find(L"plannode", name); }
    bool Exists(const wchar_t* name) const { return static_cast<bool>(plant->Find(L"plannode", name)); }

    long long Rows() const
    {
        long long rows = 0;
        for (const char* table : {"object", "plannode", "planrelation", "objectright", "attributelimit"})
        {
            refhost::Statement statement(plant->Shared()->database,
                                         std::string(R"(SELECT count(*) FROM ")") + table + '"');
            statement.Step();
            rows += statement.Integer(0);
        }
        return rows;
    }
};

TEST_F(Removal, TakesBackADeepCopy)
{
    plant->SetLimit(L"plannode", L"Hinge cell", L"cost", refhost::Limit::Locked);
    const long long before = Rows();
    const ComPtr<IEnumBaseDataObject> copies = plant->Copy({Node(L"Door line")}, CopyOption::Deep);
    ComPtr<IQP_BaseDataObject> copy;
    ASSERT_EQ(copies->GetSingleNext(copy.put()), S_OK);
    EXPECT_GT(Rows(), before);
    plant->Remove({copy});
    EXPECT_EQ(Rows(), before);
    EXPECT_TRUE(Exists(L"Hinge robot"));
    EXPECT_FALSE(Exists(L"Copy of Hinge robot"));
    Value name;
    EXPECT_LT(Read(copy.get(), L"name", name), 0);
}

TEST_F(Removal, FreesTheNames)
{
    const auto gauge = Node(L"Gauge store");
    for (int i = 0; i < 2; ++i)
    {
        plant->Copy({gauge}, CopyOption::Flat);
        EXPECT_FALSE(Exists(L"Copy of Gauge store (2)"));
        plant->Remove({Node(L"Copy of Gauge store")});
    }
}

TEST_F(Removal, OfWhatAnotherObjectRefersToIsRefused)
{
    const long long before = Rows();
    const Objects objects = {Node(L"Load hinges"), Node(L"Torque gauge")};
    EXPECT_THROW(plant->Remove(objects), refhost::PlantError);
    EXPECT_EQ(Rows(), before);
    // A later one is not hindered.
    plant->Remove({Node(L"Load hinges")});
    EXPECT_FALSE(Exists(L"Load hinges"));
}

TEST_F(Removal, OfAParentAndItsChildInOneListTakesBothOnce)
{
    plant->Remove({Node(L"Hinge station right"), Node(L"Hinge cell"), Node(L"Hinge cell")});
    EXPECT_FALSE(Exists(L"Hinge cell"));
    EXPECT_FALSE(Exists(L"Hinge station left"));
    EXPECT_TRUE(Exists(L"Sealing cell"));
}

TEST_F(Removal, OfARingEnds)
{
    const auto one = plant->Add(L"plannode", L"one");
    const auto two = plant->Add(L"plannode", L"two");
    EXPECT_EQ(one->SetAttribute(Text(L"parent"), Value(two)), S_OK);
    EXPECT_EQ(two->SetAttribute(Text(L"parent"), Value(one)), S_OK);
    plant->Remove({one});
    EXPECT_FALSE(Exists(L"two"));
}

TEST_F(Removal, OfAnotherPlantsObjectsIsRefused)
{
    const auto other = refhost::Plant::OpenMemory();
    const long long before = Rows();
    EXPECT_THROW(plant->Remove({Node(L"Load hinges"), other->Add(L"script", L"S")}), refhost::PlantError);
    EXPECT_THROW(plant->Remove({Node(L"Load hinges"), {}}), refhost::PlantError);
    EXPECT_EQ(Rows(), before);
}

TEST_F(Removal, OfNothingIsPossible)
{
    const long long before = Rows();
    plant->Remove({});
    EXPECT_EQ(Rows(), before);
}
} // namespace
