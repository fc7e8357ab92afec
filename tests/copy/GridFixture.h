// The grid of the enhanced copy dialog, with the attributes of stations in it: Due is a date, Mass and Order
// are not. The host's list is shown in reverse order, so Due is row 0.
#pragma once

#include "CopyFixture.h"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>

namespace grid
{
inline constexpr int kDue = 0;
inline constexpr int kMass = 1;
inline constexpr int kOrder = 2;
} // namespace grid

class GridFixture : public CopyFixture
{
protected:
    /// Opens the dialog for the press and the cell, chooses the type of the press, and runs the steps, which
    /// end the dialog. The record begins with them.
    void OpenGrid(const Steps& steps)
    {
        using namespace copy_dialog;
        Initialize({press, cell});
        const Steps opening = {Presses(kAdvanced), Chooses(kPlanType, L"Station"), [this](DialogView&) {
                                   host.calls.clear();
                               }};
        EXPECT_EQ(Show(opening + steps), S_OK);
    }

    /// The same, and OK is pressed then. The record has nothing but what the grid asked.
    void InGrid(const Steps& steps)
    {
        OpenGrid(steps + Steps{[this](DialogView&) {
                                   std::erase_if(host.calls,
                                                 [](const auto& call) { return !IsTypeRead(call); });
                               },
                               Presses(copy_dialog::kAdvancedOk)});
    }

    /// What the press gets when the values are applied: "Mass = BSTR '5'; Order = BSTR ''"; empty without a
    /// value. The record has nothing but that.
    std::string Applied()
    {
        constexpr std::string_view call = "press.SetAttributes(";
        Apply({press});
        std::erase_if(host.calls, [=](const std::string& line) { return !line.starts_with(call); });
        if (host.calls.empty())
            return "";
        EXPECT_EQ(host.calls.size(), 1u);
        return host.calls[0].substr(call.size(), host.calls[0].size() - call.size() - 1);
    }

    MemoryType& Station() { return *host.Config().Find(L"Station"); }

    static bool IsTypeRead(const std::string& call)
    {
        return call.find(".GetProperty(3)") != std::string::npos;
    }

    /// How often the type code of an attribute was read since the grid was shown.
    int TypeReads() const
    {
        return static_cast<int>(std::count_if(host.calls.begin(), host.calls.end(), IsTypeRead));
    }

    /// A look or an act of a test's own with the grid's window.
    static DialogStep WithGrid(std::function<void(HWND grid)> body)
    {
        return [body = std::move(body)](DialogView& view) {
            body(GridOf(view));
        };
    }
};
