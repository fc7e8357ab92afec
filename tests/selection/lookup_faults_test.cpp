// Every host call that a look-up makes fails once, in each way a call can: what is returned and reported
// then, and that nothing of the host is kept.
#include "ChooserPlant.h"
#include "FaultWays.h"

#include <functional>
#include <utility>

using refhost::Fault;
using refhost::Plant;

namespace
{
class LookupFaults : public ChooserPlant, public ::testing::WithParamInterface<Way>
{
protected:
    static bool Has(const std::string& line, const char* part)
    {
        return line.find(part) != std::string::npos;
    }
};

TEST_P(LookupFaults, EveryCallForProjectAndPlanType)
{
    const std::pair<const wchar_t*, const wchar_t*> objects[] = {{L"project", L"Body Plant North"},
                                                                 {L"orvoitem", L"Side panel left"},
                                                                 {L"orvowsc", L"Robot cell 4"},
                                                                 {L"relationship", L"Panels to roof"},
                                                                 {L"scriptaction", L"Weld: times"}};
    int failed = 0;
    for (const auto& [table, name] : objects)
    {
        const auto object = Find(table, name);
        for (long long n = 1;; ++n)
        {
            plant->Calls().FailCall(n, GetParam().fault, GetParam().status);
            const long before = Plant::LiveObjects();
            ComPtr<IQP_BaseDataObject> project;
            ComPtr<IQP_BaseDataObject> planType;
            const HRESULT status = Recorded(
                [&] { return item->GetProjectAndPlanType(object.get(), project.put(), planType.put()); });
            const bool struck = plant->Calls().Struck();
            plant->Calls().FailCall(0, Fault::None);
            EXPECT_TRUE(status == S_OK || (!project || !planType)) << "nothing is written after a failure";
            project.reset();
            planType.reset();
            EXPECT_EQ(Plant::LiveObjects(), before);
            if (!struck)
                break;
            ++failed;
            const bool isRead = Has(record[static_cast<std::size_t>(n) - 1], "GetAttribute");
            if (isRead && GetParam().SaysSo())
            {
                EXPECT_EQ(status, GetParam().status) << record[static_cast<std::size_t>(n) - 1];
            }
        }
    }
    EXPECT_GT(failed, 25);
}

TEST_P(LookupFaults, EveryCallForTableAndBase)
{
    const auto gun = Find(L"subcompitem", L"Spot gun, station 20");
    const auto panel = Find(L"orvoitem", L"Side panel left");
    const auto tables = [&](BSTR* table, IQP_BaseDataObject** planType) {
        return item->GetTypeNameAndPlanType(panel.get(), table, planType);
    };
    const auto base = [&](BSTR*, IQP_BaseDataObject** found) {
        return item->GetOrvoCompBase(gun.get(), XQPComBSTR(L"subcompitem"), found);
    };
    const std::function<HRESULT(BSTR*, IQP_BaseDataObject**)> lookups[] = {tables, base};
    int failed = 0;
    for (const auto& lookup : lookups)
        for (long long n = 1;; ++n)
        {
            plant->Calls().FailCall(n, GetParam().fault, GetParam().status);
            const std::size_t reported = logBook.Entries().size();
            const long before = Plant::LiveObjects();
            XQPComBSTR table;
            ComPtr<IQP_BaseDataObject> found;
            const HRESULT status = Recorded([&] { return lookup(table.put(), found.put()); });
            const bool struck = plant->Calls().Struck();
            plant->Calls().FailCall(0, Fault::None);
            const bool wasFound = static_cast<bool>(found);
            found.reset();
            EXPECT_EQ(Plant::LiveObjects(), before);
            if (!struck)
                break;
            ++failed;
            const std::string& line = record[static_cast<std::size_t>(n) - 1];
            const bool isTable = Has(line, "GetTableName");
            EXPECT_FALSE(isTable && table.Length() > 0) << line;
            EXPECT_TRUE(isTable || !wasFound) << line;
            // The text of any call that does not fail is the table's name, even an empty one.
            EXPECT_EQ(status, isTable && !GetParam().Fails() ? S_OK : GetParam().status) << line;
            const bool isBase = Has(line, "orvocompbase");
            EXPECT_EQ(logBook.Entries().size() - reported, GetParam().Fails() || isBase ? 1u : 0u) << line;
        }
    EXPECT_EQ(failed, 3);
}

INSTANTIATE_TEST_SUITE_P(Ways, LookupFaults, ::testing::ValuesIn(kWays), NameOfWay);
} // namespace
