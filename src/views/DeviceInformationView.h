// The page that shows what a device and its service object say of themselves.
#pragma once

#include "views/DeviceNameLists.h"

#include <QFrame>

#include <memory>

namespace Ui {
class DeviceInformationView;
}

class DeviceInformationView : public QFrame {
    Q_OBJECT

public:
    explicit DeviceInformationView(QWidget* parent = nullptr);
    ~DeviceInformationView() override;

    [[nodiscard]] DeviceNameList NameLists() const;
    // Selects the first device class, which shows the names of its profiles.
    void SelectFirstDeviceType();

private:
    void lstInfoDeviceType_Click();

    std::unique_ptr<Ui::DeviceInformationView> ui_;
};
