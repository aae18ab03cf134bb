// The window of the virtual lane: the ports with what is plugged in, and what one can do with it. Everything goes
// through the command language, so that the window can do what the commands can.
#pragma once

#include "lane/LaneRunner.h"
#include "lane/window/LaneEvents.h"

#include <QWidget>

#include <memory>

namespace Ui {
class frmLane;
}

class frmLane : public QWidget {
    Q_OBJECT

public:
    frmLane(LaneRunner& lane, const LaneEvents& events, const LaneOptions& options);
    ~frmLane() override;

    // Carries out a command line; a failure is shown in the window. True when it was done.
    bool Execute(const QString& command);

private:
    void FillLists();
    void ConnectControls();
    // "1" of the chosen port; empty when none is.
    [[nodiscard]] QString ChosenPort() const;
    // The command with the chosen port behind its name, then the rest.
    bool ExecuteAtPort(const QString& name, const QString& rest = {});
    void ShowState();
    void ShowChosenPort();
    void Weigh();

    void LaneHappened(const QString& event);
    void cmdScanner_Click();
    void cmdScale_Click();
    void cmdScan_Click();
    void cmdBlock_Click();
    void cmdUnplug_Click();
    void chkUnstable_Click(bool checked);
    void sldWeight_Change(int hundredths);

    std::unique_ptr<Ui::frmLane> ui_;
    LaneRunner& lane_;
    std::vector<LanePortState> state_;
};
