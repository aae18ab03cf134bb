// The help in a window of the program's own.
#pragma once

#include "platform/help/HelpViewer.h"

// Opens nothing yet.
[[nodiscard]] std::unique_ptr<HelpViewer> CreateHelpWindow();
