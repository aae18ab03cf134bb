// The main window: a shell around the five views, with their menus, the profiles they share and the window's settings.
#pragma once

#include "app/Settings.h"
#include "programming/SerlinkFactory.h"
#include "views/DeviceCollection.h"
#include "views/DeviceNameLists.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <memory>
#include <optional>

class DetailedTestView;
class DeviceInformationView;
class HelpViewer;
class ModifyProfileView;
class NewProfileView;
class OposControls;
class Registry;
class SimpleTestView;
class frmGlobalConfig;
class frmProgram;

namespace Ui {
class frmMain;
}

class frmMain : public QMainWindow {
    Q_OBJECT

public:
    // What the window and its views work on; all of it outlives the window.
    struct Services {
        Registry& registry;
        OposControls& controls;
        SerlinkFactory makeSerlink;
        HelpViewer& help;
    };
    explicit frmMain(const Services& services);
    ~frmMain() override;

    // Fills the lists, reads the profiles and the settings and places the window; to be called once, before it is
    // shown. An error in one step is reported in a message box, and the next step follows.
    void Form_Load(bool showLogLevel);

    // Makes the view with that index, 0 to 4, the current one; nothing where it is that already. Errors: NumberedError
    // SubscriptOutOfRange.
    void ShowView(int index);

    // Restores the window and brings it to the foreground.
    void ComeForward();

    // Enters a stored profile in the collection and, unless it replaces one, in the lists.
    void AddDevice(const std::shared_ptr<CDevice>& device);
    // Gives the program buttons back the states that they had before a programming session.
    void ProgramComplete();
    // Two digits a port, in list order.
    [[nodiscard]] QString AvailableComPorts() const { return availableComPorts_; }
    // The names of the interfaces, separated by carriage returns.
    [[nodiscard]] QString AvailableInterfaces() const;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildViews();
    void BuildListBar();
    void ConnectControls();
    void SetMenuIcons();
    void FillOptionLists();
    void EnumerateProfiles();
    void SelectFirstItems();
    void RestorePosition();
    void RestoreView();
    void LoadLogLevel();
    void StartWizardTimer();
    void Form_Unload();

    // Shows a level of a profile, -1 to 4, in the log level list; nothing for any other number.
    void ShowLogLevel(int level);
    // Programs the scanner of the profile in a window of its own, which stays to show how that ended.
    void ProgramScanner(const std::shared_ptr<CDevice>& device);
    void lstLogLevel_Click();
    void mnuGlobalConfig_Click();
    void mnuFileWizard_Click();
    void mnuHelpAbout_Click();

    std::unique_ptr<Ui::frmMain> ui_;
    Services services_;
    Settings settings_;
    DeviceCollection colDevices_;
    QString availableComPorts_;
    std::optional<DeviceNameLists> nameLists_;
    bool newProgramEnabled_ = false; // the states of the program buttons before a session
    bool existingProgramEnabled_ = false;

    NewProfileView* newProfile_ = nullptr;
    ModifyProfileView* modifyProfile_ = nullptr;
    SimpleTestView* simpleTest_ = nullptr;
    DetailedTestView* detailedTest_ = nullptr;
    DeviceInformationView* deviceInformation_ = nullptr;
    QPointer<frmGlobalConfig> globalConfig_;
    QPointer<frmProgram> programWindow_;
    QTimer tmrWizard_{this}; // opens the wizard once the window is up
};
