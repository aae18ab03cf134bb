// The wizard's test of a scanner: shows each label that is scanned, with its symbology.
#pragma once

#include <memory>

class CDevice;
class OPOSScanner;
class OposControls;
class QLabel;

class WizardScannerTest {
public:
    // Where the test shows what it gets; state says why the device is not ready. They outlive the test.
    struct Labels {
        QLabel& data;
        QLabel& symbology;
        QLabel& state;
    };
    WizardScannerTest(OposControls& controls, const Labels& labels);
    ~WizardScannerTest();

    // Opens the device of the profile and shows its labels from then on; the profile is in use meanwhile. False where
    // the device cannot be opened and the user gives up.
    [[nodiscard]] bool Begin(const std::shared_ptr<CDevice>& profile);
    // Closes the device; also where none is open.
    void End();
    [[nodiscard]] bool IsRunning() const { return profile_ != nullptr; }

private:
    void WizardScanner_DataEvent();

    Labels labels_;
    std::shared_ptr<CDevice> profile_; // under test
    std::unique_ptr<OPOSScanner> wizardScanner_;
};
