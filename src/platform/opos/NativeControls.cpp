#include "platform/opos/NativeControls.h"

#include "platform/opos/ScaleControl.h"
#include "platform/opos/ScannerControl.h"

std::unique_ptr<OPOSScanner> NativeControls::CreateScanner() {
    return std::make_unique<NativeScanner>(std::make_shared<ScannerControl>(registry_, dispatcher_, lines_),
                                           "Ravlin Scanner control object");
}

std::unique_ptr<OPOSScale> NativeControls::CreateScale() {
    return std::make_unique<NativeScale>(std::make_shared<ScaleControl>(registry_, dispatcher_, lines_),
                                         "Ravlin Scale control object");
}

std::unique_ptr<OposControls> OpenSystemControls(Registry& registry, EventDispatcher& dispatcher) {
    return std::make_unique<NativeControls>(registry, dispatcher);
}
