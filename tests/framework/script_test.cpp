#include "RegistryScript.h"

#include <gtest/gtest.h>

using Kind = RegistryNode::Kind;

namespace
{
RegistryScript Parse(std::wstring_view text)
{
    RegistryScriptError error;
    auto script = ParseRegistryScript(text, error);
    EXPECT_TRUE(script) << "line " << error.line;
    return script ? *std::move(script) : RegistryScript();
}

RegistryNode First(std::wstring_view text)
{
    const RegistryScript script = Parse(text);
    return script.roots.empty() || script.roots[0].children.empty() ? RegistryNode()
                                                                    : script.roots[0].children[0];
}

std::wstring TextOf(const RegistryNode& node)
{
    return node.value ? std::get<std::wstring>(*node.value) : std::wstring(L"(none)");
}

struct Refused
{
    int line;
    std::wstring reason;
};

Refused Refuse(std::wstring_view text)
{
    RegistryScriptError error;
    EXPECT_FALSE(ParseRegistryScript(text, error));
    return {error.line, error.reason};
}
} // namespace

TEST(RegistryScript, AnEmptyTextHasNoRoots)
{
    EXPECT_TRUE(Parse(L"").roots.empty());
    EXPECT_TRUE(Parse(L" \r\n\t ").roots.empty());
}

TEST(RegistryScript, AcceptsBothNamesOfTheRootsInAnyCase)
{
    EXPECT_EQ(Parse(L"HKCR { }").roots[0].key, HKEY_CLASSES_ROOT);
    EXPECT_EQ(Parse(L"hkey_classes_root { }").roots[0].key, HKEY_CLASSES_ROOT);
    EXPECT_EQ(Parse(L"HKCU { }").roots[0].key, HKEY_CURRENT_USER);
    EXPECT_EQ(Parse(L"HKLM { }").roots[0].key, HKEY_LOCAL_MACHINE);
    EXPECT_EQ(Parse(L"HKCR { } HKCU { A }").roots.size(), 2u);
}

TEST(RegistryScript, AKeyHasANameADefaultValueAndKeysBeneath)
{
    const RegistryNode key = First(L"HKCR { Product.Name = s 'Product Class' { CLSID = s '{X}' CurVer } }");
    EXPECT_EQ(key.kind, Kind::Key);
    EXPECT_EQ(key.name, L"Product.Name");
    EXPECT_EQ(TextOf(key), L"Product Class");
    ASSERT_EQ(key.children.size(), 2u);
    EXPECT_EQ(key.children[0].name, L"CLSID");
    EXPECT_EQ(TextOf(key.children[0]), L"{X}");
    EXPECT_EQ(key.children[1].name, L"CurVer");
    EXPECT_FALSE(key.children[1].value);
}

TEST(RegistryScript, MarksPrecedeTheNameInAnyCase)
{
    EXPECT_EQ(First(L"HKCR { NoRemove CLSID }").kind, Kind::NoRemove);
    EXPECT_EQ(First(L"HKCR { ForceRemove X = s 'y' }").kind, Kind::ForceRemove);
    EXPECT_EQ(First(L"HKCR { forceremove X }").kind, Kind::ForceRemove);
    EXPECT_EQ(First(L"HKCR { Delete X }").kind, Kind::Delete);
    const RegistryNode value = First(L"HKCR { val Name = s 'text' }");
    EXPECT_EQ(value.kind, Kind::Value);
    EXPECT_EQ(value.name, L"Name");
    EXPECT_EQ(TextOf(value), L"text");
}

TEST(RegistryScript, AWordInQuotesIsANameAndNotAMark)
{
    const RegistryNode key = First(L"HKCR { 'NoRemove' }");
    EXPECT_EQ(key.kind, Kind::Key);
    EXPECT_EQ(key.name, L"NoRemove");
    EXPECT_EQ(First(L"HKCR { ForceRemove 'val' }").name, L"val");
    EXPECT_EQ(First(L"HKCR { '{' }").name, L"{");
}

TEST(RegistryScript, AnIdentifierInBracesIsANameWithOrWithoutQuotes)
{
    EXPECT_EQ(First(L"HKCR { ForceRemove {9F79747B-EC88-48ad-9865-1C079A8C9221} = s 'x' { } }").name,
              L"{9F79747B-EC88-48ad-9865-1C079A8C9221}");
    EXPECT_EQ(First(L"HKCR { ForceRemove '{A}' { } }").name, L"{A}");
}

TEST(RegistryScript, AQuoteInsideQuotesIsWrittenTwice)
{
    EXPECT_EQ(TextOf(First(L"HKCR { X = s 'it''s' }")), L"it's");
    EXPECT_EQ(TextOf(First(L"HKCR { X = s '''' }")), L"'");
    EXPECT_EQ(TextOf(First(L"HKCR { X = s '' }")), L"");
    EXPECT_EQ(First(L"HKCR { 'with blank' }").name, L"with blank");
    EXPECT_EQ(TextOf(First(L"HKCR { X = s 'two\nlines' }")), L"two\nlines");
}

TEST(RegistryScript, ANumberIsDecimalOrHexadecimal)
{
    EXPECT_EQ(std::get<DWORD>(*First(L"HKCR { val N = d '42' }").value), 42u);
    EXPECT_EQ(std::get<DWORD>(*First(L"HKCR { val N = d 0xFFFFFFFF }").value), 0xFFFFFFFFu);
    EXPECT_EQ(std::get<DWORD>(*First(L"HKCR { N = d 4294967295 }").value), 4294967295u);
    EXPECT_EQ(std::get<DWORD>(*First(L"HKCR { N = d 0X1f }").value), 0x1Fu);
    EXPECT_EQ(std::get<DWORD>(*First(L"HKCR { N = d 010 }").value), 10u);
}

TEST(RegistryScript, AnEmptyBlockHasNothingBeneath)
{
    EXPECT_TRUE(First(L"HKCR { InprocServer32 = s '%MODULE%' { } }").children.empty());
    EXPECT_EQ(TextOf(First(L"HKCR { InprocServer32 = s '%MODULE%' { } }")), L"%MODULE%");
}

TEST(RegistryScript, AnErrorNamesItsLine)
{
    EXPECT_EQ(Refuse(L"HKCR\n{\n    A = s 'x'\n    B = q 'x'\n}\n").line, 4);
    EXPECT_EQ(Refuse(L"HKCR\r\n{\r\n    A\r\n").line, 4);
    EXPECT_EQ(Refuse(L"NOWHERE { }").line, 1);
    EXPECT_EQ(Refuse(L"HKCR { A = s 'a\nb'\n val }").line, 3);
}

TEST(RegistryScript, AnErrorHasAReason)
{
    EXPECT_EQ(Refuse(L"HKXX { }").reason, L"unknown root key 'HKXX'");
    EXPECT_EQ(Refuse(L"HKCR A").reason, L"'{' expected after the root key");
    EXPECT_EQ(Refuse(L"HKCR {").reason, L"'}' expected");
    EXPECT_EQ(Refuse(L"HKCR { A { }").reason, L"'}' expected");
    EXPECT_EQ(Refuse(L"HKCR { A = s 'x }").reason, L"a quote is not closed");
    EXPECT_EQ(Refuse(L"HKCR { A = s 'x'").reason, L"'}' expected");
    EXPECT_EQ(Refuse(L"HKCR { A = }").reason, L"'s' or 'd' expected after '='");
    EXPECT_EQ(Refuse(L"HKCR { A = 's' 'x' }").reason, L"'s' or 'd' expected after '='");
    EXPECT_EQ(Refuse(L"HKCR { A = s").reason, L"a value expected");
    EXPECT_EQ(Refuse(L"HKCR { = s 'x' }").reason, L"a name expected");
    EXPECT_EQ(Refuse(L"HKCR { NoRemove }").reason, L"a name expected");
    EXPECT_EQ(Refuse(L"HKCR { val A }").reason, L"'=' expected after the name of a value");
    EXPECT_EQ(Refuse(L"HKCR { val A = s 'x' { } }").reason, L"nothing can stand beneath 'A'");
    EXPECT_EQ(Refuse(L"HKCR { Delete A { } }").reason, L"nothing can stand beneath 'A'");
    EXPECT_EQ(Refuse(L"HKCR { } }").reason, L"unknown root key '}'");
}

TEST(RegistryScript, InvalidNumbersAreRefused)
{
    for (const wchar_t* number : {L"''", L"x", L"-1", L"4294967296", L"0x100000000", L"1a", L"0x", L"'1 '"})
    {
        const Refused refused = Refuse(std::wstring(L"HKCR { val N = d ") + number + L" }");
        EXPECT_NE(refused.reason.find(L"is no 32-bit number"), std::wstring::npos);
    }
}

TEST(RegistryScript, InvalidNamesOfKeysAreRefused)
{
    EXPECT_EQ(Refuse(L"HKCR { '' }").reason, L"'' is no name for a key");
    EXPECT_EQ(Refuse(L"HKCR { ForceRemove A\\B }").reason, L"'A\\B' is no name for a key");
    EXPECT_EQ(First(L"HKCR { val 'A\\B' = s 'x' }").name, L"A\\B") << "a value's name may hold a backslash";
}

TEST(RegistryScript, NestingHasALimit)
{
    std::wstring deep = L"HKCR { ";
    for (int i = 0; i < 100000; ++i)
        deep += L"A { ";
    EXPECT_EQ(Refuse(deep).reason, L"keys are nested too deep");
}
