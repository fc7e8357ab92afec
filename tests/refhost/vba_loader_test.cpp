// The macro loader of the reference host.
#include "SearchSteps.h"
#include "VbaLoader.h"
#include "XInitValueWrapper.h"

namespace
{
constexpr const wchar_t* kProjects = L"pVBAProjectsArray";

class MacroLoader : public SamplePlant
{
protected:
    MacroLoader()
    {
        ComPtr<IQPFObject> object;
        EXPECT_EQ(plant->ObjectManager()->GetObject(refhost::kVbaLoaderClass, 1, object.put()), S_OK);
        EXPECT_EQ(loader.queryFrom(object.get()), S_OK);
        Set(L"pProject", Value(static_cast<IUnknown*>(nullptr)));
        Set(L"pQuery", Value(plant->NewQuery()));
        Set(L"pConfigFactory", Value(plant->ConfigFactory()));
        Set(L"bstrConfigName", Value(L"Default Configuration"));
        Set(L"bLogEnabled", Value(0));
        Set(kProjects, ArrayOf({L"Body shop macros"}));
        Set(L"Menupath", Value(L"GetListOfMacros"));
        Set(L"pSelectedObject", Value(Find(L"scriptcommand", L"Weld macro all")));
    }

    void Set(const wchar_t* name, const Value& value) { request.SetData(name, value.get()); }

    /// An array of objects of a table; a null name is a null object.
    Value ArrayOf(std::initializer_list<const wchar_t*> names, const wchar_t* table = L"vbaproject") const
    {
        Value array;
        array->vt = VT_ARRAY | VT_VARIANT;
        array->parray = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(names.size()));
        LONG index = 0;
        for (const wchar_t* name : names)
        {
            const Value element(name ? Find(table, name) : ComPtr<IQP_BaseDataObject>());
            SafeArrayPutElement(array->parray, &index, const_cast<VARIANT*>(&element.get()));
            ++index;
        }
        return array;
    }

    HRESULT Invoke()
    {
        reply.clear();
        ULONG sent = 0;
        tagINITVALUE* values = nullptr;
        EXPECT_TRUE(request.GetStruct(sent, &values));
        ULONG count = 99;
        tagINITVALUE* results = nullptr;
        const HRESULT status = loader->Invoke(sent, values, &count, &results);
        for (ULONG index = 0; index < count; ++index)
        {
            EXPECT_EQ(results[index].varValue.vt, VT_BSTR);
            reply.push_back(std::wstring(results[index].bstrParamName) + L"=" +
                            results[index].varValue.bstrVal);
        }
        XInitValueWrapper::FreeStruct(count, results);
        XInitValueWrapper::FreeStruct(sent, values);
        return status;
    }

    XInitValueWrapper request{0, nullptr};
    ComPtr<IVBALoaderManager> loader;
    Names reply;
};

TEST_F(MacroLoader, lists_the_macros_of_a_project)
{
    EXPECT_EQ(Invoke(), S_OK);
    EXPECT_EQ(reply, (Names{L"Macro1=ModWelding.CheckAll", L"Macro2=ModWelding.ColourSpots",
                            L"Macro3=ModLayout.Draw", L"Macro4=ModRobot.Teach", L"Macro5=ModRobot.Park"}));
}

TEST_F(MacroLoader, lists_project_by_project_with_equal_names)
{
    Set(kProjects, ArrayOf({L"Company macros", L"Paint macros"}));
    EXPECT_EQ(Invoke(), S_OK);
    EXPECT_EQ(reply, (Names{L"Macro1=ModRules.Show", L"Macro2=ModWelding.CheckAll", L"Macro3=ModPaint.Mix"}));
}

TEST_F(MacroLoader, replies_with_nothing_where_there_are_no_macros)
{
    plant->Add(L"vbaproject", L"Empty");
    const Value arrays[] = {ArrayOf({}), ArrayOf({L"Empty"})};
    for (const Value& array : arrays)
    {
        Set(kProjects, array);
        EXPECT_EQ(Invoke(), S_OK);
        EXPECT_EQ(reply, Names{});
    }
}

TEST_F(MacroLoader, knows_one_operation)
{
    Set(L"Menupath", Value(L"Run"));
    EXPECT_EQ(Invoke(), E_INVALIDARG);
    Set(L"Menupath", Value(L"getlistofmacros"));
    EXPECT_EQ(Invoke(), E_INVALIDARG);
    EXPECT_EQ(loader->Reserved1(), E_NOTIMPL);
}

TEST_F(MacroLoader, needs_an_array_of_vba_projects_of_the_plant)
{
    Value null;
    null->vt = VT_ARRAY | VT_VARIANT;
    const auto other = refhost::Plant::OpenMemory();
    Value foreign = ArrayOf({nullptr});
    LONG first = 0;
    const Value project(other->Add(L"vbaproject", L"Body shop macros"));
    SafeArrayPutElement(foreign->parray, &first, const_cast<VARIANT*>(&project.get()));
    const Value arrays[] = {ArrayOf({nullptr}), ArrayOf({L"Check names"}, L"script"), std::move(null),
                            std::move(foreign)};
    for (const Value& array : arrays)
    {
        Set(kProjects, array);
        EXPECT_EQ(Invoke(), E_INVALIDARG);
    }
}

TEST_F(MacroLoader, needs_every_parameter_in_its_type)
{
    for (const wchar_t* name : {L"pProject", L"pQuery", L"pConfigFactory", L"bstrConfigName", L"bLogEnabled",
                                kProjects, L"Menupath", L"pSelectedObject"})
    {
        Value before;
        ASSERT_TRUE(request.GetData(name, before.get()));
        Set(name, Value(true));
        EXPECT_EQ(Invoke(), E_INVALIDARG) << name;
        Set(name, before);
    }
    EXPECT_EQ(Invoke(), S_OK);
    ULONG count = 1;
    tagINITVALUE* results = nullptr;
    EXPECT_EQ(loader->Invoke(0, nullptr, &count, &results), E_INVALIDARG);
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(loader->Invoke(1, nullptr, &count, &results), E_INVALIDARG);
    EXPECT_EQ(loader->Invoke(0, nullptr, nullptr, &results), E_POINTER);
    EXPECT_EQ(loader->Invoke(0, nullptr, &count, nullptr), E_POINTER);
}

TEST_F(MacroLoader, its_calls_pass_the_gate)
{
    Set(L"pProject", Value(Find(L"project", L"Body Plant North")));
    Set(kProjects, ArrayOf({L"Paint macros", L"Company macros"}));
    plant->Calls().Clear();
    plant->Calls().Record(true);
    plant->Calls().FailCall(1, refhost::Fault::Status, E_FAIL);
    EXPECT_EQ(Invoke(), E_FAIL);
    EXPECT_EQ(reply, Names{});
    EXPECT_EQ(plant->Calls().Calls(),
              Lines{"IVBALoaderManager::Invoke({pProject = <project Body Plant North>, pQuery = <object>, "
                    "pConfigFactory = <object>, bstrConfigName = \"Default Configuration\", bLogEnabled = 0, "
                    "pVBAProjectsArray = [<vbaproject Company macros>, <vbaproject Paint macros>], "
                    "Menupath = \"GetListOfMacros\", "
                    "pSelectedObject = <scriptcommand Weld macro all>})"});
    plant->Calls().FailCall(2, refhost::Fault::NullObject);
    EXPECT_EQ(Invoke(), S_OK);
    EXPECT_EQ(reply, Names{});
    EXPECT_EQ(Invoke(), S_OK);
    EXPECT_EQ(reply.size(), 3U);
}
} // namespace
