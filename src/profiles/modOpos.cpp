#include "profiles/modOpos.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace {

struct CodeName {
    std::int32_t code;
    std::string_view name;
};

constexpr std::array Symbologies = {
    CodeName{101, "UPC-A"},
    CodeName{102, "UPC-E"},
    CodeName{103, "EAN/JAN 8"},
    CodeName{104, "EAN/JAN 13"},
    CodeName{105, "Discrete 2 of 5"},
    CodeName{106, "Interleaved 2 of 5"},
    CodeName{107, "Codabar"},
    CodeName{108, "Code 39"},
    CodeName{109, "Code 93"},
    CodeName{110, "Code 128"},
    CodeName{111, "UPC-A with Supplement"},
    CodeName{112, "UPC-E with Supplement"},
    CodeName{113, "UPC-D1"},
    CodeName{114, "UPC-D2"},
    CodeName{115, "UPC-D3"},
    CodeName{116, "UPC-D4"},
    CodeName{117, "UPC-D5"},
    CodeName{118, "EAN 8 With Supplement"},
    CodeName{119, "EAN 13 With Supplement"},
    CodeName{120, "EAN 128"},
    CodeName{121, "OCR \"A\""},
    CodeName{122, "OCR \"B\""},
    CodeName{201, "PDF 417"},
    CodeName{202, "Maxicode"},
    CodeName{501, "Other"},
};

constexpr std::array ResultCodes = {
    CodeName{0, "Success"},      CodeName{101, "Closed"},   CodeName{102, "Claimed"},  CodeName{103, "Not Claimed"},
    CodeName{104, "No Service"}, CodeName{105, "Disabled"}, CodeName{106, "Illegal"},  CodeName{107, "No Hardware"},
    CodeName{108, "Offline"},    CodeName{109, "No Exist"}, CodeName{110, "Exists"},   CodeName{111, "Failure"},
    CodeName{112, "Timeout"},    CodeName{113, "Busy"},     CodeName{114, "Extended"},
};

constexpr std::array OpenResults = {
    CodeName{0, "Success"},        CodeName{300, "Open Error"},
    CodeName{301, "Already Open"}, CodeName{302, "Registry Bad Name"},
    CodeName{303, "Bad ProgID"},   CodeName{304, "Create Error"},
    CodeName{305, "Badif"},        CodeName{306, "Failed Open"},
    CodeName{307, "Bad Version"},  CodeName{400, "SO Error"},
    CodeName{401, "No Port"},      CodeName{402, "Not Supported"},
    CodeName{403, "Config"},       CodeName{450, "Specific"},
};

constexpr std::array States = {
    CodeName{1, "Closed"},
    CodeName{2, "Idle"},
    CodeName{3, "Busy"},
    CodeName{4, "Error"},
};

std::string Format(std::span<const CodeName> table, std::int32_t code, std::string_view fallback) {
    const auto row = std::ranges::find(table, code, &CodeName::code);
    return std::string(row == table.end() ? fallback : row->name) + " (" + std::to_string(code) + ")";
}

} // namespace

std::string SymbologyName(std::int32_t code) {
    return Format(Symbologies, code, "Unknown");
}

std::string ResultCodeName(std::int32_t code) {
    return Format(ResultCodes, code, {});
}

std::string OpenResultName(std::int32_t code) {
    return Format(OpenResults, code, {});
}

std::string StateName(std::int32_t code) {
    return Format(States, code, {});
}
