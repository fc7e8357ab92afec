#include "SevenClasses.h"

#include <objbase.h>

const ClassFacts kSevenClasses[7] = {
    {L"QPProjectChoice", L"{F8A2B382-E9EF-4E5E-8D6C-A169B64DDEC8}", L"{EAA016E1-030A-4906-A837-8FCD8897019E}",
     102, false, false, false, L"Qptools."},
    {L"QPSelectOrvoItem", L"{ADB28D5A-6131-45CD-A245-EE026CA93ED6}",
     L"{0BA36F04-C2E3-4157-84AC-A0D6612367BC}", 103, true, true, true, L"Qptools."},
    {L"QPSelectDlg", L"{445B9A00-C2E4-49AE-A61F-D901593BF9B4}", L"{26AD14DB-61AA-4C37-A4B9-BFB74E7B36C5}",
     105, true, true, false, L"Qptools."},
    {L"QPUserActionLog", L"{C298C4A0-29FF-4F40-9BB6-FF201B491C42}", L"{FE2FC343-967A-4B15-8C26-77925F0DDF8B}",
     106, true, true, true, L"Qptools."},
    {L"XScriptActionAndCommandManager", L"{777C4939-912A-4F56-BFA1-3EACD0BDD16C}",
     L"{98089820-09E8-46D5-8D9C-C053CBEE9807}", 107, true, true, true, L"Qptools."},
    {L"QPCopyOptDlg", L"{9F79747B-EC88-48ad-9865-1C079A8C9221}", L"{4F91F72C-ABE1-496F-B053-8C53715C2A8F}",
     108, true, true, false, L"QPTools."},
    {L"XBookMark", L"{369A9D25-58F3-4217-8D7A-6B136CDF3923}", L"{11DB95B4-ED6F-43C4-B40E-530FA22AB29C}", 384,
     false, false, false, L"Qptools."},
};

CLSID ClassFacts::Class() const
{
    CLSID id = {};
    EXPECT_EQ(CLSIDFromString(classId, &id), S_OK);
    return id;
}

IID ClassFacts::Interface() const
{
    IID id = {};
    EXPECT_EQ(IIDFromString(interfaceId, &id), S_OK);
    return id;
}

std::string ClassTestName(const testing::TestParamInfo<ClassFacts>& info)
{
    const std::wstring name = info.param.name;
    return {name.begin(), name.end()};
}

std::ostream& operator<<(std::ostream& out, const ClassFacts& facts)
{
    const std::wstring name = facts.name;
    return out << std::string(name.begin(), name.end());
}
