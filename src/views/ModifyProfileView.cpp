#include "views/ModifyProfileView.h"

#include "ui_ModifyProfileView.h"

ModifyProfileView::ModifyProfileView(QWidget* parent) : QFrame(parent), ui_(std::make_unique<Ui::ModifyProfileView>()) {
    ui_->setupUi(this);
    connect(ui_->lstExistingDeviceType, &DropDownList::Click, this, &ModifyProfileView::lstExistingDeviceType_Click);
    setFocusProxy(ui_->lstExistingDeviceType);
}

ModifyProfileView::~ModifyProfileView() = default;

DeviceNameList ModifyProfileView::NameLists() const {
    return {ui_->lstExistingDeviceName_0, ui_->lstExistingDeviceName_1};
}

void ModifyProfileView::SelectFirstDeviceType() {
    ui_->lstExistingDeviceType->SetListIndex(0);
}

void ModifyProfileView::lstExistingDeviceType_Click() {
    const int deviceType = ui_->lstExistingDeviceType->ListIndex();
    ui_->lblExistingDeviceName_0->setVisible(deviceType == 0);
    ui_->lstExistingDeviceName_0->setVisible(deviceType == 0);
    ui_->lblExistingDeviceName_1->setVisible(deviceType == 1);
    ui_->lstExistingDeviceName_1->setVisible(deviceType == 1);
    if (deviceType >= 0 && NameLists().at(static_cast<std::size_t>(deviceType))->ListCount() > 0)
        NameLists().at(static_cast<std::size_t>(deviceType))->SetListIndex(0);
}
