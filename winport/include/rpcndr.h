// The words that generated interface headers use around their declarations; there is no remoting here.
#pragma once

#include "rpc.h"

#define MIDL_INTERFACE(id) struct
#define DECLSPEC_UUID(id)
#define __RPC_USER
#define __RPC_STUB
#define __RPC_FAR
