// Interfaces that component modules offer beside their own.
#pragma once

#include "oaidl.h"
#include "oleidl.h"
