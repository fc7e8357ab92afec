// The reference host: a manufacturing plant in a SQLite database, answering through the host's interfaces.
#pragma once

#include "CallGate.h"
#include "Limit.h"
#include "PlantError.h"

#include "ComPtr.h"

#include "qpobjects.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace refhost
{
struct PlantCore;

/// One plant. Its objects may outlive it. Everything happens on the caller's thread. Failures are
/// PlantErrors.
class Plant
{
public:
    /// An empty plant in memory.
    static std::unique_ptr<Plant> OpenMemory();

    /// The plant in that file, which is made if it is not there. Another kind of file is refused.
    static std::unique_ptr<Plant> Open(const std::filesystem::path& file);

    ~Plant();
    Plant(const Plant&) = delete;
    Plant& operator=(const Plant&) = delete;

    /// Adds the objects of a folder of sample data (see SampleLoader.h), all or, on an error, none of them.
    void Load(const std::filesystem::path& folder);

    /// A search of its own over this plant.
    ComPtr<IQP_Query> NewQuery();

    /// The object that the data name so; null if there is none. An unknown table is an error.
    ComPtr<IQP_BaseDataObject> Find(std::wstring_view table, std::wstring_view name);

    /// Makes an object of that name (and attribute "name") with all rights. A name that is taken is an error.
    ComPtr<IQP_BaseDataObject> Add(std::wstring_view table, std::wstring_view name);

    /// The rights of the user on an object, as a mask of QPRightType; none at all: it has no rights service.
    void SetRights(std::wstring_view table, std::wstring_view name, std::optional<long> rights);

    /// What the user may not do with an attribute, named by its column, of an object.
    void SetLimit(std::wstring_view table, std::wstring_view name, std::wstring_view column, Limit limit);

    ComPtr<IQPFObjectManager> ObjectManager();

    /// The configured types with their pages, groups and attributes.
    ComPtr<IQPConfigFactory> ConfigFactory();

    /// The gate of all calls on this plant's objects.
    CallGate& Calls();

    /// The SQL of the last search, also of one that the database refused, and the message of the last
    /// failure.
    const std::string& LastSql() const;
    const std::string& LastError() const;

    /// How many SQL statements have begun to run since the plant was opened.
    long long Statements() const;

    /// All COM objects of all plants that are alive in the process.
    static long LiveObjects();

    /// Begins, with an empty list, or ends noting which interfaces the objects of all plants are asked for.
    static void NoteInterfaces(bool on);

    /// What has been noted: every QueryInterface in order, answered or not.
    static const std::vector<IID>& AskedInterfaces();

    /// What its objects share; for the reference host itself.
    const std::shared_ptr<PlantCore>& Shared() const { return m_core; }

private:
    explicit Plant(const std::string& name);

    const std::shared_ptr<PlantCore> m_core;
};
} // namespace refhost
