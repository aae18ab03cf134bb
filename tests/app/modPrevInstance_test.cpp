#include "app/modPrevInstance.h"

#include "platform/instance/PreviousInstance.h"
#include "support/ScopedVariable.h"
#include "support/TemporaryDirectory.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace {

class SingleInstance : public testing::Test {
protected:
    ~SingleInstance() override { QCoreApplication::setApplicationName(title_); }

    TemporaryDirectory directory_;
    ScopedVariable runtime_{"XDG_RUNTIME_DIR", directory_.Path().string()};
    QString title_ = QCoreApplication::applicationName();
};

} // namespace

TEST_F(SingleInstance, KeepsItsTitleWhereItIsTheFirst) {
    PreviousInstance previous;
    EXPECT_FALSE(YieldToPreviousInstance(previous));
    EXPECT_EQ(QCoreApplication::applicationName(), title_);
}

TEST_F(SingleInstance, GoesOnAsAnUnwantedOneWhereTheFirstIsNotReached) {
    PreviousInstance first;
    ASSERT_FALSE(first.IsRunning());
    PreviousInstance second;
    EXPECT_FALSE(YieldToPreviousInstance(second));
    EXPECT_EQ(QCoreApplication::applicationName(), "unwanted instance");
}
