// The application object of the module.
#pragma once

#include "WinApp.h"

namespace qptools
{
/// One static instance per loaded module, without an application name. It starts and ends the module object.
class CQptoolsApp final : public CWinApp
{
public:
    /// Initialises the module object, ignoring its status, then calls the base class and returns its result.
    BOOL InitInstance() override;

    /// Frees the copy dialogs that no component freed and the services of the bookmarks, unless the process
    /// ends, and terminates the module object; then calls the base class and returns its result.
    int ExitInstance() override;
};
} // namespace qptools
