// The page that shows an existing profile, changes it, deletes it or has its scanner programmed again.
#pragma once

#include "views/DeviceNameLists.h"
#include "views/ProfileRules.h"

#include <QFrame>

#include <memory>

class CDevice;
class Registry;

namespace Ui {
class ModifyProfileView;
}

class ModifyProfileView : public QFrame {
    Q_OBJECT

public:
    // What the page works on; all of it outlives the page.
    struct Services {
        Registry& registry;
        DeviceCollection& devices;
    };
    explicit ModifyProfileView(const Services& services, QWidget* parent = nullptr);
    ~ModifyProfileView() override;

    // The lists that hold the names of stored profiles, this page's among them; set once, before the page is used.
    void UseNameLists(DeviceNameLists& nameLists);

    [[nodiscard]] DeviceNameList NameLists() const;
    // Empty until the program fills them.
    [[nodiscard]] DropDownList& InterfaceList() const;
    [[nodiscard]] DropDownList& ComPortList() const;
    [[nodiscard]] QPushButton& ProgramButton() const;

    // Selects the first item of the model, scale, scale type, unit and display lists.
    void SelectFirstOptions();
    // Selects the first device class, which shows the names and the first one of its profiles.
    void SelectFirstDeviceType();
    // Shows the selected profile afresh where another one has taken its place since, so that saving does not bring
    // back what was overwritten. Happens by itself when the page comes into view.
    void ShowReplacedProfile();

signals:
    // The scanner of that profile is to be programmed now.
    void ProgramRequested(const std::shared_ptr<CDevice>& device);
    // A profile was shown that has this logging level, any 16-bit number.
    void LoggingLevelShown(int level);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void ConnectControls();
    [[nodiscard]] ProfileControls Controls() const;

    void lstExistingDeviceType_Click();
    void lstExistingDeviceName_Click(std::int32_t deviceType);
    void cmdExistingProgram_Click();
    void cmdExistingDelete_Click();
    void cmdExistingSave_Click();

    // The name selected in the list of the selected device class; empty for none.
    [[nodiscard]] QString SelectedName() const;
    void ShowScanner(const CGenericScanner& scanner);
    void ShowScale(const CGenericScale& scale);
    void ShowSerialPort(std::int16_t port);
    void ShowNoProfile();
    [[nodiscard]] std::shared_ptr<CDevice> UpdateScanner(const QString& name);
    [[nodiscard]] std::shared_ptr<CDevice> ReplaceScale(const QString& name);

    std::unique_ptr<Ui::ModifyProfileView> ui_;
    Services services_;
    DeviceNameLists* nameLists_ = nullptr;
    ProfileRules rules_;
    std::weak_ptr<CDevice> shown_; // the profile whose settings the controls were set from
};
