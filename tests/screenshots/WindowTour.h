// Leads a photographer through every window of the program, over a lane with devices.
#pragma once

#include "Photographer.h"

#include "lane/LaneRunner.h"
#include "lane/window/LaneEvents.h"
#include "support/PseudoTerminal.h"
#include "support/ScopedVariable.h"
#include "support/TemporaryDirectory.h"
#include "support/TemporaryRegistry.h"
#include "support_app/MainWindow.h"

class WindowTour {
public:
    explicit WindowTour(const Photographer& photographer);
    ~WindowTour();

    // Each takes the pictures of one part of the program. Errors: std::runtime_error for a window that does not come.
    void TakeNewProfile();
    void TakeProgramming();
    void TakePages();
    void TakeTests();
    void TakeDialogs();
    void TakeMenusAndHelp();
    void TakeWizard();
    void TakeLane();

private:
    void Lane(const std::string& command);
    void Press(const QString& button);
    void WorkWizard(QWidget& wizard);
    // Waits until the label shows something.
    static void AwaitText(QWidget& window, const QString& label);

    const Photographer& photographer_;
    TemporaryDirectory places_;
    ScopedVariable runtime_;
    ScopedVariable state_;
    TemporaryPorts ports_;
    LaneEvents events_;
    LaneOptions options_;
    LaneRunner lane_;
    TemporaryRegistry registry_;
    std::optional<MainWindow> window_;
};
