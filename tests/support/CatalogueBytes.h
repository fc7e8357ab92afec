// Makes message catalogues, good ones and damaged ones.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

struct CatalogueBytes
{
    using Entry = std::pair<std::string, std::string>;

    /// The header entry that a good catalogue begins with.
    static Entry Header(const char* charset = "UTF-8");

    /// A catalogue of these entries, which must be sorted.
    static std::string Make(const std::vector<Entry>& entries, bool bigEndian = false);

    /// The word at `offset`, of a little-endian catalogue.
    static std::uint32_t Word(const std::string& bytes, std::size_t offset);
    static std::string WithWord(std::string bytes, std::size_t offset, std::uint32_t word);
};
