#include "EventTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{
using Lines = std::vector<std::string>;

template <class Test>
std::vector<int> Those(const std::vector<int>& controls, Test&& test)
{
    std::vector<int> those;
    std::copy_if(controls.begin(), controls.end(), std::back_inserter(those), test);
    return those;
}

Lines Since(const Lines& record, std::size_t start)
{
    return {record.begin() + static_cast<std::ptrdiff_t>(std::min(start, record.size())), record.end()};
}
} // namespace

DialogEvent Stays(const char* name, Steps before, DialogStep event, std::vector<int> enabled,
                  std::vector<int> checked, std::wstring selected, Lines written)
{
    return {name,
            std::move(before),
            std::move(event),
            std::move(enabled),
            std::move(checked),
            std::move(selected),
            std::move(written),
            {}};
}

DialogEvent EndsWith(const char* name, Steps before, DialogStep event, std::string result, Lines written)
{
    return {name, std::move(before), std::move(event), {}, {}, {}, std::move(written), std::move(result)};
}

std::wstring EventTable::SelectedRowText(const DialogView& view)
{
    const HWND list = view.List();
    const int row = view.SelectedRow(list);
    return row < 0 ? std::wstring() : view.Cell(list, row, 0);
}

void EventTable::Run(const DialogEvent& row) const
{
    SCOPED_TRACE(std::string(row.name) + ": " + row.event.Words());
    std::size_t start = 0;
    Steps steps = row.before;
    steps.emplace_back([&](DialogView&) { start = record.size(); });
    steps.push_back(row.event);
    if (row.ends.empty())
    {
        steps.emplace_back([&](DialogView& view) {
            EXPECT_EQ(Those(controls, [&](int control) { return view.IsEnabled(control); }), row.enabled);
            EXPECT_EQ(Those(buttons, [&](int button) { return view.IsChecked(button); }), row.checked);
            EXPECT_EQ(selection(view), row.selected);
            EXPECT_EQ(Since(record, start), row.written);
        });
        steps = std::move(steps) + leave;
    }
    EXPECT_EQ(show(std::move(steps)), row.ends.empty() ? left : row.ends);
    if (!row.ends.empty())
    {
        EXPECT_EQ(Since(record, start), row.written);
    }
}
