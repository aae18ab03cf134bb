#include "reg/RegFileWriter.h"

#include "reg/CommandLine.h"
#include "support/TemporaryRegistry.h"

#include <gtest/gtest.h>

namespace {

constexpr auto Machine = RegistryRoot::LocalMachine;

std::string Written(TemporaryRegistry& registry, const std::string& path) {
    return WriteRegFile(*registry.Tree(), {Machine, path});
}

void Set(TemporaryRegistry& registry, const std::string& path, const RegistryValue& value) {
    const auto tree = registry.Tree();
    tree->SetValue(Machine, path, value);
    tree->Commit();
}

// The lines of the only value.
std::string Line(const RegistryValue& value) {
    TemporaryRegistry registry;
    Set(registry, "Lane", value);
    const std::string text = Written(registry, "Lane");
    const std::string before = "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\Lane]\r\n";
    EXPECT_TRUE(text.starts_with(before)) << text;
    EXPECT_TRUE(text.ends_with("\r\n\r\n")) << text;
    return text.substr(before.size(), text.size() - before.size() - 4);
}

} // namespace

TEST(RegFileWriter, WritesAKeyWithAllBelowIt) {
    TemporaryRegistry registry;
    registry.Put("Software\\Lane", "", "Tavrin.Opos.Scanner");
    registry.Put("Software\\Lane", "Model", "Pelerin/3172");
    registry.Put("Software\\Lane\\Sub", "x", "1");
    registry.Put("Software\\Other", "x", "1");
    EXPECT_EQ(Written(registry, "Software\\Lane"), "Windows Registry Editor Version 5.00\r\n"
                                                   "\r\n"
                                                   "[HKEY_LOCAL_MACHINE\\Software\\Lane]\r\n"
                                                   "@=\"Tavrin.Opos.Scanner\"\r\n"
                                                   "\"Model\"=\"Pelerin/3172\"\r\n"
                                                   "\r\n"
                                                   "[HKEY_LOCAL_MACHINE\\Software\\Lane\\Sub]\r\n"
                                                   "\"x\"=\"1\"\r\n"
                                                   "\r\n");
}

TEST(RegFileWriter, EscapesQuotesAndBackslashes) {
    EXPECT_EQ(Line({"a\"b\\c", RegistryType::String, "d\\e\"f"}), R"("a\"b\\c"="d\\e\"f")");
}

TEST(RegFileWriter, EachTypeHasItsForm) {
    EXPECT_EQ(Line({"x", RegistryType::Number32, std::string("\x2A\x01\0\0", 4)}), "\"x\"=dword:0000012a");
    EXPECT_EQ(Line({"x", RegistryType::Number32, "\x2A"}), "\"x\"=hex(4):2a");
    EXPECT_EQ(Line({"x", RegistryType::Number64, std::string("\x2A\0\0\0\0\0\0\0", 8)}),
              "\"x\"=hex(b):2a,00,00,00,00,00,00,00");
    EXPECT_EQ(Line({"x", RegistryType::Binary, "\x01\xFE"}), "\"x\"=hex:01,fe");
    EXPECT_EQ(Line({"x", RegistryType::Binary, ""}), "\"x\"=hex:");
    EXPECT_EQ(Line({"x", RegistryType::ExpandString, "%a"}), "\"x\"=hex(2):25,00,61,00,00,00");
    EXPECT_EQ(Line({"x", RegistryType::MultiString, std::string("a\0\0\0\0\0", 6)}), "\"x\"=hex(7):61,00,00,00,00,00");
    EXPECT_EQ(Line({"x", 0xFFFF0001, "\x01"}), "\"x\"=hex(ffff0001):01");
}

TEST(RegFileWriter, ATextWithLineBreaksIsWrittenAsBytes) {
    EXPECT_EQ(Line({"x", RegistryType::String, "a\r\n"}), "\"x\"=hex(1):61,00,0d,00,0a,00,00,00");
}

TEST(RegFileWriter, LongBytesGoOnInLinesOfEightyCharacters) {
    EXPECT_EQ(Line({"Long name", RegistryType::Binary, std::string(50, '\x11')}),
              "\"Long name\"=hex:11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,\\\r\n"
              "  11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,11,\\\r\n"
              "  11,11,11,11");
}

TEST(RegFileWriter, AKeyThatNoFileCanHoldIsRefused) {
    TemporaryRegistry registry;
    registry.Put("Lane\\a\nb", "x", "1");
    EXPECT_THROW((void)Written(registry, "Lane"), CommandError);
}
