// The enhanced copy as a host offers it and a user goes through it.
#pragma once

#include "CopiedObjects.h"
#include "DialogDemo.h"
#include "Table.h"

#include "DialogStep.h"

#include "qptools.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

/// Opens the dialog on objects of the sample plant, copies them as the user chose, has the typed values set
/// on the copies, and prints what these hold before and after. At the end the copies are deleted.
class CCopyDemo : public CDialogDemo
{
public:
    /// What calls cost the host is added to `hostCalls`.
    CCopyDemo(refhost::Plant& plant, CPictures& pictures, CTable& hostCalls, Expectation expect);

    void Run();

private:
    void CopyAsTheyAre();
    void GiveUp();
    void CopyWithValues();

    // What the user does, step by step.
    Steps ExpandsForDeep();
    Steps LeavesMarkAndTypesOverIt();
    Steps SetsTextAndDate();
    Steps EmptiesAndSetsCost();
    Steps ComesBackToStations();

    // What the host does.
    ComPtr<IQPCopyOptDlg> NewCopy(const DataObjects& objects);
    /// Shows the dialog and returns the copy option.
    LONG Show(IQPCopyOptDlg& copy, Steps steps);
    DataObjects MakeCopies(const DataObjects& objects, LONG option);
    void Apply(IQPCopyOptDlg& copy, const DataObjects& copies);
    void End(IQPCopyOptDlg& copy, const DataObjects& copies);

    /// The values that copies get, by type and attribute.
    using NewValues = std::map<std::pair<std::wstring, std::wstring>, std::wstring>;
    /// Prints what the copies held, and hold now; the new values are expected, and no other change.
    void PrintValues(const std::vector<CopiedValue>& before, const NewValues& expected);

    Steps OpensPlanType(const wchar_t* caption);
    DialogStep PrintsGrid(const wchar_t* attribute, const wchar_t* expected);
    void Cost(const wchar_t* call, long objects, long long expected);

    CTable& m_hostCalls;
};
