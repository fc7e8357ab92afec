// The component runtime together with automation.
#pragma once

#include "objbase.h"
#include "oleauto.h"
