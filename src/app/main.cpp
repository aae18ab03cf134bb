// Builds the program's parts and wires them.
#include "app/CommandLine.h"
#include "app/QtEventDispatcher.h"
#include "app/RavlinApplication.h"
#include "app/SystemSerlink.h"
#include "app/frmMain.h"
#include "app/modPrevInstance.h"
#include "opos/OposControls.h"
#include "platform/help/HelpKey.h"
#include "platform/help/HelpViewer.h"
#include "platform/instance/PreviousInstance.h"
#include "profiles/RegistryStore.h"

#include <cstdio>

namespace {

// Prints what was asked for; true when something was.
bool Answered(const CommandLine& line) {
    std::fputs(qPrintable(line.answer), stdout);
    return !line.answer.isEmpty();
}

} // namespace

int main(int argc, char** argv) {
    // Before there is an application, since printing a text needs no display.
    if (Answered(ParseCommandLine({argv + 1, argv + argc})))
        return 0;

    RavlinApplication application(argc, argv);
    // Without the arguments that were meant for Qt.
    const CommandLine commandLine = ParseCommandLine(QCoreApplication::arguments().mid(1));
    if (Answered(commandLine))
        return 0;
    std::fputs(qPrintable(commandLine.warning), stderr);

    PreviousInstance previous;
    if (YieldToPreviousInstance(previous))
        return 0;

    const std::unique_ptr<Registry> registry = OpenSystemRegistry();
    const std::unique_ptr<HelpViewer> help = CreateHelpViewer();
    const HelpKey helpKey(application, *help);
    QtEventDispatcher dispatcher;
    const std::unique_ptr<OposControls> controls = OpenSystemControls(*registry, dispatcher);
    frmMain mainWindow({.registry = *registry, .controls = *controls, .makeSerlink = SystemSerlink(), .help = *help});
    previous.ListenForLater(QCoreApplication::applicationName().toStdString(), mainWindow.winId(),
                            [&mainWindow] { mainWindow.ComeForward(); });
    mainWindow.Form_Load(commandLine.showLogLevel);
    mainWindow.show();
    return QApplication::exec();
}
