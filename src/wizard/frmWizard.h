// The configuration wizard: from the choice of a scanner's model to stored, programmed and tested profiles.
#pragma once

#include "programming/SerlinkFactory.h"
#include "wizard/WizardPages.h"
#include "wizard/WizardProfiles.h"
#include "wizard/WizardScaleTest.h"
#include "wizard/WizardScannerTest.h"

#include <QDialog>

#include <array>
#include <functional>
#include <memory>

class CDevice;
struct ProgrammingOutcome;
class OposControls;
class Registry;
class WizardOptions;

namespace Ui {
class frmWizard;
}

// Shown modal. Profiles are stored when the Options page is left forward and stay, however the wizard ends.
class frmWizard : public QDialog {
    Q_OBJECT

public:
    // What the wizard works on; registry and controls outlive it, and the registry its profiles.
    struct Services {
        Registry& registry;
        OposControls& controls;
        SerlinkFactory makeSerlink;
        QString availableComPorts;   // two digits a port
        QString availableInterfaces; // separated by carriage returns
        // Takes each profile that was stored.
        std::function<void(const std::shared_ptr<CDevice>&)> addDevice;
    };
    // Errors: RegistryError; NumberedError for a start-up setting or a port number that is no number.
    explicit frmWizard(Services services, QWidget* parent = nullptr);
    ~frmWizard() override;

    // Ends the wizard, and with it the tests of its devices.
    void done(int result) override;
    // Closes the wizard; not while a scanner is being programmed.
    void reject() override;

protected:
    // Escape closes the wizard, unless a device is under test: a page with live values is not left by accident.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void ConnectControls();
    void Form_Load();
    void FixSize();

    void cmdNext_Click();
    void cmdBack_Click();
    void lstModelNumber_Click();
    void lstScaleType_Click();
    void chkStartup_Click();

    // Shows the page and does what is to be done on it, which may lead to further pages.
    void ShowPage(int page);
    void ShowButtons(int page);
    void RunPage(int page);
    void RunConfiguration();
    [[nodiscard]] ProgrammingOutcome Configure();
    void EnableButtons(bool enabled);
    void RunScannerTest();
    void RunScaleTest();
    void CloseDevices();

    [[nodiscard]] WizardPath Path() const;
    [[nodiscard]] WizardOptions& Options() const;
    void CheckNext();
    // Builds the profiles, writes them to the registry and hands them on.
    void StoreProfiles();

    std::unique_ptr<Ui::frmWizard> ui_;
    Services services_;
    std::array<WizardOptions*, 3> options_; // by scale type
    WizardScannerTest scannerTest_;
    WizardScaleTest scaleTest_;
    WizardProfiles profiles_;
    int page_ = WizardPage::Welcome;
    bool configuring_ = false;
};
