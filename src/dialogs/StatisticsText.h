// Statistics as a person reads them.
#pragma once

#include <string>
#include <string_view>

// Breaks a statistics document (UTF-8) behind its tags with a carriage return and the indentation of the level there,
// three blanks a level. Any text will do; one without tags comes back as it is. Takes time in proportion to the text.
[[nodiscard]] std::string IndentStatistics(std::string_view document);
