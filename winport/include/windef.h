// The elementary types under the name by which the Windows headers know them.
#pragma once

#include "wpbase.h"
