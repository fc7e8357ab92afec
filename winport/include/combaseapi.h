// The component runtime under its newer header's name.
#pragma once

#include "objbase.h"
