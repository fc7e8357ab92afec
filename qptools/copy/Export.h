// Marks what the module exports by its C++ name.
#pragma once

/// The build of the module defines it.
#ifndef QPTOOLS_EXPORT
#define QPTOOLS_EXPORT
#endif
