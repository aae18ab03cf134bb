#include "profiles/Weight.h"

#include <cstdlib>

namespace {

// A number of 10^-decimals as decimal text.
std::string Decimal(std::int64_t value, int decimals) {
    std::string digits = std::to_string(std::abs(value));
    const auto places = static_cast<std::size_t>(decimals);
    if (digits.size() <= places)
        digits.insert(0, places + 1 - digits.size(), '0');
    digits.insert(digits.size() - places, 1, '.');
    return value < 0 ? '-' + digits : digits;
}

} // namespace

std::string FormatWeight(std::int32_t thousandths, std::int32_t weightUnit) {
    if (weightUnit != PoundUnit)
        return FormatThousandths(thousandths) + " kg";
    const std::int64_t weight = thousandths;
    return Decimal((weight + (weight < 0 ? -5 : 5)) / 10, 2) + " lb";
}

std::string FormatThousandths(std::int32_t thousandths) {
    return Decimal(thousandths, 3);
}
