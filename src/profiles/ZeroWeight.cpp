#include "profiles/ZeroWeight.h"

#include "profiles/ProfileKey.h"
#include "profiles/RegistryPaths.h"

bool RejectsZeroWeight(Registry& registry) {
    return ProfileReader(registry, RegistryPaths::DriverOptions, {}).Number("ZeroWeightReject") == 1;
}

std::string ScaleProgId(Registry& registry, const std::string& profileName) {
    return ProfileReader(registry, RegistryPaths::ScaleFolder, profileName).Text({});
}

bool ProhibitsZeroWeight(Registry& registry, const std::string& profileName) {
    return RejectsZeroWeight(registry) && ScaleProgId(registry, profileName) == ProgId::Scale2;
}
