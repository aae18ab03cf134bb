#include "wizard/frmWizard.h"

#include "profiles/CGenericScale.h"
#include "profiles/CGenericScanner.h"
#include "profiles/ModelCatalogue.h"
#include "profiles/ZeroWeight.h"
#include "ui_frmWizard.h"
#include "widgets/MessageBox.h"
#include "widgets/ModelPicture.h"
#include "wizard/StartupSetting.h"
#include "wizard/WizardConfiguration.h"
#include "wizard/WizardOptions.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QScopedValueRollback>

#include <utility>

namespace {

// The devices' tests are built with the labels that they show their results in.
std::unique_ptr<Ui::frmWizard> SetUpUi(QDialog& dialog) {
    auto ui = std::make_unique<Ui::frmWizard>();
    ui->setupUi(&dialog);
    return ui;
}

} // namespace

frmWizard::frmWizard(Services services, QWidget* parent)
    : QDialog(parent),
      ui_(SetUpUi(*this)),
      services_(std::move(services)),
      scannerTest_(services_.controls, {*ui_->lblScanData, *ui_->lblScanDataType, *ui_->lblScannerState}),
      scaleTest_(services_.controls, {*ui_->lblWeight, *ui_->lblScaleState}, this) {
    for (int scaleType = 0; scaleType < static_cast<int>(options_.size()); ++scaleType) {
        auto* frame = new WizardOptions(scaleType, services_.availableComPorts, services_.availableInterfaces);
        options_[static_cast<std::size_t>(scaleType)] = frame;
        ui_->stkOptions->addWidget(frame);
        connect(frame, &WizardOptions::NameChanged, this, &frmWizard::CheckNext);
    }
    for (QLabel* picture : {ui_->imgWelcome, ui_->imgFinished})
        picture->setPixmap(windowIcon().pixmap(picture->minimumSize(), devicePixelRatio()));
    ui_->lblWizardZeroWeightNotice->setText(ZeroWeightNotice);
    FillModelList(*ui_->lstModelNumber);
    FixSize();
    ConnectControls();
    Form_Load();
}

frmWizard::~frmWizard() = default;

void frmWizard::ConnectControls() {
    connect(ui_->cmdNext, &QPushButton::clicked, this, &frmWizard::cmdNext_Click);
    connect(ui_->cmdBack, &QPushButton::clicked, this, &frmWizard::cmdBack_Click);
    connect(ui_->cmdFinish, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->lstModelNumber, &DropDownList::Click, this, &frmWizard::lstModelNumber_Click);
    connect(ui_->lstScaleType, &DropDownList::Click, this, &frmWizard::lstScaleType_Click);
    connect(ui_->chkStartup, &QCheckBox::clicked, this, &frmWizard::chkStartup_Click);
}

// Every page has the room that the fullest one needs with all that it can show, so that no page moves another.
void frmWizard::FixSize() {
    setFixedSize(layout()->totalSizeHint());
}

void frmWizard::Form_Load() {
    ui_->lstModelNumber->SetListIndex(0);
    ui_->lstScaleType->SetListIndex(0);
    ui_->chkStartup->setChecked(HidesWizardAtStartup(services_.registry));
    ShowPage(WizardPage::Welcome);
}

void frmWizard::cmdNext_Click() {
    const int next = PageAfter(page_, Path());
    // The type of a scale that the model cannot have may still be chosen from another model before.
    if (page_ == WizardPage::SelectScanner && !Path().scaleCapable)
        ui_->lstScaleType->SetListIndex(WizardScaleType::None);
    if (next == WizardPage::SelectScanner)
        ui_->lstModelNumber->SetListIndex(0);
    if (next == WizardPage::Options)
        for (WizardOptions* frame : options_)
            frame->Reset();
    if (page_ == WizardPage::Options)
        StoreProfiles();
    ShowPage(next);
}

void frmWizard::cmdBack_Click() {
    ShowPage(PageBefore(page_, Path()));
}

void frmWizard::ShowPage(int page) {
    CloseDevices();
    page_ = page;
    ui_->stkWizard->setCurrentIndex(page);
    ShowButtons(page);
    RunPage(page);
}

void frmWizard::ShowButtons(int page) {
    const bool last = page == WizardPage::Finished;
    const bool first = page == WizardPage::Welcome;
    ui_->cmdNext->setVisible(!last);
    ui_->cmdFinish->setVisible(last);
    ui_->cmdBack->setVisible(!first);
    ui_->chkStartup->setVisible(first);
    ui_->cmdNext->setEnabled(true);
    (last ? ui_->cmdFinish : ui_->cmdNext)->setDefault(true);
}

void frmWizard::RunPage(int page) {
    ui_->cmdNext->setFocus();
    switch (page) {
    case WizardPage::SelectScanner:
        ui_->lstModelNumber->setFocus();
        break;
    case WizardPage::ScaleType:
        ui_->lstScaleType->setFocus();
        break;
    case WizardPage::Options:
        Options().setFocus();
        CheckNext();
        break;
    case WizardPage::Configuration:
        RunConfiguration();
        break;
    case WizardPage::TestScanner:
        RunScannerTest();
        break;
    case WizardPage::TestScale:
        RunScaleTest();
        break;
    case WizardPage::Finished:
        ui_->cmdFinish->setFocus();
        break;
    default:
        break;
    }
}

void frmWizard::RunConfiguration() {
    const ProgrammingOutcome outcome = Configure();
    ui_->lblFailureReason->setText(QString::fromStdString(outcome.reason));
    if (outcome.succeeded)
        return cmdNext_Click();
    MsgBox(this, "Error attempting to configure the scanner.  Please make sure that\r\n"
                 "you have the correct scanner model and serial port selected before\r\n"
                 "attempting to configure your scanner.");
    cmdBack_Click();
}

ProgrammingOutcome frmWizard::Configure() {
    const QScopedValueRollback configuring(configuring_, true);
    const auto enabledAgain = qScopeGuard([this] { EnableButtons(true); });
    EnableButtons(false);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    const ProgrammingOutcome outcome = ConfigureScanner(*profiles_.scanner, services_.makeSerlink, this);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    return outcome;
}

void frmWizard::EnableButtons(bool enabled) {
    ui_->cmdNext->setEnabled(enabled);
    ui_->cmdBack->setEnabled(enabled);
}

void frmWizard::RunScannerTest() {
    if (!scannerTest_.Begin(profiles_.scanner))
        cmdNext_Click();
}

void frmWizard::RunScaleTest() {
    const bool shown = ui_->lstScaleType->ListIndex() == WizardScaleType::SingleCable;
    for (QWidget* label : {ui_->lblTestScale, ui_->lblWeightCaption})
        label->setVisible(shown);
    ui_->lblWeight->setVisible(shown);
    ui_->lblWizardZeroWeightNotice->setVisible(shown && RejectsZeroWeight(services_.registry));
    ui_->lblDualCableNote->setVisible(!shown);
    ui_->lblDualCableNext->setVisible(!shown);
    ui_->lblScaleState->clear();
    if (shown && !scaleTest_.Begin(profiles_.scale))
        cmdNext_Click();
}

void frmWizard::CloseDevices() {
    scannerTest_.End();
    scaleTest_.End();
}

void frmWizard::done(int result) {
    CloseDevices();
    QDialog::done(result);
}

void frmWizard::reject() {
    if (!configuring_)
        QDialog::reject();
}

void frmWizard::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Cancel) && (scannerTest_.IsRunning() || scaleTest_.IsRunning()))
        return;
    QDialog::keyPressEvent(event);
}

WizardPath frmWizard::Path() const {
    return {IsScaleCapable(ui_->lstModelNumber->Text().toStdString()), ui_->lstScaleType->ListIndex()};
}

WizardOptions& frmWizard::Options() const {
    return *options_.at(static_cast<std::size_t>(ui_->stkOptions->currentIndex()));
}

void frmWizard::CheckNext() {
    if (page_ == WizardPage::Options)
        ui_->cmdNext->setEnabled(Options().NamesComplete());
}

void frmWizard::StoreProfiles() {
    WizardChoices choices = Options().Choices();
    choices.model = ui_->lstModelNumber->Text().toStdString();
    profiles_ = BuildProfiles(services_.registry, choices);
    for (const std::shared_ptr<CDevice>& profile :
         std::initializer_list<std::shared_ptr<CDevice>>{profiles_.scanner, profiles_.scale}) {
        if (!profile)
            continue;
        profile->SaveDevice(true);
        services_.addDevice(profile);
    }
}

void frmWizard::lstModelNumber_Click() {
    ShowModelPicture(*ui_->imgModelPicture, ui_->lstModelNumber->ItemData(ui_->lstModelNumber->ListIndex()));
}

void frmWizard::lstScaleType_Click() {
    ui_->stkOptions->setCurrentIndex(ui_->lstScaleType->ListIndex());
}

void frmWizard::chkStartup_Click() {
    HideWizardAtStartup(services_.registry, ui_->chkStartup->isChecked());
}
