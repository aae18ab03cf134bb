#include "wizard/WizardProfiles.h"

#include "profiles/CAveryScale.h"
#include "profiles/CScale2.h"
#include "profiles/CScanner2.h"
#include "profiles/ModelCatalogue.h"
#include "profiles/Numbers.h"
#include "profiles/OptionLists.h"
#include "wizard/WizardPages.h"

namespace {

std::shared_ptr<CGenericScanner> BuildScanner(Registry& registry, const WizardChoices& choices) {
    auto scanner = std::make_shared<CScanner2>(registry);
    const bool serial = choices.interfaceIndex == OptionLists::SerialInterface;
    scanner->DeviceName(choices.scannerName);
    scanner->Model(choices.model);
    scanner->ScannerType(ScannerTypeOf(choices.interfaceIndex, choices.model));
    scanner->SerialPort(serial ? PortNumber(choices.scannerPort) : std::int16_t{0});
    scanner->SScaleType(static_cast<std::int16_t>(choices.scaleType));
    scanner->SWeightUnit(choices.weightUnit);
    scanner->SDisplay(choices.display);
    return scanner;
}

// A single-cable scale is on its scanner's port.
std::shared_ptr<CGenericScale> BuildScale(Registry& registry, const WizardChoices& choices, std::int16_t scannerPort) {
    std::shared_ptr<CGenericScale> scale;
    if (choices.scaleType == WizardScaleType::SingleCable) {
        scale = std::make_shared<CScale2>(registry);
        scale->SerialPort(scannerPort);
    } else if (choices.scaleType == WizardScaleType::DualCable) {
        scale = std::make_shared<CAveryScale>(registry);
        scale->SerialPort(PortNumber(choices.scalePort));
    } else {
        return nullptr;
    }
    scale->WeightUnit(choices.weightUnit);
    scale->Display(choices.display);
    scale->DeviceName(choices.scaleName);
    return scale;
}

} // namespace

WizardProfiles BuildProfiles(Registry& registry, const WizardChoices& choices) {
    const auto scanner = BuildScanner(registry, choices);
    return {scanner, BuildScale(registry, choices, scanner->SerialPort())};
}
