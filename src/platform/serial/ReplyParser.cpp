#include "platform/serial/ReplyParser.h"

#include "platform/serial/LineCharacters.h"

using namespace LineCharacters;

namespace {

constexpr std::size_t FirmwareLength = 6;

bool MayStandInBlock(char byte) {
    return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'F') || (byte >= 'a' && byte <= 'f') ||
           byte == ' ' || byte == Cr;
}

bool MayStandInFirmware(char byte) {
    return (byte >= ' ' && byte <= '~') || byte == Cr;
}

} // namespace

std::size_t ReplyParser::Take(std::string_view bytes) {
    std::size_t count = 0;
    while (count < bytes.size() && !Ended()) {
        state_ = taken_ < limit_ ? Next(bytes[count]) : State::Malformed;
        ++taken_;
        ++count;
    }
    return count;
}

ReplyParser::State ReplyParser::Next(char byte) {
    if (byte == Nak) {
        return State::Refused;
    }
    if (state_ == State::Waiting) {
        return byte == Stx ? State::Receiving : State::Waiting;
    }
    if (byte == Etx) {
        return text_.size() >= FirmwareLength ? State::Complete : State::Malformed;
    }
    return AddToText(byte);
}

ReplyParser::State ReplyParser::AddToText(char byte) {
    if (!MayStandInFirmware(byte)) {
        return State::Malformed;
    }
    if (firstOther_ == std::string::npos && !MayStandInBlock(byte)) {
        firstOther_ = text_.size();
    }
    text_ += byte;
    const bool otherInBlock = firstOther_ != std::string::npos && text_.size() - firstOther_ > FirmwareLength;
    return otherInBlock ? State::Malformed : State::Receiving;
}
