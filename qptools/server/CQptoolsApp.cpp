#include "CQptoolsApp.h"

#include "ClassTable.h"

#include "CQPCopyOptDlg.h"
#include "XBookmarkManager.h"

#include "ComModule.h"

#include "qptools.h"

namespace qptools
{
namespace
{
CQptoolsApp g_application;
} // namespace

BOOL CQptoolsApp::InitInstance()
{
    // On purpose a failure does not fail the load: DllGetClassObject returns CLASS_E_CLASSNOTAVAILABLE then.
    static_cast<void>(ComModule::Get().Init(g_classTable, m_hInstance, &LIBID_QPTOOLSLib));
    return CWinApp::InitInstance();
}

int CQptoolsApp::ExitInstance()
{
    if (!m_processEnds)
    {
        FreeKeptCopyDialogs();
        XBookmarkManager::Release();
    }
    ComModule::Get().Term();
    return CWinApp::ExitInstance();
}
} // namespace qptools
