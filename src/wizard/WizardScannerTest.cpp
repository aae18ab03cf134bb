#include "wizard/WizardScannerTest.h"

#include "opos/OposControls.h"
#include "profiles/CDevice.h"
#include "profiles/modOpos.h"
#include "widgets/HourglassPointer.h"
#include "wizard/WizardDeviceTest.h"

#include <QLabel>

#include <utility>

WizardScannerTest::WizardScannerTest(OposControls& controls, const Labels& labels)
    : labels_(labels), wizardScanner_(controls.CreateScanner()) {
    wizardScanner_->OnDataEvent([this](std::int32_t) { WizardScanner_DataEvent(); });
}

WizardScannerTest::~WizardScannerTest() {
    End();
}

bool WizardScannerTest::Begin(const std::shared_ptr<CDevice>& profile) {
    labels_.state.clear();
    if (!OpenForTest(*wizardScanner_, *profile, labels_.data))
        return false;
    profile_ = profile;
    profile_->InUse(true);
    const HourglassPointer pointer;
    const std::int32_t result = ClaimAndEnable(*wizardScanner_);
    labels_.state.setText(QString::fromStdString(Readiness(*profile, result)));
    labels_.data.clear();
    labels_.symbology.clear();
    wizardScanner_->DecodeData(true);
    wizardScanner_->DataEventEnabled(true);
    return true;
}

void WizardScannerTest::End() {
    wizardScanner_->Close();
    if (const auto profile = std::exchange(profile_, nullptr))
        profile->InUse(false);
}

void WizardScannerTest::WizardScanner_DataEvent() {
    labels_.data.setText(QString::fromLatin1(wizardScanner_->ScanDataLabel()));
    labels_.symbology.setText(QString::fromStdString(SymbologyName(wizardScanner_->ScanDataType())));
    wizardScanner_->DataEventEnabled(true);
}
