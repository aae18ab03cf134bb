// Runs the tests of a program with windows, in the application that the program runs in.
#include "app/RavlinApplication.h"
#include "support_widgets/BoxWatcher.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (::testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    RavlinApplication application(argc, argv);
    const BoxWatcher watcher(&application);
    return RUN_ALL_TESTS();
}
