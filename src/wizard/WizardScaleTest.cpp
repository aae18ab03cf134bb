#include "wizard/WizardScaleTest.h"

#include "opos/DeviceTest.h"
#include "opos/OposControls.h"
#include "profiles/CDevice.h"
#include "profiles/Weight.h"
#include "widgets/HourglassPointer.h"
#include "wizard/WizardDeviceTest.h"

#include <QLabel>

#include <utility>

WizardScaleTest::WizardScaleTest(OposControls& controls, const Labels& labels, QObject* parent)
    : QObject(parent), labels_(labels), wizardScale_(controls.CreateScale()) {
    tmrWizardScale_.setObjectName("tmrWizardScale");
    tmrWizardScale_.setInterval(DeviceTest::WeightInterval);
    connect(&tmrWizardScale_, &QTimer::timeout, this, &WizardScaleTest::tmrWizardScale_Timer);
    wizardScale_->OnDataEvent([this](std::int32_t status) { WizardScale_DataEvent(status); });
    wizardScale_->OnErrorEvent([this](std::int32_t resultCode, std::int32_t, std::int32_t, std::int32_t&) {
        WizardScale_ErrorEvent(resultCode);
    });
}

WizardScaleTest::~WizardScaleTest() {
    End();
}

bool WizardScaleTest::Begin(const std::shared_ptr<CDevice>& profile) {
    labels_.state.clear();
    labels_.weight.clear();
    if (!OpenForTest(*wizardScale_, *profile, labels_.weight))
        return false;
    profile_ = profile;
    profile_->InUse(true);
    const HourglassPointer pointer;
    const std::int32_t result = ClaimAndEnable(*wizardScale_);
    labels_.state.setText(QString::fromStdString(Readiness(*profile, result)));
    wizardScale_->AsyncMode(true);
    wizardScale_->DataEventEnabled(true);
    ReadNextWeight();
    return true;
}

void WizardScaleTest::End() {
    tmrWizardScale_.stop();
    wizardScale_->Close();
    if (const auto profile = std::exchange(profile_, nullptr))
        profile->InUse(false);
}

void WizardScaleTest::ReadNextWeight() {
    // Without asynchronous mode this would wait, and the window with it, until something lies on the scale.
    if (wizardScale_->AsyncMode())
        wizardScale_->ReadWeight(weight_, DeviceTest::Unlimited);
}

void WizardScaleTest::WizardScale_DataEvent(std::int32_t status) {
    labels_.state.clear();
    labels_.weight.setText(QString::fromStdString(FormatWeight(status, wizardScale_->WeightUnit())));
    wizardScale_->DataEventEnabled(true);
    tmrWizardScale_.start();
}

// A read that failed (too much weight, a scale that is off) does not end the test.
void WizardScaleTest::WizardScale_ErrorEvent(std::int32_t resultCode) {
    labels_.weight.clear();
    labels_.state.setText(QString::fromStdString(Readiness(*profile_, resultCode)));
    tmrWizardScale_.start();
}

void WizardScaleTest::tmrWizardScale_Timer() {
    tmrWizardScale_.stop();
    ReadNextWeight();
}
