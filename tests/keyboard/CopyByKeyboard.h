// The enhanced copy dialog over a press, used by a real keyboard and a real mouse. Its attributes are those
// of a station, from top to bottom: Due, a date, Mass and Order.
#pragma once

#include "CopyPlant.h"
#include "CopyWords.h"
#include "GridSteps.h"
#include "KeyboardUser.h"
#include "MemoryHost.h"
#include "ModuleUnderTest.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>

class CopyByKeyboard : public ::testing::Test
{
protected:
    CopyByKeyboard()
    {
        EXPECT_EQ(module.Create(CLSID_QPCopyOptDlg, copy), S_OK);
        AddCopyAttributes(host);
    }
    ~CopyByKeyboard() override { copy->DeleteObjects(); }

    /// Runs the steps in the dialog and returns the copy option.
    LONG Show(const Steps& steps)
    {
        user.Does(steps);
        EXPECT_EQ(copy->Initialize(host.List({press, cell}).get(), &host.Config()), S_OK);
        EXPECT_EQ(copy->ShowDialog(), S_OK);
        LONG option = 77;
        EXPECT_EQ(copy->GetButtonIDClicked(&option), S_OK);
        return option;
    }

    /// What the press gets for that attribute.
    std::string Applied(const wchar_t* attribute)
    {
        EXPECT_EQ(copy->ApplyEnhanceCopy(host.List({press}).get()), S_OK);
        return press->ValueText(attribute);
    }

    /// Expands the dialog by Space on "Advanced".
    static Steps Expands()
    {
        using namespace copy_dialog;
        return {Types("Tab Tab Tab", FocusOn(kAdvanced)), Types("space", Visible(kGrid))};
    }

    /// Expands the dialog and chooses the type of the press.
    static Steps ShowsStations(int rows = 3)
    {
        using namespace copy_dialog;
        return Expands() +
               Steps{Types("Tab", FocusOn(kNormalRadio)),   Types("Tab", FocusOn(kPlanType)),
                     Types("alt+Down", Dropped(kPlanType)), Types("Down Down", Chosen(kPlanType, L"Station")),
                     Types("Return", Undropped(kPlanType)), Sees(RowCount(rows))};
    }

    /// Moves the mouse to a point of the grid, in client coordinates, and presses its left button, or does
    /// what else `act` says (KeyRequest.h).
    Steps PointsAt(std::function<POINT(HWND grid)> point, const Sight& until,
                   const std::string& act = "click")
    {
        return {[this, act, point = std::move(point)](DialogView& view) {
                    POINT at = point(GridOf(view));
                    MapWindowPoints(GridOf(view), nullptr, &at, 1);
                    mouse.emplace(view.Window(),
                                  act + " " + std::to_string(at.x) + " " + std::to_string(at.y));
                },
                Sees({"the mouse has clicked",
                      [this](const DialogView&) {
                          return mouse->IsAnswered();
                      }}),
                Sees(until)};
    }

    /// Clicks into a cell, so many pixels beside its left edge: two clicks at one place would be a double
    /// click.
    Steps PointsAtCell(int row, int column, int pixels, const Sight& until)
    {
        return PointsAt(
            [=](HWND grid) {
                const RECT cell = CellPlace(grid, row, column);
                return POINT{cell.left + pixels, (cell.top + cell.bottom) / 2};
            },
            until);
    }

    /// Clicks into the middle of a control of the dialog.
    Steps PointsAtControl(int control, const Sight& until)
    {
        return PointsAt(
            [control](HWND grid) {
                RECT place{};
                GetWindowRect(GetDlgItem(GetParent(grid), control), &place);
                MapWindowPoints(nullptr, grid, reinterpret_cast<POINT*>(&place), 2);
                return POINT{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
            },
            until);
    }

    /// The first click selects the row, the second one opens the editor.
    Steps OpensBy(int row, const Sight& until)
    {
        return PointsAtCell(row, 1, 30, RowFocused(row)) + Steps{Sees(NoEditor())} +
               PointsAtCell(row, 1, 60, until);
    }

    ModuleUnderTest module;
    MemoryHost host;
    ComPtr<MemoryObject> press = host.Node(L"press", L"Station");
    ComPtr<MemoryObject> cell = host.Node(L"cell", L"Cell");
    ComPtr<IQPCopyOptDlg> copy;
    KeyboardUser user;
    std::optional<KeyRequest> mouse;
};
