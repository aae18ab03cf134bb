// The wizard over a real store, with devices that answer as a test tells them to.
#pragma once

#include "WizardWindow.h"
#include "profiles/CDevice.h"
#include "programming/ScriptedSerlink.h"
#include "support/FailingRegistry.h"
#include "support/TemporaryRegistry.h"
#include "support_opos/ScriptedControls.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

class Wizard : public ::testing::Test {
protected:
    static constexpr const char* ScannerFolder = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scanner\\";
    static constexpr const char* ScaleFolder = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scale\\";
    static constexpr const char* Settings = "Software\\Tavrin Instruments\\Ravlin 2";
    static constexpr const char* DriverOptions = "SOFTWARE\\OLEForRetail\\ServiceInfo\\Tavrin";

    // Opens the wizard; the store is what a test has made of it by then.
    WizardWindow& Open() {
        window_.reset();
        wizard_.reset();
        controls_.scanners.clear();
        controls_.scales.clear();
        wizard_ = std::make_unique<frmWizard>(
            frmWizard::Services{failingRegistry_, controls_,
                                [this](const SerlinkObserver&) {
                                    ++sessions_;
                                    return std::make_unique<ScriptedSerlink>(script_, lineLog_);
                                },
                                "010203122064", "RS232\rFull Speed USB\rPOS USB",
                                [this](const std::shared_ptr<CDevice>& device) { added_.push_back(device); }});
        return window_.emplace(*wizard_);
    }
    // Opens the wizard and goes on to the scanner's test with a serial scanner, and a scale where the type says so.
    WizardWindow& OpenAtScannerTest(int scaleType = 0) {
        WizardWindow& window = Open();
        window.GoToOptions("Pelerin/3172", scaleType);
        window.TypeNames("Lane", "LaneScale");
        window.Next();
        return window;
    }
    WizardWindow& OpenAtScaleTest(int scaleType = 1) {
        WizardWindow& window = OpenAtScannerTest(scaleType);
        window.Next();
        return window;
    }

    ScriptedScanner& Scanner() { return *controls_.scanners.at(0); }
    ScriptedScale& Scale() { return *controls_.scales.at(0); }

    std::string ScannerValue(const std::string& name, const std::string& value) {
        return registry_.Text(ScannerFolder + name, value);
    }
    std::string ScaleValue(const std::string& name, const std::string& value) {
        return registry_.Text(ScaleFolder + name, value);
    }

    TemporaryRegistry registry_;
    FailingRegistry failingRegistry_{registry_};
    ScriptedControls controls_;
    // The scanner on the line answers and acknowledges unless told otherwise.
    ScriptedSerlink::Script script_{.reply = std::string(1024, '0') + "123456"};
    std::vector<std::string> lineLog_;
    int sessions_ = 0; // of programming
    std::vector<std::shared_ptr<CDevice>> added_;
    std::unique_ptr<frmWizard> wizard_;
    std::optional<WizardWindow> window_;
};
