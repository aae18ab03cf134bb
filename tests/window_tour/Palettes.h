// The colours of a light and of a dark theme.
#pragma once

#include <QPalette>

[[nodiscard]] QPalette LightPalette();
[[nodiscard]] QPalette DarkPalette();
