// A scanner as it behaves on its line: it sends labels, and is as strict with its configuration as a device. It knows
// no port and no clock of its own; what it is given comes byte by byte.
#pragma once

#include "lane/ScannerTraits.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class VirtualScanner {
public:
    using Clock = std::chrono::steady_clock;

    struct Surroundings {
        std::function<void(const std::string& bytes)> send;
        // What happened, in a few words for the list of events.
        std::function<void(const std::string& event)> report;
        std::function<Clock::time_point()> now = [] { return Clock::now(); };
        // How long a scanner of class 6 prepares itself before it takes a configuration.
        std::chrono::milliseconds preparation{4500};
    };

    // firmware: up to six printable characters, empty for the usual one of the class. Errors: LaneError.
    VirtualScanner(int programmingClass, const std::string& firmware, Surroundings surroundings);

    void Receive(char byte);
    // Sends the label (any bytes) and CR; a scanner that was being programmed gives that up.
    void Scan(const std::string& label);
    // Off and on: what was stored stays.
    void Power();
    // NAK to the next configuration that is written.
    void RefuseNext() { refuseNext_ = true; }

    [[nodiscard]] int ProgrammingClass() const { return programmingClass_; }
    [[nodiscard]] const std::string& Firmware() const { return firmware_; }
    // Whether a scale is built in.
    [[nodiscard]] bool HasScale() const { return traits_.hasScale; }
    // The stored configuration block in upper-case hexadecimal digits.
    [[nodiscard]] const std::string& Block() const { return block_; }

private:
    void Execute(const std::string& command);
    void EnterProgrammingMode();
    void SendConfiguration();
    void TakeConfiguration(const std::string& command);
    // What is wrong with the configuration; empty when nothing is. digits gets the block.
    [[nodiscard]] std::string FaultOf(const std::string& command, std::string& digits) const;
    [[nodiscard]] bool ExpectsApm() const;
    // Block and firmware number as they are sent.
    [[nodiscard]] std::string ConfigurationText() const;

    int programmingClass_;
    ScannerTraits traits_;
    std::string firmware_;
    Surroundings surroundings_;
    std::string block_;
    std::string line_;
    bool lineTooLong_ = false;
    bool programming_ = false;
    bool preparing_ = false;
    Clock::time_point prepared_;
    bool refuseNext_ = false;
};
