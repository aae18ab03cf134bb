// The 8213/8217 protocol of serial checkout scales: one letter asks, `STX ... CR` answers.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace ScaleProtocol {

inline constexpr std::string_view WeightCommand = "W";
inline constexpr std::string_view ZeroCommand = "Z";

// Bits of the status byte.
inline constexpr unsigned Motion = 1;
inline constexpr unsigned OverCapacity = 2;
inline constexpr unsigned UnderZero = 4;
inline constexpr unsigned OutsideZeroCapture = 8;
inline constexpr unsigned CentreOfZero = 16;
inline constexpr unsigned StatusBits = 31; // what the other bits say is not defined

struct Reply {
    enum class Kind { Weight, Status, Unreadable };
    Kind kind = Kind::Unreadable;
    std::int32_t weight = 0; // thousandths of the unit that the scale is configured for
    unsigned status = 0;     // without the undefined bits
    bool operator==(const Reply&) const = default;
};

// What stands behind the first STX of the line; nothing where there is no STX. line: without its CR.
[[nodiscard]] std::optional<std::string_view> ReplyText(std::string_view line);

// text: what stands between STX and CR. Weights have two or three digits on either side of the point: `0WW.WW`, `WW.WW`
// in pounds, `WW.WWW` in kilograms.
[[nodiscard]] Reply ParseReply(std::string_view text);

// Whether a text between STX and CR that ParseReply cannot read is rather a damaged answer than a scanner's label: as
// short as an answer, with a point or question mark where an answer has it, without a symbology identifier.
[[nodiscard]] bool ResemblesReply(std::string_view text);

} // namespace ScaleProtocol
