#include "programming/ProgrammingSession.h"

#include "profiles/CGenericScale.h"
#include "profiles/CGenericScanner.h"
#include "profiles/NumberedError.h"
#include "profiles/Numbers.h"
#include "programming/ProgrammingClasses.h"
#include "programming/ScannerConfiguration.h"
#include "programming/Serlink.h"

#include <exception>
#include <utility>

namespace {

constexpr std::int16_t EntryModeByCommand = 1542;
constexpr std::int16_t EntryModeAtPowerUp = 102;
constexpr std::chrono::milliseconds WaitAfterEcho{5000};

// Firmware of the scale-capable model that takes the block without the write command.
constexpr std::int32_t FirstFirmwareWithoutCommand = 40000;
constexpr std::int32_t LastFirmwareWithoutCommand = 40191;

bool TakesWriteCommand(WriteKind write, const std::string& firmwareNumber) {
    switch (write) {
    case WriteKind::AsCommand:
        return true;
    case WriteKind::ByFirmware: {
        const std::int32_t firmware = ToInt32(firmwareNumber);
        return firmware < FirstFirmwareWithoutCommand || firmware > LastFirmwareWithoutCommand;
    }
    case WriteKind::AfterEcho:
        break;
    }
    return false;
}

template<typename Profile>
std::int16_t SerialPortOf(const CDevice& device) {
    const auto* profile = dynamic_cast<const Profile*>(&device);
    if (profile == nullptr)
        throw NumberedError(ErrorNumber::TypeMismatch, device.ClassName() + " has no serial port");
    return profile->SerialPort();
}

} // namespace

ProgrammingSession::ProgrammingSession(Serlink& serlink, ProgrammingHooks hooks)
    : serlink_(serlink), hooks_(std::move(hooks)) {}

ProgrammingOutcome ProgrammingSession::ProgramDevice(const CDevice& device) {
    try {
        return Exchange(device);
    } catch (const std::exception& error) {
        return {false, error.what()};
    }
}

ProgrammingOutcome ProgrammingSession::Exchange(const CDevice& device) {
    const ProgrammingClass& rules = FindProgrammingClass(device.ConfigurationType());
    hooks_.stepBegins(ProgrammingStep::EnteringProgrammingMode);
    EnterProgrammingMode(device, rules);

    hooks_.stepBegins(ProgrammingStep::ReadingConfiguration);
    if (!serlink_.ReceiveReply())
        return {false, serlink_.FailureText()};
    ScannerReply reply = DecodeReply(serlink_.CommandData());
    PatchBlock(device.ConfigurationType(), reply.block);

    WriteConfiguration(rules, reply.firmwareNumber, EncodeBlock(reply.block));
    hooks_.stepBegins(ProgrammingStep::AwaitingAcknowledgement);
    if (!serlink_.CommandSucceeded())
        return {false, serlink_.FailureText()};
    return {true, {}};
}

void ProgrammingSession::EnterProgrammingMode(const CDevice& device, const ProgrammingClass& rules) {
    if (rules.entry == EntryKind::ByCommand) {
        serlink_.EntryCommand("SSET");
        serlink_.EntryMode(EntryModeByCommand);
    } else if (rules.entry == EntryKind::AtPowerUp) {
        serlink_.EntryCommand("");
        serlink_.EntryMode(EntryModeAtPowerUp);
        hooks_.showRecyclePower();
    }
    if (device.DeviceType() == DeviceClass::Scanner)
        serlink_.PortNumber(SerialPortOf<CGenericScanner>(device));
    else if (device.DeviceType() == DeviceClass::Scale)
        serlink_.PortNumber(SerialPortOf<CGenericScale>(device));
    serlink_.CommandData(std::string(rules.request));
    serlink_.SendCommand();
}

void ProgrammingSession::WriteConfiguration(const ProgrammingClass& rules, const std::string& firmwareNumber,
                                            const std::string& block) {
    if (rules.write == WriteKind::AfterEcho) {
        hooks_.stepBegins(ProgrammingStep::WaitingForScanner);
        serlink_.SendCommand();
        hooks_.processPendingEvents();
        hooks_.wait(WaitAfterEcho);
    }
    const std::string command = TakesWriteCommand(rules.write, firmwareNumber) ? "APM" : "";
    serlink_.CommandData(std::string(rules.prefix) + command + block);
    hooks_.stepBegins(ProgrammingStep::WritingConfiguration);
    serlink_.SendCommand();
}
