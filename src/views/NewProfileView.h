// The page that describes a new scanner or scale profile and stores it.
#pragma once

#include "views/ProfileRules.h"

#include <QFrame>

#include <memory>

class CDevice;
class DeviceCollection;
class DeviceNameLists;
class Registry;

namespace Ui {
class NewProfileView;
}

class NewProfileView : public QFrame {
    Q_OBJECT

public:
    // What the page works on; all of it outlives the page.
    struct Services {
        Registry& registry;
        DeviceCollection& devices;
        const QString& availableComPorts; // two digits a port
    };
    explicit NewProfileView(const Services& services, QWidget* parent = nullptr);
    ~NewProfileView() override;

    // The lists that hold the names of stored profiles; set once, before the page is used.
    void UseNameLists(DeviceNameLists& nameLists);

    [[nodiscard]] DropDownList& InterfaceList() const;
    [[nodiscard]] DropDownList& ComPortList() const;
    [[nodiscard]] QPushButton& ProgramButton() const;
    // The texts of the interface list, separated by carriage returns.
    [[nodiscard]] QString AvailableInterfaces() const;

    // Selects the first item of the model, scale, scale type, unit and display lists.
    void SelectFirstOptions();
    // Selects the first device class, which shows its settings.
    void SelectFirstDeviceType();

signals:
    // The scanner described here is to be programmed now.
    void ProgramRequested(const std::shared_ptr<CDevice>& device);

private:
    void ConnectControls();
    [[nodiscard]] ProfileControls Controls() const;

    void lstNewDeviceType_Click();
    void txtNewDeviceName_Change();
    void cmdNewProgram_Click();
    void cmdNewSave_Click();

    void ResetNewProfile();
    // The profile that the controls describe; stored nowhere yet.
    [[nodiscard]] std::shared_ptr<CDevice> BuildNewDevice() const;
    // Writes the profile to the registry and enters it in the collection and in the lists. companion marks the scale
    // profile of a scanner that is being stored: of two new profiles only the scanner brings the closing message.
    void StoreNewDevice(std::int32_t deviceType, const QString& name, const std::shared_ptr<CDevice>& device,
                        bool companion = false);
    // The scale profile that the user wants beside the scanner profile of that name; null for none.
    [[nodiscard]] std::shared_ptr<CDevice> AskForScaleProfile(const QString& name);

    std::unique_ptr<Ui::NewProfileView> ui_;
    Services services_;
    DeviceNameLists* nameLists_ = nullptr;
    ProfileRules rules_;
};
