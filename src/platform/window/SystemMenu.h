// The menu that the system gives a window in its title bar.
#pragma once

#include <cstdint>

// Takes the last entry and the one before it ("Close" and the separator above it) out of the system menu of the window
// (the system's number of it), so that the user cannot close it; nothing where the window, or the system, has no such
// menu. Errors: NumberedError Overflow for a menu without entries.
void RemoveCloseFromSystemMenu(std::uintptr_t window);
