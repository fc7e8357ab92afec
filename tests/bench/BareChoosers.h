// The floors that the choosers are measured against: bare loops that make the very same host calls and fill
// the same list, and do nothing else.
#pragma once

#include "MemoryHost.h"

#include "qptypes.h"

#include <cstddef>
#include <vector>

/// A host with a project and scripts that the user may all run. Nothing is recorded.
class ScriptBenchHost
{
public:
    explicit ScriptBenchHost(std::size_t scripts);

    IQP_Query* Query() { return &m_host.Query(); }
    IQP_BaseDataObject* Project() { return m_project.get(); }

private:
    MemoryHost m_host;
    ComPtr<MemoryObject> m_project;
};

/// The calls of opening the script picker for a project, and its rows, which follow the objects' addresses.
/// Returns the rows.
std::size_t PickerFloor(IQP_Query* query, IQP_BaseDataObject* project);

/// A list of the objects by their prompts, found in the array by their names and converted. Returns the rows.
std::size_t SelectFloor(ULONG count, const tagINITVALUE* records);

/// A list of `rows` rows with texts in each of `columns` columns, that and nothing else. Returns the rows.
std::size_t ListAlone(std::size_t rows, int columns);

/// The calls that find the project of a sub-component item.
ComPtr<IQP_BaseDataObject> ProjectFloor(IQP_BaseDataObject* item);
