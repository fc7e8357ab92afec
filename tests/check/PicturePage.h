// The page that shows each picture beside the one taken under Wine.
#pragma once

#include <set>
#include <string>

/// `names` are those of the pictures, "copy-options-de"; a file is NAME-here.png or NAME-wine.png in the
/// folder pictures. The result is HTML in UTF-8.
std::string PicturePage(const std::string& version, const std::set<std::string>& here,
                        const std::set<std::string>& wine);
