// What the DirectIO commands of both device classes tell about their line.
#pragma once

#include "platform/opos/Lines.h"

#include <cstdint>
#include <string>

// data becomes 1 when the line works, 0 while it is lost; text the port's name. Gives an OposResult.
[[nodiscard]] std::int32_t LineState(LineThread& thread, const std::shared_ptr<SharedLine>& line, int port,
                                     std::int32_t& data, std::string& text);

// Each byte as two hexadecimal digits, upper case.
[[nodiscard]] std::string HexText(const std::string& bytes);
