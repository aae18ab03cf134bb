#include "views/DeviceInformationView.h"

#include "opos/OposControls.h"
#include "profiles/CDevice.h"
#include "profiles/VersionText.h"
#include "ui_DeviceInformationView.h"

DeviceInformationView::DeviceInformationView(OposControls& controls, QWidget* parent)
    : QFrame(parent),
      ui_(std::make_unique<Ui::DeviceInformationView>()),
      infoScan_(controls.CreateScanner()),
      infoScale_(controls.CreateScale()) {
    ui_->setupUi(this);
    connect(ui_->lstInfoDeviceType, &DropDownList::Click, this, &DeviceInformationView::lstInfoDeviceType_Click);
    for (const std::int32_t deviceType : {DeviceClass::Scanner, DeviceClass::Scale})
        connect(NameLists().at(static_cast<std::size_t>(deviceType)), &DropDownList::Click, this,
                [this, deviceType] { lstInfoDeviceName_Click(deviceType); });
    setFocusProxy(ui_->lstInfoDeviceType);
}

DeviceInformationView::~DeviceInformationView() = default;

DeviceNameList DeviceInformationView::NameLists() const {
    return {ui_->lstInfoDeviceName_0, ui_->lstInfoDeviceName_1};
}

void DeviceInformationView::SelectFirstDeviceType() {
    ui_->lstInfoDeviceType->SetListIndex(0);
}

void DeviceInformationView::ClearValues() {
    for (QLabel* label : {ui_->lblInfoDeviceName, ui_->lblInfoDeviceDescription, ui_->lblInfoSOVersion,
                          ui_->lblInfoSODescription, ui_->lblInfoCOVersion, ui_->lblInfoCODescription})
        label->clear();
}

void DeviceInformationView::lstInfoDeviceType_Click() {
    const int deviceType = ui_->lstInfoDeviceType->ListIndex();
    ui_->lblInfoDeviceName_0->setVisible(deviceType == DeviceClass::Scanner);
    ui_->lstInfoDeviceName_0->setVisible(deviceType == DeviceClass::Scanner);
    ui_->lblInfoDeviceName_1->setVisible(deviceType == DeviceClass::Scale);
    ui_->lstInfoDeviceName_1->setVisible(deviceType == DeviceClass::Scale);
    ClearValues();
    if (deviceType >= 0 && NameLists().at(static_cast<std::size_t>(deviceType))->ListCount() > 0)
        NameLists().at(static_cast<std::size_t>(deviceType))->SetListIndex(0);
}

void DeviceInformationView::lstInfoDeviceName_Click(std::int32_t deviceType) {
    // A list that is not shown changes where a profile is added or deleted.
    if (deviceType != ui_->lstInfoDeviceType->ListIndex())
        return;
    ClearValues();
    const DropDownList& names = *NameLists().at(static_cast<std::size_t>(deviceType));
    if (names.ListIndex() < 0)
        return;
    repaint(); // opening can take a while
    const bool isScanner = deviceType == DeviceClass::Scanner;
    OposControl& device = isScanner ? static_cast<OposControl&>(*infoScan_) : *infoScale_;
    device.Open(names.Text().toStdString());
    if (device.OpenResult() != OposOpenResult::Success) {
        ui_->lblInfoDeviceName->setText(QStringLiteral("Unable to open device (%1)").arg(device.OpenResult()));
    } else {
        ui_->lblInfoDeviceName->setText(QString::fromStdString(device.DeviceName()));
        ui_->lblInfoDeviceDescription->setText(QString::fromStdString(device.DeviceDescription()));
        ui_->lblInfoSOVersion->setText(QString::fromStdString(FormatVersion(device.ServiceObjectVersion())));
        ui_->lblInfoSODescription->setText(QString::fromStdString(device.ServiceObjectDescription()));
        device.Close();
    }
    ui_->lblInfoCOVersion->setText(QString::fromStdString(FormatVersion(device.ControlObjectVersion())));
    ui_->lblInfoCODescription->setText(QString::fromStdString(device.ControlObjectDescription()));
}
