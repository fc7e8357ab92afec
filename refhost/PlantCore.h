// What all objects of one plant share: its database, its gate and the text of the last search.
#pragma once

#include "CallGate.h"
#include "Database.h"
#include "ExpandedTree.h"
#include "Schema.h"

#include "qpconfig.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace refhost
{
/// Shared by the plant and its objects, so that an object may outlive the plant.
struct PlantCore
{
    explicit PlantCore(const std::string& name);

    /// The key of an object, as used by sample data and recorded calls; "#<number>" if the object no longer
    /// exists.
    std::string KeyOf(long long id);

    /// Stores the text of a failure for Plant::LastError.
    void NoteError(const char* text) noexcept;

    Database database;
    CallGate gate;
    /// The live objects of configured types by number. Borrowed: each removes itself when it is destroyed.
    std::map<long long, IQPType*> liveTypes;
    /// The projects that views of the navigator show, in the order in which they were opened.
    std::vector<long long> shownProjects;
    /// The calls of the tree expander.
    std::vector<ExpandedTree> expanded;
    std::string lastSql;
    std::string lastError;
};

using Core = std::shared_ptr<PlantCore>;

/// A name in SQL's double quotes. Names come from the schema and contain no quotes.
std::string Quoted(const char* name);
} // namespace refhost
