#include "TypeLibraryTable.h"

#include <gtest/gtest.h>

#include "TypeLibraryText.h"

#include <set>

namespace
{
constexpr int kAfterUnknown = 3;
constexpr int kAfterConfigObject = 5;

InterfaceRow Enumerator(const std::wstring& name, const std::string& id, const std::string& element)
{
    return {name,
            id,
            "IUnknown",
            kAfterUnknown,
            {"RemNext(in unsigned long cElems, out " + element + "** prgElems, out unsigned long* pcFetched)",
             "Skip(in unsigned long cElems)", "Reset()", "Clone(out " + Narrow(name) + "** ppEnum)",
             "GetSingleNext(out " + element + "** ppElem)"}};
}

InterfaceRow Carried(const std::wstring& name, const std::string& id)
{
    return {name, id, "IUnknown", kAfterUnknown, {}};
}

void ExpectLibraryItself(ITypeLib* library)
{
    const Documented text = DocumentationOf(library);
    EXPECT_EQ("QPTOOLSLib", text.name);
    EXPECT_EQ("qptools 1.0 Type Library", text.help);
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(S_OK, library->GetLibAttr(&attributes));
    EXPECT_EQ("{B59FF2AB-0C7E-46F3-8FF1-2D951BC82743}", TextOf(attributes->guid));
    EXPECT_EQ(1, attributes->wMajorVerNum);
    EXPECT_EQ(0, attributes->wMinorVerNum);
    EXPECT_EQ(SYS_WIN64, attributes->syskind);
    EXPECT_EQ(0u, attributes->lcid);
    library->ReleaseTLibAttr(attributes);
}

void ExpectInterface(ITypeLib* library, const InterfaceRow& row)
{
    SCOPED_TRACE(Narrow(row.name));
    const ComPtr<ITypeInfo> type = FindType(library, row.name);
    ASSERT_TRUE(type);
    const CTypeAttributes attributes(type.get());
    EXPECT_EQ(TKIND_INTERFACE, attributes->typekind);
    EXPECT_EQ(row.id, TextOf(attributes->guid));
    EXPECT_EQ(0, attributes->wTypeFlags);
    EXPECT_EQ(Narrow(row.name) + " Interface", DocumentationOf(type.get()).help);
    EXPECT_EQ(row.base, BaseOf(type.get()));
    EXPECT_EQ(row.methods, MethodsOf(type.get()));
    std::vector<int> slots;
    for (size_t i = 0; i < row.methods.size(); ++i)
        slots.push_back(row.firstSlot + static_cast<int>(i));
    EXPECT_EQ(slots, SlotsOf(type.get()));
}

void ExpectClass(ITypeLib* library, const ClassRow& row)
{
    SCOPED_TRACE(Narrow(row.name));
    const ComPtr<ITypeInfo> type = FindType(library, row.name);
    ASSERT_TRUE(type);
    const CTypeAttributes attributes(type.get());
    EXPECT_EQ(TKIND_COCLASS, attributes->typekind);
    EXPECT_EQ(row.id, TextOf(attributes->guid));
    EXPECT_EQ(TYPEFLAG_FCANCREATE, attributes->wTypeFlags);
    EXPECT_EQ(Narrow(row.name) + " Class", DocumentationOf(type.get()).help);
    EXPECT_EQ(1, attributes->cImplTypes);
    EXPECT_EQ(row.interfaceName, BaseOf(type.get()));
    INT flags = 0;
    EXPECT_EQ(S_OK, type->GetImplTypeFlags(0, &flags));
    EXPECT_EQ(IMPLTYPEFLAG_FDEFAULT, flags);
}

void ExpectRecord(ITypeLib* library, const RecordRow& row)
{
    SCOPED_TRACE(Narrow(row.name));
    const ComPtr<ITypeInfo> type = FindType(library, row.name);
    ASSERT_TRUE(type);
    EXPECT_EQ(row.kind, CTypeAttributes(type.get())->typekind);
    EXPECT_EQ(row.fields, FieldsOf(type.get()));
}

/// Interfaces and classes are all in the tables; of other kinds the library also holds what these refer to.
void ExpectNothingElse(ITypeLib* library)
{
    std::set<std::string> expected;
    for (const auto* rows : {&kComponentInterfaces, &kHostInterfaces, &kCarriedInterfaces})
    {
        for (const InterfaceRow& row : *rows)
            expected.insert(Narrow(row.name));
    }
    for (const ClassRow& row : kClasses)
        expected.insert(Narrow(row.name));
    std::set<std::string> found;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i)
    {
        TYPEKIND kind = TKIND_MAX;
        ComPtr<ITypeInfo> type;
        ASSERT_EQ(S_OK, library->GetTypeInfoType(i, &kind));
        ASSERT_EQ(S_OK, library->GetTypeInfo(i, type.put()));
        EXPECT_NE(TKIND_DISPATCH, kind);
        if (kind == TKIND_INTERFACE || kind == TKIND_COCLASS)
            found.insert(DocumentationOf(type.get()).name);
    }
    EXPECT_EQ(expected, found);
}
} // namespace

const std::vector<InterfaceRow> kComponentInterfaces = {
    {L"IQPProjectChoice",
     "{EAA016E1-030A-4906-A837-8FCD8897019E}",
     "IUnknown",
     kAfterUnknown,
     {"ShowDialog(in IQP_BaseDataObject* piProjectRoot, in BSTR bstrTitle, out long* pbCanceled, "
      "out IQP_BaseDataObject** ppiSelectedProject, in long lnghWndParent)",
      "ShowDialogEx(in IQP_BaseDataObject* piProjectRoot, in BSTR bstrTitle, in long bShowTemplates, "
      "out long* pbCanceled, out long* pbCreate, out IQP_BaseDataObject** ppiSelectedProject, "
      "in long lnghWndParent)",
      "Initialize(in BSTR bstrCancelButtonText)"}},
    {L"IQPSelectOrvoItem",
     "{0BA36F04-C2E3-4157-84AC-A0D6612367BC}",
     "IUnknown",
     kAfterUnknown,
     {"Initialize(in VARIANT* pInitValues)",
      "ShowDialog(in IQP_BaseDataObject* pProject, in BSTR bstrItemTypeName, "
      "out IQP_BaseDataObject** ppSelectedItem)",
      "GetProject(in IQP_BaseDataObject* pDO, out IQP_BaseDataObject** ppProject)",
      "GetPlanType(in IQP_BaseDataObject* pDO, out IQP_BaseDataObject** ppPlanType)",
      "GetTypeName(in IQP_BaseDataObject* pDO, out BSTR* bstrTypename)",
      "GetProjectAndPlanType(in IQP_BaseDataObject* pDO, out IQP_BaseDataObject** ppProject, "
      "out IQP_BaseDataObject** ppPlanType)",
      "GetTypeNameAndPlanType(in IQP_BaseDataObject* pDO, out BSTR* bstrTypename, "
      "out IQP_BaseDataObject** ppPlanType)",
      "GetOrvoCompBase(in IQP_BaseDataObject* pDO, in BSTR bstrTypename, out IQP_BaseDataObject** pDOBase)"}},
    {L"IQPSelectDlg",
     "{26AD14DB-61AA-4C37-A4B9-BFB74E7B36C5}",
     "IUnknown",
     kAfterUnknown,
     {"ShowDialog(in unsigned long ulCount, in tagINITVALUE* pValueArray, out retval IUnknown** "
      "pSelObject)"}},
    {L"IQPUserActionLog",
     "{FE2FC343-967A-4B15-8C26-77925F0DDF8B}",
     "IUnknown",
     kAfterUnknown,
     {"WriteTimeStampWithInfo(in BSTR bstrInfo)", "WriteLine(in BSTR bstrInfoLine)",
      "WriteUserActionInfo(in BSTR bstrAction, in BSTR bstrObjectId, in BSTR bstrObjectGUID, "
      "in BSTR bstrObjectConfName, in BSTR bstrPlanTypeName)",
      "WriteTimeStamp()"}},
    {L"IScriptActionAndCommandManager",
     "{98089820-09E8-46D5-8D9C-C053CBEE9807}",
     "IUnknown",
     kAfterUnknown,
     {"ShowScriptActionOrCommandDlg(in IQPFObjectManager* pObjectManager, in IQPConfigFactory* pCF, "
      "in IQP_Query* pQuery, in IQP_BaseDataObject* pProject, in IQP_BaseDataObject* pPTS, "
      "in IQP_BaseDataObject* pScriptAction, in BSTR bstrTypename)",
      "GetScriptCommands(in IQP_Query* pQuery, in IQP_BaseDataObject* pPTS, in BSTR bstrTypename, "
      "in IQP_BaseDataObject* pPlanType, in int iUserInterfaceType, in BSTR bstrBrowserId, "
      "out VARIANT* pvCommandArray)",
      "GetScriptsForAction(in IQP_Query* pQuery, in IQP_BaseDataObject* pPTS, in BSTR bstrTypename, "
      "in IQP_BaseDataObject* pPlanType, in int iActionType, in int iActionBeforeAfter, "
      "out VARIANT* pvScriptAndActionArray)"}},
    {L"IQPCopyOptDlg",
     "{4F91F72C-ABE1-496F-B053-8C53715C2A8F}",
     "IUnknown",
     kAfterUnknown,
     {"Initialize(in IEnumBaseDataObject* piEnumObjects, in IQPConfigFactory* pCF)", "ShowDialog()",
      "GetButtonIDClicked(out long* nID)", "ApplyEnhanceCopy(in IEnumBaseDataObject* piEnumObjects)",
      "DeleteObjects()"}},
    {L"IXBookMark",
     "{11DB95B4-ED6F-43C4-B40E-530FA22AB29C}",
     "IUnknown",
     kAfterUnknown,
     {"ShowDialog(in IQPFObjectManager* pIQPFObjectManager)"}}};

const std::vector<InterfaceRow> kHostInterfaces = {
    {L"IQP_BaseDataObject",
     "{1E72CFD1-23BB-11D3-A3C2-004005A64960}",
     "IUnknown",
     kAfterUnknown,
     {"GetTableName(out retval BSTR* pbstrTableName)", "GetTypeName(out retval BSTR* pbstrTypeName)",
      "GetAttribute(in BSTR wstrName, out retval VARIANT* pvValue)",
      "GetAttributes(in SAFEARRAY(BSTR)* ppsaNames, out retval SAFEARRAY(VARIANT)* ppsaValues)",
      "SetAttribute(in BSTR wstrName, in VARIANT value)",
      "SetAttributes(in SAFEARRAY(VARIANT)* ppsaValues, out retval SAFEARRAY(VARIANT)* ppsaResults)",
      "GetChildren(in BSTR wstrType, out retval IEnumBaseDataObject** ppEnum)",
      "GetType(in BSTR bstrTypename, in BSTR bstrConfigName, out retval IQPType** ppType)",
      "GetClientId(out retval long* plClientId)", "IsDerivedFromClass(in BSTR bstrClass)",
      "SetAttributeMultiLingual(in BSTR wstrName, in long langID, in VARIANT value)",
      "SetAttributesMultiLingual(in SAFEARRAY(VARIANT)* ppsaValues, in long langID, "
      "out retval SAFEARRAY(VARIANT)* ppsaResults)"}},
    Enumerator(L"IEnumBaseDataObject", "{FB1CBE60-3AB3-11D3-8A20-004005A1D91C}", "IQP_BaseDataObject"),
    {L"IQPConfigFactory",
     "{8918EDA0-4027-11D3-9A40-004005A1A59E}",
     "IUnknown",
     kAfterUnknown,
     {"GetTypeEnum(in BSTR bstrConfigName, out retval IQPTypeEnum** ppEnum)",
      "GetType(in BSTR bstrTypename, in BSTR bstrConfigName, out retval IQPType** ppType)"}},
    {L"IQPConfigObject",
     "{FC256B8D-7BAE-4077-969A-1FCE3CD35282}",
     "IUnknown",
     kAfterUnknown,
     {"Get(in BSTR bstrKey, out retval VARIANT* pvValue)",
      "GetProperty(in int iQPCF_Member, out retval VARIANT* pvValue)"}},
    {L"IQPType",
     "{4952BF1A-3EA4-11D3-9A40-004005A1A59E}",
     "IQPConfigObject",
     kAfterConfigObject,
     {"GetPageEnum(out retval IQPPageEnum** ppEnum)", "GetGroupEnum(out retval IQPGroupEnum** ppEnum)",
      "GetDisplayAttributeEnum(in long lMask, out retval IQPAttributeEnum** ppEnum)",
      "GetAttribute(in BSTR bstrAttributeName, out retval IQPAttribute** ppAttribute)"}},
    {L"IQPPage", "{0FF94A71-A08F-4616-BCC6-D210837513EA}", "IQPConfigObject", kAfterConfigObject, {}},
    {L"IQPGroup", "{AA6916F2-4DED-4B4D-9F73-C765BA533834}", "IQPConfigObject", kAfterConfigObject, {}},
    {L"IQPAttribute",
     "{C10B91A0-3F49-11D3-9A40-004005A1A59E}",
     "IQPConfigObject",
     kAfterConfigObject,
     {"GetAttributeTypeEnum(out retval IQPAttributeTypeEnum** ppEnum)"}},
    {L"IQPAttributeType",
     "{34F8413E-FC49-4F4F-8630-E85058559231}",
     "IQPConfigObject",
     kAfterConfigObject,
     {}},
    Enumerator(L"IQPTypeEnum", "{44E9C36A-E75C-47F6-ABD4-246BF23C31C4}", "IQPType"),
    Enumerator(L"IQPPageEnum", "{63488D21-E523-42F0-96DB-08353CBC57AE}", "IQPPage"),
    Enumerator(L"IQPGroupEnum", "{769422C9-98CE-47C0-978E-5D4703FE91C2}", "IQPGroup"),
    Enumerator(L"IQPAttributeEnum", "{87CBA28B-D0A8-41BF-8CF2-0811C9DC3610}", "IQPAttribute"),
    Enumerator(L"IQPAttributeTypeEnum", "{36C24CD3-469A-452F-BF6A-F8FA82EA9266}", "IQPAttributeType"),
    {L"IQP_Query",
     "{CDB6FD2E-17F3-40AF-9051-68983F77DBE2}",
     "IUnknown",
     kAfterUnknown,
     {"SetSearchTable(in BSTR bstrTableName)", "SetSearchCatenation(in long ulSearchCatenation)",
      "SetSearchAttribute(in BSTR bstrAttributeName, in long enumSearchOp, in VARIANT variantSearchCrit, "
      "in long ulSearchCatenation)",
      "GetSearchResult(out retval IEnumBaseDataObject** ppEnum)", "ResetSearch(in long bOnlyWhereClause)",
      "SetOrderAttribute(in BSTR bstrAttributeName, in long bAscending)",
      "GetObjectById(in BSTR bstrId, out retval IUnknown** ppObject)"}},
    {L"IQPFObjectManager",
     "{59BADD9E-10BC-4562-B639-5F7573FB6306}",
     "IUnknown",
     kAfterUnknown,
     {"GetRunningObjects(in GUID clsid, out retval IEnumQPFObject** ppEnum)",
      "GetObject(in GUID clsid, in long bAutoCreate, out retval IQPFObject** ppObject)"}},
    {L"IQPFObject", "{DF220ED7-FD42-48E8-BB7B-C577CC55BC1D}", "IUnknown", kAfterUnknown, {}},
    Enumerator(L"IEnumQPFObject", "{DC174148-C911-402F-905D-B6C186636707}", "IQPFObject")};

const std::vector<InterfaceRow> kCarriedInterfaces = {
    Carried(L"IQPFFrameBroker", "{BA60412F-2A2E-4893-AD11-F62703ED8237}"),
    Carried(L"IQPFView", "{432240C4-71C6-47EE-9D40-761BA7CDD8B2}"),
    Carried(L"IQPFMenuCommand", "{E87262CC-0C1D-4F8B-A8B5-4BDF038EEBAC}"),
    Carried(L"IQPFDialog", "{B49320EB-A4D9-4566-9787-F3B4C0F0E4EA}"),
    Carried(L"IQPParentChild", "{F45EBC8E-C7A8-4034-ADB7-72728B8E07FF}"),
    Carried(L"IQPParentChildEnum", "{DE815CA7-7554-4877-A9C9-47ACB4276A27}"),
    Carried(L"IQPPCInfo", "{FA8BA4CF-4943-4526-9D54-2841278840E1}"),
    Carried(L"IQPPCInfoEnum", "{E90FC720-19E1-45A1-9212-4824868C1EE0}"),
    Carried(L"IQPBrowserId", "{7FC09432-7B7E-4736-BD2C-96A23B5B88C0}"),
    Carried(L"IQPBrowserIdEnum", "{4035182C-1AF9-46F8-AAFD-2CB34DEDE44D}"),
    Carried(L"IQPConfObjEditor", "{5DD98719-CF91-4A79-B616-1D3A4285FF51}"),
    Carried(L"IQPConfObjEditorEnum", "{FAAF8754-99A4-48B0-A779-5B77A6FCC93D}"),
    Carried(L"IQPFormat", "{842C3B4C-9BA6-4050-8DC2-81A50B8BC781}"),
    Carried(L"IQPGlobalAttributeFormatSpec", "{C8F80560-60CF-41AB-B71D-64E89DB2D0F4}"),
    Carried(L"IQPGlobalAttributeFormatSpecEnum", "{925D8C07-6056-418E-A79E-56AC674F7B71}")};

const std::vector<ClassRow> kClasses = {
    {L"QPProjectChoice", "{F8A2B382-E9EF-4E5E-8D6C-A169B64DDEC8}", "IQPProjectChoice"},
    {L"QPSelectOrvoItem", "{ADB28D5A-6131-45CD-A245-EE026CA93ED6}", "IQPSelectOrvoItem"},
    {L"QPSelectDlg", "{445B9A00-C2E4-49AE-A61F-D901593BF9B4}", "IQPSelectDlg"},
    {L"QPUserActionLog", "{C298C4A0-29FF-4F40-9BB6-FF201B491C42}", "IQPUserActionLog"},
    {L"XScriptActionAndCommandManager", "{777C4939-912A-4F56-BFA1-3EACD0BDD16C}",
     "IScriptActionAndCommandManager"},
    {L"QPCopyOptDlg", "{9F79747B-EC88-48AD-9865-1C079A8C9221}", "IQPCopyOptDlg"},
    {L"XBookMark", "{369A9D25-58F3-4217-8D7A-6B136CDF3923}", "IXBookMark"}};

const std::vector<RecordRow> kRecords = {
    {L"tagINITVALUE", TKIND_RECORD, {"BSTR bstrParamName", "VARIANT varValue"}},
    {L"tagRECT", TKIND_RECORD, {"long left", "long top", "long right", "long bottom"}},
    {L"QPDeleteOptions",
     TKIND_ENUM,
     {"QPDO_DELETE_NONE = 0", "QPDO_DELETE_FLAT = 1", "QPDO_DELETE_DEEP = 2", "QPDO_DELETE_ALL = 4",
      "QPDO_DELETE_NO_MCM_HANDLING = 8"}},
    {L"QPRightType",
     TKIND_ENUM,
     {"QPRT_specified = 0", "QPRT_noaccess = 1", "QPRT_read = 2", "QPRT_execute = 4", "QPRT_change = 8",
      "QPRT_create = 16", "QPRT_erase = 32", "QPRT_take_ownership = 64", "QPRT_change_rights = 128",
      "QPRT_add_child = 256", "QPRT_remove_child = 512"}},
    {L"tagSEARCHMODE", TKIND_ENUM, {"SM_Normal = 0", "SM_CompareSubQueries = 1"}}};

void ExpectWholeLibrary(ITypeLib* library)
{
    ExpectLibraryItself(library);
    for (const auto* rows : {&kComponentInterfaces, &kHostInterfaces, &kCarriedInterfaces})
    {
        for (const InterfaceRow& row : *rows)
            ExpectInterface(library, row);
    }
    for (const ClassRow& row : kClasses)
        ExpectClass(library, row);
    for (const RecordRow& row : kRecords)
        ExpectRecord(library, row);
    ExpectNothingElse(library);
}
