// Catalogues as files beside the module.
#pragma once

#include "CMessageCatalogue.h"

#include <memory>
#include <string>

/// The directory `locale` beside the file that this code was loaded from. Empty if that cannot be told.
std::wstring CatalogueDirectory();

/// The catalogue in the file `path`. Null if there is no such file; also if it cannot be read, is larger than
/// 16 MB or is damaged, which the log book then says.
std::unique_ptr<CMessageCatalogue> ReadCatalogue(const std::wstring& path);
