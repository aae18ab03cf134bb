// What the tests of the profile classes share.
#pragma once

#include "support/RecordingRegistry.h"
#include "support/TemporaryRegistry.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

class ProfileTest : public testing::Test {
protected:
    static constexpr const char* ScannerKey = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scanner\\";
    static constexpr const char* ScaleKey = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scale\\";

    // What was written, "NAME=TEXT" in this order; a date and time reads as "DATE".
    [[nodiscard]] std::vector<std::string> Written() const {
        std::vector<std::string> written;
        for (const std::string& value : registry_.Arguments("WriteValue"))
            written.push_back(std::regex_replace(value, std::regex(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d$)"), "DATE"));
        return written;
    }

    // The operations of a load: it reads these values of the key, in this order, and creates nothing.
    static std::vector<std::string> LoadOf(const std::string& key, const std::vector<std::string>& values) {
        std::vector<std::string> operations = {"CreateStore", "CreateMissing no", "Root machine", "KeyPath " + key};
        for (const std::string& value : values)
            operations.push_back("ReadValue " + value);
        return operations;
    }

    // What the key holds, "NAME=TEXT".
    [[nodiscard]] std::vector<std::string> Stored(const std::string& key) const {
        std::vector<std::string> values;
        for (const RegistryValue& value : real_.Values(key))
            values.push_back(value.name + '=' + value.data);
        return values;
    }

    TemporaryRegistry real_;
    RecordingRegistry registry_{real_};
};
