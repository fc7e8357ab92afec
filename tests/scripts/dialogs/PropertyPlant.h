// The property dialogs on the sample plant, with the user in front of them.
#pragma once

#include "BoxAnswers.h"
#include "DialogDriver.h"
#include "ModuleUnderTest.h"
#include "Plant.h"
#include "SampleFolder.h"
#include "SettingsClass.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using Lines = std::vector<std::string>;

/// COM on this thread, for the class of the settings.
class Apartment
{
public:
    Apartment() { EXPECT_GE(CoInitialize(nullptr), 0); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

class PropertyPlant : public ::testing::Test
{
protected:
    PropertyPlant() : m_objects(refhost::Plant::LiveObjects()), plant(refhost::Plant::OpenMemory())
    {
        plant->Load(refhost::SampleFolder());
        settings = std::make_unique<refhost::SettingsClass>(*plant);
        query = plant->NewQuery();
        factory = plant->ConfigFactory();
        manager = plant->ObjectManager();
        project = Find(L"project", L"Body Plant North");
        set = Find(L"plantypeset", L"Body Shop");
        EXPECT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, service), S_OK);
    }
    ~PropertyPlant() override
    {
        EXPECT_EQ(plant->Calls().Misuses(), Lines{}) << "variants that were not empty before the call";
        service.reset();
        query.reset();
        factory.reset();
        manager.reset();
        project.reset();
        set.reset();
        settings.reset();
        plant.reset();
        EXPECT_EQ(refhost::Plant::LiveObjects(), m_objects) << "objects of the host are left";
    }

    ComPtr<IQP_BaseDataObject> Find(const wchar_t* table, const wchar_t* name) const
    {
        ComPtr<IQP_BaseDataObject> object = plant->Find(table, name);
        EXPECT_TRUE(object) << "the sample has no such object";
        return object;
    }

    const Apartment apartment;

private:
    const long m_objects;

protected:
    ModuleUnderTest module;
    std::unique_ptr<refhost::Plant> plant;
    std::unique_ptr<refhost::SettingsClass> settings;
    ComPtr<IQP_Query> query;
    ComPtr<IQPConfigFactory> factory;
    ComPtr<IQPFObjectManager> manager;
    ComPtr<IQP_BaseDataObject> project;
    ComPtr<IQP_BaseDataObject> set;
    ComPtr<IScriptActionAndCommandManager> service;
    BoxAnswers boxes;
    DialogDriver dialogs;
};
