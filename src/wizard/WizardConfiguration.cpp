#include "wizard/WizardConfiguration.h"

#include "profiles/CGenericScanner.h"
#include "profiles/UsbNotice.h"
#include "programming/frmProgram.h"
#include "widgets/MessageBox.h"

ProgrammingOutcome ConfigureScanner(const CGenericScanner& scanner, const SerlinkFactory& makeSerlink, QWidget* owner) {
    if (scanner.SerialPort() < 1) {
        const int interfaceIndex = scanner.ScannerType() - 1;
        MsgBox(owner, QString::fromStdString(UsbSetupNotice(interfaceIndex)), MsgBoxButtons::Ok, UsbNoticeTitle);
        return {true, {}};
    }
    frmProgram window({.makeSerlink = makeSerlink}, owner);
    window.show();
    const bool succeeded = window.ProgramDevice(scanner);
    return {succeeded, window.FailureReason().toStdString()};
}
