// Interfaces of compound documents; none is used.
#pragma once

#include "objidl.h"
