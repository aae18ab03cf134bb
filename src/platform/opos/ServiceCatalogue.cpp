#include "platform/opos/ServiceCatalogue.h"

#include "opos/OposConstants.h"
#include "platform/opos/ProfileLookup.h"
#include "platform/serial/SerialPorts.h"
#include "profiles/CAveryScale.h"
#include "profiles/CScale2.h"
#include "profiles/CScanner1.h"
#include "profiles/CScanner2.h"
#include "profiles/Numbers.h"
#include "profiles/RegistryPaths.h"

#include <algorithm>
#include <array>
#include <filesystem>

namespace {

constexpr const char* Maker = "Tavrin Instruments";

// What a service object is made with.
struct Surroundings {
    Registry& registry;
    Lines& lines;
    const std::string& profile;
};

// Why a service object cannot serve a profile.
struct Refusal {
    std::int32_t result;
    std::int32_t openResult;
};

std::string PhysicalName(const std::string& classWord, int port, const std::filesystem::path& device) {
    std::error_code error;
    const auto physical = std::filesystem::canonical(device, error);
    return classWord + ' ' + (error ? SerialPortName(port) : physical.string());
}

// port 0: a device on USB. Raises Refusal for a port that is none, or that is not there.
ServiceDescription Describe(const Surroundings& with, std::int32_t deviceClass, const std::string& model, int port) {
    const std::string classWord = DeviceClassWord(deviceClass);
    const bool usb = port == 0;
    const std::string where = usb ? "USB" : SerialPortName(port);
    ServiceDescription description;
    description.deviceName = with.profile;
    description.deviceDescription = (model.empty() ? classWord : model + ' ' + classWord) + " on " + where;
    description.serviceDescription = "Ravlin " + classWord + " service object for serial lines";
    description.countersFile = DeviceCounters::FileOf(classWord, with.profile);
    description.equipment = {classWord, Maker, model, usb ? "USB" : "RS232",
                             CreationDate(with.registry, deviceClass, with.profile)};
    if (usb)
        return description;
    const auto device = SerialPortDevice(port);
    if (!device)
        throw Refusal{OposResult::NoHardware, OposOpenResult::NoPort};
    description.claimName = PhysicalName(classWord, port, *device);
    return description;
}

int SerialPortOf(std::int16_t port) {
    if (port < 1)
        throw Refusal{OposResult::NoService, OposOpenResult::Config};
    return port;
}

std::unique_ptr<ScannerService> ServeScanner(const Surroundings& with, const CGenericScanner& profile, int port) {
    return std::make_unique<ScannerService>(Describe(with, DeviceClass::Scanner, profile.Model(), port), with.lines,
                                            port);
}

std::unique_ptr<ScannerService> ServeScanner1(const Surroundings& with) {
    CScanner1 profile(with.registry);
    profile.DeviceName(with.profile);
    profile.LoadDevice();
    return ServeScanner(with, profile, SerialPortOf(profile.SerialPort()));
}

std::unique_ptr<ScannerService> ServeScanner2(const Surroundings& with) {
    CScanner2 profile(with.registry);
    profile.DeviceName(with.profile);
    profile.LoadDevice();
    switch (profile.ScannerType()) {
    case 0:
    case 1:
        return ServeScanner(with, profile, SerialPortOf(profile.SerialPort()));
    case 2:
    case 3:
        return ServeScanner(with, profile, 0);
    default:
        throw Refusal{OposResult::NoService, OposOpenResult::NotSupported};
    }
}

std::int32_t UnitOf(const CGenericScale& profile) {
    return profile.WeightUnit() == 1 ? OposWeightUnit::Kilogram : OposWeightUnit::Pound;
}

bool ZeroWeightRejected(Registry& registry) {
    try {
        return StoredNumber(ReadMachineValue(registry, RegistryPaths::DriverOptions, "ZeroWeightReject")) != 0;
    } catch (const NumberedError&) {
        return false;
    }
}

std::unique_ptr<ScaleService> ServeScale2(const Surroundings& with) {
    CScale2 profile(with.registry);
    profile.DeviceName(with.profile);
    profile.LoadDevice();
    const int port = std::max<int>(profile.SerialPort(), 0);
    ScaleTraits traits;
    traits.wiring = ScannerUsesPort(with.registry, port) ? LineWiring::ScannersCable : LineWiring::ScalesCable;
    traits.weightUnit = UnitOf(profile);
    traits.rejectsZero = [&registry = with.registry] { return ZeroWeightRejected(registry); };
    return std::make_unique<ScaleService>(Describe(with, DeviceClass::Scale, {}, port), with.lines, port, traits);
}

std::unique_ptr<ScaleService> ServeAveryScale(const Surroundings& with) {
    CAveryScale profile(with.registry);
    profile.DeviceName(with.profile);
    profile.LoadDevice();
    const int port = SerialPortOf(profile.SerialPort());
    ScaleTraits traits;
    traits.asynchronous = false;
    traits.weightUnit = UnitOf(profile);
    traits.rejectsZero = [] { return true; };
    ServiceDescription description = Describe(with, DeviceClass::Scale, "A702", port);
    description.equipment.manufacturerName = "Avery";
    return std::make_unique<ScaleService>(std::move(description), with.lines, port, traits);
}

template<class Service>
struct CatalogueRow {
    std::string_view progId;
    std::unique_ptr<Service> (*serve)(const Surroundings& with);
};

// The service objects there are.
constexpr std::array ScannerServices = {
    CatalogueRow<ScannerService>{ProgId::Scanner1, ServeScanner1},
    CatalogueRow<ScannerService>{ProgId::Scanner2, ServeScanner2},
};
constexpr std::array ScaleServices = {
    CatalogueRow<ScaleService>{ProgId::Scale2, ServeScale2},
    CatalogueRow<ScaleService>{ProgId::AveryScale, ServeAveryScale},
};

template<class Table>
auto Find(const Table& table, std::string_view progId) {
    const auto row = std::ranges::find_if(table, [progId](const auto& entry) { return entry.progId == progId; });
    return row == table.end() ? nullptr : &*row;
}

template<class Service, class Table, class OtherTable>
Opened<Service> OpenFrom(const Table& table, const OtherTable& otherClass, std::int32_t deviceClass, Registry& registry,
                         Lines& lines, const std::string& name) {
    try {
        const auto profile = FindProfile(registry, deviceClass, name);
        if (!profile)
            return {nullptr, OposResult::NoExist, OposOpenResult::RegistryBadName};
        const auto row = Find(table, profile->progId);
        if (row == nullptr && Find(otherClass, profile->progId) != nullptr)
            return {nullptr, OposResult::NoService, OposOpenResult::BadInterface};
        if (row == nullptr)
            return {nullptr, OposResult::NoService, OposOpenResult::BadProgId};
        return {row->serve({registry, lines, profile->name}), OposResult::Success, OposOpenResult::Success};
    } catch (const Refusal& refusal) {
        return {nullptr, refusal.result, refusal.openResult};
    } catch (const RegistryError&) {
        return {nullptr, OposResult::NoExist, OposOpenResult::RegistryBadName};
    } catch (const NumberedError&) { // a number in the profile that is none
        return {nullptr, OposResult::NoService, OposOpenResult::Config};
    } catch (const std::exception&) {
        return {nullptr, OposResult::NoService, OposOpenResult::CreateError};
    }
}

} // namespace

Opened<ScannerService> OpenScannerService(Registry& registry, Lines& lines, const std::string& name) {
    return OpenFrom<ScannerService>(ScannerServices, ScaleServices, DeviceClass::Scanner, registry, lines, name);
}

Opened<ScaleService> OpenScaleService(Registry& registry, Lines& lines, const std::string& name) {
    return OpenFrom<ScaleService>(ScaleServices, ScannerServices, DeviceClass::Scale, registry, lines, name);
}
