// The steps by which a test takes hold of a device.
#pragma once

#include "opos/OposControl.h"

#include <stdexcept>
#include <string>

// What a test could not do.
class ApplicationError : public std::runtime_error {
public:
    // source is the member that failed, description (UTF-8) the text for the user.
    ApplicationError(std::string source, const std::string& description)
        : std::runtime_error(description), source_(std::move(source)) {}

    [[nodiscard]] const std::string& Source() const { return source_; }

private:
    std::string source_;
};

// The source and the description of the error that each step raises.
struct StartErrors {
    struct Step {
        const char* source;
        const char* description;
    };
    Step open;
    Step claim;
    Step enable;
};

// Opens, claims and enables the device of the profile. Errors: ApplicationError; the device is left as far as it came.
void OpenClaimEnable(OposControl& device, const std::string& profileName, const StartErrors& errors);
