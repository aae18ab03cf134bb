// Help for whatever has the focus, in every window: F1 opens its topic, Shift+F1 and the question mark of a dialog's
// title bar say in a sentence or two what it is.
#pragma once

#include "platform/help/ControlHelp.h"

#include <QObject>

class HelpViewer;
class QApplication;
class QWidget;

class HelpKey : public QObject {
public:
    // Watches the application for as long as this object lives; viewer outlives it.
    HelpKey(QApplication& application, HelpViewer& viewer);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowTopicOf(QWidget& control);
    void Explain(QWidget& control) const;

    HelpViewer& viewer_;
    ControlHelp help_;
};
