// The lines over which the program's windows program scanners.
#pragma once

#include "programming/SerlinkFactory.h"

// Makes lines over this system's serial ports.
[[nodiscard]] SerlinkFactory SystemSerlink();
