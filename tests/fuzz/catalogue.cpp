// Message catalogues: any bytes are refused with a reason or give texts that are found again.
#include "CCatalogueFile.h"
#include "CMessageCatalogue.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CMessageCatalogue catalogue;
    if (catalogue.Read(bytes))
    {
        if (catalogue.Count() != 0)
            std::abort(); // what was refused holds no texts
        return 0;
    }
    CCatalogueFile file(bytes);
    if (file.Check())
        std::abort(); // it was accepted just now
    if (catalogue.Count() > file.Count())
        std::abort();
    std::size_t total = 0;
    for (std::uint32_t index = 0; index < file.Count(); ++index)
        total += file.Text(index).size() + file.Translation(index).size();
    if (total > size)
        std::abort(); // texts share no bytes
    return 0;
}
