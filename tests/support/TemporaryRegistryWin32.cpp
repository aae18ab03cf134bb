#include "support/TemporaryKeys.h"
#include "support/TemporaryRegistry.h"

class TemporaryRegistry::Place : public TemporaryKeys {};

TemporaryRegistry::TemporaryRegistry()
    : place_(std::make_unique<Place>()), registry_(OpenWindowsRegistry(place_->Places())) {}

TemporaryRegistry::~TemporaryRegistry() = default;

std::unique_ptr<RegistryTree> TemporaryRegistry::Tree() const {
    return OpenWindowsTree(place_->Places());
}

std::unique_ptr<Registry> TemporaryRegistry::OtherProgram() const {
    return OpenWindowsRegistry(place_->Places());
}
