// The application object of the module.
#pragma once

#include "WinApp.h"

namespace qptools
{
/// One static instance per loaded module, without an application name. It starts and ends the module object.
class CQptoolsApp final : public CWinApp
{
public:
    /// Initialises the module object, whatever comes of it, then the base, whose answer it returns.
    BOOL InitInstance() override;

    /// Terminates the module object, then the base, whose answer it returns.
    int ExitInstance() override;
};
} // namespace qptools
