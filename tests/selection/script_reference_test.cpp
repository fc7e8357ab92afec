// The script list and values by address (VT_BYREF): each is copied when it is read.
#include "LookupFixture.h"
#include "ReferenceValues.h"
#include "XSelectOrvoitemDlg.h"

#include <memory>

namespace
{
using namespace qptools;

class ScriptReferences : public LookupFixture
{
protected:
    ScriptReferences() { project->Is(L"XDOOrvoProject"); }

    ScriptRecord& Collect(const ComPtr<MemoryObject>& first, const ComPtr<MemoryObject>& second = {})
    {
        host.Query().result = second ? host.List({first, second}) : host.List({first});
        scripts.clear();
        EXPECT_EQ(
            XSelectOrvoitemDlg(nullptr, L"script", project.get(), &host.Query()).CollectScripts(scripts),
            S_OK);
        return scripts.at(first.get());
    }

    const ComPtr<MemoryObject> project = host.Object("project");
    const ComPtr<MemoryObject> script = host.Object("s");
    ScriptMap scripts;
};

TEST_F(ScriptReferences, AProjectByAddressIsAProject)
{
    IUnknown* object = static_cast<Data*>(project.get());
    script->Answer(L"m_pDODefaultImpl", S_OK, ByAddress(VT_UNKNOWN, &object));
    EXPECT_STREQ(Collect(script)[kScriptLocation].GetString(), L"Project Lib");

    VARIANT behind = Reference(VT_UNKNOWN, static_cast<Data*>(project.get()));
    script->Answer(L"m_pDODefaultImpl", S_OK, ByAddress(VT_VARIANT, &behind));
    EXPECT_STREQ(Collect(script)[kScriptLocation].GetString(), L"Project Lib");

    object = nullptr;
    script->Answer(L"m_pDODefaultImpl", S_OK, ByAddress(VT_UNKNOWN, &object));
    EXPECT_STREQ(Collect(script)[kScriptLocation].GetString(), L"Library");
}

TEST_F(ScriptReferences, ANullAddressIsAnEmptyCellAndNoProject)
{
    for (const VARIANT& nowhere : NullAddresses())
    {
        for (const wchar_t* attribute :
             {L"name", L"m_pDODefaultImpl", L"languagetype", L"creationdate", L"modificationdate"})
            script->Answer(attribute, S_OK, nowhere);
        ScriptRecord& record = Collect(script);
        EXPECT_STREQ(record[kScriptLocation].GetString(), L"Library") << nowhere.vt;
        for (const int column : {kScriptName, kScriptLanguage, kScriptCreationDate, kScriptModificationDate})
            EXPECT_EQ(record[static_cast<std::size_t>(column)].Type(), VT_EMPTY) << nowhere.vt;
    }
}

TEST_F(ScriptReferences, AValueThatChangesAfterTheReadIsShownAsItWas)
{
    LONG language = 3;
    XQPComBSTR name(L"before");
    BSTR text = name;
    script->Answer(L"languagetype", S_OK, ByAddress(VT_I4, &language));
    script->Answer(L"name", S_OK, ByAddress(VT_BSTR, &text));
    host.onCall = [&](const std::string& call) {
        if (call != "t.HasRight(4)")
            return;
        language = 4;
        name = L"after";
        text = name;
    };
    ScriptRecord& record = Collect(script, host.Object("t"));
    EXPECT_EQ(record[kScriptLanguage].GetInt(), 3);
    EXPECT_STREQ(record[kScriptName].GetString(), L"before");
}

TEST_F(ScriptReferences, AValueThatIsFreedAfterTheReadIsNotReadAgain)
{
    auto date = std::make_unique<BSTR>(SysAllocString(L"2020-01-02"));
    script->Answer(L"creationdate", S_OK, ByAddress(VT_BSTR, date.get()));
    host.onCall = [&](const std::string& call) {
        if (call != "t.HasRight(4)")
            return;
        SysFreeString(*date);
        *date = nullptr;
        date.reset();
    };
    ScriptRecord& record = Collect(script, host.Object("t"));
    EXPECT_STREQ(record[kScriptCreationDate].GetString(), L"2020-01-02");
}

TEST_F(ScriptReferences, TheNumbersOfAScriptActionMayComeByAddress)
{
    LONG type = 7;
    const auto action = host.Object("action");
    action->Answer(L"actiontype", S_OK, ByAddress(VT_I4, &type));
    action->Answer(L"beforeafter", S_OK, ByAddress(VT_I4, nullptr));
    ScriptActionMap actions;
    const XSelectOrvoitemDlg dialog(nullptr, L"script", project.get(), nullptr);
    EXPECT_EQ(dialog.AddScriptActionVectorToMap(action.get(), actions), S_OK);
    EXPECT_EQ(actions.at(action.get()).actionType, 7);
    EXPECT_EQ(actions.at(action.get()).beforeAfter, 0);
}
} // namespace
