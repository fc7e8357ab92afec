#include "Plant.h"

#include "HostConfigFactory.h"
#include "HostDataObject.h"
#include "HostEnumerator.h"
#include "HostObjectManager.h"
#include "HostQuery.h"
#include "HostText.h"
#include "KeyStore.h"
#include "Navigator.h"
#include "ObjectCopy.h"
#include "ObjectId.h"
#include "ObjectStore.h"
#include "PlantCore.h"
#include "SampleLoader.h"

namespace refhost
{
namespace
{
const Kind& KindOf(std::wstring_view table)
{
    const Kind* kind = FindKind(Utf8FromWide(table));
    if (!kind)
        throw PlantError("a plant has no table " + Utf8FromWide(table));
    return *kind;
}

/// 0 if there is none.
long long NumberOf(PlantCore& core, const Kind& kind, const std::string& name)
{
    Statement statement(core.database, R"(SELECT "id" FROM "object" WHERE "kind" = ?1 AND "key" = ?2)");
    statement.Bind(1, std::string(kind.table)).Bind(2, name);
    return statement.Step() ? statement.Integer(0) : 0;
}

long long KnownNumber(PlantCore& core, const Kind& kind, const std::string& name)
{
    const long long id = NumberOf(core, kind, name);
    if (id == 0)
        throw PlantError("no " + std::string(kind.table) + " is named " + name);
    return id;
}

ComPtr<HostDataObject> OwnObject(const PlantCore& core, const ComPtr<IQP_BaseDataObject>& object)
{
    ComPtr<HostDataObject> own = HostDataObject::From(object.get());
    if (!own || !own->IsOf(core))
        throw PlantError("an object is not of this plant");
    return own;
}

long long ProjectNumber(PlantCore& core, std::wstring_view name)
{
    return KnownNumber(core, KindOf(L"project"), Utf8FromWide(name));
}

std::vector<RowPlace> PlacesOf(const PlantCore& core, const std::vector<ComPtr<IQP_BaseDataObject>>& objects)
{
    std::vector<RowPlace> places;
    places.reserve(objects.size());
    for (const ComPtr<IQP_BaseDataObject>& object : objects)
    {
        const ComPtr<HostDataObject> own = OwnObject(core, object);
        places.push_back({&own->KindOf(), own->Id()});
    }
    return places;
}

ComPtr<IEnumBaseDataObject> ListOf(const Core& core, const std::vector<RowPlace>& places)
{
    std::vector<long long> numbers;
    numbers.reserve(places.size());
    for (const RowPlace& place : places)
        numbers.push_back(place.id);
    return MixedEnumerator::Make(core, *FindKind("plannode"), std::move(numbers));
}
} // namespace

Plant::Plant(const std::string& name) : m_core(std::make_shared<PlantCore>(name)) {}

Plant::~Plant() = default;

std::unique_ptr<Plant> Plant::OpenMemory()
{
    return std::unique_ptr<Plant>(new Plant(":memory:"));
}

std::unique_ptr<Plant> Plant::Open(const std::filesystem::path& file)
{
    const std::string name = PathText(file);
    try
    {
        return std::unique_ptr<Plant>(new Plant(name));
    }
    catch (const PlantError& error)
    {
        const std::string reason = error.what();
        throw PlantError(reason.rfind(name, 0) == 0 ? reason : name + ": " + reason);
    }
}

void Plant::Load(const std::filesystem::path& folder)
{
    LoadSample(m_core->database, folder);
}

ComPtr<IQP_Query> Plant::NewQuery()
{
    return HostQuery::Make(m_core);
}

ComPtr<IQP_BaseDataObject> Plant::Find(std::wstring_view table, std::wstring_view name)
{
    const Kind& kind = KindOf(table);
    const long long id = NumberOf(*m_core, kind, Utf8FromWide(name));
    return id ? HostDataObject::Make(m_core, kind, id) : ComPtr<IQP_BaseDataObject>();
}

ComPtr<IQP_BaseDataObject> Plant::Add(std::wstring_view table, std::wstring_view name)
{
    const Kind& kind = KindOf(table);
    Transaction transaction(m_core->database);
    const long long id = InsertObject(m_core->database, kind, Utf8FromWide(name));
    {
        Statement statement(m_core->database,
                            "UPDATE " + Quoted(kind.table) + R"( SET "name" = ?1 WHERE "id" = ?2)");
        statement.Bind(1, Utf8FromWide(name)).Bind(2, id).Step();
    }
    if (kind.hasRights)
        StoreRights(m_core->database, id, kAllRights);
    transaction.Commit();
    return HostDataObject::Make(m_core, kind, id);
}

void Plant::Remove(std::wstring_view table, std::wstring_view name)
{
    const Kind& kind = KindOf(table);
    const long long id = KnownNumber(*m_core, kind, Utf8FromWide(name));
    Transaction transaction(m_core->database);
    RemoveObject(m_core->database, kind, id);
    transaction.Commit();
}

std::wstring Plant::IdOf(const ComPtr<IQP_BaseDataObject>& object) const
{
    return refhost::IdOf(OwnObject(*m_core, object)->Id());
}

void Plant::AddBookmark(std::wstring_view project, const ComPtr<IQP_BaseDataObject>& object,
                        std::wstring_view name)
{
    refhost::AddBookmark(*m_core, ProjectNumber(*m_core, project), OwnObject(*m_core, object)->Id(),
                         Utf8FromWide(name));
}

void Plant::ShowProject(std::wstring_view project, bool shown)
{
    const long long number = ProjectNumber(*m_core, project);
    std::erase(m_core->shownProjects, number);
    if (shown)
        m_core->shownProjects.push_back(number);
}

const std::vector<ExpandedTree>& Plant::Expanded() const
{
    return m_core->expanded;
}

std::vector<std::string> Plant::StoreContent()
{
    return KeyStore(m_core->database).Content();
}

ComPtr<IEnumBaseDataObject> Plant::List(const std::vector<ComPtr<IQP_BaseDataObject>>& objects)
{
    return ListOf(m_core, PlacesOf(*m_core, objects));
}

ComPtr<IEnumBaseDataObject> Plant::Copy(const std::vector<ComPtr<IQP_BaseDataObject>>& objects,
                                        CopyOption option)
{
    const std::vector<RowPlace> places = PlacesOf(*m_core, objects);
    Transaction transaction(m_core->database);
    const std::vector<RowPlace> copies = CopyObjects(*m_core, places, option);
    transaction.Commit();
    return ListOf(m_core, copies);
}

void Plant::Remove(const std::vector<ComPtr<IQP_BaseDataObject>>& objects)
{
    const std::vector<RowPlace> places = PlacesOf(*m_core, objects);
    Transaction transaction(m_core->database);
    RemoveObjects(*m_core, places);
    transaction.Commit();
}

void Plant::SetRights(std::wstring_view table, std::wstring_view name, std::optional<long> rights)
{
    StoreRights(m_core->database, KnownNumber(*m_core, KindOf(table), Utf8FromWide(name)), rights);
}

void Plant::SetLimit(std::wstring_view table, std::wstring_view name, std::wstring_view column, Limit limit)
{
    const Kind& kind = KindOf(table);
    const Attribute* attribute = kind.FindColumn(Utf8FromWide(column));
    if (!attribute)
        throw PlantError(std::string(kind.table) + " has no column " + Utf8FromWide(column));
    StoreLimit(m_core->database, KnownNumber(*m_core, kind, Utf8FromWide(name)), *attribute, limit);
}

void Plant::SetSetting(std::wstring_view section, std::wstring_view name, bool on)
{
    const StoredValue flag{VT_BOOL, static_cast<long long>(on ? 1 : 0)};
    KeyStore(m_core->database).Set(kScopeSettings, Utf8FromWide(section), Utf8FromWide(name), flag);
}

ComPtr<IQPConfigFactory> Plant::ConfigFactory()
{
    return HostConfigFactory::Make(m_core);
}

ComPtr<IQPFObjectManager> Plant::ObjectManager()
{
    return HostObjectManager::Make(m_core);
}

CallGate& Plant::Calls()
{
    return m_core->gate;
}

const std::string& Plant::LastSql() const
{
    return m_core->lastSql;
}

const std::string& Plant::LastError() const
{
    return m_core->lastError;
}

long long Plant::Statements() const
{
    return m_core->database.Statements();
}

long Plant::LiveObjects()
{
    return LiveObject::Alive();
}

void Plant::NoteInterfaces(bool on)
{
    refhost::AskedInterfaces::Note(on);
}

const std::vector<IID>& Plant::AskedInterfaces()
{
    return refhost::AskedInterfaces::List();
}
} // namespace refhost
