#include "PlanModel.h"

#include "MemoryRecord.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "qpconfig.h"

#include <gtest/gtest.h>

namespace
{
std::string Text(IQP_BaseDataObject* object, const wchar_t* attribute)
{
    XQPComVariant value;
    EXPECT_EQ(object->GetAttribute(XQPComBSTR(attribute), &value), S_OK);
    return Utf8Of(XQPComBSTR(value.GetString()));
}

std::string Caption(IQP_BaseDataObject* object)
{
    XQPComVariant config;
    object->GetAttribute(XQPComBSTR(L"configtypename"), &config);
    ComPtr<IQPType> type;
    EXPECT_EQ(object->GetType(nullptr, XQPComBSTR(config.GetString()), type.put()), S_OK);
    XQPComVariant caption;
    EXPECT_EQ(type->Get(XQPComBSTR(L"captionsingular"), &caption), S_OK);
    return Utf8Of(XQPComBSTR(caption.GetString()));
}

PlanObject ReadAlone(IQP_BaseDataObject* object)
{
    return {PlanName(object), Text(object, L"configtypename"), Caption(object), {}, {}};
}

ComPtr<IEnumBaseDataObject> Nodes(IQP_BaseDataObject* object)
{
    ComPtr<IEnumBaseDataObject> nodes;
    EXPECT_EQ(object->GetChildren(XQPComBSTR(L"nodes"), nodes.put()), S_OK);
    return nodes;
}

PlanObjects ReadAll(IEnumBaseDataObject* list)
{
    PlanObjects all;
    ComPtr<IQP_BaseDataObject> object;
    while (list->GetSingleNext(object.put()) == S_OK)
    {
        PlanObject read = ReadAlone(object.get());
        XQPComVariant target;
        ComPtr<IQP_BaseDataObject> leadsTo;
        if (object->IsDerivedFromClass(XQPComBSTR(L"XDORelationship")) == S_OK &&
            object->GetAttribute(XQPComBSTR(L"relationobjecttarget"), &target) == S_OK &&
            leadsTo.queryFrom(target.Value().punkVal) == S_OK)
            read.target.push_back(ReadAlone(leadsTo.get()));
        read.children = ReadAll(Nodes(object.get()).get());
        all.push_back(std::move(read));
    }
    return all;
}
} // namespace

std::string PlanName(IQP_BaseDataObject* object)
{
    return Text(object, L"name");
}

ComPtr<IEnumBaseDataObject> PlanTops(refhost::Plant& plant)
{
    return Nodes(plant.Find(L"project", L"Body Plant North").get());
}

PlanObjects ReadPlan(refhost::Plant& plant)
{
    return ReadAll(PlanTops(plant).get());
}

/// Without a name of its configuration an object has no type: the plan has none for the name of the table.
void PlanWalk::Keep(const PlanObject& object)
{
    const bool isNamed = !Fails();
    Fails(); // the name of the table is not needed
    if (Fails() || !isNamed)
        return;
    const bool hasCaption = !Fails();
    Record& record = m_records[object.type];
    if (record.names.empty() && hasCaption)
        record.caption = object.caption;
    record.names.push_back(object.name);
}

/// Returns false if the rest of the level is dropped.
bool PlanWalk::Visit(const PlanObject& object)
{
    bool isRelationship = !object.target.empty();
    if (Fails())
        isRelationship = !m_way.SaysSo();
    if (!isRelationship)
    {
        Keep(object);
        return true;
    }
    if (Fails() || object.target.empty())
        return false;
    Keep(object.target.front());
    return true;
}

void PlanWalk::Parents(const PlanObjects& objects)
{
    for (const PlanObject& object : objects)
    {
        if (Fails())
            return;
        Keep(object);
    }
    Fails(); // the end of the list
}

void PlanWalk::ParentsAndChildren(const PlanObjects& objects)
{
    for (const PlanObject& object : objects)
    {
        if (Fails() || !Visit(object))
            return;
        if (!Fails())
            ParentsAndChildren(object.children);
    }
    Fails(); // the end of the list
}
