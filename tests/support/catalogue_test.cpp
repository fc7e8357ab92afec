#include "CMessageCatalogue.h"
#include "CatalogueBytes.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
// Positions in the file's header.
constexpr std::size_t kRevisionAt = 4;
constexpr std::size_t kCountAt = 8;
constexpr std::size_t kTextsAt = 12;
constexpr std::size_t kTranslationsAt = 16;
constexpr std::size_t kHashSizeAt = 20;
constexpr std::size_t kHashesAt = 24;
constexpr std::size_t kHeaderSize = 28;

std::string Good(bool bigEndian = false)
{
    return CatalogueBytes::Make({CatalogueBytes::Header(),
                                 {"(Plan-)Type: ", "(Plan-)Typ: "},
                                 {"For each object", "F\xc3\xbcr jedes Objekt"},
                                 {"Once for all objects", "Einmal"}},
                                bigEndian);
}

// Reads from a block of exactly the file's size, so that a sanitizer sees the first byte read beyond it.
const wchar_t* Read(CMessageCatalogue& catalogue, const std::string& bytes)
{
    const std::unique_ptr<char[]> block(new char[bytes.size()]);
    std::copy(bytes.begin(), bytes.end(), block.get());
    return catalogue.Read({block.get(), bytes.size()});
}

std::wstring Reason(const std::string& bytes)
{
    CMessageCatalogue catalogue;
    const wchar_t* wrong = Read(catalogue, bytes);
    EXPECT_TRUE(!wrong || catalogue.Count() == 0) << "a refused catalogue gives nothing";
    return wrong ? wrong : L"";
}

std::wstring Find(const CMessageCatalogue& catalogue, const wchar_t* text)
{
    const std::wstring* found = catalogue.Find(text);
    return found ? *found : L"(none)";
}
} // namespace

TEST(MessageCatalogue, GivesTheTranslationsOfItsTexts)
{
    CMessageCatalogue catalogue;
    EXPECT_EQ(Read(catalogue, Good()), nullptr);
    EXPECT_EQ(catalogue.Count(), 3u);
    EXPECT_EQ(Find(catalogue, L"For each object"), L"F\u00fcr jedes Objekt");
    EXPECT_EQ(Find(catalogue, L"(Plan-)Type: "), L"(Plan-)Typ: ");
    EXPECT_EQ(Find(catalogue, L"(Plan-)Type:"), L"(none)");
    EXPECT_EQ(Find(catalogue, L"for each object"), L"(none)");
}

TEST(MessageCatalogue, TranslatesTheEmptyTextByNothing)
{
    CMessageCatalogue catalogue;
    EXPECT_EQ(Read(catalogue, Good()), nullptr);
    EXPECT_EQ(Find(catalogue, L""), L"(none)");
}

TEST(MessageCatalogue, ReadsBothByteOrders)
{
    CMessageCatalogue catalogue;
    EXPECT_EQ(Read(catalogue, Good(true)), nullptr);
    EXPECT_EQ(Find(catalogue, L"Once for all objects"), L"Einmal");
}

TEST(MessageCatalogue, ReadsOneWithoutEntries)
{
    CMessageCatalogue catalogue;
    EXPECT_EQ(Read(catalogue, CatalogueBytes::Make({})), nullptr);
    EXPECT_EQ(catalogue.Count(), 0u);
}

TEST(MessageCatalogue, LeavesOutATextWithoutATranslation)
{
    CMessageCatalogue catalogue;
    EXPECT_EQ(Read(catalogue, CatalogueBytes::Make({{"a", ""}, {"b", "B"}})), nullptr);
    EXPECT_EQ(Find(catalogue, L"a"), L"(none)");
    EXPECT_EQ(Find(catalogue, L"b"), L"B");
}

TEST(MessageCatalogue, TakesTheFirstFormOfAPluralEntry)
{
    CMessageCatalogue catalogue;
    using namespace std::string_literals;
    EXPECT_EQ(
        Read(catalogue, CatalogueBytes::Make({{"one object\0many objects"s, "ein Objekt\0viele Objekte"s}})),
        nullptr);
    EXPECT_EQ(Find(catalogue, L"one object"), L"ein Objekt");
    EXPECT_EQ(Find(catalogue, L"many objects"), L"(none)");
}

TEST(MessageCatalogue, ForgetsWhatItHeldWhenItReadsAnew)
{
    CMessageCatalogue catalogue;
    EXPECT_EQ(Read(catalogue, Good()), nullptr);
    EXPECT_NE(Read(catalogue, "nonsense"), nullptr);
    EXPECT_EQ(catalogue.Count(), 0u);
}

TEST(MessageCatalogue, RefusesAFileCutAnywhere)
{
    for (const bool bigEndian : {false, true})
    {
        const std::string good = Good(bigEndian);
        ASSERT_EQ(Reason(good), L"");
        for (std::size_t length = 0; length < good.size(); ++length)
            EXPECT_NE(Reason(good.substr(0, length)), L"") << length;
    }
}

TEST(MessageCatalogue, StaysWithinAFileWithAnyWordChanged)
{
    const std::string good = Good();
    const std::size_t tables = kHeaderSize + 16 * 4;
    for (std::size_t offset = 0; offset < tables; offset += 4)
        for (const std::uint32_t change :
             {0x00000001u, 0x80000000u, 0xffffffffu, 0x00010000u, 0x7fffffffu, 0x00000080u})
        {
            const std::uint32_t word = CatalogueBytes::Word(good, offset);
            // Other tests check which of these are refused; here none may read out of bounds.
            Reason(CatalogueBytes::WithWord(good, offset, word ^ change));
            Reason(CatalogueBytes::WithWord(good, offset, change));
            Reason(CatalogueBytes::WithWord(good, offset,
                                            static_cast<std::uint32_t>(good.size()) - (change & 0xff)));
        }
}

TEST(MessageCatalogue, StaysWithinAFileWithAnyByteChanged)
{
    const std::string good = Good();
    for (std::size_t offset = 0; offset < good.size(); ++offset)
        for (const int byte : {0x00, 0x01, 0x7f, 0x80, 0xff})
        {
            std::string changed = good;
            changed[offset] = static_cast<char>(byte);
            Reason(changed);
        }
}

TEST(MessageCatalogue, RefusesAHeaderWithAnyWordFlipped)
{
    const std::string good = Good();
    for (std::size_t offset = 0; offset < kHeaderSize; offset += 4)
        EXPECT_NE(Reason(CatalogueBytes::WithWord(good, offset, ~CatalogueBytes::Word(good, offset))), L"")
            << offset;
}

TEST(MessageCatalogue, ReportsWhatIsWrong)
{
    using namespace std::string_literals;
    const std::string good = Good();
    const auto size = static_cast<std::uint32_t>(good.size());
    const std::size_t firstText = kHeaderSize;
    const std::size_t secondText = kHeaderSize + 8;
    const std::size_t firstTranslation = kHeaderSize + 8 * 4;
    const auto with = [&good](std::size_t offset, std::uint32_t word) {
        return CatalogueBytes::WithWord(good, offset, word);
    };
    const struct
    {
        const char* damage;
        std::string bytes;
        const wchar_t* reason;
    } cases[] = {
        {"nothing", "", L"the file is shorter than a header"},
        {"half a header", good.substr(0, 27), L"the file is shorter than a header"},
        {"another kind of file", "MZ" + std::string(100, 'x'), L"the file is no message catalogue"},
        {"middle-endian magic", with(0, 0x12de9504), L"the file is no message catalogue"},
        {"revision 1", with(kRevisionAt, 1), L"the file's format is of an unknown revision"},
        {"revision 1.0", with(kRevisionAt, 0x10000), L"the file's format is of an unknown revision"},
        {"more entries than room", with(kCountAt, size / 8), L"a table of texts lies outside the file"},
        {"most entries", with(kCountAt, 0xffffffff), L"a table of texts lies outside the file"},
        {"entries whose table's size wraps round", with(kCountAt, 0x20000001),
         L"a table of texts lies outside the file"},
        {"texts beyond the file", with(kTextsAt, size), L"a table of texts lies outside the file"},
        {"texts that wrap round", with(kTextsAt, 0xfffffff8), L"a table of texts lies outside the file"},
        {"texts in the header", with(kTextsAt, 4), L"a table of texts lies outside the file"},
        {"translations beyond the file", with(kTranslationsAt, size - 8),
         L"a table of texts lies outside the file"},
        {"translations in the header", with(kTranslationsAt, 0), L"a table of texts lies outside the file"},
        {"hashes beyond the file", with(kHashSizeAt, size), L"the hash table lies outside the file"},
        {"hashes that wrap round", with(kHashSizeAt, 0x40000001), L"the hash table lies outside the file"},
        {"hashes elsewhere", CatalogueBytes::WithWord(with(kHashSizeAt, 1), kHashesAt, 0xfffffffe),
         L"the hash table lies outside the file"},
        {"a text beyond the file", with(secondText + 4, size), L"a text lies outside the file"},
        {"a text that ends with the file",
         with(secondText, size - CatalogueBytes::Word(good, secondText + 4)),
         L"a text lies outside the file"},
        {"a text that wraps round", with(secondText, 0xffffffff), L"a text lies outside the file"},
        {"a text in the header", with(secondText + 4, 0), L"a text lies outside the file"},
        {"a translation beyond the file", with(firstTranslation + 4, 0xffffffff),
         L"a text lies outside the file"},
        {"a text without its end", with(secondText, 3), L"a text has no end mark"},
        {"a translation without its end", with(firstTranslation, 1), L"a text has no end mark"},
        {"the header's text not empty", with(firstText, 1), L"a text has no end mark"},
        {"texts out of order", CatalogueBytes::Make({{"b", "B"}, {"a", "A"}}), L"the texts are not in order"},
        {"a text twice", CatalogueBytes::Make({{"a", "A"}, {"a", "B"}}), L"the texts are not in order"},
        {"another character set", CatalogueBytes::Make({CatalogueBytes::Header("ISO-8859-1")}),
         L"the texts are not in UTF-8"},
        {"a character set that begins alike", CatalogueBytes::Make({CatalogueBytes::Header("UTF-8859")}),
         L"the texts are not in UTF-8"},
        {"a translation in Latin-1", CatalogueBytes::Make({{"a", "\xfc"}}), L"a text is not valid UTF-8"},
        {"a text in Latin-1", CatalogueBytes::Make({{"\xfc", "a"}}), L"a text is not valid UTF-8"},
        {"an unfinished character", CatalogueBytes::Make({{"a", "\xe2\x82"}}), L"a text is not valid UTF-8"},
        {"an overlong form", CatalogueBytes::Make({{"a", "\xc0\x80"}}), L"a text is not valid UTF-8"},
        {"half of a pair", CatalogueBytes::Make({{"a", "\xed\xa0\x80"}}), L"a text is not valid UTF-8"},
        {"beyond Unicode", CatalogueBytes::Make({{"a", "\xf4\x90\x80\x80"}}), L"a text is not valid UTF-8"},
        {"Latin-1 in a second form", CatalogueBytes::Make({{"a", "x\0\xfc"s}}), L"a text is not valid UTF-8"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(Reason(row.bytes), row.reason) << row.damage;
}

TEST(MessageCatalogue, RefusesTextsThatShareTheirBytes)
{
    // A thousand translations that all are the same long text would cost a thousand times its size.
    std::vector<CatalogueBytes::Entry> entries{{"0000", std::string(20000, 'x')}};
    for (int number = 1; number < 1000; ++number)
        entries.emplace_back((number < 10 ? "000" : number < 100 ? "00" : "0") + std::to_string(number), "");
    std::string bytes = CatalogueBytes::Make(entries);
    ASSERT_EQ(Reason(bytes), L"");
    const std::size_t first = kHeaderSize + 8000;
    for (std::size_t number = 1; number < 1000; ++number)
    {
        bytes = CatalogueBytes::WithWord(std::move(bytes), first + 8 * number, 20000);
        const std::uint32_t offset = CatalogueBytes::Word(bytes, first + 4);
        bytes = CatalogueBytes::WithWord(std::move(bytes), first + 8 * number + 4, offset);
    }
    EXPECT_EQ(Reason(bytes), L"texts overlap");
}

TEST(MessageCatalogue, TakesAnyCaseOfItsCharacterSetAndNone)
{
    EXPECT_EQ(Reason(CatalogueBytes::Make({CatalogueBytes::Header("utf-8")})), L"");
    EXPECT_EQ(Reason(CatalogueBytes::Make({{"", "Language: de\n"}, {"a", "\xc3\xa4"}})), L"");
    EXPECT_EQ(Reason(CatalogueBytes::Make({{"", "Content-Type: text/plain; charset=UTF-8"}})), L"");
}

TEST(MessageCatalogue, ReadsACharacterOutsideTheBasicPlane)
{
    CMessageCatalogue catalogue;
    EXPECT_EQ(Read(catalogue, CatalogueBytes::Make({{"a", "\xf0\x9f\x98\x80"}})), nullptr);
    EXPECT_EQ(Find(catalogue, L"a"), L"\U0001F600");
}
