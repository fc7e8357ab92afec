// Dates: the texts that the host accepts, and how it stores them.
#include "HostDate.h"
#include "PlantFixture.h"

#include <limits>

namespace
{
using refhost::StoredDate;

std::string Stored(const std::string& text)
{
    return StoredDate(text).value_or("<none>");
}

class HostDate : public EmptyPlant
{
protected:
    const ComPtr<IQP_BaseDataObject> node = plant->Add(L"plannode", L"N");

    HRESULT Write(const Value& value) const { return node->SetAttribute(Text(L"startdate"), value); }
};

TEST_F(HostDate, is_read_by_its_separators)
{
    EXPECT_EQ(Stored("2026-03-01"), "2026-03-01");
    EXPECT_EQ(Stored("01.03.2026"), "2026-03-01");
    EXPECT_EQ(Stored("1.3.2026"), "2026-03-01");
    EXPECT_EQ(Stored("3/1/2026"), "2026-03-01");
    EXPECT_EQ(Stored("12/31/2026"), "2026-12-31");
    EXPECT_EQ(Stored("  29.02.2028 "), "2028-02-29");
}

TEST_F(HostDate, may_have_a_time)
{
    EXPECT_EQ(Stored("01.03.2026 08:30"), "2026-03-01 08:30:00");
    EXPECT_EQ(Stored("2026-03-01  23:59:58"), "2026-03-01 23:59:58");
    EXPECT_EQ(Stored("3/1/2026 8:05 PM"), "2026-03-01 20:05:00");
    EXPECT_EQ(Stored("3/1/2026 12:00:00 AM"), "2026-03-01 00:00:00");
    EXPECT_EQ(Stored("3/1/2026 12:00 PM"), "2026-03-01 12:00:00");
}

TEST_F(HostDate, is_nothing_else)
{
    for (const char* text : {"",
                             " ",
                             "X",
                             "5",
                             "2026",
                             "2026-03",
                             "31.02.2026",
                             "29.02.2026",
                             "13/1/2026",
                             "1.3.26",
                             "2026-03-01-04",
                             "2026.03-01",
                             "a1.3.2026",
                             "1.3.2026x",
                             "-1.3.2026",
                             "1..2026",
                             "00.03.2026",
                             "01.00.2026",
                             "2026-03-01 8",
                             "2026-03-01 24:00",
                             "2026-03-01 8:60",
                             "2026-03-01 8:00:60",
                             "2026-03-01 13:00 PM",
                             "2026-03-01 0:00 AM",
                             "2026-03-01 PM",
                             "2026-03-01 8:00 8:00",
                             "99999999999-1-1",
                             "1/2/3/2026"})
        EXPECT_EQ(Stored(text), "<none>") << text;
}

TEST_F(HostDate, is_read_from_days)
{
    EXPECT_EQ(StoredDate(0.0), "1899-12-30");
    EXPECT_EQ(StoredDate(46082.0), "2026-03-01");
    EXPECT_EQ(StoredDate(46082.5), "2026-03-01 12:00:00");
    EXPECT_EQ(StoredDate(-1.25), "1899-12-29 06:00:00") << "the time counts forward in any year";
    EXPECT_EQ(StoredDate(46081.9999999), "2026-03-01") << "to the nearest second";
    EXPECT_EQ(StoredDate(2958465.0), "9999-12-31");
    EXPECT_FALSE(StoredDate(2958466.0));
    EXPECT_FALSE(StoredDate(-657435.0));
    EXPECT_FALSE(StoredDate(std::numeric_limits<double>::quiet_NaN()));
}

TEST_F(HostDate, of_an_object_is_read_as_text)
{
    EXPECT_EQ(Write(Value(L"3/1/2026")), S_OK);
    EXPECT_EQ(ReadText(node.get(), L"m_startDate"), L"2026-03-01");
    Value days;
    days->vt = VT_DATE;
    days->date = 46083.25;
    EXPECT_EQ(Write(days), S_OK);
    EXPECT_EQ(ReadText(node.get(), L"startdate"), L"2026-03-02 06:00:00");
}

TEST_F(HostDate, that_is_none_is_refused)
{
    EXPECT_EQ(Write(Value(L"1.3.2026")), S_OK);
    EXPECT_EQ(Write(Value(L"X")), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Write(Value(L"")), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Write(Value(5)), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(ReadText(node.get(), L"startdate"), L"2026-03-01");
    EXPECT_EQ(Write(Value()), S_OK);
    EXPECT_EQ(ReadText(node.get(), L"startdate"), L"<none>") << "an empty value takes it away";
}
} // namespace
