// The page for existing profiles.
#pragma once

#include "views/DeviceNameLists.h"

#include <QFrame>

#include <memory>

namespace Ui {
class ModifyProfileView;
}

class ModifyProfileView : public QFrame {
    Q_OBJECT

public:
    explicit ModifyProfileView(QWidget* parent = nullptr);
    ~ModifyProfileView() override;

    [[nodiscard]] DeviceNameList NameLists() const;
    // Selects the first device class, which shows the names of its profiles.
    void SelectFirstDeviceType();

private:
    void lstExistingDeviceType_Click();

    std::unique_ptr<Ui::ModifyProfileView> ui_;
};
