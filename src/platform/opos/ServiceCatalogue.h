// Finds the service object that a profile names.
#pragma once

#include "platform/opos/Lines.h"
#include "platform/opos/ScaleService.h"
#include "platform/opos/ScannerService.h"

#include <cstdint>
#include <memory>
#include <string>

class Registry;

// A service object, or why there is none.
template<class Service>
struct Opened {
    std::unique_ptr<Service> service;
    std::int32_t result = 0;     // OposResult
    std::int32_t openResult = 0; // OposOpenResult
};

// name: the name that an application opens, UTF-8; either a profile's, or that of a value in the class folder which
// holds a profile's. No error is raised.
[[nodiscard]] Opened<ScannerService> OpenScannerService(Registry& registry, Lines& lines, const std::string& name);
[[nodiscard]] Opened<ScaleService> OpenScaleService(Registry& registry, Lines& lines, const std::string& name);
