// The reference host: a manufacturing plant in a SQLite database behind the host's interfaces.
#pragma once

#include "CallGate.h"
#include "CopyOption.h"
#include "ExpandedTree.h"
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

/// One plant. Its objects may outlive it. Everything runs on the caller's thread. Failures throw PlantError.
class Plant
{
public:
    /// An empty plant in memory.
    static std::unique_ptr<Plant> OpenMemory();

    /// The plant in that file, which is created if it does not exist. Throws if the file is not a plant.
    static std::unique_ptr<Plant> Open(const std::filesystem::path& file);

    ~Plant();
    Plant(const Plant&) = delete;
    Plant& operator=(const Plant&) = delete;

    /// Adds the objects of a folder of sample data (see SampleLoader.h); none of them if there is an error.
    void Load(const std::filesystem::path& folder);

    /// A new query object.
    ComPtr<IQP_Query> NewQuery();

    /// The object of that key; null if there is none. Throws for an unknown table.
    ComPtr<IQP_BaseDataObject> Find(std::wstring_view table, std::wstring_view name);

    /// Creates an object with that key, which is also its attribute "name", and with all rights. Throws if
    /// the key exists.
    ComPtr<IQP_BaseDataObject> Add(std::wstring_view table, std::wstring_view name);

    /// Removes an object. Throws if another object refers to it. Its bookmarks stay.
    void Remove(std::wstring_view table, std::wstring_view name);

    /// The identifier of an object of this plant, such as "$12)".
    std::wstring IdOf(const ComPtr<IQP_BaseDataObject>& object) const;

    /// The objects as a list, such as what a user has selected. They must be of this plant.
    ComPtr<IEnumBaseDataObject> List(const std::vector<ComPtr<IQP_BaseDataObject>>& objects);

    /// Copies objects with their values, rights and limits, in one transaction, and returns the copies, in
    /// the order of `objects`, which must be of this plant. Each object is copied once: in a deep copy, one
    /// that lies below another of the list comes with that, and is not returned.
    ///
    /// A copy returned stands where its original stands and has a new name: "Copy of X", "Copy of X (2)" ...
    /// Those below keep their names, with keys of that form. A reference to a copied object becomes one to
    /// its copy. Any other stays: what a relationship leads to is copied if it lies inside the copied tree,
    /// and shared if it lies outside.
    ComPtr<IEnumBaseDataObject> Copy(const std::vector<ComPtr<IQP_BaseDataObject>>& objects,
                                     CopyOption option);

    /// Removes objects with everything below them, in one transaction. Throws, and removes nothing, if an
    /// object that stays refers to one of them. `objects` must be of this plant.
    void Remove(const std::vector<ComPtr<IQP_BaseDataObject>>& objects);

    /// Sets the user's rights on an object, as a mask of QPRightType; std::nullopt removes its rights
    /// service.
    void SetRights(std::wstring_view table, std::wstring_view name, std::optional<long> rights);

    /// Sets the limit of an attribute of an object. `column` is the attribute's column name.
    void SetLimit(std::wstring_view table, std::wstring_view name, std::wstring_view column, Limit limit);

    /// Writes a flag of the settings, such as "properties", "enablemcmscriptactions".
    void SetSetting(std::wstring_view section, std::wstring_view name, bool on);

    /// Adds a bookmark of an object of this plant to those of a project, as the navigator does.
    void AddBookmark(std::wstring_view project, const ComPtr<IQP_BaseDataObject>& object,
                     std::wstring_view name);

    /// Opens a view of the navigator that shows the project, behind those that are open, or closes it.
    void ShowProject(std::wstring_view project, bool shown);

    /// What the tree expander was called with, in order.
    const std::vector<ExpandedTree>& Expanded() const;

    /// The whole key store, see KeyStore::Content.
    std::vector<std::string> StoreContent();

    ComPtr<IQPFObjectManager> ObjectManager();

    /// The configured types with their pages, groups and attributes.
    ComPtr<IQPConfigFactory> ConfigFactory();

    /// The gate that all calls on this plant's objects pass.
    CallGate& Calls();

    /// The SQL of the last search, even if the database rejected it, and the message of the last failure.
    const std::string& LastSql() const;
    const std::string& LastError() const;

    /// The number of SQL statements started since the plant was opened.
    long long Statements() const;

    /// The number of live COM objects of all plants of the process.
    static long LiveObjects();

    /// Starts, with an empty list, or stops recording the QueryInterface calls on the objects of all plants.
    static void NoteInterfaces(bool on);

    /// The recorded calls in order, failed ones included.
    static const std::vector<IID>& AskedInterfaces();

    /// What its objects share. For the reference host itself.
    const std::shared_ptr<PlantCore>& Shared() const { return m_core; }

private:
    explicit Plant(const std::string& name);

    const std::shared_ptr<PlantCore> m_core;
};
} // namespace refhost
