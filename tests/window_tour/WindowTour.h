// Leads a visitor through every window of the program, over a lane with devices.
#pragma once

#include "lane/LaneRunner.h"
#include "lane/window/LaneEvents.h"
#include "support/PseudoTerminal.h"
#include "support/ScopedVariable.h"
#include "support/TemporaryDirectory.h"
#include "support/TemporaryRegistry.h"
#include "support_app/MainWindow.h"
#include "window_tour/WindowVisitor.h"

#include <functional>
#include <optional>

class WindowTour {
public:
    explicit WindowTour(WindowVisitor& visitor);
    ~WindowTour();

    // Errors: std::runtime_error for a window that does not come.
    void GoThrough();

private:
    // Each shows one part of the program.
    void ShowNewProfile();
    void ShowProgramming();
    void ShowPages();
    void ShowTests();
    void ShowDialogs();
    void ShowMenusAndHelp();
    void ShowWizard();
    void ShowLane();

    void Show(QWidget& window, const QString& name);
    // Runs work, which opens modal windows one after the other, shows each, once it is prepared, and closes it.
    void ShowModals(const QStringList& names, const std::function<void()>& work,
                    const std::function<void(QWidget&)>& prepare = {});
    void Lane(const std::string& command);
    void Press(const QString& button);
    void WorkWizard(QWidget& wizard);
    // Waits until the label shows something.
    static void AwaitText(QWidget& window, const QString& label);

    WindowVisitor& visitor_;
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
