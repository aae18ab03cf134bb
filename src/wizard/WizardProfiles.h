// Makes the profiles that the user's choices in the wizard describe.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

class CGenericScale;
class CGenericScanner;
class Registry;

// Texts are UTF-8, ports as their lists name them ("COM3"); all else are indexes of the option lists.
struct WizardChoices {
    std::string model;
    int scaleType = 0;
    int interfaceIndex = 0;
    std::string scannerName;
    std::string scannerPort;
    std::string scaleName;
    std::string scalePort;
    std::int16_t weightUnit = 0;
    std::int16_t display = 0;
};

struct WizardProfiles {
    std::shared_ptr<CGenericScanner> scanner;
    std::shared_ptr<CGenericScale> scale; // null where no scale is wanted
};

// Stored nowhere yet. The registry outlives the profiles. Errors: NumberedError for a port's name without a number,
// where the choices need that port.
[[nodiscard]] WizardProfiles BuildProfiles(Registry& registry, const WizardChoices& choices);
