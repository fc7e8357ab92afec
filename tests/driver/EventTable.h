// Tests of a dialog's events as a table: control and event, and what is enabled, checked, selected and
// written then.
#pragma once

#include "Steps.h"

#include <functional>
#include <ostream>
#include <string>
#include <vector>

/// A row. Use rows as parameters of a gtest suite, so that each is a test under its own name.
struct DialogEvent
{
    const char* name;                 ///< of the row, in a test's name
    Steps before;                     ///< lead to the state in which the event happens
    DialogStep event;                 ///< what happens to which control
    std::vector<int> enabled;         ///< of the watched controls, in their order
    std::vector<int> checked;         ///< of the watched buttons, in their order
    std::wstring selected;            ///< what the table's selection reads
    std::vector<std::string> written; ///< what the event adds to the record
    std::string ends; ///< the result of an event that ends the dialog: nothing is looked at then
};

/// A row whose event leaves the dialog open.
DialogEvent Stays(const char* name, Steps before, DialogStep event, std::vector<int> enabled,
                  std::vector<int> checked, std::wstring selected, std::vector<std::string> written = {});

/// A row whose event ends the dialog.
DialogEvent EndsWith(const char* name, Steps before, DialogStep event, std::string result,
                     std::vector<std::string> written = {});

inline std::ostream& operator<<(std::ostream& stream, const DialogEvent& event)
{
    return stream << event.name;
}

/// Names the instances of a suite.
template <class Info>
std::string NameOfEvent(const Info& info)
{
    return info.param.name;
}

/// What the rows of a table have in common.
struct EventTable
{
    std::vector<int> controls; ///< those whose enabling is watched
    std::vector<int> buttons;  ///< check boxes and radio buttons
    /// Returns the text of the selection; by default that of the visible list.
    std::function<std::wstring(const DialogView&)> selection = SelectedRowText;
    const std::vector<std::string>& record; ///< of calls and boxes
    /// Shows the dialog, which gets these steps, and returns the result in words.
    std::function<std::string(Steps steps)> show;
    Steps leave;      ///< ends a dialog that the event left open
    std::string left; ///< the result then

    /// Runs a row and fails the test for everything that differs.
    void Run(const DialogEvent& row) const;

    static std::wstring SelectedRowText(const DialogView& view);
};
