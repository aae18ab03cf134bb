// Where control objects live in a test: a registry, ports, and places for claims and statistics of its own.
#pragma once

#include "opos/OposControls.h"
#include "profiles/CAveryScale.h"
#include "profiles/CScale2.h"
#include "profiles/CScanner1.h"
#include "profiles/CScanner2.h"
#include "support/PseudoTerminal.h"
#include "support/QueuedDispatcher.h"
#include "support/ScopedVariable.h"
#include "support/TemporaryDirectory.h"
#include "support/TemporaryRegistry.h"
#include "support_opos/InstalledControls.h"

#include <memory>
#include <string>

struct OposSite {
    TemporaryDirectory places;
    ScopedVariable runtime{"XDG_RUNTIME_DIR", (places.Path() / "run").string()};
    ScopedVariable state{"XDG_STATE_HOME", (places.Path() / "state").string()};
    TemporaryPorts ports;
    TemporaryRegistry registry;
    QueuedDispatcher dispatcher;
    InstalledControls installed{registry, dispatcher};
    std::unique_ptr<OposControls> controls = OpenSystemControls(registry, dispatcher);

    void SaveScanner(const std::string& name, std::int16_t port, std::int16_t scannerType = 0) {
        CScanner2 profile(registry);
        profile.DeviceName(name);
        profile.Model("Pelerin/3172");
        profile.SerialPort(port);
        profile.ScannerType(scannerType);
        profile.SaveDevice(true);
    }

    void SaveScale(const std::string& name, std::int16_t port, std::int16_t unit = 1) {
        SaveScaleAs<CScale2>(name, port, unit);
    }

    template<class Profile>
    void SaveScaleAs(const std::string& name, std::int16_t port, std::int16_t unit = 1) {
        Profile profile(registry);
        profile.DeviceName(name);
        profile.SerialPort(port);
        profile.WeightUnit(unit);
        profile.SaveDevice(true);
    }
};
