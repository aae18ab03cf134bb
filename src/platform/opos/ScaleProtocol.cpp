#include "platform/opos/ScaleProtocol.h"

#include <algorithm>

namespace ScaleProtocol {

namespace {

constexpr char Stx = '\x02';
constexpr std::size_t LongestReply = 7; // 0WW.WWW

bool IsNumber(std::string_view digits) {
    return (digits.size() == 2 || digits.size() == 3) &&
           std::ranges::all_of(digits, [](char digit) { return digit >= '0' && digit <= '9'; });
}

std::int32_t Number(std::string_view digits) {
    std::int32_t number = 0;
    for (const char digit : digits)
        number = number * 10 + (digit - '0');
    return number;
}

} // namespace

std::optional<std::string_view> ReplyText(std::string_view line) {
    const auto start = line.find(Stx);
    return start == std::string_view::npos ? std::nullopt : std::optional(line.substr(start + 1));
}

Reply ParseReply(std::string_view text) {
    if (text.size() == 2 && text[0] == '?')
        return {Reply::Kind::Status, 0, static_cast<unsigned char>(text[1]) & StatusBits};
    const auto point = text.find('.');
    if (point == std::string_view::npos || !IsNumber(text.substr(0, point)) || !IsNumber(text.substr(point + 1)))
        return {};
    const std::string_view decimals = text.substr(point + 1);
    const std::int32_t thousandths = Number(decimals) * (decimals.size() == 2 ? 10 : 1);
    return {Reply::Kind::Weight, Number(text.substr(0, point)) * 1000 + thousandths, 0};
}

bool ResemblesReply(std::string_view text) {
    return text.size() <= LongestReply && !text.starts_with(']') &&
           (text.starts_with('?') || text.find('.') != std::string_view::npos);
}

} // namespace ScaleProtocol
