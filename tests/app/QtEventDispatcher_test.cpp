#include "app/QtEventDispatcher.h"

#include "support_widgets/BoxWatcher.h"
#include "support_widgets/Controls.h"

#include <QCoreApplication>
#include <QTimer>

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

using namespace std::chrono_literals;

TEST(QtEventDispatcher, RunsWhatWasPostedInOrderOnTheWindowsThreadAndNeverAtOnce) {
    QtEventDispatcher dispatcher;
    std::vector<int> order;
    std::vector<std::thread::id> threads;
    for (int i = 0; i < 3; ++i)
        dispatcher.Post([&, i] {
            order.push_back(i);
            threads.push_back(std::this_thread::get_id());
        });
    EXPECT_TRUE(order.empty());
    std::jthread([&] { dispatcher.Post([&] { order.push_back(3); }); }).join();
    EXPECT_TRUE(WaitUntil([&] { return order.size() == 4; }));
    EXPECT_EQ(order, (std::vector{0, 1, 2, 3}));
    EXPECT_EQ(threads, std::vector(3, std::this_thread::get_id()));
}

TEST(QtEventDispatcher, DropsWhatIsPendingAtItsEnd) {
    bool ran = false;
    {
        QtEventDispatcher dispatcher;
        dispatcher.Post([&] { ran = true; });
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(ran);
}

TEST(QtEventDispatcher, WaitReturnsOnceSomethingRan) {
    QtEventDispatcher dispatcher;
    bool ran = false;
    const std::jthread poster([&] { dispatcher.Post([&] { ran = true; }); });
    dispatcher.Wait(10min);
    EXPECT_TRUE(ran);
}

TEST(QtEventDispatcher, WaitEndsAtItsLimitWhileTimersRun) {
    QtEventDispatcher dispatcher;
    int ticks = 0;
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, [&] { ++ticks; });
    ticker.start(1);
    dispatcher.Wait(50ms);
    EXPECT_GT(ticks, 0);
    dispatcher.Wait(0ms);
}

TEST(QtEventDispatcher, AWaitWithinAFunctionSeesTheNextOne) {
    QtEventDispatcher dispatcher;
    bool next = false;
    bool seen = false;
    dispatcher.Post([&] {
        dispatcher.Wait(10min);
        seen = next;
    });
    dispatcher.Post([&] { next = true; });
    EXPECT_TRUE(WaitUntil([&] { return seen; }));
}

TEST(QtEventDispatcher, AFloodLeavesTimersTheirTurn) {
    QtEventDispatcher dispatcher;
    std::atomic<bool> go = true;
    int ticks = 0;
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, [&] { go = ++ticks < 5; });
    ticker.start(1);
    // Each function posts the next: without turns for others this would never end.
    std::function<void()> again = [&] {
        if (go)
            dispatcher.Post(again);
    };
    dispatcher.Post(again);
    EXPECT_TRUE(WaitUntil([&] { return !go; }));
}

TEST(QtEventDispatcher, AnErrorEndsInAMessageBoxAndTheNextFunctionRuns) {
    QtEventDispatcher dispatcher;
    bool next = false;
    const ExpectBox box("Ravlin", "broken");
    dispatcher.Post([] { throw std::runtime_error("broken"); });
    dispatcher.Post([&] { next = true; });
    EXPECT_TRUE(WaitUntil([&] { return next; }));
}
