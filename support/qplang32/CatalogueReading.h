// Catalogue files beside the module.
#pragma once

#include "CMessageCatalogue.h"

#include <memory>
#include <string>

/// The directory `locale` beside the module that contains this code. Empty if it cannot be determined. Throws
/// std::bad_alloc.
std::wstring CatalogueDirectory();

/// The catalogue in the file `path`. Null if the file does not exist; also if it cannot be read, is larger
/// than 16 MB or is damaged, with an entry in the log book. Throws std::bad_alloc.
std::unique_ptr<CMessageCatalogue> ReadCatalogue(const std::wstring& path);
