#include "views/NewProfileView.h"

#include "profiles/CScanner2.h"
#include "profiles/ModelCatalogue.h"
#include "profiles/NewScale.h"
#include "profiles/OptionLists.h"
#include "profiles/UsbNotice.h"
#include "ui_NewProfileView.h"
#include "views/DeviceCollection.h"
#include "views/DeviceNameLists.h"
#include "widgets/MessageBox.h"
#include "widgets/ModelPicture.h"
#include "wizard/frmConfigScale.h"

namespace {

std::int16_t Index(const DropDownList& list) {
    return static_cast<std::int16_t>(list.ListIndex());
}

} // namespace

NewProfileView::NewProfileView(const Services& services, QWidget* parent)
    : QFrame(parent),
      ui_(std::make_unique<Ui::NewProfileView>()),
      services_(services),
      rules_((ui_->setupUi(this), Controls())) {
    FillModelList(*ui_->lstNewModelNumber);
    // As tall as the lists around it, so that nothing moves when the page for existing profiles takes this one's place.
    ui_->txtNewDeviceName->setMinimumHeight(ui_->lstNewInterface->sizeHint().height());
    ConnectControls();
    setFocusProxy(ui_->lstNewDeviceType);
}

NewProfileView::~NewProfileView() = default;

ProfileControls NewProfileView::Controls() const {
    return {
        .interfaceList = ui_->lstNewInterface,
        .comPort = ui_->lstNewComPort,
        .modelNumber = ui_->lstNewModelNumber,
        .scale = ui_->lstNewScale,
        .scaleWeightUnitLabel = ui_->lblNewScaleWeightUnit_0,
        .scaleWeightUnit = ui_->lstNewScaleWeightUnit_0,
        .scaleDisplayLabel = ui_->lblNewScaleDisplay_0,
        .scaleDisplay = ui_->lstNewScaleDisplay_0,
        .scaleType = ui_->lstNewScaleType,
        .scaleTypeWeightUnit = ui_->lstNewScaleWeightUnit_1,
        .scaleTypeDisplay = ui_->lstNewScaleDisplay_1,
        .modelPicture = ui_->imgNewModelPicture,
        .program = ui_->cmdNewProgram,
    };
}

void NewProfileView::ConnectControls() {
    connect(ui_->lstNewDeviceType, &DropDownList::Click, this, &NewProfileView::lstNewDeviceType_Click);
    connect(ui_->lstNewInterface, &DropDownList::Click, this, [this] { rules_.InterfaceClicked(); });
    connect(ui_->lstNewModelNumber, &DropDownList::Click, this, [this] { rules_.ModelClicked(); });
    connect(ui_->lstNewScale, &DropDownList::Click, this, [this] { rules_.ScaleClicked(); });
    connect(ui_->lstNewScaleType, &DropDownList::Click, this, [this] { rules_.ScaleTypeClicked(); });
    connect(ui_->txtNewDeviceName, &QLineEdit::textChanged, this, &NewProfileView::txtNewDeviceName_Change);
    connect(ui_->cmdNewClear, &QPushButton::clicked, this, &NewProfileView::ResetNewProfile);
    connect(ui_->cmdNewProgram, &QPushButton::clicked, this, &NewProfileView::cmdNewProgram_Click);
    connect(ui_->cmdNewSave, &QPushButton::clicked, this, &NewProfileView::cmdNewSave_Click);
}

void NewProfileView::UseNameLists(DeviceNameLists& nameLists) {
    nameLists_ = &nameLists;
}

DropDownList& NewProfileView::InterfaceList() const {
    return *ui_->lstNewInterface;
}

DropDownList& NewProfileView::ComPortList() const {
    return *ui_->lstNewComPort;
}

QPushButton& NewProfileView::ProgramButton() const {
    return *ui_->cmdNewProgram;
}

QString NewProfileView::AvailableInterfaces() const {
    QStringList texts;
    for (int i = 0; i < ui_->lstNewInterface->ListCount(); ++i)
        texts << ui_->lstNewInterface->itemText(i);
    return texts.join('\r');
}

void NewProfileView::SelectFirstOptions() {
    rules_.SelectFirstOptions();
}

void NewProfileView::SelectFirstDeviceType() {
    ui_->lstNewDeviceType->SetListIndex(0);
}

void NewProfileView::lstNewDeviceType_Click() {
    const int deviceType = ui_->lstNewDeviceType->ListIndex();
    const std::array<QWidget*, 2> settings = {ui_->fraNewDeviceType_0, ui_->fraNewDeviceType_1};
    for (QWidget* frame : settings)
        frame->hide();
    if (deviceType == DeviceClass::Scanner) {
        settings[0]->show();
        rules_.ShowSelectedModel();
        ui_->cmdNewProgram->setEnabled(true);
    } else if (deviceType == DeviceClass::Scale) {
        settings[1]->show();
        ShowModelPicture(*ui_->imgNewModelPicture, ScalePictureId);
        ui_->cmdNewProgram->setEnabled(false);
    }
    ui_->lstNewInterface->SetListIndex(OptionLists::SerialInterface);
}

void NewProfileView::txtNewDeviceName_Change() {
    const QString name = ui_->txtNewDeviceName->text();
    ui_->cmdNewSave->setEnabled(name.count(' ') < name.size());
}

void NewProfileView::ResetNewProfile() {
    ui_->txtNewDeviceName->clear();
    for (DropDownList* list : {ui_->lstNewComPort, ui_->lstNewInterface, ui_->lstNewModelNumber, ui_->lstNewScale,
                               ui_->lstNewScaleType, ui_->lstNewScaleWeightUnit_1, ui_->lstNewScaleWeightUnit_0,
                               ui_->lstNewScaleDisplay_1, ui_->lstNewScaleDisplay_0})
        list->SetListIndex(0);
    ui_->txtNewDeviceName->setFocus();
}

void NewProfileView::cmdNewProgram_Click() {
    const int interfaceIndex = ui_->lstNewInterface->ListIndex();
    if (interfaceIndex == OptionLists::SerialInterface)
        emit ProgramRequested(BuildNewDevice());
    else
        MsgBox(this, QString::fromStdString(UsbProgramNotice(interfaceIndex)), MsgBoxButtons::Ok, UsbNoticeTitle);
}

void NewProfileView::cmdNewSave_Click() {
    const std::int32_t deviceType = ui_->lstNewDeviceType->ListIndex();
    const int interfaceIndex = ui_->lstNewInterface->ListIndex(); // storing resets the list
    const std::shared_ptr<CDevice> device = BuildNewDevice();
    StoreNewDevice(deviceType, ui_->txtNewDeviceName->text(), device);
    if (deviceType != DeviceClass::Scanner)
        return;
    if (interfaceIndex != OptionLists::SerialInterface) {
        MsgBox(this, QString::fromStdString(UsbSetupNotice(interfaceIndex)), MsgBoxButtons::Ok, UsbNoticeTitle);
    } else if (MsgBox(this,
                      "You must reprogram your scanner before it will work\r\n"
                      "with the Tavrin OPOS drivers.  Do you wish to\r\n"
                      "reprogram your scanner now?\r\n\r\n"
                      "You can reprogram your scanner at a later time by\r\n"
                      "clicking the Program button in the Modify Profile section.",
                      MsgBoxButtons::YesNo, "Program Scanner?") == MsgBoxResult::Yes) {
        emit ProgramRequested(device);
    }
}

std::shared_ptr<CDevice> NewProfileView::BuildNewDevice() const {
    std::shared_ptr<CDevice> device;
    if (ui_->lstNewDeviceType->ListIndex() == DeviceClass::Scanner) {
        const auto scanner = std::make_shared<CScanner2>(services_.registry);
        rules_.ApplySettings(*scanner);
        device = scanner;
    } else {
        const auto scale = NewScale(services_.registry, ui_->lstNewScaleType->ListIndex());
        rules_.ApplySettings(*scale);
        device = scale;
    }
    device->DeviceName(ui_->txtNewDeviceName->text().toStdString());
    return device;
}

void NewProfileView::StoreNewDevice(std::int32_t deviceType, const QString& name,
                                    const std::shared_ptr<CDevice>& device, bool companion) {
    DeviceCollection& devices = services_.devices;
    if (devices.Contains(deviceType, name)) {
        if (MsgBox(this,
                   "The specified device name already exists.  Do you wish\r\n"
                   "to overwrite the current settings with the new settings?",
                   MsgBoxButtons::YesNo, "Overwrite Settings?") != MsgBoxResult::Yes)
            return;
        device->SaveDevice(true);
        devices.Replace(deviceType, name, device);
        MsgBox(this, "Updated device profile successfully.");
    } else {
        device->SaveDevice(false);
        nameLists_->AddDeviceName(deviceType, name);
        devices.Add(deviceType, name, device);
        if (!companion && deviceType == DeviceClass::Scanner && ui_->lstNewScale->ListIndex() > 0)
            if (const std::shared_ptr<CDevice> scale = AskForScaleProfile(name))
                StoreNewDevice(DeviceClass::Scale, QString::fromStdString(scale->DeviceName()), scale, true);
        if (companion)
            return;
        MsgBox(this, "Device profile created successfully.");
    }
    ResetNewProfile();
}

std::shared_ptr<CDevice> NewProfileView::AskForScaleProfile(const QString& name) {
    frmConfigScale dialog({services_.registry, services_.availableComPorts, AvailableInterfaces()}, this);
    // The dialog's list of scale types lacks the "None" of this page's.
    dialog.ScaleParams(name, Index(*ui_->lstNewComPort), static_cast<std::int16_t>(Index(*ui_->lstNewScale) - 1),
                       Index(*ui_->lstNewInterface), Index(*ui_->lstNewScaleWeightUnit_0),
                       Index(*ui_->lstNewScaleDisplay_0));
    dialog.exec();
    return dialog.ScaleProfile();
}
