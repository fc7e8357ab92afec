// The settings service, the object manager and the macro loader of a host in memory.
#include "MemoryHost.h"
#include "RegisteredProgId.h"
#include "Untouched.h"
#include "XInitValueWrapper.h"

#include <gtest/gtest.h>

#include <objbase.h>

#include <optional>

namespace
{
using Lines = std::vector<std::string>;

constexpr CLSID kSettingsClass = {
    0xEDB6CC40, 0x0DC9, 0x11D3, {0x89, 0xFF, 0x00, 0x40, 0x05, 0xA1, 0xD9, 0x1C}};
/// In this process, its handlers, on this machine and on others.
constexpr DWORD kAnywhere = 0x17;

class MemoryServices : public ::testing::Test
{
protected:
    MemoryServices() { EXPECT_GE(CoInitialize(nullptr), 0); }
    ~MemoryServices() override { CoUninitialize(); }

    HRESULT Create(ComPtr<IQPHostSettings>& settings)
    {
        return CoCreateInstance(kSettingsClass, nullptr, kAnywhere, __uuidof(IQPHostSettings),
                                settings.putVoid());
    }

    /// "status value" of the setting for script actions.
    std::string Setting(IQPHostSettings* settings)
    {
        XQPComVariant value;
        const HRESULT status = settings->GetValue(XQPComBSTR(L"properties"),
                                                  XQPComBSTR(L"enablemcmscriptactions"), VT_BOOL, &value, 1);
        return std::to_string(status) + " " + host.Describe(value.Value());
    }

    /// Sends the request and takes the reply into `count` and `reply`.
    HRESULT Invoke(const XInitValueWrapper& request)
    {
        ULONG sent = 0;
        tagINITVALUE* values = nullptr;
        EXPECT_TRUE(request.GetStruct(sent, &values));
        const HRESULT status = host.Loader().Invoke(sent, values, &count, &reply);
        XInitValueWrapper::FreeStruct(sent, values);
        return status;
    }

    /// "name = value" of each entry of the reply, which is freed.
    Lines Reply()
    {
        Lines lines;
        for (ULONG index = 0; reply && index < count; ++index)
            lines.push_back(Utf8OrNull(reply[index].bstrParamName) + " = " +
                            host.Describe(reply[index].varValue));
        XInitValueWrapper::FreeStruct(count, reply);
        reply = nullptr;
        return lines;
    }

    /// A value with an array of these objects.
    static XQPComVariant ArrayOf(const std::vector<MemoryObject*>& objects, LONG low = 0)
    {
        SAFEARRAYBOUND bound{static_cast<ULONG>(objects.size()), low};
        XQPComVariant array;
        array.Value().vt = VT_ARRAY | VT_VARIANT;
        array.Value().parray = SafeArrayCreate(VT_VARIANT, 1, &bound);
        LONG index = low;
        for (MemoryObject* object : objects)
        {
            const MemoryValue value(static_cast<IQP_BaseDataObject*>(object));
            SafeArrayPutElement(array.Value().parray, &index, const_cast<VARIANT*>(&value.Value()));
            ++index;
        }
        return array;
    }

    MemoryHost host;
    ULONG count = 99;
    tagINITVALUE* reply = nullptr;
};

TEST_F(MemoryServices, the_settings_are_created_while_they_are_offered)
{
    ComPtr<IQPHostSettings> settings;
    EXPECT_LT(Create(settings), 0);
    EXPECT_FALSE(settings);
    {
        const MemorySettings::Offered offered(host.Settings());
        ASSERT_EQ(Create(settings), S_OK);
        EXPECT_EQ(settings.get(), &host.Settings());
        host.Settings().createStatus = E_ACCESSDENIED;
        EXPECT_EQ(Create(settings), E_ACCESSDENIED);
        EXPECT_FALSE(settings);
    }
    host.Settings().createStatus = S_OK;
    EXPECT_LT(Create(settings), 0);
    EXPECT_EQ(host.Settings().References(), 0U);
    EXPECT_EQ(host.calls, Lines{});
}

TEST_F(MemoryServices, the_settings_answer_what_was_set)
{
    IQPHostSettings* const settings = &host.Settings();
    EXPECT_EQ(Setting(settings), "1 EMPTY");
    host.Settings().Set(L"properties", L"enablemcmscriptactions", true);
    EXPECT_EQ(Setting(settings), "0 BOOL true");
    host.Settings().Set(L"properties", L"enablemcmscriptactions", L"1", S_FALSE);
    EXPECT_EQ(Setting(settings), "1 BSTR '1'");
    EXPECT_EQ(host.calls, (Lines(3, "settings.GetValue(properties, enablemcmscriptactions, 11, 1)")));
    EXPECT_EQ(settings->DeleteKey(nullptr, 1), E_NOTIMPL);
    EXPECT_EQ(host.calls.back(), "settings.DeleteKey()");
}

TEST_F(MemoryServices, the_manager_answers_with_the_loader)
{
    ComPtr<IQPFObject> object;
    EXPECT_EQ(host.Manager().GetObject(MemoryLoader::kClass, 1, object.put()), S_OK);
    ComPtr<IVBALoaderManager> loader;
    EXPECT_EQ(loader.queryFrom(object.get()), S_OK);
    EXPECT_EQ(loader.get(), static_cast<IVBALoaderManager*>(&host.Loader()));
    host.Loader().offersLoader = false;
    EXPECT_EQ(loader.queryFrom(object.get()), E_NOINTERFACE);
    host.Manager().status = E_FAIL;
    EXPECT_EQ(host.Manager().GetObject(CLSID{}, 0, object.put()), E_FAIL);
    EXPECT_TRUE(object) << "the object comes all the same";
    host.Manager().object.reset();
    EXPECT_EQ(host.Manager().GetObject(CLSID{}, 1, object.put()), E_FAIL);
    EXPECT_FALSE(object);
    EXPECT_EQ(host.calls, (Lines{"manager.GetObject({3F0E8D7B-52A6-4B39-9C14-7D60E82BA145}, 1)",
                                 "manager.GetObject({00000000-0000-0000-0000-000000000000}, 0)",
                                 "manager.GetObject({00000000-0000-0000-0000-000000000000}, 1)"}));
}

TEST_F(MemoryServices, the_loader_records_the_request)
{
    const ComPtr<MemoryObject> first = host.Object("first");
    const ComPtr<MemoryObject> second = host.Object("second");
    XInitValueWrapper request(0, nullptr);
    request.SetData(L"pProject", MemoryValue(static_cast<IUnknown*>(nullptr)).Value());
    request.SetData(L"pQuery", MemoryValue(&host.Query()).Value());
    request.SetData(L"pConfigFactory", MemoryValue(&host.Config()).Value());
    request.SetData(L"bLogEnabled", MemoryValue(0).Value());
    request.SetData(L"pVBAProjectsArray", ArrayOf({second.get(), first.get()}).Value());
    request.SetData(L"Menupath", XQPComVariant(L"GetListOfMacros").Value());
    EXPECT_EQ(Invoke(request), S_OK);
    EXPECT_EQ(Reply(), Lines{});
    EXPECT_EQ(host.calls,
              Lines{"loader.Invoke(pProject = UNKNOWN null, pQuery = UNKNOWN query, "
                    "pConfigFactory = UNKNOWN config, bLogEnabled = I4 0, "
                    "pVBAProjectsArray = ARRAY {first, second}, Menupath = BSTR 'GetListOfMacros')"});
}

TEST_F(MemoryServices, the_loader_records_odd_arrays)
{
    const ComPtr<MemoryObject> first = host.Object("first");
    XQPComVariant null;
    null.Value().vt = VT_ARRAY | VT_VARIANT;
    XInitValueWrapper request(0, nullptr);
    request.SetData(L"a", ArrayOf({}).Value());
    request.SetData(L"b", ArrayOf({first.get(), nullptr}).Value());
    request.SetData(L"c", ArrayOf({first.get()}, 1).Value());
    EXPECT_EQ(Invoke(request), S_OK);
    EXPECT_EQ(Reply(), Lines{});
    tagINITVALUE direct{nullptr, null.Value()};
    EXPECT_EQ(host.Loader().Invoke(1, &direct, &count, &reply), S_OK);
    EXPECT_EQ(Reply(), Lines{});
    EXPECT_EQ(host.calls, (Lines{"loader.Invoke(a = ARRAY {}, b = ARRAY {first, null}, "
                                 "c = ARRAY of another shape)",
                                 "loader.Invoke(null = ARRAY null)"}));
}

TEST_F(MemoryServices, the_loader_replies_what_was_set)
{
    const ComPtr<MemoryObject> object = host.Object("no text");
    host.Loader()
        .Macros({L"ModA.Run", L"ModB.Run"})
        ->Entry(L"Other", 5)
        ->Entry(L"Macro5", static_cast<IQP_BaseDataObject*>(object.get()));
    host.Loader().Entry(nullptr, L"nameless")->status = S_FALSE;
    EXPECT_EQ(Invoke({0, nullptr}), S_FALSE);
    EXPECT_EQ(Reply(), (Lines{"Macro1 = BSTR 'ModA.Run'", "Macro2 = BSTR 'ModB.Run'", "Other = I4 5",
                              "Macro5 = UNKNOWN no text", "null = BSTR 'nameless'"}));
    EXPECT_EQ(References(object), 2U) << "the test holds one, the reply that was set another";
    host.Loader().Clear()->Macros({L"x"})->count = 3;
    Invoke({0, nullptr});
    EXPECT_EQ(Reply(), (Lines{"Macro1 = BSTR 'x'", "null = EMPTY", "null = EMPTY"}));
    host.Loader().givesArray = false;
    Invoke({0, nullptr});
    EXPECT_EQ(count, 3U);
    EXPECT_FALSE(reply);
}

TEST_F(MemoryServices, a_prog_id_is_known_while_it_is_registered)
{
    CLSID found{};
    {
        const RegisteredProgId none(MemoryLoader::kProgId);
        EXPECT_LT(CLSIDFromProgID(MemoryLoader::kProgId, &found), 0);
    }
    {
        const RegisteredProgId registered(MemoryLoader::kProgId, MemoryLoader::kClass);
        EXPECT_EQ(CLSIDFromProgID(MemoryLoader::kProgId, &found), S_OK);
        EXPECT_TRUE(found == MemoryLoader::kClass);
    }
    const RegisteredProgId none(MemoryLoader::kProgId);
    EXPECT_LT(CLSIDFromProgID(MemoryLoader::kProgId, &found), 0);
}
} // namespace
