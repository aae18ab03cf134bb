#include "views/ModifyProfileView.h"

#include "profiles/CGenericScanner.h"
#include "profiles/ModelCatalogue.h"
#include "profiles/NewScale.h"
#include "profiles/OptionLists.h"
#include "profiles/UsbNotice.h"
#include "ui_ModifyProfileView.h"
#include "views/DeviceCollection.h"
#include "views/ProfileDeletion.h"
#include "widgets/MessageBox.h"
#include "widgets/ModelPicture.h"

namespace {

// The interface of a scale that has no port.
constexpr int ScaleUsbInterface = 1;

// Selects what a profile stores; nothing where the list does not offer that.
void SelectStored(DropDownList& list, int index) {
    list.SetListIndex(index >= 0 && index < list.ListCount() ? index : -1);
}

// The index of the interface list for a scanner without a serial port.
int UsbInterfaceOf(std::int16_t scannerType) {
    return scannerType == 2 ? 1 : 2;
}

} // namespace

ModifyProfileView::ModifyProfileView(const Services& services, QWidget* parent)
    : QFrame(parent),
      ui_(std::make_unique<Ui::ModifyProfileView>()),
      services_(services),
      rules_((ui_->setupUi(this), Controls())) {
    FillModelList(*ui_->lstExistingModelNumber);
    ConnectControls();
    setFocusProxy(ui_->lstExistingDeviceType);
}

ModifyProfileView::~ModifyProfileView() = default;

ProfileControls ModifyProfileView::Controls() const {
    return {
        .interfaceList = ui_->lstExistingInterface,
        .comPort = ui_->lstExistingComPort,
        .modelNumber = ui_->lstExistingModelNumber,
        .scale = ui_->lstExistingScale,
        .scaleWeightUnitLabel = ui_->lblExistingScaleWeightUnit_0,
        .scaleWeightUnit = ui_->lstExistingScaleWeightUnit_0,
        .scaleDisplayLabel = ui_->lblExistingScaleDisplay_0,
        .scaleDisplay = ui_->lstExistingScaleDisplay_0,
        .scaleType = ui_->lstExistingScaleType,
        .scaleTypeWeightUnit = ui_->lstExistingScaleWeightUnit_1,
        .scaleTypeDisplay = ui_->lstExistingScaleDisplay_1,
        .modelPicture = ui_->imgExistingModelPicture,
        .program = ui_->cmdExistingProgram,
    };
}

void ModifyProfileView::ConnectControls() {
    connect(ui_->lstExistingDeviceType, &DropDownList::Click, this, &ModifyProfileView::lstExistingDeviceType_Click);
    for (const std::int32_t type : {DeviceClass::Scanner, DeviceClass::Scale})
        connect(NameLists().at(static_cast<std::size_t>(type)), &DropDownList::Click, this,
                [this, type] { lstExistingDeviceName_Click(type); });
    connect(ui_->lstExistingInterface, &DropDownList::Click, this, [this] { rules_.InterfaceClicked(); });
    connect(ui_->lstExistingModelNumber, &DropDownList::Click, this, [this] { rules_.ModelClicked(); });
    connect(ui_->lstExistingScale, &DropDownList::Click, this, [this] { rules_.ScaleClicked(); });
    connect(ui_->lstExistingScaleType, &DropDownList::Click, this, [this] { rules_.ScaleTypeClicked(); });
    connect(ui_->cmdExistingProgram, &QPushButton::clicked, this, &ModifyProfileView::cmdExistingProgram_Click);
    connect(ui_->cmdExistingDelete, &QPushButton::clicked, this, &ModifyProfileView::cmdExistingDelete_Click);
    connect(ui_->cmdExistingSave, &QPushButton::clicked, this, &ModifyProfileView::cmdExistingSave_Click);
}

void ModifyProfileView::UseNameLists(DeviceNameLists& nameLists) {
    nameLists_ = &nameLists;
}

DeviceNameList ModifyProfileView::NameLists() const {
    return {ui_->lstExistingDeviceName_0, ui_->lstExistingDeviceName_1};
}

DropDownList& ModifyProfileView::InterfaceList() const {
    return *ui_->lstExistingInterface;
}

DropDownList& ModifyProfileView::ComPortList() const {
    return *ui_->lstExistingComPort;
}

QPushButton& ModifyProfileView::ProgramButton() const {
    return *ui_->cmdExistingProgram;
}

void ModifyProfileView::SelectFirstOptions() {
    rules_.SelectFirstOptions();
}

void ModifyProfileView::SelectFirstDeviceType() {
    ui_->lstExistingDeviceType->SetListIndex(0);
}

QString ModifyProfileView::SelectedName() const {
    switch (ui_->lstExistingDeviceType->ListIndex()) {
    case DeviceClass::Scanner:
        return ui_->lstExistingDeviceName_0->Text();
    case DeviceClass::Scale:
        return ui_->lstExistingDeviceName_1->Text();
    default:
        return {};
    }
}

void ModifyProfileView::lstExistingDeviceType_Click() {
    struct ClassControls {
        QWidget* nameLabel;
        DropDownList* names;
        QWidget* settings;
    };
    const std::array<ClassControls, 2> classes = {{
        {ui_->lblExistingDeviceName_0, ui_->lstExistingDeviceName_0, ui_->fraExistingDeviceInfo_0},
        {ui_->lblExistingDeviceName_1, ui_->lstExistingDeviceName_1, ui_->fraExistingDeviceInfo_1},
    }};
    for (const ClassControls& controls : classes)
        for (QWidget* control : {controls.nameLabel, static_cast<QWidget*>(controls.names), controls.settings})
            control->hide();
    const int deviceType = ui_->lstExistingDeviceType->ListIndex();
    ui_->lstExistingInterface->SetListIndex(-1);
    if (deviceType >= 0) {
        const ClassControls& shown = classes.at(static_cast<std::size_t>(deviceType));
        for (QWidget* control : {shown.nameLabel, static_cast<QWidget*>(shown.names), shown.settings})
            control->show();
        shown.names->SetListIndex(shown.names->ListCount() > 0 ? 0 : -1);
    }
    ui_->cmdExistingProgram->setEnabled(deviceType == DeviceClass::Scanner &&
                                        ui_->lstExistingInterface->ListIndex() == OptionLists::SerialInterface);
}

void ModifyProfileView::lstExistingDeviceName_Click(std::int32_t deviceType) {
    // A profile that is added selects itself where it is the only one of its class, shown or not. The page goes on
    // showing the class that its user chose; choosing the other one shows its profile then.
    if (deviceType != ui_->lstExistingDeviceType->ListIndex())
        return;
    // The lists may hold the name of a profile that is gone: its deletion takes out the first name that begins with
    // its own, which can be a longer one.
    const QString name = SelectedName();
    if (!services_.devices.Contains(deviceType, name)) {
        ShowNoProfile();
        return;
    }
    const std::shared_ptr<CDevice> device = services_.devices.Item(deviceType, name);
    shown_ = device;
    if (deviceType == DeviceClass::Scanner)
        ShowScanner(dynamic_cast<const CGenericScanner&>(*device));
    else
        ShowScale(dynamic_cast<const CGenericScale&>(*device));
}

void ModifyProfileView::showEvent(QShowEvent* event) {
    QFrame::showEvent(event);
    ShowReplacedProfile();
}

void ModifyProfileView::ShowReplacedProfile() {
    const std::int32_t deviceType = ui_->lstExistingDeviceType->ListIndex();
    const QString name = SelectedName();
    if (services_.devices.Contains(deviceType, name) && services_.devices.Item(deviceType, name) != shown_.lock())
        lstExistingDeviceName_Click(deviceType);
}

void ModifyProfileView::ShowNoProfile() {
    shown_.reset();
    ui_->lstExistingInterface->SetListIndex(-1);
}

void ModifyProfileView::ShowSerialPort(std::int16_t port) {
    ui_->lstExistingInterface->SetListIndex(OptionLists::SerialInterface);
    ui_->lstExistingComPort->SetListIndex(ui_->lstExistingComPort->FindPrefix(QStringLiteral("COM%1").arg(port)));
}

void ModifyProfileView::ShowScanner(const CGenericScanner& scanner) {
    emit LoggingLevelShown(scanner.LoggingLevel());
    ui_->lstExistingInterface->setEnabled(true); // a dual-cable scale shown before has locked it
    const std::int16_t type = scanner.ScannerType();
    if ((type == 0 || type == 1) && scanner.SerialPort() >= 1)
        ShowSerialPort(scanner.SerialPort());
    else
        ui_->lstExistingInterface->SetListIndex(UsbInterfaceOf(type));
    const QString model = QString::fromStdString(scanner.Model());
    ui_->lstExistingModelNumber->setPlaceholderText(model); // what the profile holds, where the list lacks it
    ui_->lstExistingModelNumber->SetListIndex(ui_->lstExistingModelNumber->findText(model));
    ui_->lstExistingScale->setEnabled(model.contains("Pelerin"));
    SelectStored(*ui_->lstExistingScale, scanner.SScaleType());
    SelectStored(*ui_->lstExistingScaleWeightUnit_0, scanner.SWeightUnit());
    SelectStored(*ui_->lstExistingScaleDisplay_0, scanner.SDisplay());
    ui_->cmdExistingProgram->setEnabled(true);
}

void ModifyProfileView::ShowScale(const CGenericScale& scale) {
    SelectStored(*ui_->lstExistingScaleType, scale.ScaleType() - 1);
    emit LoggingLevelShown(scale.LoggingLevel());
    if (scale.SerialPort() >= 1)
        ShowSerialPort(scale.SerialPort());
    else
        ui_->lstExistingInterface->SetListIndex(ScaleUsbInterface);
    ShowModelPicture(*ui_->imgExistingModelPicture, ScalePictureId);
    SelectStored(*ui_->lstExistingScaleWeightUnit_1, scale.WeightUnit());
    SelectStored(*ui_->lstExistingScaleDisplay_1, scale.Display());
    ui_->cmdExistingProgram->setEnabled(false); // a scale is not programmed
}

void ModifyProfileView::cmdExistingProgram_Click() {
    const QString name = SelectedName();
    if (name.isEmpty())
        return;
    const int interfaceIndex = ui_->lstExistingInterface->ListIndex();
    if (interfaceIndex == OptionLists::SerialInterface)
        emit ProgramRequested(services_.devices.Item(ui_->lstExistingDeviceType->ListIndex(), name));
    else
        MsgBox(this, QString::fromStdString(UsbProgramNotice(interfaceIndex)), MsgBoxButtons::Ok, UsbNoticeTitle);
}

void ModifyProfileView::cmdExistingDelete_Click() {
    const QString name = SelectedName();
    if (name.isEmpty())
        return;
    ProfileDeletion{services_.registry, services_.devices, *nameLists_}.Delete(
        this, ui_->lstExistingDeviceType->ListIndex(), name);
    if (SelectedName().isEmpty())
        ShowNoProfile();
}

void ModifyProfileView::cmdExistingSave_Click() {
    const QString name = SelectedName();
    if (name.isEmpty())
        return;
    const bool isScanner = ui_->lstExistingDeviceType->ListIndex() == DeviceClass::Scanner;
    const std::shared_ptr<CDevice> device = isScanner ? UpdateScanner(name) : ReplaceScale(name);
    device->SaveDevice(true);
    MsgBox(this, "Device profile successfully saved.", MsgBoxButtons::Ok, "Profile Saved");
}

std::shared_ptr<CDevice> ModifyProfileView::UpdateScanner(const QString& name) {
    std::shared_ptr<CDevice> device = services_.devices.Item(DeviceClass::Scanner, name);
    rules_.ApplySettings(dynamic_cast<CGenericScanner&>(*device));
    return device;
}

std::shared_ptr<CDevice> ModifyProfileView::ReplaceScale(const QString& name) {
    const std::shared_ptr<CDevice> device = services_.devices.Item(DeviceClass::Scale, name);
    const auto& former = dynamic_cast<const CGenericScale&>(*device);
    const std::shared_ptr<CGenericScale> scale = NewScale(services_.registry, ui_->lstExistingScaleType->ListIndex());
    scale->DeviceName(name.toStdString());
    scale->SerialPort(former.SerialPort());
    scale->WeightUnit(former.WeightUnit());
    scale->Display(former.Display());
    rules_.ApplySettings(*scale);
    services_.devices.Replace(DeviceClass::Scale, name, scale);
    shown_ = scale;
    return scale;
}
