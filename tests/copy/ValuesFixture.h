// Values that a user types into the grid of the enhanced copy dialog, and the copies that get them.
#pragma once

#include "CopyFixture.h"

/// The rows of a station are, from the top: Due, a date, Mass and Order.
class ValuesFixture : public CopyFixture
{
protected:
    static constexpr int kMass = 1;
    static constexpr int kOrder = 2;

    /// Types a value into a row that is not the focused one, and Return.
    static Steps Sets(int row, const std::wstring& text)
    {
        return OpensEditor(row) + Steps{TypesInEditor(text), Types("Return"), Sees(NoEditor())};
    }

    /// The same for the row that was edited last.
    static Steps SetsAgain(int row, const std::wstring& text)
    {
        return Steps{ClicksCell(row, 1), TypesInEditor(text), Types("Return"), Sees(NoEditor())};
    }

    /// Opens the advanced form with the attributes of a plan type. The record of calls begins after it.
    Steps ShowsGrid(const std::wstring& planType)
    {
        return {Presses(copy_dialog::kAdvanced), Chooses(copy_dialog::kPlanType, planType), Forgets()};
    }

    /// Clears the record of calls.
    DialogStep Forgets()
    {
        return [this](DialogView&) {
            host.calls.clear();
        };
    }

    /// Opens the dialog for these objects, shows the attributes of a plan type, does the steps and ends with
    /// OK. The option is Normal if no step changes it.
    void Enter(const MemoryObjects& objects, const std::wstring& planType, const Steps& steps)
    {
        Initialize(objects);
        EXPECT_EQ(Show(ShowsGrid(planType) + steps + Steps{Presses(copy_dialog::kAdvancedOk)}), S_OK);
    }

    /// Does the steps with the attributes of the stations, for a Normal copy of the press.
    void EnterForStations(const Steps& steps) { Enter({press}, L"Station", steps); }

    /// The array that the press got by a Normal copy; empty if it got none.
    std::string AppliedToPress()
    {
        press->written.clear();
        Apply({press});
        return press->written;
    }
};
