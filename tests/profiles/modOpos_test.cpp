#include "profiles/modOpos.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using Names = std::map<std::int32_t, std::string>;

// Every code from -1 to 1000: those of the table by their name, all others by the fallback.
void ExpectNames(std::string (*format)(std::int32_t), const Names& names, const std::string& fallback) {
    for (std::int32_t code = -1; code <= 1000; ++code) {
        const auto known = names.find(code);
        const std::string name = known == names.end() ? fallback : known->second;
        EXPECT_EQ(format(code), name + " (" + std::to_string(code) + ")");
    }
}

} // namespace

TEST(OposNames, SymbologiesKeepTheirExactNames) {
    ExpectNames(SymbologyName,
                {{101, "UPC-A"},
                 {102, "UPC-E"},
                 {103, "EAN/JAN 8"},
                 {104, "EAN/JAN 13"},
                 {105, "Discrete 2 of 5"},
                 {106, "Interleaved 2 of 5"},
                 {107, "Codabar"},
                 {108, "Code 39"},
                 {109, "Code 93"},
                 {110, "Code 128"},
                 {111, "UPC-A with Supplement"},
                 {112, "UPC-E with Supplement"},
                 {113, "UPC-D1"},
                 {114, "UPC-D2"},
                 {115, "UPC-D3"},
                 {116, "UPC-D4"},
                 {117, "UPC-D5"},
                 {118, "EAN 8 With Supplement"},
                 {119, "EAN 13 With Supplement"},
                 {120, "EAN 128"},
                 {121, "OCR \"A\""},
                 {122, "OCR \"B\""},
                 {201, "PDF 417"},
                 {202, "Maxicode"},
                 {501, "Other"}},
                "Unknown");
}

TEST(OposNames, ResultCodesHaveNoNameOutsideTheTable) {
    ExpectNames(ResultCodeName,
                {{0, "Success"},
                 {101, "Closed"},
                 {102, "Claimed"},
                 {103, "Not Claimed"},
                 {104, "No Service"},
                 {105, "Disabled"},
                 {106, "Illegal"},
                 {107, "No Hardware"},
                 {108, "Offline"},
                 {109, "No Exist"},
                 {110, "Exists"},
                 {111, "Failure"},
                 {112, "Timeout"},
                 {113, "Busy"},
                 {114, "Extended"}},
                "");
    EXPECT_EQ(ResultCodeName(999), " (999)");
}

TEST(OposNames, OpenResultsHaveNoNameOutsideTheTable) {
    ExpectNames(OpenResultName,
                {{0, "Success"},
                 {300, "Open Error"},
                 {301, "Already Open"},
                 {302, "Registry Bad Name"},
                 {303, "Bad ProgID"},
                 {304, "Create Error"},
                 {305, "Badif"},
                 {306, "Failed Open"},
                 {307, "Bad Version"},
                 {400, "SO Error"},
                 {401, "No Port"},
                 {402, "Not Supported"},
                 {403, "Config"},
                 {450, "Specific"}},
                "");
}

TEST(OposNames, StatesHaveNoNameOutsideTheTable) {
    ExpectNames(StateName, {{1, "Closed"}, {2, "Idle"}, {3, "Busy"}, {4, "Error"}}, "");
}

TEST(OposNames, NegativeCodesAreShownWithTheirSign) {
    EXPECT_EQ(ResultCodeName(-5), " (-5)");
}
