// The control characters of the lines to scanners and scales.
#pragma once

namespace LineCharacters {

inline constexpr char Stx = 0x02;
inline constexpr char Etx = 0x03;
inline constexpr char Ack = 0x06;
inline constexpr char Cr = 0x0D;
inline constexpr char Lf = 0x0A;
inline constexpr char Nak = 0x15;

} // namespace LineCharacters
