// The property dialogs on the sample plant, used without a mouse.
#pragma once

#include "KeyboardUser.h"
#include "ModuleUnderTest.h"
#include "Plant.h"
#include "SampleFolder.h"
#include "SettingsClass.h"
#include "WindowTexts.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <memory>

class PropertiesByKeyboard : public ::testing::Test
{
protected:
    PropertiesByKeyboard() : plant(refhost::Plant::OpenMemory())
    {
        plant->Load(refhost::SampleFolder());
        EXPECT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, service), S_OK);
    }

    /// Shows the dialog of an object that belongs to the body shop.
    HRESULT Show(const wchar_t* table, const wchar_t* name, const wchar_t* typeName)
    {
        object = plant->Find(table, name);
        return service->ShowScriptActionOrCommandDlg(
            plant->ObjectManager().get(), plant->ConfigFactory().get(), plant->NewQuery().get(),
            plant->Find(L"project", L"Body Plant North").get(),
            plant->Find(L"plantypeset", L"Body Shop").get(), object.get(), XQPComBSTR(typeName));
    }

    /// An attribute of the object that was shown last, as text.
    std::string Attribute(const wchar_t* name) const
    {
        XQPComVariant value;
        EXPECT_GE(object->GetAttribute(XQPComBSTR(name), &value), 0);
        return Utf8Text(value.GetString());
    }

    ModuleUnderTest module;
    std::unique_ptr<refhost::Plant> plant;
    const refhost::SettingsClass settings{*plant};
    ComPtr<IScriptActionAndCommandManager> service;
    ComPtr<IQP_BaseDataObject> object;
    KeyboardUser user;
};
