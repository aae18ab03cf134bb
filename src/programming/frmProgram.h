// The window in which a scanner is programmed: it shows what the exchange is doing, and how it ended.
//
// Callers load it, show it modeless with their own window as its owner, call ProgramDevice and unload it:
//
//     frmProgram window({.makeSerlink = factory}, owner);     // as long as the call, as the wizard does; or
//     auto* window = new frmProgram({.makeSerlink = factory}, owner);  // to leave the outcome on the screen:
//     window->setAttribute(Qt::WA_DeleteOnClose);             // unloaded by its Close button
//     connect(window, &frmProgram::ProgramComplete, owner, &frmMain::ProgramComplete);
//     window->show();
//     const bool programmed = window->ProgramDevice(*profile);
//
// The owner may delete it at any time when ProgramDevice is not running.
#pragma once

#include "programming/ProgrammingSession.h"
#include "programming/SerlinkFactory.h"

#include <QDialog>

#include <chrono>
#include <functional>
#include <memory>

class CDevice;

namespace Ui {
class frmProgram;
}

class frmProgram : public QDialog {
    Q_OBJECT

public:
    struct Services {
        SerlinkFactory makeSerlink;
        // Takes the time that some scanners need before they are written to. Unset: that time, with the windows alive.
        std::function<void(std::chrono::milliseconds)> wait = {};
    };
    explicit frmProgram(Services services, QWidget* parent = nullptr);
    ~frmProgram() override;

    // Programs the scanner of the profile and shows how that ended; true when the scanner acknowledged its new
    // configuration. While it runs, at most about two minutes, events are processed, but no window takes the user's
    // input and this one cannot be closed. Raises no error: whatever goes wrong is shown. May be called again.
    bool ProgramDevice(const CDevice& genericDevice);

    // Why the last session failed, as the window shows it; empty after a success.
    [[nodiscard]] QString FailureReason() const;

signals:
    // A session has ended, well or badly.
    void ProgramComplete();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_Load();
    [[nodiscard]] ProgrammingOutcome RunSession(const CDevice& device);
    [[nodiscard]] ProgrammingHooks Hooks();
    void ShowState(QWidget& state);
    void ShowStep(ProgrammingStep step);
    void ShowBytes(std::size_t done, std::size_t expected);
    void ShowOutcome(const ProgrammingOutcome& outcome);
    void cmdClose_Click();

    std::unique_ptr<Ui::frmProgram> ui_;
    Services services_;
    bool sessionRunning_ = false;
    bool systemMenuCut_ = false;
};
