// This system's control objects, as the program has them.
#pragma once

#include "app/QtEventDispatcher.h"
#include "opos/OposControls.h"
#include "support_opos/InstalledControls.h"

// Usable wherever an OposControls& is wanted; events come through the test's event loop.
class SystemControls final : public OposControls {
public:
    explicit SystemControls(Registry& registry)
        : installed_(registry, dispatcher_), controls_(OpenSystemControls(registry, dispatcher_)) {}

    std::unique_ptr<OPOSScanner> CreateScanner() override { return controls_->CreateScanner(); }
    std::unique_ptr<OPOSScale> CreateScale() override { return controls_->CreateScale(); }

private:
    QtEventDispatcher dispatcher_;
    InstalledControls installed_;
    std::unique_ptr<OposControls> controls_;
};
