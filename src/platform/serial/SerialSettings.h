// The settings of a serial line. Flow control is never used.
#pragma once

enum class SerialParity { None, Even, Odd };

struct SerialSettings {
    unsigned baudRate = 9600;
    unsigned dataBits = 8; // 7 or 8
    SerialParity parity = SerialParity::None;
    unsigned stopBits = 1; // 1 or 2
};
