// What the report says of the machine.
#pragma once

#include "Report.h"

MachineFacts ReadMachine();

/// True if the system is Wine.
bool RunsUnderWine();
