// A busy lane on the Simple Test page: no label is lost or shown twice, and the window stays alive.
#include "platform/opos/OposSite.h"
#include "platform/opos/SimulatedScale.h"
#include "support_opos/ObservedControls.h"
#include "support_opos/SystemControls.h"
#include "support_widgets/Controls.h"
#include "views/DeviceCollection.h"
#include "views/SimpleTestView.h"

#include <QDeadlineTimer>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

class BusyLane : public ::testing::Test {
protected:
    BusyLane() {
        site_.SaveScanner("Lane", 1);
        site_.SaveScale("Lane", 1);
        devices_.Add(DeviceClass::Scanner, "Lane", std::make_shared<CScanner2>(site_.registry));
        devices_.Add(DeviceClass::Scale, "Lane", std::make_shared<CScale2>(site_.registry));
        for (DropDownList* list : page_.NameLists())
            list->AddItem("Lane");
        page_.SelectFirstNames();
        page_.show();
        observed_.observer = [this] { shown_ << Text("lblSimpleScanData"); };
    }
    QString Text(const char* label) { return Control<QLabel>(page_, label).text(); }
    void Press(const char* button) { Click(Control<QPushButton>(page_, button)); }
    void ExpectAllShownInOrder(int count) {
        ASSERT_EQ(shown_.size(), count);
        for (int i = 0; i < count; ++i)
            ASSERT_EQ(shown_.at(i), QStringLiteral("L%1").arg(i));
    }

    OposSite site_;
    SystemControls system_{site_.registry};
    ObservedControls observed_{system_};
    DeviceCollection devices_;
    SimpleTestView page_{TestServices{site_.registry, devices_, observed_}};
    PseudoTerminal line_{site_.ports, 1};
    QStringList shown_;
};

} // namespace

TEST_F(BusyLane, TenThousandLabelsAreShownOnceEachWhileTheWindowLives) {
    constexpr int AtLeast = 10000;
    Press("cmdSimpleScannerBegin");
    // The flood goes on until the window has had its turn in the midst of it; a window that is held up never has.
    std::atomic<bool> windowLives = false;
    std::atomic<bool> ended = false;
    std::atomic<int> sent = 0;
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, [&] { windowLives = windowLives || (!shown_.isEmpty() && !ended); });
    ticker.start(1);
    const QDeadlineTimer limit(10000);
    const std::jthread scanner([&] {
        for (int i = 0; (i < AtLeast || !windowLives) && !limit.hasExpired(); ++i, ++sent)
            line_.Send("]C0L" + std::to_string(i) + "\r");
        ended = true;
    });
    EXPECT_TRUE(WaitUntil([&] { return ended && shown_.size() >= sent; }));
    EXPECT_TRUE(windowLives);
    ExpectAllShownInOrder(sent);
}

TEST_F(BusyLane, ASingleCableServesScannerAndScaleAtTheSameTime) {
    const int count = qEnvironmentVariableIsSet("RAVLIN_LONG_TESTS") ? 6000 : 150; // a minute or a moment
    std::atomic<int> weighings = 0;
    const SimulatedScale scale(line_, [&weighings](char command) {
        return command == 'W' ? SimulatedScale::Frame(++weighings % 2 == 0 ? "01.000" : "02.000") : std::string();
    });
    Press("cmdSimpleScannerBegin");
    Press("cmdSimpleScaleBegin");
    int sent = 0;
    QTimer scanner;
    QObject::connect(&scanner, &QTimer::timeout, [&] {
        if (sent < count)
            line_.Send("]C0L" + std::to_string(sent++) + "\r");
    });
    scanner.start(10);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown_.size() >= count && weighings >= 3; }, 20000 + count * 20));
    ExpectAllShownInOrder(count);
    EXPECT_TRUE(Text("lblSimpleScaleWeight") == "1.000 kg" || Text("lblSimpleScaleWeight") == "2.000 kg");
}
