#include "lane/window/LaneProgram.h"

#include "lane/LaneRunner.h"
#include "lane/window/LaneEvents.h"
#include "lane/window/frmLane.h"
#include "platform/help/HelpKey.h"
#include "platform/help/HelpViewer.h"
#include "widgets/OutlinedStyle.h"

#include <QApplication>
#include <QIcon>
#include <QScreen>

#include <memory>

int RunLaneWindow(int argc, char* argv[], const LaneArguments& arguments) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("ravlin-lane");
    QGuiApplication::setDesktopFileName("org.ravlin.lane");
    OutlineFusion();
    // Outlives the lane, whose thread reports to it.
    LaneEvents events;
    LaneRunner lane(arguments.options, [&events](const std::string& event) { emit events.Happened(event.c_str()); });
    QApplication::setWindowIcon(QIcon(":/icons/ravlin-48.png"));
    const std::unique_ptr<HelpViewer> help = CreateHelpViewer();
    const HelpKey helpKey(application, *help);
    frmLane window(lane, events, arguments.options);
    for (const std::string& command : arguments.commands) {
        window.Execute(QString::fromStdString(command));
    }
    // In a corner, since the administrator takes the middle of the screen.
    window.move(window.screen()->availableGeometry().topLeft());
    window.show();
    return QApplication::exec();
}
