#include "views/DetailedTestView.h"

#include "dialogs/frmDirectIO.h"
#include "dialogs/frmRetrieveStatistics.h"
#include "opos/DeviceTest.h"
#include "opos/OposControls.h"
#include "profiles/CDevice.h"
#include "profiles/Weight.h"
#include "profiles/ZeroWeight.h"
#include "profiles/modOpos.h"
#include "ui_DetailedTestView.h"
#include "widgets/HourglassPointer.h"

#include <QSignalBlocker>

namespace {

constexpr int PollInterval = 250;
constexpr int ReadWeightLockout = 350;
constexpr std::int32_t ReadWeightTimeout = 1000;

// The decimal codes of the characters, separated by blanks.
QString CharacterCodes(const QString& text) {
    QStringList codes;
    for (const QChar character : text)
        codes << QString::number(character.unicode());
    return codes.join(' ');
}

} // namespace

DetailedTestView::DetailedTestView(const TestServices& services, OPOSScale& simpleScale, QWidget* parent)
    : QFrame(parent),
      ui_(std::make_unique<Ui::DetailedTestView>()),
      registry_(services.registry),
      simpleScale_(simpleScale),
      scannerInUse_(services.devices, DeviceClass::Scanner),
      scaleInUse_(services.devices, DeviceClass::Scale),
      detailScan_(services.controls.CreateScanner()),
      detailScale_(services.controls.CreateScale()) {
    ui_->setupUi(this);
    ui_->lblDetailZeroWeightNotice->setText(ZeroWeightNotice);
    tmrDetailedPollScanner_.setObjectName("tmrDetailedPollScanner");
    tmrDetailedPollScanner_.setInterval(PollInterval);
    tmrDetailScale_.setObjectName("tmrDetailScale");
    tmrDetailScale_.setInterval(ReadWeightLockout);
    ConnectControls();
    ConnectCalls();
    ConnectCheckBoxes();
    ConnectEvents();
    setFocusProxy(ui_->lstDetailedDeviceType);
}

DetailedTestView::~DetailedTestView() = default;

void DetailedTestView::ConnectControls() {
    connect(ui_->lstDetailedDeviceType, &DropDownList::Click, this, &DetailedTestView::lstDetailedDeviceType_Click);
    for (const std::int32_t deviceType : {DeviceClass::Scanner, DeviceClass::Scale})
        connect(NameLists().at(static_cast<std::size_t>(deviceType)), &DropDownList::Click, this,
                [this, deviceType] { lstDetailedDeviceName_Click(deviceType); });
    connect(ui_->cmdDetailedDirectIO, &QPushButton::clicked, this, &DetailedTestView::cmdDetailedDirectIO_Click);
    connect(ui_->cmdDetailedRetrieveStatistics, &QPushButton::clicked, this,
            &DetailedTestView::cmdDetailedRetrieveStatistics_Click);
    connect(&tmrDetailedPollScanner_, &QTimer::timeout, this, &DetailedTestView::tmrDetailedPollScanner_Timer);
    connect(&tmrDetailScale_, &QTimer::timeout, this, &DetailedTestView::tmrDetailScale_Timer);
}

void DetailedTestView::ConnectCalls() {
    connect(ui_->cmdDetailedOpen, &QPushButton::clicked, this, &DetailedTestView::cmdDetailedOpen_Click);
    connect(ui_->cmdDetailedClaim, &QPushButton::clicked, this, &DetailedTestView::cmdDetailedClaim_Click);
    connect(ui_->cmdDetailedEnable, &QPushButton::clicked, this, &DetailedTestView::cmdDetailedEnable_Click);
    connect(ui_->cmdDetailedDisable, &QPushButton::clicked, this, &DetailedTestView::cmdDetailedDisable_Click);
    connect(ui_->cmdDetailedClose, &QPushButton::clicked, this, &DetailedTestView::cmdDetailedClose_Click);
    connect(ui_->cmdDetailedScaleWeight, &QPushButton::clicked, this, &DetailedTestView::cmdDetailedScaleWeight_Click);
    connect(ui_->cmdDetailedRelease, &QPushButton::clicked, this, [this] {
        Device().ReleaseDevice();
        ShowResult();
    });
    connect(ui_->cmdDetailedClearInput, &QPushButton::clicked, this, [this] {
        Device().ClearInput();
        ShowResult();
    });
    connect(ui_->cmdDetailedZeroScale, &QPushButton::clicked, this, [this] {
        detailScale_->ZeroScale();
        ShowResult();
    });
}

void DetailedTestView::ConnectCheckBoxes() {
    connect(ui_->chkDetailedDataEvent, &QCheckBox::toggled, this, [this](bool checked) {
        detailScan_->DataEventEnabled(checked);
        ShowResult();
    });
    connect(ui_->chkDetailedDataEventAlways, &QCheckBox::toggled, this,
            &DetailedTestView::chkDetailedDataEventAlways_Click);
    connect(ui_->chkDetailedAutoDisable, &QCheckBox::toggled, this, [this](bool checked) {
        Device().AutoDisable(checked);
        ShowResult();
    });
    connect(ui_->chkDetailedFreezeEvents, &QCheckBox::toggled, this, [this](bool checked) {
        Device().FreezeEvents(checked);
        ShowResult();
    });
    connect(ui_->chkDetailedDecodeData, &QCheckBox::toggled, this, [this](bool checked) {
        detailScan_->DecodeData(checked);
        ShowResult();
    });
    connect(ui_->chkDetailedAsyncScale, &QCheckBox::toggled, this, [this](bool checked) {
        detailScale_->AsyncMode(checked);
        ShowResult();
    });
}

void DetailedTestView::ConnectEvents() {
    detailScan_->OnDataEvent([this](std::int32_t) { DetailScan_DataEvent(); });
    detailScale_->OnDataEvent([this](std::int32_t status) { ShowWeight(status); });
    detailScale_->OnErrorEvent([this](std::int32_t resultCode, std::int32_t, std::int32_t, std::int32_t&) {
        DetailScale_ErrorEvent(resultCode);
    });
}

DeviceNameList DetailedTestView::NameLists() const {
    return {ui_->lstDetailedDeviceName_0, ui_->lstDetailedDeviceName_1};
}

void DetailedTestView::SelectFirstDeviceType() {
    ui_->lstDetailedDeviceType->SetListIndex(0);
}

bool DetailedTestView::IsScanner() const {
    return ui_->lstDetailedDeviceType->ListIndex() == DeviceClass::Scanner;
}

OposControl& DetailedTestView::Device() const {
    return IsScanner() ? static_cast<OposControl&>(*detailScan_) : *detailScale_;
}

ProfileInUse& DetailedTestView::InUse() {
    return IsScanner() ? scannerInUse_ : scaleInUse_;
}

QString DetailedTestView::ChosenName() const {
    return NameLists().at(IsScanner() ? 0 : 1)->Text();
}

void DetailedTestView::ShowResult() {
    ShowResultName(ResultCodeName(Device().ResultCode()));
}

void DetailedTestView::ShowResultName(const std::string& name) {
    ui_->lblDetailedResultCode->setText(QString::fromStdString(name));
}

void DetailedTestView::ShowState() {
    ui_->lblDetailedState->setText(QString::fromStdString(StateName(Device().State())));
}

void DetailedTestView::ShowWeight(std::int32_t weight) {
    ui_->lblDetailedWeightData->setText(QString::fromStdString(FormatWeight(weight, detailScale_->WeightUnit())));
}

void DetailedTestView::ShowTimeOut() {
    ui_->lblDetailedWeightData->setText(QStringLiteral("Timed Out (%1 milliseconds)").arg(ReadWeightTimeout));
}

void DetailedTestView::ClearScanData() {
    for (QLabel* label : {ui_->lblDetailedScanDataCount, ui_->lblDetailedScanData, ui_->lblDetailedScanDataLabel,
                          ui_->lblDetailedScanDataASCII, ui_->lblDetailedScanDataType})
        label->clear();
}

void DetailedTestView::ShowChecked(QCheckBox& box, bool checked) {
    const QSignalBlocker blocker(box);
    box.setChecked(checked);
}

void DetailedTestView::ShowControlsOf(int deviceType) {
    const std::initializer_list<QWidget*> scannerOnly = {
        ui_->lblDetailedDeviceName_0,  ui_->lstDetailedDeviceName_0,
        ui_->chkDetailedDataEvent,     ui_->chkDetailedDataEventAlways,
        ui_->chkDetailedDecodeData,    ui_->lblDetailedScanDataCaption,
        ui_->lblDetailedScanData,      ui_->lblDetailedScanDataASCIICaption,
        ui_->lblDetailedScanDataASCII, ui_->lblDetailedScanDataLabelCaption,
        ui_->lblDetailedScanDataLabel, ui_->lblDetailedScanDataTypeCaption,
        ui_->lblDetailedScanDataType,  ui_->lblDetailedScanDataCountCaption,
        ui_->lblDetailedScanDataCount, ui_->cmdDetailedRetrieveStatistics,
    };
    const std::initializer_list<QWidget*> scaleOnly = {
        ui_->lblDetailedDeviceName_1,      ui_->lstDetailedDeviceName_1, ui_->chkDetailedAsyncScale,
        ui_->lblDetailedWeightDataCaption, ui_->lblDetailedWeightData,   ui_->lblDetailedMaxWeightCaption,
        ui_->lblDetailedMaxWeight,         ui_->cmdDetailedScaleWeight,  ui_->cmdDetailedZeroScale,
    };
    for (QWidget* control : scannerOnly)
        control->setVisible(deviceType == DeviceClass::Scanner);
    for (QWidget* control : scaleOnly)
        control->setVisible(deviceType == DeviceClass::Scale);
    ui_->fraDetailedDeviceSpecific->setVisible(deviceType >= 0);
    ui_->fraDetailedDeviceSpecific->setTitle(ui_->lstDetailedDeviceType->Text());
}

void DetailedTestView::lstDetailedDeviceType_Click() {
    const int deviceType = ui_->lstDetailedDeviceType->ListIndex();
    ShowControlsOf(deviceType);
    if (deviceType < 0)
        return;
    DropDownList& names = *NameLists().at(static_cast<std::size_t>(deviceType));
    if (names.ListCount() > 0)
        names.SetListIndex(0);
}

void DetailedTestView::lstDetailedDeviceName_Click(std::int32_t deviceType) {
    const bool isScanner = deviceType == DeviceClass::Scanner;
    OposControl& device = isScanner ? static_cast<OposControl&>(*detailScan_) : *detailScale_;
    if (device.State() != OposState::Closed)
        device.Close();
    if (isScanner) {
        ui_->lblDetailedScanDataCount->clear();
        tmrDetailedPollScanner_.stop();
    }
    (isScanner ? scannerInUse_ : scaleInUse_).Release();
    // A list that is not shown changes where a profile is added or deleted.
    if (deviceType == ui_->lstDetailedDeviceType->ListIndex()) {
        ui_->lblDetailedResultCode->clear();
        ui_->lblDetailedState->clear();
    }
}

void DetailedTestView::cmdDetailedOpen_Click() {
    const HourglassPointer pointer;
    const QString name = ChosenName();
    Device().Open(name.toStdString());
    ShowResultName(OpenResultName(Device().OpenResult()));
    ShowState();
    if (IsScanner()) {
        ClearScanData();
        ShowChecked(*ui_->chkDetailedDecodeData, false);
        ShowChecked(*ui_->chkDetailedDataEvent, false);
        ShowChecked(*ui_->chkDetailedDataEventAlways, false);
        ui_->chkDetailedDataEvent->setEnabled(true);
        tmrDetailedPollScanner_.start();
    } else {
        ui_->lblDetailedWeightData->clear();
        ui_->lblDetailedMaxWeight->setText(QString::fromStdString(FormatThousandths(detailScale_->MaximumWeight())));
        ShowChecked(*ui_->chkDetailedAsyncScale, false);
    }
    ShowChecked(*ui_->chkDetailedAutoDisable, false);
    if (Device().OpenResult() == OposOpenResult::Success)
        InUse().Hold(name);
}

void DetailedTestView::cmdDetailedClaim_Click() {
    const HourglassPointer pointer;
    Device().ClaimDevice(DeviceTest::ClaimTimeout);
    ShowResult();
}

void DetailedTestView::cmdDetailedEnable_Click() {
    Device().DeviceEnabled(true);
    ShowResult();
    if (!IsScanner())
        ui_->lblDetailZeroWeightNotice->setVisible(ProhibitsZeroWeight(registry_, ChosenName().toStdString()));
}

void DetailedTestView::cmdDetailedDisable_Click() {
    Device().DeviceEnabled(false);
    ShowResult();
    if (!IsScanner())
        ui_->lblDetailZeroWeightNotice->hide();
}

void DetailedTestView::cmdDetailedClose_Click() {
    Device().Close();
    ShowResult();
    ShowState();
    if (IsScanner()) {
        ClearScanData();
        tmrDetailedPollScanner_.stop();
    } else {
        ui_->lblDetailedMaxWeight->clear();
        ui_->lblDetailedWeightData->clear();
    }
    InUse().Release();
}

void DetailedTestView::chkDetailedDataEventAlways_Click() {
    const bool always = ui_->chkDetailedDataEventAlways->isChecked();
    ui_->chkDetailedDataEvent->setEnabled(!always);
    if (always)
        ui_->chkDetailedDataEvent->setChecked(true);
}

void DetailedTestView::cmdDetailedScaleWeight_Click() {
    // A disabled button hands the focus on: the next key press would zero the scale.
    readWeightHadFocus_ = window()->focusWidget() == ui_->cmdDetailedScaleWeight;
    ui_->cmdDetailedScaleWeight->clearFocus();
    ui_->cmdDetailedScaleWeight->setEnabled(false);
    tmrDetailScale_.start();
    std::int32_t weight = 0;
    const std::int32_t result = detailScale_->ReadWeight(weight, ReadWeightTimeout);
    ShowResultName(ResultCodeName(result));
    if (detailScale_->AsyncMode())
        detailScale_->DataEventEnabled(true); // the weight comes with the event
    else if (result == OposResult::Timeout)
        ShowTimeOut();
    else
        ShowWeight(weight);
}

void DetailedTestView::tmrDetailScale_Timer() {
    tmrDetailScale_.stop();
    ui_->cmdDetailedScaleWeight->setEnabled(true);
    if (readWeightHadFocus_ && window()->focusWidget() == nullptr)
        ui_->cmdDetailedScaleWeight->setFocus();
}

void DetailedTestView::DetailScale_ErrorEvent(std::int32_t resultCode) {
    ShowResultName(ResultCodeName(resultCode));
    ShowTimeOut();
}

void DetailedTestView::DetailScan_DataEvent() {
    tmrDetailedPollScanner_Timer();
    ui_->lblDetailedScanDataType->setText(QString::fromStdString(SymbologyName(detailScan_->ScanDataType())));
    ui_->lblDetailedScanData->setText(QString::fromLatin1(detailScan_->ScanData()));
    ui_->lblDetailedScanDataASCII->setText(CharacterCodes(ui_->lblDetailedScanData->text()));
    ui_->lblDetailedScanDataLabel->setText(QString::fromLatin1(detailScan_->ScanDataLabel()));
    if (ui_->chkDetailedDataEventAlways->isChecked())
        detailScan_->DataEventEnabled(true);
    else
        ShowChecked(*ui_->chkDetailedDataEvent, false);
}

void DetailedTestView::tmrDetailedPollScanner_Timer() {
    ui_->lblDetailedScanDataCount->setText(QString::number(detailScan_->DataCount()));
}

void DetailedTestView::cmdDetailedDirectIO_Click() {
    frmDirectIO dialog({*detailScan_, *detailScale_, simpleScale_}, window());
    dialog.DeviceTypeIndex(ui_->lstDetailedDeviceType->ListIndex());
    connect(&dialog, &frmDirectIO::ResultCodeChanged, ui_->lblDetailedResultCode, &QLabel::setText);
    dialog.exec();
}

void DetailedTestView::cmdDetailedRetrieveStatistics_Click() {
    frmRetrieveStatistics dialog({*detailScan_, *detailScale_}, window());
    dialog.DeviceTypeIndex(ui_->lstDetailedDeviceType->ListIndex());
    connect(&dialog, &frmRetrieveStatistics::ResultCodeChanged, ui_->lblDetailedResultCode, &QLabel::setText);
    dialog.exec();
}
