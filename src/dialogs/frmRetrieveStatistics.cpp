#include "dialogs/frmRetrieveStatistics.h"

#include "dialogs/StatisticsText.h"
#include "opos/OPOSScale.h"
#include "opos/OPOSScanner.h"
#include "profiles/CDevice.h"
#include "profiles/modOpos.h"
#include "ui_frmRetrieveStatistics.h"
#include "widgets/HourglassPointer.h"

#include <QFontDatabase>

frmRetrieveStatistics::frmRetrieveStatistics(const Devices& devices, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmRetrieveStatistics>()), devices_(devices) {
    ui_->setupUi(this);
    ui_->txtStatBuffString->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    connect(ui_->cmdRetrieveStatistics, &QPushButton::clicked, this,
            &frmRetrieveStatistics::cmdRetrieveStatistics_Click);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

frmRetrieveStatistics::~frmRetrieveStatistics() = default;

void frmRetrieveStatistics::cmdRetrieveStatistics_Click() {
    const HourglassPointer pointer;
    OposControl& device = deviceTypeIndex_ == DeviceClass::Scanner ? static_cast<OposControl&>(devices_.detailScan)
                                                                   : devices_.detailScale;
    std::string buffer = ui_->txtStatBuffString->toPlainText().toStdString();
    device.RetrieveStatistics(buffer);
    const QString resultCode = QString::fromStdString(ResultCodeName(device.ResultCode()));
    emit ResultCodeChanged(resultCode);
    ui_->lblResultCode->setText(resultCode);
    ui_->txtStatBuffString->setPlainText(QString::fromStdString(IndentStatistics(buffer)));
}
