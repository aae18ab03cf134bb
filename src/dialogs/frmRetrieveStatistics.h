// The dialog that asks the device under test for its statistics.
#pragma once

#include <QDialog>

#include <memory>

class OPOSScale;
class OPOSScanner;

namespace Ui {
class frmRetrieveStatistics;
}

// txtStatBuffString holds the request and then the reply. Breaks of a line, bare carriage returns as well, are lines of
// the box; read back they are line feeds.
class frmRetrieveStatistics : public QDialog {
    Q_OBJECT

public:
    // All of them outlive the dialog.
    struct Devices {
        OPOSScanner& detailScan;
        OPOSScale& detailScale;
    };
    explicit frmRetrieveStatistics(const Devices& devices, QWidget* parent = nullptr);
    ~frmRetrieveStatistics() override;

    // DeviceClass::Scanner or DeviceClass::Scale; to be set before the dialog is shown.
    void DeviceTypeIndex(int index) { deviceTypeIndex_ = index; }

signals:
    // The device was asked; name is the name of its result code.
    void ResultCodeChanged(const QString& name);

private:
    void cmdRetrieveStatistics_Click();

    std::unique_ptr<Ui::frmRetrieveStatistics> ui_;
    Devices devices_;
    int deviceTypeIndex_ = 0;
};
