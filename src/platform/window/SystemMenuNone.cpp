// For systems whose window managers take no entry out of a menu of their own.
#include "platform/window/SystemMenu.h"

void RemoveCloseFromSystemMenu(std::uintptr_t /*window*/) {}
