#include "platform/opos/LabelParser.h"

#include "opos/OposConstants.h"

#include <algorithm>
#include <array>

namespace {

constexpr char Stx = '\x02';
constexpr char Etx = '\x03';

struct AimRow {
    char letter;
    char firstModifier;
    char lastModifier;
    std::int32_t symbology;
};

constexpr std::array AimRows = {
    AimRow{'A', '0', '7', OposSymbology::Code39},
    AimRow{'C', '0', '0', OposSymbology::Code128},
    AimRow{'C', '1', '1', OposSymbology::Gs1Code128},
    AimRow{'C', '2', '2', OposSymbology::Code128},
    AimRow{'F', '0', '9', OposSymbology::Codabar},
    AimRow{'G', '0', '0', OposSymbology::Code93},
    AimRow{'I', '0', '1', OposSymbology::Interleaved2Of5},
    AimRow{'I', '3', '3', OposSymbology::Interleaved2Of5},
    AimRow{'L', '0', '2', OposSymbology::Pdf417},
    AimRow{'S', '0', '0', OposSymbology::Discrete2Of5},
    AimRow{'U', '0', '1', OposSymbology::MaxiCode},
    AimRow{'o', '1', '1', OposSymbology::OcrA},
    AimRow{'o', '2', '2', OposSymbology::OcrB},
};

// What the digits of a retail symbol are, by their number.
enum class Digits {
    Whole,       // the label as it stands
    Ean13Family, // with a leading zero a UPC-A label, which has no such zero
    NoCheck,     // the check digit behind the first `bare` digits is missing
    UpcENoCheck, // the same for UPC-E, where it is that of the number in its long form
    UpcEBare,    // not even the number system, which is 0
};

struct RetailRow {
    char modifier; // of "]E"
    std::size_t count;
    Digits digits;
    std::size_t bare; // digits in front of the check digit and the supplement
    std::int32_t symbology;
    std::int32_t withoutLeadingZero; // for Ean13Family
};

constexpr std::array RetailRows = {
    RetailRow{'0', 13, Digits::Ean13Family, 12, OposSymbology::Ean13, OposSymbology::UpcA},
    RetailRow{'0', 12, Digits::Whole, 11, OposSymbology::UpcA, 0},
    RetailRow{'0', 11, Digits::NoCheck, 11, OposSymbology::UpcA, 0},
    RetailRow{'0', 8, Digits::Whole, 7, OposSymbology::UpcE, 0},
    RetailRow{'0', 7, Digits::UpcENoCheck, 7, OposSymbology::UpcE, 0},
    RetailRow{'0', 6, Digits::UpcEBare, 6, OposSymbology::UpcE, 0},
    RetailRow{'3', 18, Digits::Ean13Family, 12, OposSymbology::Ean13WithSupplement, OposSymbology::UpcAWithSupplement},
    RetailRow{'3', 15, Digits::Ean13Family, 12, OposSymbology::Ean13WithSupplement, OposSymbology::UpcAWithSupplement},
    RetailRow{'3', 17, Digits::Whole, 11, OposSymbology::UpcAWithSupplement, 0},
    RetailRow{'3', 14, Digits::Whole, 11, OposSymbology::UpcAWithSupplement, 0},
    RetailRow{'3', 13, Digits::Whole, 7, OposSymbology::UpcEWithSupplement, 0},
    RetailRow{'3', 10, Digits::Whole, 7, OposSymbology::UpcEWithSupplement, 0},
    RetailRow{'4', 8, Digits::Whole, 7, OposSymbology::Ean8, 0},
    RetailRow{'4', 7, Digits::NoCheck, 7, OposSymbology::Ean8, 0},
    RetailRow{'4', 13, Digits::Whole, 7, OposSymbology::Ean8WithSupplement, 0},
    RetailRow{'4', 12, Digits::NoCheck, 7, OposSymbology::Ean8WithSupplement, 0},
    RetailRow{'4', 10, Digits::Whole, 7, OposSymbology::Ean8WithSupplement, 0},
    RetailRow{'4', 9, Digits::NoCheck, 7, OposSymbology::Ean8WithSupplement, 0},
};

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

// Of digits that the check digit would follow: weights 3, 1, 3, ... from the right.
char CheckDigit(std::string_view digits) {
    int sum = 0;
    int weight = 3;
    for (std::size_t i = digits.size(); i > 0; --i) {
        sum += (digits[i - 1] - '0') * weight;
        weight = 4 - weight;
    }
    return static_cast<char>('0' + (10 - sum % 10) % 10);
}

// The eleven digits that seven of a UPC-E symbol (number system first) stand for.
std::string LongFormOfUpcE(std::string_view digits) {
    const std::string system(1, digits[0]);
    const std::string_view body = digits.substr(1);
    const auto part = [&body](std::size_t from, std::size_t count) { return std::string(body.substr(from, count)); };
    switch (const char last = body[5]) {
    case '0':
    case '1':
    case '2':
        return system + part(0, 2) + last + "0000" + part(2, 3);
    case '3':
        return system + part(0, 3) + "00000" + part(3, 2);
    case '4':
        return system + part(0, 4) + "00000" + part(4, 1);
    default:
        return system + part(0, 5) + "0000" + last;
    }
}

Label RetailLabel(const RetailRow& row, std::string_view data) {
    Label result{std::string(data), std::string(data), row.symbology};
    switch (row.digits) {
    case Digits::Whole:
        break;
    case Digits::Ean13Family:
        if (data.front() == '0') {
            result.label.erase(0, 1);
            result.symbology = row.withoutLeadingZero;
        }
        break;
    case Digits::NoCheck:
        result.label.insert(row.bare, 1, CheckDigit(data.substr(0, row.bare)));
        break;
    case Digits::UpcEBare:
        result.label.insert(0, 1, '0');
        [[fallthrough]];
    case Digits::UpcENoCheck:
        result.label += CheckDigit(LongFormOfUpcE(result.label));
        break;
    }
    return result;
}

Label LabelOf(char letter, char modifier, std::string_view data) {
    if (letter == 'E' && std::ranges::all_of(data, IsDigit)) {
        const auto row = std::ranges::find_if(RetailRows, [&](const RetailRow& candidate) {
            return candidate.modifier == modifier && candidate.count == data.size();
        });
        if (row != RetailRows.end())
            return RetailLabel(*row, data);
    }
    const auto row = std::ranges::find_if(AimRows, [&](const AimRow& candidate) {
        return candidate.letter == letter && candidate.firstModifier <= modifier && modifier <= candidate.lastModifier;
    });
    return {std::string(data), std::string(data), row == AimRows.end() ? OposSymbology::Other : row->symbology};
}

bool IsAsciiLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

} // namespace

Label ParseLabel(std::string_view line) {
    if (line.starts_with(Stx))
        line.remove_prefix(1);
    while (line.ends_with(Etx) || line.ends_with('\n') || line.ends_with('\r'))
        line.remove_suffix(1);
    const bool prefixed =
        line.size() >= 3 && line[0] == ']' && IsAsciiLetter(line[1]) && (IsAsciiLetter(line[2]) || IsDigit(line[2]));
    if (!prefixed)
        return {std::string(line), std::string(line), OposSymbology::Unknown};
    return LabelOf(line[1], line[2], line.substr(3));
}
