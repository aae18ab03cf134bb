// ravlin_screenshots light|dark DIRECTORY
#include "Photographer.h"
#include "WindowTour.h"

#include "app/RavlinApplication.h"

#include <QStyleFactory>

#include <cstdio>

namespace {

QPalette DarkPalette() {
    const QColor window(43, 43, 43);
    const QColor base(30, 30, 30);
    const QColor text(230, 230, 230);
    const QColor disabled(128, 128, 128);
    QPalette palette(window);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::Button, QColor(60, 60, 60));
    palette.setColor(QPalette::Highlight, QColor(61, 124, 201));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(110, 170, 240));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText,
                            QPalette::PlaceholderText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, disabled);
    }
    return palette;
}

} // namespace

int main(int argc, char** argv) {
    RavlinApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3 || (arguments[1] != "light" && arguments[1] != "dark")) {
        std::fputs("usage: ravlin_screenshots light|dark DIRECTORY\n", stderr);
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    if (arguments[1] == "dark")
        QApplication::setPalette(DarkPalette());
    try {
        const Photographer photographer{QDir(arguments[2])};
        WindowTour tour(photographer);
        tour.TakeNewProfile();
        tour.TakePages();
        tour.TakeProgramming();
        tour.TakeTests();
        tour.TakeDialogs();
        tour.TakeMenusAndHelp();
        tour.TakeWizard();
        tour.TakeLane();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "ravlin_screenshots: %s\n", error.what());
        return 1;
    }
    return 0;
}
