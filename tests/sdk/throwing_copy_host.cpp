// A host, built from the SDK alone, whose objects throw out of calls that the enhanced copy dialog makes.
// Returns 0 if the host catches what leaves the dialog and nothing is left behind.

#include <windows.h>

#include "qptools/CEnhancedCopyDialog.h"

#include <cstdio>
#include <new>

namespace
{
class ThrowingList : public IEnumBaseDataObject
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }
    HRESULT STDMETHODCALLTYPE RemNext(ULONG, IQP_BaseDataObject**, ULONG*) override
    {
        throw std::bad_alloc();
    }
    HRESULT STDMETHODCALLTYPE GetSingleNext(IQP_BaseDataObject**) override { throw 7; }
    HRESULT STDMETHODCALLTYPE Reset() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumBaseDataObject**) override { return E_NOTIMPL; }

    int references = 0;
};

qptools::CEnhancedCopyDialog* shown = nullptr;

void CALLBACK PressAdvanced(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    SendMessageW(shown->m_hWnd, WM_COMMAND, qptools::CEnhancedCopyDialog::kAdvancedButton, 0);
}

bool Throws(qptools::CEnhancedCopyDialog& dialog)
{
    shown = &dialog;
    SetTimer(nullptr, 0, 10, &PressAdvanced);
    try
    {
        dialog.DoModal();
        return false;
    }
    catch (...)
    {
        return true;
    }
}
} // namespace

int main()
{
    ThrowingList list;
    bool always = true;
    for (int round = 0; round < 3; ++round)
    {
        qptools::CEnhancedCopyDialog dialog(&list, nullptr);
        always = Throws(dialog) && always && !dialog.m_hWnd;
        dialog.SetButtonClicked(qptools::CEnhancedCopyDialog::kNormalButton);
        dialog.ApplyEnhanceCopy(&list);
    }
    std::printf("caught %s, references %d\n", always ? "always" : "not always", list.references);
    return always && list.references == 0 ? 0 : 1;
}
