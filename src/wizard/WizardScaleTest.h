// The wizard's test of a single-cable scale: shows its weight, live.
#pragma once

#include <QObject>
#include <QTimer>

#include <cstdint>
#include <memory>

class CDevice;
class OPOSScale;
class OposControls;
class QLabel;

class WizardScaleTest : public QObject {
    Q_OBJECT

public:
    // Where the test shows what it gets; state says why the device is not ready. They outlive the test.
    struct Labels {
        QLabel& weight;
        QLabel& state;
    };
    WizardScaleTest(OposControls& controls, const Labels& labels, QObject* parent);
    ~WizardScaleTest() override;

    // Opens the device of the profile and shows its weight from then on; the profile is in use meanwhile. False where
    // the device cannot be opened and the user gives up.
    [[nodiscard]] bool Begin(const std::shared_ptr<CDevice>& profile);
    // Closes the device; also where none is open.
    void End();
    [[nodiscard]] bool IsRunning() const { return profile_ != nullptr; }

private:
    void ReadNextWeight();
    void WizardScale_DataEvent(std::int32_t status);
    void WizardScale_ErrorEvent(std::int32_t resultCode);
    void tmrWizardScale_Timer();

    Labels labels_;
    QTimer tmrWizardScale_{this};
    std::int32_t weight_ = 0;          // the control takes a reference; the weight comes with the event
    std::shared_ptr<CDevice> profile_; // under test
    std::unique_ptr<OPOSScale> wizardScale_;
};
