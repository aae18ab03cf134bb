#include "app/modPrevInstance.h"

#include "platform/instance/PreviousInstance.h"

#include <QCoreApplication>

bool YieldToPreviousInstance(PreviousInstance& previous) {
    if (!previous.IsRunning())
        return false;
    // So that what this start shows of itself is not taken for the instance that is looked for.
    const QString title = QCoreApplication::applicationName();
    QCoreApplication::setApplicationName("unwanted instance");
    return previous.BringForward(title.toStdString());
}
