#include "CQptoolsApp.h"

#include "ClassTable.h"

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
    // A module object that cannot start answers "class not available" later; that is no reason to fail the
    // load.
    static_cast<void>(ComModule::Get().Init(g_classTable, m_hInstance, &LIBID_QPTOOLSLib));
    return CWinApp::InitInstance();
}

int CQptoolsApp::ExitInstance()
{
    ComModule::Get().Term();
    return CWinApp::ExitInstance();
}
} // namespace qptools
