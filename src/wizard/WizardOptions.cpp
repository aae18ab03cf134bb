#include "wizard/WizardOptions.h"

#include "profiles/OptionLists.h"
#include "ui_WizardOptions.h"
#include "wizard/AvailableLists.h"
#include "wizard/WizardPages.h"

namespace {

bool IsBlank(const QString& text) {
    return text.count(' ') == text.size();
}

} // namespace

WizardOptions::WizardOptions(int scaleType, const QString& availableComPorts, const QString& availableInterfaces)
    : ui_(std::make_unique<Ui::WizardOptions>()), scaleType_(scaleType) {
    ui_->setupUi(this);
    ShowFields();
    NameControls();
    connect(ui_->lstInterface, &DropDownList::Click, this, &WizardOptions::lstInterface_Click);
    connect(ui_->txtScannerName, &QLineEdit::textChanged, this, &WizardOptions::NameChanged);
    connect(ui_->txtScaleName, &QLineEdit::textChanged, this, &WizardOptions::NameChanged);
    AddComPorts(*ui_->lstScannerComPort, availableComPorts);
    AddComPorts(*ui_->lstScaleComPort, availableComPorts);
    AddInterfaces(*ui_->lstInterface, availableInterfaces);
    setFocusProxy(ui_->txtScannerName);
}

WizardOptions::~WizardOptions() = default;

void WizardOptions::ShowFields() {
    const bool hasScale = scaleType_ != WizardScaleType::None;
    const bool hasOwnPort = scaleType_ == WizardScaleType::DualCable;
    for (QWidget* control :
         std::initializer_list<QWidget*>{ui_->lblScaleName, ui_->txtScaleName, ui_->lblWeightUnit, ui_->lstWeightUnit,
                                         ui_->lblScaleDisplay, ui_->lstScaleDisplay})
        control->setVisible(hasScale);
    ui_->lblScaleComPort->setVisible(hasOwnPort);
    ui_->lstScaleComPort->setVisible(hasOwnPort);
    if (hasOwnPort)
        ui_->lblScannerComPort->setText(QStringLiteral("Scanner COM Port:"));
}

void WizardOptions::NameControls() {
    const QString index = QStringLiteral("_%1").arg(scaleType_);
    for (QWidget* control : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        control->setObjectName(control->objectName() + index);
    setObjectName("fraOptions" + index);
}

void WizardOptions::Reset() {
    ui_->txtScannerName->clear();
    ui_->txtScaleName->clear();
    for (DropDownList* list :
         {ui_->lstScannerComPort, ui_->lstScaleComPort, ui_->lstWeightUnit, ui_->lstScaleDisplay, ui_->lstInterface})
        list->SetListIndex(0);
}

bool WizardOptions::NamesComplete() const {
    return !IsBlank(ui_->txtScannerName->text()) &&
           (scaleType_ == WizardScaleType::None || !IsBlank(ui_->txtScaleName->text()));
}

WizardChoices WizardOptions::Choices() const {
    return {
        .model = {},
        .scaleType = scaleType_,
        .interfaceIndex = ui_->lstInterface->ListIndex(),
        .scannerName = ui_->txtScannerName->text().toStdString(),
        .scannerPort = ui_->lstScannerComPort->Text().toStdString(),
        .scaleName = ui_->txtScaleName->text().toStdString(),
        .scalePort = ui_->lstScaleComPort->Text().toStdString(),
        .weightUnit = static_cast<std::int16_t>(ui_->lstWeightUnit->ListIndex()),
        .display = static_cast<std::int16_t>(ui_->lstScaleDisplay->ListIndex()),
    };
}

void WizardOptions::lstInterface_Click() {
    ui_->lstScannerComPort->setEnabled(ui_->lstInterface->ListIndex() == OptionLists::SerialInterface);
}
