// Makes the control objects that this system has.
#pragma once

#include "opos/EventDispatcher.h"
#include "opos/OPOSScale.h"
#include "opos/OPOSScanner.h"

#include <memory>

class Registry;

// Lives longer than the controls it made; used on the user interface's thread.
class OposControls {
public:
    virtual ~OposControls() = default;
    OposControls(const OposControls&) = delete;
    OposControls& operator=(const OposControls&) = delete;

    // A closed control.
    [[nodiscard]] virtual std::unique_ptr<OPOSScanner> CreateScanner() = 0;
    [[nodiscard]] virtual std::unique_ptr<OPOSScale> CreateScale() = 0;

protected:
    OposControls() = default;
};

// This system's control objects, chosen when the program is linked: the OPOS common control objects, elsewhere controls
// with service objects of the program's own. Profiles are looked up in the registry with each Open. Both references
// outlive the result.
[[nodiscard]] std::unique_ptr<OposControls> OpenSystemControls(Registry& registry, EventDispatcher& dispatcher);
