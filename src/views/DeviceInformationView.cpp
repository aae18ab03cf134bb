#include "views/DeviceInformationView.h"

#include "ui_DeviceInformationView.h"

DeviceInformationView::DeviceInformationView(QWidget* parent)
    : QFrame(parent), ui_(std::make_unique<Ui::DeviceInformationView>()) {
    ui_->setupUi(this);
    connect(ui_->lstInfoDeviceType, &DropDownList::Click, this, &DeviceInformationView::lstInfoDeviceType_Click);
    setFocusProxy(ui_->lstInfoDeviceType);
}

DeviceInformationView::~DeviceInformationView() = default;

DeviceNameList DeviceInformationView::NameLists() const {
    return {ui_->lstInfoDeviceName_0, ui_->lstInfoDeviceName_1};
}

void DeviceInformationView::SelectFirstDeviceType() {
    ui_->lstInfoDeviceType->SetListIndex(0);
}

void DeviceInformationView::lstInfoDeviceType_Click() {
    const int deviceType = ui_->lstInfoDeviceType->ListIndex();
    ui_->lblInfoDeviceName_0->setVisible(deviceType == 0);
    ui_->lstInfoDeviceName_0->setVisible(deviceType == 0);
    ui_->lblInfoDeviceName_1->setVisible(deviceType == 1);
    ui_->lstInfoDeviceName_1->setVisible(deviceType == 1);
    if (deviceType >= 0 && NameLists().at(static_cast<std::size_t>(deviceType))->ListCount() > 0)
        NameLists().at(static_cast<std::size_t>(deviceType))->SetListIndex(0);
}
