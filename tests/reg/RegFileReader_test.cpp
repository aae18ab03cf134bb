#include "reg/RegFileReader.h"

#include "reg/RegFileEncoding.h"

#include <gtest/gtest.h>

using Kind = RegFileEntry::Kind;

namespace {

const std::string Header = "Windows Registry Editor Version 5.00\r\n\r\n";

// The one value of a file with one key.
RegistryValue Value(const std::string& line) {
    const auto entries = ReadRegFile(Header + "[HKEY_LOCAL_MACHINE\\Lane]\r\n" + line + "\r\n");
    if (entries.size() != 2 || entries[1].kind != Kind::SetValue || entries[1].key.path != "Lane")
        throw std::runtime_error("not one value");
    return entries[1].value;
}

std::string Bytes(std::initializer_list<int> bytes) {
    std::string data;
    for (const int byte : bytes)
        data += static_cast<char>(byte);
    return data;
}

// The line that is complained about, 0 for none.
int FaultyLine(const std::string& text) {
    try {
        (void)ReadRegFile(text);
        return 0;
    } catch (const RegFileError& error) {
        EXPECT_STRNE(error.what(), "");
        return error.Line();
    }
}

int FaultyLineOfValue(const std::string& line) {
    return FaultyLine(Header + "[HKLM\\Lane]\r\n" + line + "\r\n");
}

} // namespace

TEST(RegFileReader, KeysAndValuesComeInTheOrderOfTheFile) {
    const auto entries = ReadRegFile(Header + "[HKEY_LOCAL_MACHINE\\Software\\Lane]\r\n"
                                              "@=\"Tavrin.Opos.Scanner\"\r\n"
                                              "\"Model\"=\"758\"\r\n\r\n"
                                              "[HKEY_CURRENT_USER\\Software]\r\n");
    ASSERT_EQ(entries.size(), 4U);
    EXPECT_EQ(entries[0].kind, Kind::MakeKey);
    EXPECT_EQ(entries[0].key.FullName(), "HKEY_LOCAL_MACHINE\\Software\\Lane");
    EXPECT_EQ(entries[0].line, 3);
    EXPECT_EQ(entries[1].value, (RegistryValue{"", RegistryType::String, "Tavrin.Opos.Scanner"}));
    EXPECT_EQ(entries[2].value, (RegistryValue{"Model", RegistryType::String, "758"}));
    EXPECT_EQ(entries[2].line, 5);
    EXPECT_EQ(entries[3].key.root, RegistryRoot::CurrentUser);
    EXPECT_EQ(entries[3].line, 7);
}

TEST(RegFileReader, QuotesAndBackslashesAreEscaped) {
    EXPECT_EQ(Value(R"("a\"b\\c"="d\\e\"f")"), (RegistryValue{"a\"b\\c", RegistryType::String, "d\\e\"f"}));
    EXPECT_EQ(Value(R"("x"="\n")").data, "\\n") << "any other backslash stands for itself";
}

TEST(RegFileReader, TextsMayBeEmptyAndHoldLineBreaks) {
    EXPECT_EQ(Value("\"x\"=\"\"").data, "");
    EXPECT_EQ(Value("\"x\"=\"one\r\ntwo\"").data, "one\r\ntwo");
}

TEST(RegFileReader, NumbersAreHexadecimalAndLittleEndian) {
    EXPECT_EQ(Value("\"x\"=dword:0000012a"), (RegistryValue{"x", RegistryType::Number32, Bytes({0x2A, 1, 0, 0})}));
    EXPECT_EQ(Value("\"x\"=dword:FFFFFFFF").data, Bytes({0xFF, 0xFF, 0xFF, 0xFF}));
    EXPECT_EQ(Value("\"x\"=dword:1").data, Bytes({1, 0, 0, 0}));
}

TEST(RegFileReader, BytesHaveTheirTypeInBrackets) {
    EXPECT_EQ(Value("\"x\"=hex:01,fe"), (RegistryValue{"x", RegistryType::Binary, Bytes({1, 0xFE})}));
    EXPECT_EQ(Value("\"x\"=hex:"), (RegistryValue{"x", RegistryType::Binary, ""}));
    EXPECT_EQ(Value("\"x\"=hex(0):01").type, RegistryType::None);
    EXPECT_EQ(Value("\"x\"=hex(b):01,00,00,00,00,00,00,00").type, RegistryType::Number64);
    EXPECT_EQ(Value("\"x\"=hex(7):61,00,00,00,00,00"),
              (RegistryValue{"x", RegistryType::MultiString, Bytes({0x61, 0, 0, 0, 0, 0})}));
    EXPECT_EQ(Value("\"x\"=hex(80000001):01").type, 0x80000001U);
}

TEST(RegFileReader, TextAsBytesBecomesText) {
    EXPECT_EQ(Value("\"x\"=hex(2):25,00,3d,d8,00,de,00,00"),
              (RegistryValue{"x", RegistryType::ExpandString, "%\xF0\x9F\x98\x80"}));
    EXPECT_EQ(Value("\"x\"=hex(1):61,00"), (RegistryValue{"x", RegistryType::String, "a"})) << "without terminator";
    EXPECT_EQ(Value("\"x\"=hex(2):").data, "");
}

TEST(RegFileReader, BytesGoOnInTheNextLineBehindABackslash) {
    EXPECT_EQ(Value("\"x\"=hex:01,02,\\\r\n  03,\\\r\n  04").data, Bytes({1, 2, 3, 4}));
    EXPECT_EQ(Value("\"x\"=hex:\\\n  03").data, Bytes({3}));
}

TEST(RegFileReader, DeletionsOfKeysAndValues) {
    const auto entries = ReadRegFile(Header + "[-HKLM\\Old]\r\n[HKLM\\Lane]\r\n\"x\"=-\r\n@=-\r\n");
    ASSERT_EQ(entries.size(), 4U);
    EXPECT_EQ(entries[0].kind, Kind::DeleteKey);
    EXPECT_EQ(entries[0].key.path, "Old");
    EXPECT_EQ(entries[2].kind, Kind::DeleteValue);
    EXPECT_EQ(entries[2].value.name, "x");
    EXPECT_EQ(entries[3].kind, Kind::DeleteValue);
    EXPECT_EQ(entries[3].value.name, "");
}

TEST(RegFileReader, CommentsBlanksAndAnyLineEndsAreSkipped) {
    const auto entries = ReadRegFile("; first\n\nWindows Registry Editor Version 5.00\r; x\r\n  [HKLM\\Lane] ; key\n"
                                     "\t\"x\" = dword:1 ; one\n\"y\"=\"2\" ; two\n\"z\"=hex:01 ; three\n;[HKLM\\No]");
    ASSERT_EQ(entries.size(), 4U);
    EXPECT_EQ(entries[3].value.data, Bytes({1}));
    EXPECT_EQ(entries[3].line, 8);
}

TEST(RegFileReader, KeysMayHoldBracketsAndQuotes) {
    const auto entries = ReadRegFile(Header + "[HKLM\\a]b\"c;d]");
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].key.path, "a]b\"c;d");
}

TEST(RegFileReader, AFileMayHoldNothing) {
    EXPECT_TRUE(ReadRegFile(Header).empty());
}

TEST(RegFileReader, AnotherHeaderIsRefused) {
    EXPECT_EQ(FaultyLine(""), 1);
    EXPECT_EQ(FaultyLine("\n\nREGEDIT4\n"), 3);
    EXPECT_EQ(FaultyLine("Windows Registry Editor Version 5.001\n"), 1);
}

TEST(RegFileReader, BadLinesAreNamedByTheirNumber) {
    EXPECT_EQ(FaultyLine(Header + "\"x\"=\"1\"\r\n"), 3) << "a value without a key";
    EXPECT_EQ(FaultyLine(Header + "[-HKLM\\Lane]\r\n\"x\"=\"1\"\r\n"), 4) << "a value of a deleted key";
    EXPECT_EQ(FaultyLine(Header + "[HKEY_CLASSES_ROOT\\x]\r\n"), 3);
    EXPECT_EQ(FaultyLine(Header + "[HKLM\\x\r\n"), 3);
    EXPECT_EQ(FaultyLine(Header + "[HKLM\\x] y\r\n"), 3);
    EXPECT_EQ(FaultyLine(Header + "rubbish\r\n"), 3);
    for (const char* const line : {"\"x\"",
                                   "\"x\"=",
                                   "\"x\"=1",
                                   "\"x\"=dword:",
                                   "\"x\"=dword:123456789",
                                   "\"x\"=dword:-1",
                                   "\"x\"=dword:1g",
                                   "\"x\"=hex",
                                   "\"x\"=hex(:01",
                                   "\"x\"=hex(z):01",
                                   "\"x\"=hex:1z",
                                   "\"x\"=hex:123",
                                   "\"x\"=hex:01;02,",
                                   "\"x\"=hex:01 02",
                                   "\"x\"=hex:01,\\02",
                                   "\"x\"=\"1\" 2",
                                   "\"x\"=-1",
                                   "\"x\"=\"1",
                                   "\"x",
                                   "@x=\"1\"",
                                   "\"x\"=hex(1):61",
                                   "\"x\"=hex(2):00,d8,00,00"})
        EXPECT_EQ(FaultyLineOfValue(line), std::string(line) == "\"x\"=hex:01;02," ? 0 : 4) << line;
    EXPECT_EQ(FaultyLineOfValue("\"x\"=hex:01,\\\r\n  0z"), 5) << "in the line where the bad byte stands";
    EXPECT_EQ(FaultyLineOfValue("\"x\"=\"1\r\n\r\n2\"\r\nbad"), 7) << "lines within a text count";
}

TEST(RegFileEncoding, ReadsUtf16AndUtf8WithAndWithoutMark) {
    EXPECT_EQ(DecodeRegFile(std::string("\xFF\xFEW\0\xFC\0=\xD8\0\xDE", 10)), "W\xC3\xBC\xF0\x9F\x98\x80");
    EXPECT_EQ(DecodeRegFile(std::string("W\0\xFC\0", 4)), "W\xC3\xBC");
    EXPECT_EQ(DecodeRegFile("\xEF\xBB\xBFW\xC3\xBC"), "W\xC3\xBC");
    EXPECT_EQ(DecodeRegFile("W\xC3\xBC"), "W\xC3\xBC");
    EXPECT_EQ(DecodeRegFile(""), "");
}

TEST(RegFileEncoding, RefusesWhatIsIllFormed) {
    EXPECT_THROW((void)DecodeRegFile("W\xFC"), std::invalid_argument);
    EXPECT_THROW((void)DecodeRegFile(std::string("\xFF\xFEW\0x", 5)), std::invalid_argument);
    EXPECT_THROW((void)DecodeRegFile(std::string("\xFF\xFE\0\xD8", 4)), std::invalid_argument);
    EXPECT_THROW((void)DecodeRegFile(std::string("\xFE\xFF\0W", 4)), std::invalid_argument);
}

TEST(RegFileEncoding, WritesUtf16WithMark) {
    EXPECT_EQ(EncodeRegFile("W\xF0\x9F\x98\x80"), std::string("\xFF\xFEW\0=\xD8\0\xDE", 8));
}
