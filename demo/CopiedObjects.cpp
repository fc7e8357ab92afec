#include "CopiedObjects.h"

#include "Results.h"

#include "HostDataObject.h"
#include "PlantCore.h"

#include "Bstr.h"
#include "Utf8.h"

#include <map>

namespace
{
/// By configured type. Attributes of numbers, texts and dates only.
const std::vector<const wchar_t*>& OfferedFor(const std::wstring& type)
{
    static const std::map<std::wstring, std::vector<const wchar_t*>> attributes = {
        {L"planline", {L"name", L"planner", L"cycletime", L"startdate"}},
        {L"orvoplantype_workcell", {L"name", L"cycletime", L"startdate", L"checkedat"}},
        {L"planstation", {L"name", L"operators", L"checkedat"}},
        {L"planresource", {L"name", L"supplier", L"cost", L"deliverydate"}},
        {L"planuse", {L"name", L"share", L"note"}}};
    static const std::vector<const wchar_t*> others = {L"name"};
    const auto found = attributes.find(type);
    return found == attributes.end() ? others : found->second;
}

DataObjects ChildrenOf(IQP_BaseDataObject* object)
{
    ComPtr<IEnumBaseDataObject> children;
    return object->GetChildren(Bstr(L"nodes").get(), children.put()) == S_OK ? ObjectsOf(children.get())
                                                                             : DataObjects();
}

void AddValues(const ComPtr<IQP_BaseDataObject>& object, std::vector<CopiedValue>& values)
{
    const std::wstring name = AttributeText(object.get(), L"name");
    const std::wstring type = AttributeText(object.get(), L"configtypename");
    for (const wchar_t* attribute : OfferedFor(type))
        values.push_back({object, name, type, attribute, AttributeText(object.get(), attribute)});
    for (const ComPtr<IQP_BaseDataObject>& child : ChildrenOf(object.get()))
        AddValues(child, values);
}
} // namespace

DataObjects ObjectsOf(IEnumBaseDataObject* list)
{
    DataObjects objects;
    ComPtr<IQP_BaseDataObject> object;
    while (list->GetSingleNext(object.put()) == S_OK && object)
        objects.push_back(object);
    return objects;
}

std::vector<CopiedValue> ValuesOf(const DataObjects& objects)
{
    std::vector<CopiedValue> values;
    for (const ComPtr<IQP_BaseDataObject>& object : objects)
        AddValues(object, values);
    return values;
}

std::wstring StoredText(refhost::Plant& plant, IQP_BaseDataObject* object, const wchar_t* attribute)
{
    const ComPtr<refhost::HostDataObject> own = refhost::HostDataObject::From(object);
    if (!own)
        return {};
    refhost::Statement row(plant.Shared()->database, "SELECT \"" + Utf8FromWide(attribute) + "\" FROM " +
                                                         refhost::Quoted(own->KindOf().table) +
                                                         R"( WHERE "id" = ?1)");
    std::wstring text;
    if (row.Bind(1, own->Id()).Step() && !row.IsNull(0))
        WideFromUtf8(row.Text(0), text);
    return text;
}

long long ObjectCount(refhost::Plant& plant)
{
    refhost::Statement count(plant.Shared()->database, R"(SELECT count(*) FROM "object")");
    count.Step();
    return count.Integer(0);
}
