#include "lane/VirtualScale.h"

#include "lane/LaneError.h"
#include "platform/serial/LineCharacters.h"

#include <cstdlib>

using namespace LineCharacters;

namespace {

constexpr long Capacity = 30; // of either unit

// The bits of the status byte.
constexpr unsigned Motion = 0x01;
constexpr unsigned OverCapacity = 0x02;
constexpr unsigned UnderZero = 0x04;
constexpr unsigned OutsideZeroCapture = 0x08;
constexpr unsigned CentreOfZero = 0x10;
// Always set, without a meaning: keeps the status from looking like CR.
constexpr unsigned Printable = 0x40;

std::string Digits(long value, int width) {
    std::string digits = std::to_string(value);
    while (digits.size() < static_cast<std::size_t>(width)) {
        digits.insert(digits.begin(), '0');
    }
    return digits;
}

// The decimal number in units of its last decimal place; text such as 1.2, -0.5 or 12.
long ParseDecimal(const std::string& text, int decimals) {
    const bool negative = text.starts_with('-');
    const std::string number = text.substr(negative ? 1 : 0);
    const std::size_t point = number.find('.');
    const std::string whole = number.substr(0, point);
    std::string fraction = point == std::string::npos ? "" : number.substr(point + 1);
    if (whole.empty() || whole.size() > 4 || (whole + fraction).find_first_not_of("0123456789") != std::string::npos ||
        (point != std::string::npos && fraction.empty())) {
        throw LaneError("\"" + text + "\" is not a weight; write it like 1.235");
    }
    if (fraction.size() > static_cast<std::size_t>(decimals)) {
        throw LaneError("a weight in this unit has at most " + std::to_string(decimals) + " decimals");
    }
    fraction.resize(static_cast<std::size_t>(decimals), '0');
    const long value = std::stol(whole + fraction);
    return negative ? -value : value;
}

} // namespace

VirtualScale::VirtualScale(std::function<void(const std::string&)> send, std::function<void(const std::string&)> report)
    : send_(std::move(send)), report_(std::move(report)) {}

void VirtualScale::Receive(char byte) {
    if (byte == 'W') {
        SendWeight();
    } else if (byte == 'Z') {
        Zero();
    }
}

void VirtualScale::Weigh(const std::string& text, Unit unit) {
    const long weight = ParseDecimal(text, unit == Unit::Kilogram ? 3 : 2);
    unit_ = unit;
    weight_ = weight;
    unstable_ = false;
    report_("weighs " + Display());
}

void VirtualScale::BecomeUnstable() {
    unstable_ = true;
    report_("is unstable");
}

std::string VirtualScale::Display() const {
    const long size = std::labs(weight_);
    return (weight_ < 0 ? "-" : "") + std::to_string(size / Scale()) + "." + Digits(size % Scale(), Decimals()) +
           (unit_ == Unit::Kilogram ? " kg" : " lb");
}

void VirtualScale::SendWeight() {
    const unsigned status =
        (unstable_ ? Motion : 0) | (weight_ > Capacity * Scale() ? OverCapacity : 0) | (weight_ < 0 ? UnderZero : 0);
    if (status != 0) {
        SendStatus(status);
        return;
    }
    const std::string whole = Digits(weight_ / Scale(), unit_ == Unit::Kilogram ? 2 : 3);
    send_(Stx + whole + "." + Digits(weight_ % Scale(), Decimals()) + Cr);
}

void VirtualScale::Zero() {
    // Two per cent of the capacity at most can be zeroed away.
    const bool within = std::labs(weight_) <= Capacity * Scale() / 50;
    if (unstable_) {
        SendStatus(Motion);
    } else if (within) {
        weight_ = 0;
        report_("was zeroed");
        SendStatus(CentreOfZero);
    } else {
        SendStatus(OutsideZeroCapture);
    }
}

void VirtualScale::SendStatus(unsigned bits) {
    send_(std::string{Stx, '?', static_cast<char>(bits | Printable), Cr});
}
