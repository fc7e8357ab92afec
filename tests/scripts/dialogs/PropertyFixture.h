// What tests of the property dialogs share: a host in memory with scripts, types and plan types, and the call
// that shows a dialog.
#pragma once

#include "DialogFixture.h"

#include "RegisteredProgId.h"

class PropertyFixture : public DialogFixture
{
protected:
    PropertyFixture()
    {
        EXPECT_EQ(module.Create(CLSID_XScriptActionAndCommandManager, service), S_OK);
        set->Children(L"orvoplantype", host.List({assembly, milling}));
        host.Query().result = host.List({drill, weld});
        for (const wchar_t* name : {L"cell", L"line"})
            host.Config().Type(name);
        host.Config().Type(L"plan", true);
    }

    /// A script or plan type. The dialogs read "m_name" of the stored one and list them by "name".
    ComPtr<MemoryObject> Named(const char* name, const wchar_t* shown)
    {
        ComPtr<MemoryObject> object = host.Object(name);
        object->Set(L"m_name", shown)->Set(L"name", shown);
        return object;
    }

    /// Shows the dialog of `object` and runs the steps in it; without steps no dialog may come up.
    HRESULT Show(const wchar_t* typeName, const ComPtr<MemoryObject>& object, Steps steps)
    {
        if (!steps.empty())
            dialogs.OnDialog(std::move(steps));
        host.calls.clear();
        const HRESULT status = service->ShowScriptActionOrCommandDlg(
            manager, factory, query, owner.get(), planTypes.get(), object.get(), XQPComBSTR(typeName));
        EXPECT_TRUE(dialogs.AllShown()) << "no dialog came up";
        std::ostringstream result;
        result << std::hex << status;
        Ended(result.str());
        return status;
    }

    /// The last write, as the host recorded it; empty if nothing was written.
    std::string Written() const
    {
        for (auto call = host.calls.rbegin(); call != host.calls.rend(); ++call)
            if (call->find(".SetAttribute") != std::string::npos)
                return *call;
        return {};
    }

    ComPtr<IScriptActionAndCommandManager> service;

    const ComPtr<MemoryObject> project = host.Object("project");
    const ComPtr<MemoryObject> set = host.Object("set");
    const ComPtr<MemoryObject> drill = Named("drill", L"Drill");
    const ComPtr<MemoryObject> weld = Named("weld", L"Weld");
    const ComPtr<MemoryObject> assembly = Named("assembly", L"Assembly");
    const ComPtr<MemoryObject> milling = Named("milling", L"Milling");

    // The arguments of the call.

    IQPFObjectManager* manager = &host.Manager();
    IQPConfigFactory* factory = &host.Config();
    IQP_Query* query = &host.Query();
    ComPtr<MemoryObject> owner = project;
    ComPtr<MemoryObject> planTypes = set;
};
