// Runs the checks of all windows in the style and at the size of text that the environment asks for. Message boxes
// stay for the way through the windows to answer.
#include "app/RavlinApplication.h"
#include "widgets/OutlinedStyle.h"
#include "window_tour/Palettes.h"

#include <QFont>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (::testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    // A screen that is large enough for enlarged windows; the usual one offscreen has 800 by 800.
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" RAVLIN_SCREEN);
    RavlinApplication application(argc, argv);
    QApplication::setStyle(new OutlinedStyle);
    QApplication::setPalette(LightPalette());
    return RUN_ALL_TESTS();
}
