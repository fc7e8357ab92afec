// The searches of the demonstration and their results on the sample plant.
#pragma once

#include <string>
#include <vector>

/// Rows of texts as they are printed.
using ShownRows = std::vector<std::vector<std::wstring>>;

/// The context of a call.
struct SearchContext
{
    const wchar_t* title;
    const wchar_t* planTypeSet;
    const wchar_t* typeName;
    const wchar_t* planType; ///< null: a search by type
};

/// A search for the scripts of an action.
struct ActionCase
{
    SearchContext context;
    int actionType;
    int beforeAfter;   ///< 0 after, 1 before
    ShownRows rows;    ///< action, sequence, script; in ascending sequence
    int hostCalls;     ///< the number of host calls
    const char* calls; ///< the same calls in order; see InWords
};

/// A search for commands.
struct CommandCase
{
    SearchContext context;
    int userInterfaceType; ///< 1 context menu, 2 properties sheet
    ShownRows rows;        ///< display name, script or macro, execution mode; in any order
    int hostCalls;
    const char* calls;
};

constexpr int kBefore = 1;
constexpr int kAfter = 0;

const std::vector<ActionCase>& ActionCases();
const std::vector<CommandCase>& CommandCases();
