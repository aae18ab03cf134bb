// Control objects with service objects of the program's own.
#pragma once

#include "opos/OposControls.h"
#include "platform/opos/Lines.h"

class NativeControls final : public OposControls {
public:
    NativeControls(Registry& registry, EventDispatcher& dispatcher) : registry_(registry), dispatcher_(dispatcher) {}

    std::unique_ptr<OPOSScanner> CreateScanner() override;
    std::unique_ptr<OPOSScale> CreateScale() override;

private:
    Registry& registry_;
    EventDispatcher& dispatcher_;
    Lines lines_;
};
