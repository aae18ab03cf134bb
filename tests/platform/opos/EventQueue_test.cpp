#include "platform/opos/EventQueue.h"

#include "opos/OposConstants.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

class EventQueueing : public ::testing::Test {
protected:
    EventQueueing() { queue_.Accept(true); }

    // "data STATUS" or "error LOCUS".
    std::string Next() {
        const auto event = queue_.Take();
        if (!event)
            return "nothing";
        if (const auto* data = std::get_if<DataEvent>(&*event))
            return "data " + std::to_string(data->status);
        return "error " + std::to_string(std::get<ErrorEvent>(*event).locus);
    }

    int woken_ = 0;
    EventQueue queue_{[this] { ++woken_; }};
};

} // namespace

TEST_F(EventQueueing, IsFirstInFirstOut) {
    queue_.Add({1, {}});
    queue_.Add({2, {}});
    EXPECT_EQ(queue_.DataCount(), 2);
    EXPECT_EQ(Next(), "data 1");
    EXPECT_EQ(queue_.DataCount(), 1);
    EXPECT_EQ(Next(), "data 2");
    EXPECT_EQ(Next(), "nothing");
}

TEST_F(EventQueueing, WakesOnceUntilItIsHeard) {
    queue_.Add({1, {}});
    queue_.Add({2, {}});
    EXPECT_EQ(woken_, 1);
    queue_.Awake();
    queue_.AddError(OposResult::Failure);
    EXPECT_EQ(woken_, 2);
}

TEST_F(EventQueueing, RefusesWhatItDoesNotAccept) {
    queue_.Add({1, {}});
    queue_.Accept(false);
    EXPECT_EQ(queue_.Add({2, {}}), EventQueue::Added::NotAccepting);
    EXPECT_EQ(queue_.AddError(OposResult::Failure), EventQueue::Added::NotAccepting);
    EXPECT_FALSE(queue_.InError());
    EXPECT_EQ(Next(), "data 1");
    EXPECT_EQ(Next(), "nothing");
}

TEST_F(EventQueueing, StopsAcceptingWithTheFirstDataUnderAutoDisable) {
    queue_.AutoDisable(true);
    EXPECT_EQ(queue_.Add({1, {}}), EventQueue::Added::Yes);
    EXPECT_FALSE(queue_.Accepting());
    EXPECT_EQ(queue_.Add({2, {}}), EventQueue::Added::NotAccepting);
}

TEST_F(EventQueueing, ShowsAnErrorWithoutDataOnce) {
    queue_.AddError(OposResult::Offline);
    EXPECT_TRUE(queue_.InError());
    EXPECT_EQ(Next(), "error 2");
    EXPECT_EQ(Next(), "nothing");
    queue_.LeaveError();
    EXPECT_FALSE(queue_.InError());
}

TEST_F(EventQueueing, ShowsAnErrorBeforeAndBehindTheDataQueued) {
    queue_.Add({1, {}});
    queue_.Add({2, {}});
    queue_.AddError(OposResult::Offline);
    queue_.Add({3, {}});
    std::vector<std::string> order;
    for (std::string next = Next(); next != "nothing"; next = Next())
        order.push_back(next);
    EXPECT_EQ(order, (std::vector<std::string>{"error 3", "data 1", "data 2", "error 2", "data 3"}));
}

TEST_F(EventQueueing, DropsOnlyTheDataBeforeTheErrorWhenThatIsCleared) {
    queue_.Add({1, {}});
    queue_.AddError(OposResult::Offline);
    queue_.Add({2, {}});
    EXPECT_EQ(Next(), "error 3");
    queue_.ClearFailedInput();
    EXPECT_FALSE(queue_.InError());
    EXPECT_EQ(Next(), "data 2");
    EXPECT_EQ(Next(), "nothing");
}

TEST_F(EventQueueing, HoldsOneErrorAtEachPlaceHoweverManyCome) {
    queue_.Add({1, {}});
    for (int count = 0; count < 1000; ++count)
        queue_.AddError(OposResult::Failure);
    EXPECT_EQ(Next(), "error 3");
    EXPECT_EQ(Next(), "data 1");
    EXPECT_EQ(Next(), "error 2");
    EXPECT_EQ(Next(), "nothing");
}

TEST_F(EventQueueing, RefusesDataBeyondItsNumber) {
    for (std::size_t count = 0; count < EventQueue::MostEvents; ++count)
        ASSERT_EQ(queue_.Add({0, {}}), EventQueue::Added::Yes);
    EXPECT_EQ(queue_.Add({0, {}}), EventQueue::Added::Full);
    EXPECT_EQ(Next(), "data 0");
    EXPECT_EQ(queue_.Add({0, {}}), EventQueue::Added::Yes);
}

TEST_F(EventQueueing, RefusesDataBeyondItsSize) {
    const std::string half(EventQueue::MostBytes / 2, 'x');
    EXPECT_EQ(queue_.Add({0, {half, "", 0}}), EventQueue::Added::Yes);
    EXPECT_EQ(queue_.Add({0, {"", half, 0}}), EventQueue::Added::Yes);
    EXPECT_EQ(queue_.Add({0, {"x", "", 0}}), EventQueue::Added::Full);
    queue_.Clear();
    EXPECT_EQ(queue_.Add({0, {half, "", 0}}), EventQueue::Added::Yes);
}

TEST_F(EventQueueing, KeepsTheOrderOfAnotherThread) {
    constexpr std::int32_t Count = 10000;
    std::thread adder([this] {
        for (std::int32_t status = 0; status < Count; ++status)
            queue_.Add({status, {}});
    });
    for (std::int32_t expected = 0; expected < Count;) {
        queue_.Awake();
        if (const auto event = queue_.Take()) {
            ASSERT_EQ(std::get<DataEvent>(*event).status, expected);
            ++expected;
        }
    }
    adder.join();
}
