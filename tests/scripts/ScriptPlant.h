// The script service on the sample plant, called as a host calls it: the component comes from the module by
// COM.
#pragma once

#include "ArrayText.h"
#include "Calls.h"
#include "ModuleUnderTest.h"
#include "NameInPlant.h"
#include "Plant.h"
#include "SampleFolder.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using Lines = std::vector<std::string>;
using Row = std::vector<std::string>;

// Lines of the host's record.

inline std::string Master(const std::string& object)
{
    return "IQP_BaseDataObject<" + object + ">::GetAttribute(\"master\")";
}
inline std::string Attribute(const std::string& object, const std::string& attribute)
{
    return "IQP_BaseDataObject<" + object + ">::GetAttribute(\"" + attribute + "\")";
}
inline std::string MayExecute(const std::string& object)
{
    return "IQPObjectRights<" + object + ">::HasRight(4)";
}
inline std::string Cat(int catenation)
{
    return "IQP_Query::SetSearchCatenation(" + std::to_string(catenation) + ")";
}
inline std::string Equal(const std::string& column, const std::string& value)
{
    return "IQP_Query::SetSearchAttribute(\"" + column + "\", 1, " + value + ", 0)";
}
inline std::string Table(const std::string& table)
{
    return "IQP_Query::SetSearchTable(\"" + table + "\")";
}
inline const std::string kReset = "IQP_Query::ResetSearch(0)";
inline const std::string kResult = "IQP_Query::GetSearchResult()";
inline const std::string kNext = "IEnumBaseDataObject::RemNext(1)";

/// A manager created by COM, on a plant of its own.
class ScriptPlant : public ::testing::Test
{
protected:
    ScriptPlant() : m_objects(refhost::Plant::LiveObjects()), plant(refhost::Plant::OpenMemory())
    {
        plant->Load(refhost::SampleFolder());
        query = plant->NewQuery();
        EXPECT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, manager), S_OK);
    }
    ~ScriptPlant() override
    {
        EXPECT_EQ(plant->Calls().Misuses(), Lines{}) << "variants that were not empty before the call";
        manager.reset();
        query.reset();
        plant.reset();
        EXPECT_EQ(refhost::Plant::LiveObjects(), m_objects) << "objects of the host are left";
    }

    ComPtr<IQP_BaseDataObject> Find(const wchar_t* table, const wchar_t* name) const
    {
        if (!name)
            return {};
        ComPtr<IQP_BaseDataObject> object = plant->Find(table, name);
        EXPECT_TRUE(object) << "the sample has no such object";
        return object;
    }

    /// The rows for an action, each "action" and "script" by name; the host's record is that of the call.
    TextRows Scripts(const wchar_t* set, const wchar_t* typeName, const wchar_t* planType, int actionType,
                     int before)
    {
        const auto ofSet = Find(L"plantypeset", set);
        const auto ofPlanType = Find(L"plantype", planType);
        XQPComVariant result;
        StartRecord();
        status = manager->GetScriptsForAction(query.get(), ofSet.get(), XQPComBSTR(typeName),
                                              ofPlanType.get(), actionType, before, &result);
        EndRecord();
        return RowsOf(result.Value(), NameInPlant);
    }

    /// The rows of commands: display name, script or macro, mode.
    TextRows Commands(const wchar_t* set, const wchar_t* typeName, const wchar_t* planType, int userInterface)
    {
        const auto ofSet = Find(L"plantypeset", set);
        const auto ofPlanType = Find(L"plantype", planType);
        XQPComVariant result;
        StartRecord();
        status = manager->GetScriptCommands(query.get(), ofSet.get(), XQPComBSTR(typeName), ofPlanType.get(),
                                            userInterface, nullptr, &result);
        EndRecord();
        return RowsOf(result.Value(), NameInPlant);
    }

    /// The record up to and including the search.
    Lines Searched() const
    {
        const auto end = std::find(record.begin(), record.end(), kResult);
        return end == record.end() ? record : Lines(record.begin(), end + 1);
    }
    /// The record after the search.
    Lines Walked() const
    {
        const auto end = std::find(record.begin(), record.end(), kResult);
        return end == record.end() ? Lines{} : Lines(end + 1, record.end());
    }

private:
    void StartRecord()
    {
        plant->Calls().Clear();
        plant->Calls().Record(true);
    }
    void EndRecord()
    {
        plant->Calls().Record(false);
        record = plant->Calls().Calls();
    }

    const long m_objects;

protected:
    ModuleUnderTest module;
    std::unique_ptr<refhost::Plant> plant;
    ComPtr<IQP_Query> query;
    ComPtr<IScriptActionAndCommandManager> manager;
    HRESULT status = E_UNEXPECTED;
    Lines record;
};

#define EXPECT_LINES(actual, ...) EXPECT_EQ(actual, (__VA_ARGS__))
#define EXPECT_ROWS(actual, ...) EXPECT_EQ(actual, (TextRows{__VA_ARGS__}))
