// The page that drives every OPOS operation of a device.
#pragma once

#include "views/DeviceNameLists.h"

#include <QFrame>

#include <memory>

namespace Ui {
class DetailedTestView;
}

class DetailedTestView : public QFrame {
    Q_OBJECT

public:
    explicit DetailedTestView(QWidget* parent = nullptr);
    ~DetailedTestView() override;

    [[nodiscard]] DeviceNameList NameLists() const;
    // Selects the first device class, which shows the names of its profiles.
    void SelectFirstDeviceType();

private:
    void lstDetailedDeviceType_Click();

    std::unique_ptr<Ui::DetailedTestView> ui_;
};
