// Runs the tests of a program with windows, in the application that the program runs in.
#include "app/RavlinApplication.h"
#include "support_widgets/BoxWatcher.h"

#include <gtest/gtest.h>

// An error that nobody caught unwinds the stack through Qt's delivery of the mouse click that raised it, which then
// keeps what it had allocated for that event: some 300 bytes for each error that ends in a message box.
extern "C" const char* __lsan_default_suppressions() { // NOLINT: the name is the sanitizer's
    return "leak:QEventPoint::QEventPoint\n"
           "leak:QtSharedPointer::ExternalRefCountData::getAndRef\n"
           "leak:QArrayData::allocate\n";
}

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (::testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", RAVLIN_TEST_PLATFORM);
    RavlinApplication application(argc, argv);
    const BoxWatcher watcher(&application);
    return RUN_ALL_TESTS();
}
