// Reads a scanner's configuration reply, STX text ETX, from bytes as they come. The text is the block in hexadecimal
// digits of either case and blanks, then the six characters of the firmware number; carriage returns may stand among
// them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

class ReplyParser {
public:
    enum class State {
        Waiting,   // for STX; other bytes are noise
        Receiving, // the text
        Complete,
        Refused,  // NAK, before the text or in it
        Malformed // a byte that cannot stand there, fewer than six characters, or too many bytes
    };

    // Far above the kilobyte of the largest configuration, and small enough for a device that never stops.
    static constexpr std::size_t DefaultLimit = std::size_t{64} * 1024;

    // limit: how many bytes the reply may have, noise before it included.
    explicit ReplyParser(std::size_t limit = DefaultLimit) : limit_(limit) {}

    // Takes bytes up to the one that ends the reply; returns how many.
    std::size_t Take(std::string_view bytes);
    [[nodiscard]] State Progress() const noexcept { return state_; }
    [[nodiscard]] bool Ended() const noexcept { return state_ != State::Waiting && state_ != State::Receiving; }
    // What stands between STX and ETX, as far as it has come.
    [[nodiscard]] const std::string& Text() const noexcept { return text_; }

private:
    [[nodiscard]] State Next(char byte);
    [[nodiscard]] State AddToText(char byte);

    std::size_t limit_;
    std::size_t taken_ = 0;
    State state_ = State::Waiting;
    std::string text_;
    // Where the first character stands that only a firmware number can have; npos while there is none.
    std::size_t firstOther_ = std::string::npos;
};
