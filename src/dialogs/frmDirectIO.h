// The dialog that sends one DirectIO command to the device under test.
#pragma once

#include <QDialog>

#include <cstdint>
#include <memory>
#include <optional>

class DigitsBox;
class OPOSScale;
class OPOSScanner;

namespace Ui {
class frmDirectIO;
}

// It opens nothing itself, and what the service object hands back is not shown.
class frmDirectIO : public QDialog {
    Q_OBJECT

public:
    // All of them outlive the dialog.
    struct Devices {
        OPOSScanner& detailScan;
        OPOSScale& detailScale;
        OPOSScale& simpleScale; // whose result code stands for that of a scale command
    };
    explicit frmDirectIO(const Devices& devices, QWidget* parent = nullptr);
    ~frmDirectIO() override;

    // DeviceClass::Scanner or DeviceClass::Scale; to be set before the dialog is shown.
    void DeviceTypeIndex(int index) { deviceTypeIndex_ = index; }

signals:
    // The command was sent; name is the name of its result code.
    void ResultCodeChanged(const QString& name);

private:
    void cmdSend_Click();
    // The number in the box; none, after a message, where it is too large for a command.
    [[nodiscard]] std::optional<std::int32_t> Number(DigitsBox& box, const QString& fieldName);
    void Send(std::int32_t command, std::int32_t argument, std::string text);

    std::unique_ptr<Ui::frmDirectIO> ui_;
    Devices devices_;
    int deviceTypeIndex_ = 0;
};
