#include "TestDialog.h"

#include <gtest/gtest.h>

DialogModule::DialogModule() : m_module(LoadLibraryW(L"wptestmodule.dll"))
{
    EXPECT_NE(m_module, nullptr);
    m_application.m_hInstance = m_module;
}

DialogModule::~DialogModule()
{
    m_application.ExitInstance();
    FreeLibrary(m_module);
}

bool TestDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    events.emplace_back("init");
    return onInit ? onInit() : true;
}

void TestDialog::DoDataExchange(CDataExchange* pDX)
{
    if (exchange)
        exchange(pDX);
}

void TestDialog::OnOK()
{
    events.emplace_back("ok");
    onOk ? onOk() : CDialog::OnOK();
}

void TestDialog::OnCancel()
{
    events.emplace_back("cancel");
    onCancel ? onCancel() : CDialog::OnCancel();
}

const CMessageMap& TestDialog::GetMessageMap() const
{
    static const CMessageMapEntry entries[] = {
        OnCommand<&TestDialog::OnApply>(kApply),
        OnControl<&TestDialog::OnDropDown>(CBN_DROPDOWN, kCombo),
        OnNotify<&TestDialog::OnListClick>(NM_CLICK, kList),
        OnMessage<&TestDialog::OnAsked>(kAskMessage),
    };
    static const CMessageMap map{&CDialog::ClassMessageMap(), entries};
    return map;
}

void TestDialog::OnApply()
{
    events.emplace_back("apply");
    if (onApply)
        onApply();
}

void TestDialog::OnDropDown()
{
    events.emplace_back("drop down");
}

void TestDialog::OnListClick(NMHDR*, LRESULT* result)
{
    events.emplace_back("list click");
    *result = 1;
}

LRESULT TestDialog::OnAsked(WPARAM wParam, LPARAM lParam)
{
    return static_cast<LRESULT>(wParam) + lParam;
}
