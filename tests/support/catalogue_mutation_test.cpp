// Message catalogues changed at random: each is refused, or has only texts inside the file.
#include "CCatalogueFile.h"
#include "CMessageCatalogue.h"
#include "CatalogueBytes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>

namespace
{
constexpr std::size_t kHeaderSize = 28;

std::string Good(bool bigEndian)
{
    return CatalogueBytes::Make({CatalogueBytes::Header(),
                                 {"(Plan-)Type: ", "(Plan-)Typ: "},
                                 {"For each object", "F\xc3\xbcr jedes Objekt"},
                                 {"Name", "Name"},
                                 {std::string("one\0many", 8), std::string("ein\0viele", 9)}},
                                bigEndian);
}

class Mutations
{
public:
    std::string Next()
    {
        static const std::string good[] = {Good(false), Good(true)};
        std::string bytes = good[Below(4) == 0];
        for (std::size_t count = 1 + Below(2); count > 0; --count)
            Change(bytes);
        return bytes;
    }

private:
    std::size_t Below(std::size_t bound) { return m_random() % bound; }

    void Change(std::string& bytes)
    {
        const std::size_t at = Below(bytes.size() + 1);
        switch (Below(8))
        {
        case 0:
        case 1:
        case 2: // flip a bit
            if (at < bytes.size())
                bytes[at] = static_cast<char>(bytes[at] ^ 1 << Below(8));
            break;
        case 3: // cut
            bytes.resize(at);
            break;
        case 4: // take out
            bytes.erase(at, 1 + Below(8));
            break;
        case 5: // insert
            bytes.insert(at, 1 + Below(8), static_cast<char>(Below(256)));
            break;
        default: // a word of the header or of a table
            ChangeWord(bytes);
        }
    }

    /// Near its old value, near the end of the file, or anything.
    void ChangeWord(std::string& bytes)
    {
        const std::size_t tables = kHeaderSize + 2 * 5 * 8;
        const std::size_t at = 4 * Below(tables / 4);
        if (at + 4 > bytes.size())
            return;
        const std::uint32_t bases[] = {CatalogueBytes::Word(bytes, at),
                                       static_cast<std::uint32_t>(bytes.size()), 0u,
                                       static_cast<std::uint32_t>(m_random())};
        const auto by = static_cast<std::uint32_t>(Below(9));
        bytes = CatalogueBytes::WithWord(std::move(bytes), at, bases[Below(std::size(bases))] + by - 4);
    }

    std::mt19937 m_random; ///< seeded by default: the same in every run
};

bool IsInside(std::string_view text, std::string_view file)
{
    return text.data() >= file.data() && text.data() + text.size() < file.data() + file.size() &&
           text.data()[text.size()] == '\0';
}

/// Returns whether the catalogue was accepted. It is read from a block of its size, so that a sanitizer sees
/// the first byte read beyond it.
bool IsAccepted(const std::string& bytes)
{
    const std::unique_ptr<char[]> block(new char[bytes.size()]);
    std::memcpy(block.get(), bytes.data(), bytes.size());
    const std::string_view view(block.get(), bytes.size());
    CMessageCatalogue catalogue;
    const bool refused = catalogue.Read(view) != nullptr;
    CCatalogueFile file(view);
    if (refused)
        EXPECT_EQ(catalogue.Count(), 0u);
    else
        EXPECT_EQ(file.Check(), nullptr);
    for (std::uint32_t index = 0; !refused && index < file.Count(); ++index)
        EXPECT_TRUE(IsInside(file.Text(index), view) && IsInside(file.Translation(index), view)) << index;
    EXPECT_LE(catalogue.Count(), refused ? 0u : file.Count());
    return !refused;
}
} // namespace

TEST(ChangedCatalogue, IsRefusedOrStaysInsideItsFile)
{
    int accepted = 0;
    int refused = 0;
    Mutations mutations;
    for (int number = 1; number <= 20'000; ++number)
    {
        (IsAccepted(mutations.Next()) ? accepted : refused) += 1;
        ASSERT_FALSE(HasFailure()) << "mutation " << number;
    }
    EXPECT_GT(accepted, 1'000);
    EXPECT_GT(refused, 5'000);
}
