// The position of every method in the table of its interface. Host and module are built by different
// compilers at different times; these positions are all that they share.
#include <gtest/gtest.h>

#include "qpservices.h"
#include "qptools.h"

#include <array>
#include <cstring>
#include <utility>

namespace
{
/// The entry that was called last.
int g_entry = -1;

template <int N>
HRESULT STDMETHODCALLTYPE Entry(void*)
{
    g_entry = N;
    return S_OK;
}

constexpr int kEntries = 24;

template <int... N>
constexpr std::array<HRESULT(STDMETHODCALLTYPE*)(void*), sizeof...(N)>
MakeTable(std::integer_sequence<int, N...>)
{
    return {&Entry<N>...};
}

/// An object of any interface: a table whose entries record their own index and look at no argument.
struct AnyObject
{
    const void* table;
};
const auto kTable = MakeTable(std::make_integer_sequence<int, kEntries>{});

template <class Interface, class Call>
int SlotOf(Call call)
{
    AnyObject object{kTable.data()};
    g_entry = -1;
    call(reinterpret_cast<Interface*>(&object));
    return g_entry;
}

// The object has a hand-made table, which the sanitizer's check of dynamic types would report.
#define SLOT(Interface, ...)                                                                                 \
    SlotOf<Interface>([](Interface * p) __attribute__((no_sanitize("undefined"))) { p->__VA_ARGS__; })

TEST(HostSlots, UnknownHasTheFirstThreeEntries)
{
    EXPECT_EQ(0, SLOT(IQP_Query, QueryInterface(IID_IUnknown, nullptr)));
    EXPECT_EQ(1, SLOT(IQP_Query, AddRef()));
    EXPECT_EQ(2, SLOT(IQP_Query, Release()));
}

TEST(HostSlots, BaseDataObject)
{
    EXPECT_EQ(3, SLOT(IQP_BaseDataObject, GetTableName(nullptr)));
    EXPECT_EQ(4, SLOT(IQP_BaseDataObject, GetTypeName(nullptr)));
    EXPECT_EQ(5, SLOT(IQP_BaseDataObject, GetAttribute(nullptr, nullptr)));
    EXPECT_EQ(6, SLOT(IQP_BaseDataObject, GetAttributes(nullptr, nullptr)));
    EXPECT_EQ(7, SLOT(IQP_BaseDataObject, SetAttribute(nullptr, VARIANT{})));
    EXPECT_EQ(8, SLOT(IQP_BaseDataObject, SetAttributes(nullptr, nullptr)));
    EXPECT_EQ(9, SLOT(IQP_BaseDataObject, GetChildren(nullptr, nullptr)));
    EXPECT_EQ(10, SLOT(IQP_BaseDataObject, GetType(nullptr, nullptr, nullptr)));
    EXPECT_EQ(11, SLOT(IQP_BaseDataObject, GetClientId(nullptr)));
    EXPECT_EQ(12, SLOT(IQP_BaseDataObject, IsDerivedFromClass(nullptr)));
    EXPECT_EQ(13, SLOT(IQP_BaseDataObject, SetAttributeMultiLingual(nullptr, 0, VARIANT{})));
    EXPECT_EQ(14, SLOT(IQP_BaseDataObject, SetAttributesMultiLingual(nullptr, 0, nullptr)));
}

template <class Enumerator>
void ExpectEnumeratorSlots()
{
    EXPECT_EQ(3, SLOT(Enumerator, RemNext(0, nullptr, nullptr)));
    EXPECT_EQ(4, SLOT(Enumerator, Skip(0)));
    EXPECT_EQ(5, SLOT(Enumerator, Reset()));
    EXPECT_EQ(6, SLOT(Enumerator, Clone(nullptr)));
    EXPECT_EQ(7, SLOT(Enumerator, GetSingleNext(nullptr)));
}

TEST(HostSlots, EveryEnumeratorHasTheSameFiveMethods)
{
    ExpectEnumeratorSlots<IEnumBaseDataObject>();
    ExpectEnumeratorSlots<IEnumQPFObject>();
    ExpectEnumeratorSlots<IQPTypeEnum>();
    ExpectEnumeratorSlots<IQPPageEnum>();
    ExpectEnumeratorSlots<IQPGroupEnum>();
    ExpectEnumeratorSlots<IQPAttributeEnum>();
    ExpectEnumeratorSlots<IQPAttributeTypeEnum>();
}

TEST(HostSlots, ConfigFactory)
{
    EXPECT_EQ(3, SLOT(IQPConfigFactory, GetTypeEnum(nullptr, nullptr)));
    EXPECT_EQ(4, SLOT(IQPConfigFactory, GetType(nullptr, nullptr, nullptr)));
}

template <class ConfigObject>
void ExpectConfigObjectSlots()
{
    static_assert(std::is_base_of_v<IQPConfigObject, ConfigObject>);
    EXPECT_EQ(3, SLOT(ConfigObject, Get(nullptr, nullptr)));
    EXPECT_EQ(4, SLOT(ConfigObject, GetProperty(0, nullptr)));
}

TEST(HostSlots, EveryConfigObjectBeginsWithTheTwoReads)
{
    ExpectConfigObjectSlots<IQPConfigObject>();
    ExpectConfigObjectSlots<IQPType>();
    ExpectConfigObjectSlots<IQPPage>();
    ExpectConfigObjectSlots<IQPGroup>();
    ExpectConfigObjectSlots<IQPAttribute>();
    ExpectConfigObjectSlots<IQPAttributeType>();
}

TEST(HostSlots, MethodsOfTypeAndAttributeFollowTheTwoReads)
{
    EXPECT_EQ(5, SLOT(IQPType, GetPageEnum(nullptr)));
    EXPECT_EQ(6, SLOT(IQPType, GetGroupEnum(nullptr)));
    EXPECT_EQ(7, SLOT(IQPType, GetDisplayAttributeEnum(0, nullptr)));
    EXPECT_EQ(8, SLOT(IQPType, GetAttribute(nullptr, nullptr)));
    EXPECT_EQ(5, SLOT(IQPAttribute, GetAttributeTypeEnum(nullptr)));
}

TEST(HostSlots, Query)
{
    EXPECT_EQ(3, SLOT(IQP_Query, SetSearchTable(nullptr)));
    EXPECT_EQ(4, SLOT(IQP_Query, SetSearchCatenation(0)));
    EXPECT_EQ(5, SLOT(IQP_Query, SetSearchAttribute(nullptr, 0, VARIANT{}, 0)));
    EXPECT_EQ(6, SLOT(IQP_Query, GetSearchResult(nullptr)));
    EXPECT_EQ(7, SLOT(IQP_Query, ResetSearch(0)));
    EXPECT_EQ(8, SLOT(IQP_Query, SetOrderAttribute(nullptr, 0)));
    EXPECT_EQ(9, SLOT(IQP_Query, GetObjectById(nullptr, nullptr)));
}

TEST(HostSlots, ObjectManager)
{
    EXPECT_EQ(3, SLOT(IQPFObjectManager, GetRunningObjects(CLSID{}, nullptr)));
    EXPECT_EQ(4, SLOT(IQPFObjectManager, GetObject(CLSID{}, 0, nullptr)));
}

TEST(HostSlots, ClientGatewayHasOneEntryBetweenItsTwoMethods)
{
    EXPECT_EQ(3, SLOT(IQPIPDClient, GetServerCOMObject(0, IID_IUnknown, IID_IUnknown, nullptr)));
    EXPECT_EQ(5, SLOT(IQPIPDClient, GetClientIdByName(nullptr, nullptr)));
}

TEST(HostSlots, GetValueIsTheTenthEntryOfTheKeyStore)
{
    EXPECT_EQ(8, SLOT(IQPSessionDataManager, GetSubKeys(nullptr, 1, nullptr, nullptr, 0)));
    EXPECT_EQ(9, SLOT(IQPSessionDataManager, GetValue(nullptr, nullptr, VT_BSTR, nullptr, 0)));
    EXPECT_EQ(10, SLOT(IQPSessionDataManager, SetValue(nullptr, nullptr, nullptr, 0)));
    EXPECT_EQ(11, SLOT(IQPSessionDataManager, GetStringList(nullptr, nullptr, nullptr, 0)));
    EXPECT_EQ(12, SLOT(IQPSessionDataManager, WriteStringList(nullptr, 0, nullptr, 0)));
    EXPECT_EQ(13, SLOT(IQPSessionDataManager, DeleteKey(nullptr, 0)));
    EXPECT_EQ(14, SLOT(IQPSessionDataManager, PrepareScope(0)));
}

TEST(HostSlots, SettingsServiceIsTheKeyStoreUnderAnotherName)
{
    static_assert(std::is_same_v<IQPHostSettings, IQPSessionDataManager>);
    EXPECT_EQ(9, SLOT(IQPHostSettings, GetValue(nullptr, nullptr, VT_BOOL, nullptr, 1)));
}

TEST(HostSlots, ServicesCalledByPositionAlone)
{
    EXPECT_EQ(3, SLOT(IQPObjectRights, HasRight(QPRT_execute)));
    EXPECT_EQ(4, SLOT(IQPExplorerView, IsProjectShown(nullptr)));
    EXPECT_EQ(5, SLOT(IQPBrowserTreeExpander, ExpandTree(nullptr, nullptr)));
    EXPECT_EQ(4, SLOT(IVBALoaderManager, Invoke(0, nullptr, nullptr, nullptr)));
}

TEST(ComponentSlots, ProjectChoice)
{
    EXPECT_EQ(3, SLOT(IQPProjectChoice, ShowDialog(nullptr, nullptr, nullptr, nullptr, 0)));
    EXPECT_EQ(4, SLOT(IQPProjectChoice, ShowDialogEx(nullptr, nullptr, 0, nullptr, nullptr, nullptr, 0)));
    EXPECT_EQ(5, SLOT(IQPProjectChoice, Initialize(nullptr)));
}

TEST(ComponentSlots, SelectOrvoItem)
{
    EXPECT_EQ(3, SLOT(IQPSelectOrvoItem, Initialize(nullptr)));
    EXPECT_EQ(4, SLOT(IQPSelectOrvoItem, ShowDialog(nullptr, nullptr, nullptr)));
    EXPECT_EQ(5, SLOT(IQPSelectOrvoItem, GetProject(nullptr, nullptr)));
    EXPECT_EQ(6, SLOT(IQPSelectOrvoItem, GetPlanType(nullptr, nullptr)));
    EXPECT_EQ(7, SLOT(IQPSelectOrvoItem, GetTypeName(nullptr, nullptr)));
    EXPECT_EQ(8, SLOT(IQPSelectOrvoItem, GetProjectAndPlanType(nullptr, nullptr, nullptr)));
    EXPECT_EQ(9, SLOT(IQPSelectOrvoItem, GetTypeNameAndPlanType(nullptr, nullptr, nullptr)));
    EXPECT_EQ(10, SLOT(IQPSelectOrvoItem, GetOrvoCompBase(nullptr, nullptr, nullptr)));
}

TEST(ComponentSlots, SelectDlgAndBookMarkHaveOneMethod)
{
    EXPECT_EQ(3, SLOT(IQPSelectDlg, ShowDialog(0, nullptr, nullptr)));
    EXPECT_EQ(3, SLOT(IXBookMark, ShowDialog(nullptr)));
}

TEST(ComponentSlots, UserActionLog)
{
    EXPECT_EQ(3, SLOT(IQPUserActionLog, WriteTimeStampWithInfo(nullptr)));
    EXPECT_EQ(4, SLOT(IQPUserActionLog, WriteLine(nullptr)));
    EXPECT_EQ(5, SLOT(IQPUserActionLog, WriteUserActionInfo(nullptr, nullptr, nullptr, nullptr, nullptr)));
    EXPECT_EQ(6, SLOT(IQPUserActionLog, WriteTimeStamp()));
}

TEST(ComponentSlots, ScriptActionAndCommandManager)
{
    using Manager = IScriptActionAndCommandManager;
    EXPECT_EQ(3, SLOT(Manager, ShowScriptActionOrCommandDlg(nullptr, nullptr, nullptr, nullptr, nullptr,
                                                            nullptr, nullptr)));
    EXPECT_EQ(4, SLOT(Manager, GetScriptCommands(nullptr, nullptr, nullptr, nullptr, 0, nullptr, nullptr)));
    EXPECT_EQ(5, SLOT(Manager, GetScriptsForAction(nullptr, nullptr, nullptr, nullptr, 0, 0, nullptr)));
}

TEST(ComponentSlots, CopyOptDlg)
{
    EXPECT_EQ(3, SLOT(IQPCopyOptDlg, Initialize(nullptr, nullptr)));
    EXPECT_EQ(4, SLOT(IQPCopyOptDlg, ShowDialog()));
    EXPECT_EQ(5, SLOT(IQPCopyOptDlg, GetButtonIDClicked(nullptr)));
    EXPECT_EQ(6, SLOT(IQPCopyOptDlg, ApplyEnhanceCopy(nullptr)));
    EXPECT_EQ(7, SLOT(IQPCopyOptDlg, DeleteObjects()));
}

/// A host's key store as a foreign compiler would call it.
class CRecordingStore final : public IQPSessionDataManager
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE Reserved1() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved3() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved4() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved5() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSubKeys(BSTR, LONG, ULONG*, BSTR**, LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetValue(BSTR key, BSTR name, USHORT vt, VARIANT* value, LONG scope) override
    {
        m_key = key;
        m_name = name;
        m_type = vt;
        m_value = value;
        m_scope = scope;
        return S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE SetValue(BSTR, BSTR, VARIANT*, LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetStringList(BSTR, ULONG*, tagSTRINGPAIR**, LONG) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE WriteStringList(BSTR, ULONG, tagSTRINGPAIR*, LONG) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DeleteKey(BSTR, LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE PrepareScope(LONG) override { return E_NOTIMPL; }

    BSTR m_key = nullptr;
    BSTR m_name = nullptr;
    USHORT m_type = 0;
    VARIANT* m_value = nullptr;
    LONG m_scope = 0;
};

TEST(HostSlots, GetValueReachesItsArgumentsThroughTheRawTable)
{
    CRecordingStore store;
    void* settings = static_cast<IQPHostSettings*>(&store);
    using GetValue = HRESULT(STDMETHODCALLTYPE*)(void*, BSTR, BSTR, USHORT, VARIANT*, LONG);
    void** table = nullptr;
    std::memcpy(static_cast<void*>(&table), settings, sizeof table);
    OLECHAR key[] = L"properties";
    OLECHAR name[] = L"enablemcmscriptactions";
    VARIANT value{};

    EXPECT_EQ(S_FALSE, reinterpret_cast<GetValue>(table[9])(settings, key, name, VT_BOOL, &value, 1));

    EXPECT_EQ(key, store.m_key);
    EXPECT_EQ(name, store.m_name);
    EXPECT_EQ(VT_BOOL, store.m_type);
    EXPECT_EQ(&value, store.m_value);
    EXPECT_EQ(1, store.m_scope);
}
} // namespace
