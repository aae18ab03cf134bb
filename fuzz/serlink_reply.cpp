// A scanner's configuration reply, in whatever bytes and pieces: however it is cut, the outcome is the same, and what
// is accepted has the promised form. The first byte of the input says how the rest is cut, the second how much a reply
// may have.
#include "platform/serial/LineCharacters.h"
#include "platform/serial/ReplyParser.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

bool HasTheForm(std::string_view text) {
    constexpr std::string_view BlockCharacters = "0123456789ABCDEFabcdef \r";
    if (text.size() < 6) {
        return false;
    }
    const auto firmware = text.substr(text.size() - 6);
    const auto printable = [](char byte) { return (byte >= ' ' && byte <= '~') || byte == LineCharacters::Cr; };
    return text.substr(0, text.size() - 6).find_first_not_of(BlockCharacters) == std::string_view::npos &&
           std::all_of(firmware.begin(), firmware.end(), printable);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    const std::size_t piece = std::size_t{data[0]} + 1;
    const std::size_t limit = std::size_t{data[1]} * 8;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 2, size - 2);

    ReplyParser whole(limit);
    const std::size_t taken = whole.Take(bytes);
    ReplyParser cut(limit);
    std::size_t takenInPieces = 0;
    for (std::size_t start = 0; start < bytes.size(); start += piece) {
        takenInPieces += cut.Take(bytes.substr(start, piece));
    }

    Require(taken == takenInPieces && whole.Progress() == cut.Progress() && whole.Text() == cut.Text());
    Require(taken <= bytes.size() && taken <= limit + 1 && whole.Text().size() <= limit);
    Require(whole.Ended() || taken == bytes.size());
    if (whole.Progress() == ReplyParser::State::Complete) {
        Require(HasTheForm(whole.Text()));
        Require(bytes.substr(0, taken).ends_with(whole.Text() + LineCharacters::Etx));
    }
    return 0;
}
