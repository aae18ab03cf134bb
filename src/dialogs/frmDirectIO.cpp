#include "dialogs/frmDirectIO.h"

#include "opos/OPOSScale.h"
#include "opos/OPOSScanner.h"
#include "profiles/CDevice.h"
#include "profiles/modOpos.h"
#include "ui_frmDirectIO.h"
#include "widgets/HourglassPointer.h"
#include "widgets/MessageBox.h"

#include <limits>

frmDirectIO::frmDirectIO(const Devices& devices, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmDirectIO>()), devices_(devices) {
    ui_->setupUi(this);
    connect(ui_->cmdSend, &QPushButton::clicked, this, &frmDirectIO::cmdSend_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmDirectIO::~frmDirectIO() = default;

void frmDirectIO::cmdSend_Click() {
    const std::optional<std::int32_t> command = Number(*ui_->txtEventNumber, tr("event number"));
    if (!command)
        return;
    const std::optional<std::int32_t> argument = Number(*ui_->txtData, tr("data"));
    if (!argument)
        return;
    Send(*command, *argument, ui_->txtString->text().toStdString());
    accept();
}

std::optional<std::int32_t> frmDirectIO::Number(DigitsBox& box, const QString& fieldName) {
    box.Validate(); // Enter sends from within the box
    bool fits = false;
    const int number = box.text().toInt(&fits);
    if (fits)
        return number;
    MsgBox(this, tr("The %1 is too large.\r\nPlease enter a number from 0 to %2.")
                     .arg(fieldName)
                     .arg(std::numeric_limits<std::int32_t>::max()));
    box.setFocus();
    box.selectAll();
    return std::nullopt;
}

void frmDirectIO::Send(std::int32_t command, std::int32_t argument, std::string text) {
    const HourglassPointer pointer;
    std::int32_t resultCode = 0;
    if (deviceTypeIndex_ == DeviceClass::Scanner) {
        devices_.detailScan.DirectIO(command, argument, text);
        resultCode = devices_.detailScan.ResultCode();
    } else {
        devices_.detailScale.DirectIO(command, argument, text);
        resultCode = devices_.simpleScale.ResultCode();
    }
    emit ResultCodeChanged(QString::fromStdString(ResultCodeName(resultCode)));
}
