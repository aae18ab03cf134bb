#include "profiles/Numbers.h"

#include "profiles/NumberedError.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace {

double ToNumber(std::string_view text) {
    auto digits = Trimmed(text);
    if (digits.starts_with('+') && !digits.starts_with("+-"))
        digits.remove_prefix(1);
    double number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (end != digits.data() + digits.size() || error == std::errc::invalid_argument || !std::isfinite(number))
        throw NumberedError(ErrorNumber::TypeMismatch, '"' + std::string(text) + "\" is not a number");
    if (error == std::errc::result_out_of_range)
        throw NumberedError(ErrorNumber::Overflow, std::string(text));
    return number;
}

template<typename Integer>
Integer ToInteger(std::string_view text) {
    const double rounded = std::nearbyint(ToNumber(text));
    if (rounded < std::numeric_limits<Integer>::min() || rounded > std::numeric_limits<Integer>::max())
        throw NumberedError(ErrorNumber::Overflow, std::string(text));
    return static_cast<Integer>(rounded);
}

} // namespace

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::int16_t ToInt16(std::string_view text) {
    return ToInteger<std::int16_t>(text);
}

std::int32_t ToInt32(std::string_view text) {
    return ToInteger<std::int32_t>(text);
}

float ToSingle(std::string_view text) {
    if (text.empty())
        return 0;
    const double number = ToNumber(text);
    if (std::abs(number) > static_cast<double>(std::numeric_limits<float>::max()))
        throw NumberedError(ErrorNumber::Overflow, std::string(text));
    return static_cast<float>(number);
}

std::int16_t StoredNumber(std::string_view text) {
    return ToInt16('0' + std::string(text));
}

std::int16_t PortNumber(std::string_view portName) {
    if (portName.size() < 3)
        throw NumberedError(ErrorNumber::InvalidArgument, '"' + std::string(portName) + "\" is not a port");
    return ToInt16(portName.substr(3));
}
