#include "lane/VirtualScanner.h"

#include "lane/LaneError.h"
#include "platform/serial/LineCharacters.h"

#include <algorithm>
#include <charconv>
#include <utility>

using namespace LineCharacters;

namespace {

constexpr std::size_t FirmwareLength = 6;
constexpr std::size_t LongestLine = 4096;
constexpr std::string_view Digits = "0123456789ABCDEF";

ScannerTraits RequireTraits(int programmingClass) {
    const auto traits = TraitsOf(programmingClass);
    if (!traits) {
        throw LaneError("there is no programming class " + std::to_string(programmingClass) +
                        "; the classes are 1, 2, 3, 4, 6 and 16 to 47");
    }
    return *traits;
}

std::string RequireFirmware(const std::string& firmware, std::string_view usual) {
    const auto printable = [](char byte) { return byte >= ' ' && byte <= '~'; };
    if (firmware.size() > FirmwareLength || !std::all_of(firmware.begin(), firmware.end(), printable)) {
        throw LaneError("a firmware number has at most six printable characters");
    }
    return firmware.empty() ? std::string(usual) : firmware;
}

// What the block holds before anybody programmed it: every byte differs from its neighbours and from other classes.
std::string FactoryBlock(const ScannerTraits& traits) {
    std::string block;
    for (std::size_t index = 0; index < traits.blockSize; ++index) {
        const std::size_t value = (index * 7 + static_cast<std::size_t>(traits.firstClass)) & 0xFF;
        block += Digits[value >> 4];
        block += Digits[value & 0xF];
    }
    return block;
}

} // namespace

VirtualScanner::VirtualScanner(int programmingClass, const std::string& firmware, Surroundings surroundings)
    : programmingClass_(programmingClass),
      traits_(RequireTraits(programmingClass)),
      firmware_(RequireFirmware(firmware, traits_.firmware)),
      surroundings_(std::move(surroundings)),
      block_(FactoryBlock(traits_)) {}

void VirtualScanner::Receive(char byte) {
    if (byte != Cr) {
        lineTooLong_ = lineTooLong_ || line_.size() >= LongestLine;
        if (!lineTooLong_) {
            line_ += byte;
        }
        return;
    }
    // A line that is too long is no command; the empty one is not either.
    const std::string command = std::exchange(lineTooLong_, false) ? std::string{} : line_;
    line_.clear();
    Execute(command);
}

void VirtualScanner::Scan(const std::string& label) {
    programming_ = false;
    surroundings_.send(label + Cr);
    surroundings_.report("scanned " + label);
}

void VirtualScanner::Power() {
    line_.clear();
    lineTooLong_ = false;
    programming_ = false;
    preparing_ = false;
    surroundings_.report("switched on");
    if (!traits_.wokenByCommand) {
        EnterProgrammingMode();
    }
}

void VirtualScanner::Execute(const std::string& command) {
    if (traits_.wokenByCommand && command == "SSET") {
        EnterProgrammingMode();
    } else if (!programming_) {
        surroundings_.report("ignored a line outside programming mode");
    } else if (!traits_.sendsAtOnce && command == "PM") {
        SendConfiguration();
    } else if (traits_.sendsAtOnce && !preparing_ && command == ConfigurationText()) {
        preparing_ = true;
        prepared_ = surroundings_.now() + surroundings_.preparation;
        surroundings_.report("prepares itself for a configuration");
    } else {
        TakeConfiguration(command);
    }
}

void VirtualScanner::EnterProgrammingMode() {
    programming_ = true;
    preparing_ = false;
    surroundings_.report("entered programming mode");
    surroundings_.send(traits_.wokenByCommand ? "\x06\x06" : "\x66");
    if (traits_.sendsAtOnce) {
        SendConfiguration();
    }
}

void VirtualScanner::SendConfiguration() {
    surroundings_.send(Stx + ConfigurationText() + Etx);
    surroundings_.report("sent its configuration");
}

void VirtualScanner::TakeConfiguration(const std::string& command) {
    std::string digits;
    const std::string fault = FaultOf(command, digits);
    if (!fault.empty()) {
        surroundings_.send(std::string(1, Nak));
        surroundings_.report("refused a configuration: " + fault);
    } else if (std::exchange(refuseNext_, false)) {
        surroundings_.send(std::string(1, Nak));
        surroundings_.report("refused a configuration, as told");
    } else {
        block_ = digits;
        programming_ = false;
        preparing_ = false;
        surroundings_.send(std::string(1, Ack));
        surroundings_.report("took its configuration");
    }
}

std::string VirtualScanner::FaultOf(const std::string& command, std::string& digits) const {
    if (traits_.sendsAtOnce && (!preparing_ || surroundings_.now() < prepared_)) {
        return "it was not prepared for it";
    }
    const std::string start = std::string(traits_.prefix) + (ExpectsApm() ? "APM" : "");
    if (!command.starts_with(start)) {
        return "it begins otherwise than \"" + start + "\"";
    }
    digits = command.substr(start.size());
    if (digits.find_first_not_of(Digits) != std::string::npos) {
        return "it has other characters than 0 to 9 and A to F";
    }
    if (digits.size() != traits_.blockSize * 2) {
        return "it has " + std::to_string(digits.size()) + " digits, not " + std::to_string(traits_.blockSize * 2);
    }
    return {};
}

bool VirtualScanner::ExpectsApm() const {
    int number = 0;
    std::from_chars(firmware_.data(), firmware_.data() + firmware_.size(), number);
    // A range of the second scale-capable model's firmware does not know the command.
    const bool without = programmingClass_ >= 32 && number >= 40000 && number <= 40191;
    return traits_.takesApm && !without;
}

std::string VirtualScanner::ConfigurationText() const {
    return block_ + std::string(FirmwareLength - firmware_.size(), ' ') + firmware_;
}
