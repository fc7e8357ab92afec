// The macros that generated interface headers use in their declarations. There is no remoting here.
#pragma once

#include "rpc.h"

#define MIDL_INTERFACE(id) struct
#define DECLSPEC_UUID(id)
#define __RPC_USER
