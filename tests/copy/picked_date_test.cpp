// Dates that are picked in the session of a German and of an English user. The program is built for each.
#include "GridFixture.h"
#include "SessionDates.h"

namespace
{
using namespace copy_dialog;
using namespace grid;

constexpr bool kGerman = std::string_view(QP_SESSION) == "de";

/// Before anything is translated in this program.
const bool kInSession = SetEnvironmentVariableW(L"QPTOOLS_LANG", kGerman ? L"de" : L"en") != 0;

class PickedDate : public GridFixture
{
protected:
    PickedDate() { EXPECT_TRUE(kInSession); }

    /// The picker shows its date as the session does; that text is remembered.
    DialogStep SeesTheDate()
    {
        return [this](DialogView& view) {
            const HWND picker = GridEditor(view);
            SYSTEMTIME date{};
            EXPECT_EQ(SendMessageW(picker, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&date)), GDT_VALID);
            shown = view.Text(picker);
            EXPECT_EQ(shown, session.Text(date));
        };
    }

    /// The cell shows the text that the picker showed.
    DialogStep SeesItInTheCell()
    {
        return [this](DialogView& view) {
            EXPECT_EQ(view.Cell(kGrid, kDue, 1), shown);
        };
    }

    std::string Expected() const { return "Due = BSTR '" + Utf8Of(XQPComBSTR(shown.c_str())) + "'"; }

    const SessionDates session{kGerman};
    std::wstring shown;
};

TEST_F(PickedDate, ReachesTheCopiesAsThePickerShowsIt)
{
    InGrid(OpensEditor(kDue) + Steps{ClicksEditor(), Types("Up Right Up Right Up"), SeesTheDate(),
                                     Types("Return"), Sees(NoEditor()), SeesItInTheCell()});
    EXPECT_EQ(Applied(), Expected());
}

TEST_F(PickedDate, OfAnAttributeWithATimeIsADateAlone)
{
    constexpr int dateAndTime = 16;
    constexpr int typeCode = 3;
    Station().attributes.objects[2]->Set(typeCode, dateAndTime);
    InGrid(OpensEditor(kDue) + Steps{ClicksEditor(), Types("Down"), SeesTheDate(), Types("Tab"),
                                     Sees(NoEditor()), SeesItInTheCell()});
    EXPECT_EQ(Applied(), Expected());
}

TEST_F(PickedDate, IsTodayIfNothingIsChanged)
{
    SYSTEMTIME before{};
    SYSTEMTIME after{};
    GetLocalTime(&before);
    InGrid(OpensEditor(kDue) +
           Steps{ClicksEditor(), SeesTheDate(), Types("Return"), Sees(NoEditor()), SeesItInTheCell()});
    GetLocalTime(&after);
    EXPECT_TRUE(shown == session.Text(before) || shown == session.Text(after));
    EXPECT_EQ(Applied(), Expected());
}
} // namespace
