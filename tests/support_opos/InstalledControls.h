// The control objects that tests have installed on this system.
#pragma once

#include "opos/EventDispatcher.h"

#include <memory>

class Registry;

// While it lives, OpenSystemControls finds working control objects over the registry, whose events come by the
// dispatcher, at the lines of support/PseudoTerminal.h. Of several the newest counts. Where control objects are part of
// the program there is nothing to install; on Windows they are the program's ones of the other systems behind COM, in
// this process.
class InstalledControls {
public:
    InstalledControls(Registry& registry, EventDispatcher& dispatcher);
    ~InstalledControls();
    InstalledControls(const InstalledControls&) = delete;
    InstalledControls& operator=(const InstalledControls&) = delete;

private:
    class Private;
    std::unique_ptr<Private> private_;
};
