// Keys of the Windows registry for one test.
#pragma once

#include "platform/registry/RegistryWin32.h"

#include <string>

// A key of its own in each of the two hives; empty at first, gone at the end.
class TemporaryKeys {
public:
    TemporaryKeys();
    ~TemporaryKeys();
    TemporaryKeys(const TemporaryKeys&) = delete;
    TemporaryKeys& operator=(const TemporaryKeys&) = delete;

    [[nodiscard]] const RegistryPlaces& Places() const { return places_; }

private:
    std::string key_;
    RegistryPlaces places_;
};
