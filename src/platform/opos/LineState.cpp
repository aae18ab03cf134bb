#include "platform/opos/LineState.h"

#include "opos/OposConstants.h"
#include "platform/serial/SerialPorts.h"

std::int32_t LineState(LineThread& thread, const std::shared_ptr<SharedLine>& line, int port, std::int32_t& data,
                       std::string& text) {
    const auto open = thread.Call([line] { return line->IsOpen(); });
    if (!open)
        return OposResult::Failure;
    data = *open ? 1 : 0;
    text = SerialPortName(port);
    return OposResult::Success;
}

std::string HexText(const std::string& bytes) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    for (const char character : bytes) {
        const auto byte = static_cast<unsigned char>(character);
        text += digits[byte >> 4U];
        text += digits[byte & 15U];
    }
    return text;
}
