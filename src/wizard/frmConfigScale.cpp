#include "wizard/frmConfigScale.h"

#include "profiles/NewScale.h"
#include "profiles/Numbers.h"
#include "ui_frmConfigScale.h"
#include "wizard/AvailableLists.h"

frmConfigScale::frmConfigScale(const Services& services, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmConfigScale>()), registry_(services.registry) {
    ui_->setupUi(this);
    ConnectControls();
    ui_->lstWeightUnit->SetListIndex(0);
    ui_->lstDisplay->SetListIndex(0);
    AddComPorts(*ui_->lstSerialPort, services.availableComPorts);
    AddInterfaces(*ui_->lstInterface, services.availableInterfaces);
    ui_->lstInterface->SetListIndex(0);
}

frmConfigScale::~frmConfigScale() = default;

void frmConfigScale::ConnectControls() {
    connect(ui_->lstScaleType, &DropDownList::Click, this, &frmConfigScale::lstScaleType_Click);
    connect(ui_->lstInterface, &DropDownList::Click, this, &frmConfigScale::lstInterface_Click);
    connect(ui_->txtScaleName, &QLineEdit::textChanged, this, &frmConfigScale::txtScaleName_Change);
    connect(ui_->cmdCreate, &QPushButton::clicked, this, &frmConfigScale::cmdCreate_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmConfigScale::ScaleParams(const QString& name, std::int16_t port, std::int16_t scaleType,
                                 std::int16_t interfaceIndex, std::int16_t weightUnit, std::int16_t display) {
    ui_->txtScaleName->setText(name);
    ui_->txtScaleName->selectAll();
    ui_->lstScaleType->SetListIndex(scaleType);
    if (scaleType != 0) {
        ui_->lstInterface->SetListIndex(0);
        ui_->lstSerialPort->SetListIndex(0);
    } else {
        ui_->lstInterface->SetListIndex(interfaceIndex);
        ui_->lstSerialPort->SetListIndex(port);
    }
    ui_->lstWeightUnit->SetListIndex(weightUnit);
    ui_->lstDisplay->SetListIndex(display);
}

void frmConfigScale::lstScaleType_Click() {
    ui_->lstInterface->setEnabled(ui_->lstScaleType->ListIndex() == 0);
    if (!ui_->lstInterface->isEnabled())
        ui_->lstInterface->SetListIndex(0);
    ui_->lstWeightUnit->setEnabled(true);
    ui_->lstDisplay->setEnabled(true);
}

void frmConfigScale::lstInterface_Click() {
    const bool asksForPort = ui_->lstInterface->ListIndex() != 0;
    ui_->lstSerialPort->setEnabled(asksForPort);
    ui_->lstSerialPort->SetListIndex(asksForPort && ui_->lstSerialPort->ListCount() > 0 ? 0 : -1);
}

void frmConfigScale::txtScaleName_Change() {
    ui_->cmdCreate->setEnabled(!ui_->txtScaleName->text().isEmpty());
}

void frmConfigScale::cmdCreate_Click() {
    const std::shared_ptr<CGenericScale> scale = NewScale(registry_, ui_->lstScaleType->ListIndex());
    scale->DeviceName(ui_->txtScaleName->text().toStdString());
    const bool hasPort = ui_->lstInterface->ListIndex() != 0;
    scale->SerialPort(hasPort ? PortNumber(ui_->lstSerialPort->Text().toStdString()) : std::int16_t{0});
    scale->WeightUnit(static_cast<std::int16_t>(ui_->lstWeightUnit->ListIndex()));
    scale->Display(static_cast<std::int16_t>(ui_->lstDisplay->ListIndex()));
    scaleProfile_ = scale;
    accept();
}
