// The floors that the property dialogs are measured against: a dialog of the same template, shown by the
// system alone, with the same host calls in bare loops and the same combo box filled by messages.
#pragma once

#include "MemoryHost.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// A host with a script action, a script command and lists of `entries` each. Nothing is recorded.
class PropertyBenchHost
{
public:
    static constexpr int kActionTypes = 30;

    explicit PropertyBenchHost(std::size_t entries);

    IQPFObjectManager* Manager() { return &host.Manager(); }
    IQPConfigFactory* Factory() { return &host.Config(); }
    IQP_Query* Query() { return &host.Query(); }
    IQP_BaseDataObject* Project() { return m_project.get(); }
    IQP_BaseDataObject* PlanTypes() { return m_set.get(); }
    IQP_BaseDataObject* Action() { return m_action.get(); }
    IQP_BaseDataObject* Command() { return m_command.get(); }

    /// Releases the references to the VBA projects that so many lists of macros have kept, as they do on
    /// purpose.
    void ReleaseKept(std::size_t lists);

    MemoryHost host;

private:
    std::vector<ComPtr<MemoryObject>> m_found;
    ComPtr<MemoryObject> m_project;
    ComPtr<MemoryObject> m_set;
    ComPtr<MemoryObject> m_action;
    ComPtr<MemoryObject> m_command;
};

/// What a drop-down shows.
enum class DroppedList
{
    None, ///< the dialog is opened and closed
    Scripts,
    PlanTypes,
    ConfigTypes,
    Macros
};

/// The calls and controls of opening the dialog of the host's action, and of one drop-down. `dialog` is its
/// template. Returns the items of the list; of the action types for None.
std::size_t ActionFloor(PropertyBenchHost& host, std::string_view dialog, DroppedList list);

/// The same for the host's command and the list of macros.
std::size_t MacrosFloor(PropertyBenchHost& host, std::string_view dialog);
