#include "views/DetailedTestView.h"

#include "ui_DetailedTestView.h"

DetailedTestView::DetailedTestView(QWidget* parent) : QFrame(parent), ui_(std::make_unique<Ui::DetailedTestView>()) {
    ui_->setupUi(this);
    connect(ui_->lstDetailedDeviceType, &DropDownList::Click, this, &DetailedTestView::lstDetailedDeviceType_Click);
    setFocusProxy(ui_->lstDetailedDeviceType);
}

DetailedTestView::~DetailedTestView() = default;

DeviceNameList DetailedTestView::NameLists() const {
    return {ui_->lstDetailedDeviceName_0, ui_->lstDetailedDeviceName_1};
}

void DetailedTestView::SelectFirstDeviceType() {
    ui_->lstDetailedDeviceType->SetListIndex(0);
}

void DetailedTestView::lstDetailedDeviceType_Click() {
    const int deviceType = ui_->lstDetailedDeviceType->ListIndex();
    ui_->lblDetailedDeviceName_0->setVisible(deviceType == 0);
    ui_->lstDetailedDeviceName_0->setVisible(deviceType == 0);
    ui_->lblDetailedDeviceName_1->setVisible(deviceType == 1);
    ui_->lstDetailedDeviceName_1->setVisible(deviceType == 1);
    if (deviceType >= 0 && NameLists().at(static_cast<std::size_t>(deviceType))->ListCount() > 0)
        NameLists().at(static_cast<std::size_t>(deviceType))->SetListIndex(0);
}
