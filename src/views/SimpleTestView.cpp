#include "views/SimpleTestView.h"

#include "opos/DeviceTest.h"
#include "opos/OposControls.h"
#include "profiles/CDevice.h"
#include "profiles/RegistryPaths.h"
#include "profiles/Weight.h"
#include "profiles/ZeroWeight.h"
#include "profiles/modOpos.h"
#include "ui_SimpleTestView.h"
#include "views/StartDevice.h"
#include "widgets/HourglassPointer.h"
#include "widgets/MessageBox.h"

namespace {

constexpr StartErrors ScannerErrors = {
    .open = {"SimpleScan.Open", "An error occured while attempting to open the specified device."},
    .claim = {"SimpleScan.Claim", "An error occured while attempting to claim the specified device."},
    .enable = {"SimpleScan.DeviceEnabled", "An error occured while attempting to enable the specified device."},
};

// The spelling of the second description and the source of the third are as users and support know them.
constexpr StartErrors ScaleErrors = {
    .open = {"SimpleScale.Open", "An error occured while attempting to open the specified device."},
    .claim = {"SimpleScale.Claim", "An error occured while attempting to claim the specifed device."},
    .enable = {"SimpleScan.DeviceEnabled", "An error occured while attempting to enable the specified device."},
};

constexpr const char* AveryNotice =
    "The Avery Scale Driver -- used with an Avery Scale in Dual-Cable Configuration of Scale and Scanner -- does NOT "
    "support asynchronous mode, the mode used by Simple Test.  You may test your Avery Scale through the Detailed Test "
    "feature of this program, or you may reconfigure and reprofile your Scale and Scanner for Single-Cable "
    "Configuration.";

} // namespace

SimpleTestView::SimpleTestView(const TestServices& services, QWidget* parent)
    : QFrame(parent),
      ui_(std::make_unique<Ui::SimpleTestView>()),
      registry_(services.registry),
      scannerInUse_(services.devices, DeviceClass::Scanner),
      scaleInUse_(services.devices, DeviceClass::Scale),
      simpleScan_(services.controls.CreateScanner()),
      simpleScale_(services.controls.CreateScale()) {
    ui_->setupUi(this);
    ui_->lblSimpleZeroWeightNotice->setText(ZeroWeightNotice);
    tmrSimpleScale_.setObjectName("tmrSimpleScale");
    tmrSimpleScale_.setInterval(DeviceTest::WeightInterval);
    ConnectControls();
    setFocusProxy(ui_->lstSimpleDeviceName_0);
}

SimpleTestView::~SimpleTestView() = default;

void SimpleTestView::ConnectControls() {
    connect(ui_->cmdSimpleScannerBegin, &QPushButton::clicked, this, &SimpleTestView::cmdSimpleScannerBegin_Click);
    connect(ui_->cmdSimpleScannerEnd, &QPushButton::clicked, this, &SimpleTestView::cmdSimpleScannerEnd_Click);
    connect(ui_->cmdSimpleScaleBegin, &QPushButton::clicked, this, &SimpleTestView::cmdSimpleScaleBegin_Click);
    connect(ui_->cmdSimpleScaleEnd, &QPushButton::clicked, this, &SimpleTestView::cmdSimpleScaleEnd_Click);
    connect(&tmrSimpleScale_, &QTimer::timeout, this, &SimpleTestView::tmrSimpleScale_Timer);
    simpleScan_->OnDataEvent([this](std::int32_t) { SimpleScan_DataEvent(); });
    simpleScale_->OnDataEvent([this](std::int32_t status) { SimpleScale_DataEvent(status); });
}

DeviceNameList SimpleTestView::NameLists() const {
    return {ui_->lstSimpleDeviceName_0, ui_->lstSimpleDeviceName_1};
}

void SimpleTestView::SelectFirstNames() {
    for (DropDownList* list : NameLists())
        if (list->ListCount() > 0)
            list->SetListIndex(0);
}

void SimpleTestView::RunTrapped(OposControl& device, const std::function<void()>& begin) {
    try {
        begin();
    } catch (const std::exception& error) {
        // The scanner's result code, also where the scale failed.
        MsgBox(this,
               QStringLiteral("%1\r\nResult Code: %2")
                   .arg(QString::fromUtf8(error.what()), QString::number(simpleScan_->ResultCode())),
               MsgBoxButtons::Ok, "OPOS Error");
        device.Close();
    }
}

void SimpleTestView::cmdSimpleScannerBegin_Click() {
    RunTrapped(*simpleScan_, [this] { BeginScannerTest(); });
}

void SimpleTestView::BeginScannerTest() {
    const HourglassPointer pointer;
    const QString name = ui_->lstSimpleDeviceName_0->Text();
    OpenClaimEnable(*simpleScan_, name.toStdString(), ScannerErrors);
    simpleScan_->DecodeData(true);
    simpleScan_->DataEventEnabled(true);
    scannerInUse_.Hold(name);
    ui_->cmdSimpleScannerEnd->setEnabled(true);
    ui_->cmdSimpleScannerBegin->setEnabled(false);
}

void SimpleTestView::SimpleScan_DataEvent() {
    ui_->lblSimpleScanData->setText(QString::fromLatin1(simpleScan_->ScanDataLabel()));
    ui_->lblSimpleDataType->setText(QString::fromStdString(SymbologyName(simpleScan_->ScanDataType())));
    simpleScan_->DataEventEnabled(true);
}

void SimpleTestView::cmdSimpleScannerEnd_Click() {
    simpleScan_->Close();
    scannerInUse_.Release();
    ui_->cmdSimpleScannerBegin->setEnabled(true);
    ui_->cmdSimpleScannerBegin->setFocus();
    ui_->cmdSimpleScannerEnd->setEnabled(false);
    ui_->lblSimpleScanData->clear();
    ui_->lblSimpleDataType->clear();
}

void SimpleTestView::cmdSimpleScaleBegin_Click() {
    RunTrapped(*simpleScale_, [this] { BeginScaleTest(); });
}

void SimpleTestView::BeginScaleTest() {
    const QString name = ui_->lstSimpleDeviceName_1->Text();
    if (ScaleProgId(registry_, name.toStdString()) == ProgId::AveryScale) {
        MsgBox(this, AveryNotice, MsgBoxButtons::Ok, "Kalder Notification");
        return;
    }
    const HourglassPointer pointer;
    OpenClaimEnable(*simpleScale_, name.toStdString(), ScaleErrors);
    ui_->lblSimpleZeroWeightNotice->setVisible(ProhibitsZeroWeight(registry_, name.toStdString()));
    simpleScale_->AsyncMode(true);
    // A read without limit would hold up the whole window there.
    if (!simpleScale_->AsyncMode())
        throw ApplicationError("SimpleScale.AsyncMode",
                               "The specified device does not support asynchronous mode, the mode used by Simple "
                               "Test.");
    ReadNextWeight();
    scaleInUse_.Hold(name);
    ui_->cmdSimpleScaleEnd->setEnabled(true);
    ui_->cmdSimpleScaleBegin->setEnabled(false);
}

void SimpleTestView::ReadNextWeight() {
    simpleScale_->DataEventEnabled(true);
    simpleScale_->ReadWeight(lastWeight_, DeviceTest::Unlimited);
}

void SimpleTestView::SimpleScale_DataEvent(std::int32_t status) {
    const QString text = QString::fromStdString(FormatWeight(status, simpleScale_->WeightUnit()));
    if (ui_->lblSimpleScaleWeight->text() != text)
        ui_->lblSimpleScaleWeight->setText(text);
    tmrSimpleScale_.start();
    lastWeight_ = status;
}

void SimpleTestView::tmrSimpleScale_Timer() {
    tmrSimpleScale_.stop();
    ReadNextWeight();
}

void SimpleTestView::cmdSimpleScaleEnd_Click() {
    tmrSimpleScale_.stop();
    simpleScale_->Close();
    scaleInUse_.Release();
    ui_->cmdSimpleScaleBegin->setEnabled(true);
    ui_->cmdSimpleScaleBegin->setFocus();
    ui_->cmdSimpleScaleEnd->setEnabled(false);
    ui_->lblSimpleScaleWeight->clear();
    ui_->lblSimpleZeroWeightNotice->hide();
}
