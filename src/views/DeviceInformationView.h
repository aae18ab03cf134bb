// The page that shows what a device and its service object say of themselves.
#pragma once

#include "views/DeviceNameLists.h"

#include <QFrame>

#include <memory>

class OPOSScale;
class OPOSScanner;
class OposControl;
class OposControls;

namespace Ui {
class DeviceInformationView;
}

// Choosing a profile opens its device, reads from it and closes it again; it is never claimed.
class DeviceInformationView : public QFrame {
    Q_OBJECT

public:
    // The controls outlive the page.
    explicit DeviceInformationView(OposControls& controls, QWidget* parent = nullptr);
    ~DeviceInformationView() override;

    [[nodiscard]] DeviceNameList NameLists() const;
    // Selects the first device class, which shows the names of its profiles.
    void SelectFirstDeviceType();

private:
    void lstInfoDeviceType_Click();
    void lstInfoDeviceName_Click(std::int32_t deviceType);
    void ClearValues();

    std::unique_ptr<Ui::DeviceInformationView> ui_;
    std::unique_ptr<OPOSScanner> infoScan_;
    std::unique_ptr<OPOSScale> infoScale_;
};
