// ravlin_screenshots light|dark DIRECTORY
#include "Photographer.h"

#include "app/RavlinApplication.h"
#include "widgets/OutlinedStyle.h"
#include "window_tour/Palettes.h"
#include "window_tour/WindowTour.h"

#include <cstdio>

int main(int argc, char** argv) {
    RavlinApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3 || (arguments[1] != "light" && arguments[1] != "dark")) {
        std::fputs("usage: ravlin_screenshots light|dark DIRECTORY\n", stderr);
        return 2;
    }
    QApplication::setStyle(new OutlinedStyle);
    if (arguments[1] == "dark")
        QApplication::setPalette(DarkPalette());
    try {
        Photographer photographer{QDir(arguments[2])};
        WindowTour(photographer).GoThrough();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "ravlin_screenshots: %s\n", error.what());
        return 1;
    }
    return 0;
}
