#include "app/RavlinApplication.h"

#include "profiles/NumberedError.h"
#include "widgets/MessageBox.h"
#include "widgets/OutlinedStyle.h"

#include <QIcon>

#include <exception>
#include <functional>

namespace {

// The one place where an uncaught error is shown.
void ReportError(const std::exception& error) {
    QString text = QString::fromUtf8(error.what());
    if (const auto* numbered = dynamic_cast<const NumberedError*>(&error))
        text += QStringLiteral("\r\n\r\nError Number: %1").arg(numbered->SignedNumber());
    MsgBox(QApplication::activeWindow(), text);
}

} // namespace

RavlinApplication::RavlinApplication(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName("Ravlin"); // the title of message boxes; a display name would be appended to every window title
    setApplicationVersion(RAVLIN_VERSION);
    setDesktopFileName("org.ravlin.ravlin");
    QIcon icon;
    for (const int size : {16, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/icons/ravlin-%1.png").arg(size));
    setWindowIcon(icon);
    OutlineFusion();
}

bool RavlinApplication::notify(QObject* receiver, QEvent* event) {
    bool handled = true;
    RunReported([&] { handled = QApplication::notify(receiver, event); });
    return handled;
}

bool RunReported(const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const std::exception& error) {
        ReportError(error);
        return false;
    }
}
