// What all objects of one plant share: its database, its gate and the text of the last search.
#pragma once

#include "CallGate.h"
#include "Database.h"
#include "Schema.h"

#include "qpconfig.h"

#include <map>
#include <memory>
#include <string>

namespace refhost
{
/// Held by the plant and by each of its objects, so that an object may outlive the plant.
struct PlantCore
{
    explicit PlantCore(const std::string& name);

    /// The key of an object, by which data and recorded calls name it; "#<number>" if the object is gone.
    std::string KeyOf(long long id);

    /// Keeps the text of a failure for whoever looks into it.
    void NoteError(const char* text) noexcept;

    Database database;
    CallGate gate;
    /// The objects of configured types that somebody holds, by their numbers. Not owned: each removes itself.
    std::map<long long, IQPType*> liveTypes;
    std::string lastSql;
    std::string lastError;
};

using Core = std::shared_ptr<PlantCore>;

/// Text in SQL's double quotes. Names come from the schema and hold no quote.
std::string Quoted(const char* name);
} // namespace refhost
