// What the help says of a control that has this name in this window.
#pragma once

#include "platform/help/ControlHelp.h"

#include <QDialog>
#include <QPushButton>

inline QString WhatsThisOf(const ControlHelp& help, const QString& window, const QString& name) {
    QDialog dialog;
    dialog.setObjectName(window);
    auto* control = new QPushButton(&dialog);
    control->setObjectName(name);
    return help.WhatsThis(*control);
}
