#include "platform/opos/LabelParser.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

struct Row {
    const char* name;
    std::string line;
    Label label;
};

std::ostream& operator<<(std::ostream& out, const Row& row) {
    return out << row.name;
}

class LabelLines : public ::testing::TestWithParam<Row> {};

} // namespace

TEST_P(LabelLines, AreParsed) {
    const Label label = ParseLabel(GetParam().line);
    EXPECT_EQ(label.data, GetParam().label.data);
    EXPECT_EQ(label.label, GetParam().label.label);
    EXPECT_EQ(label.symbology, GetParam().label.symbology);
}

INSTANTIATE_TEST_SUITE_P(
    LabelParser, LabelLines,
    ::testing::Values(
        Row{"Ean13", "]E05018374827715", {"5018374827715", "5018374827715", 104}},
        Row{"UpcAAsEan13", "]E00012345678905", {"0012345678905", "012345678905", 101}},
        Row{"UpcAShort", "]E0012345678905", {"012345678905", "012345678905", 101}},
        Row{"UpcAWithoutCheckDigit", "]E001234567890", {"01234567890", "012345678905", 101}},
        Row{"UpcE", "]E001234565", {"01234565", "01234565", 102}},
        Row{"UpcEWithoutCheckDigit", "]E00123456", {"0123456", "01234565", 102}},
        Row{"UpcEWithoutNumberSystem", "]E0123456", {"123456", "01234565", 102}},
        Row{"UpcELastDigit0", "]E00425260", {"0425260", "04252605", 102}},
        Row{"UpcELastDigit1", "]E00425261", {"0425261", "04252614", 102}},
        Row{"UpcELastDigit3", "]E00123453", {"0123453", "01234531", 102}},
        Row{"UpcELastDigit4", "]E00123454", {"0123454", "01234543", 102}},
        Row{"Ean8", "]E455123457", {"55123457", "55123457", 103}},
        Row{"Ean8WithoutCheckDigit", "]E45512345", {"5512345", "55123457", 103}},
        Row{"Ean8WithTwo", "]E45512345712", {"5512345712", "5512345712", 118}},
        Row{"Ean8WithFive", "]E45512345751234", {"5512345751234", "5512345751234", 118}},
        Row{"Ean8WithTwoWithoutCheckDigit", "]E4551234512", {"551234512", "5512345712", 118}},
        Row{"Ean8WithFiveWithoutCheckDigit", "]E4551234551234", {"551234551234", "5512345751234", 118}},
        Row{"Ean13WithTwo", "]E3501837482771512", {"501837482771512", "501837482771512", 119}},
        Row{"Ean13WithFive", "]E3501837482771551234", {"501837482771551234", "501837482771551234", 119}},
        Row{"UpcAWithTwo", "]E3001234567890512", {"001234567890512", "01234567890512", 111}},
        Row{"UpcAWithFive", "]E3001234567890551234", {"001234567890551234", "01234567890551234", 111}},
        Row{"UpcAShortWithTwo", "]E301234567890512", {"01234567890512", "01234567890512", 111}},
        Row{"UpcEWithTwo", "]E30123456512", {"0123456512", "0123456512", 112}},
        Row{"EanOfOddLength", "]E0123", {"123", "123", 501}},
        Row{"EanWithLetters", "]E0501837482771X", {"501837482771X", "501837482771X", 501}},
        Row{"EanWithUnknownModifier", "]E95018374827715", {"5018374827715", "5018374827715", 501}},
        Row{"Code39", "]A0CODE39", {"CODE39", "CODE39", 108}},
        Row{"Code39LastModifier", "]A7CODE39", {"CODE39", "CODE39", 108}},
        Row{"Code39BeyondModifiers", "]A8CODE39", {"CODE39", "CODE39", 501}},
        Row{"Code128", "]C0Code128", {"Code128", "Code128", 110}},
        Row{"Code128OfThirteenDigits", "]C00123456789012", {"0123456789012", "0123456789012", 110}},
        Row{"Code128Modifier2", "]C2Code128", {"Code128", "Code128", 110}},
        Row{"Gs1Code128", "]C10112345678901231", {"0112345678901231", "0112345678901231", 120}},
        Row{"Codabar", "]F0A1234B", {"A1234B", "A1234B", 107}}, Row{"Code93", "]G0CODE93", {"CODE93", "CODE93", 109}},
        Row{"Interleaved", "]I01234", {"1234", "1234", 106}},
        Row{"InterleavedModifier1", "]I11234", {"1234", "1234", 106}},
        Row{"InterleavedModifier2", "]I21234", {"1234", "1234", 501}},
        Row{"InterleavedModifier3", "]I31234", {"1234", "1234", 106}},
        Row{"Discrete", "]S01234", {"1234", "1234", 105}}, Row{"Pdf417", "]L2Pdf 417", {"Pdf 417", "Pdf 417", 201}},
        Row{"MaxiCode", "]U0Maxi", {"Maxi", "Maxi", 202}}, Row{"MaxiCodeModifier1", "]U1Maxi", {"Maxi", "Maxi", 202}},
        Row{"OcrA", "]o1OCR", {"OCR", "OCR", 121}}, Row{"OcrB", "]o2OCR", {"OCR", "OCR", 122}},
        Row{"OtherSymbology", "]Q3QR", {"QR", "QR", 501}},
        Row{"NoPrefix", "5018374827715", {"5018374827715", "5018374827715", 0}},
        Row{"BracketWithoutIdentifier", "]-1", {"]-1", "]-1", 0}}, Row{"BracketAlone", "]E", {"]E", "]E", 0}},
        Row{"StxBefore", "\x02]C0AB", {"AB", "AB", 110}}, Row{"StxAndEtx", "\x02]C0AB\x03", {"AB", "AB", 110}},
        Row{"LineFeedBehind", "]C0AB\n", {"AB", "AB", 110}},
        Row{"BytesBeyondAscii", "]C0\xE9\x01", {"\xE9\x01", "\xE9\x01", 110}}, Row{"Nothing", "", {"", "", 0}},
        Row{"StxAlone", "\x02", {"", "", 0}}, Row{"PrefixAlone", "]E0", {"", "", 501}}),
    [](const auto& row) { return std::string(row.param.name); });
