#include "SerlinkPortFixture.h"

#include <algorithm>
#include <thread>

using namespace std::chrono_literals;

namespace {

const std::string Reply = "\x02"
                          "00112233 40200\x03";
const std::string ReplyText = "00112233 40200";

} // namespace

TEST(SerlinkLimits, AreThoseOfTheProtocol) {
    const SerlinkLimits limits;
    EXPECT_EQ(limits.commandEntry, std::chrono::seconds(2));
    EXPECT_EQ(limits.powerUpEntry, std::chrono::seconds(15));
    EXPECT_EQ(limits.replyByte, std::chrono::seconds(5));
    EXPECT_EQ(limits.acknowledge, std::chrono::seconds(10));
}

TEST_F(SerlinkPortTest, KeepsItsProperties) {
    SerlinkPort link;
    EXPECT_EQ(link.EntryCommand(), "");
    EXPECT_EQ(link.EntryMode(), 0);
    EXPECT_EQ(link.CommandData(), "");
    EXPECT_EQ(link.PortNumber(), 0);
    SetUpBySset(link);
    EXPECT_EQ(link.EntryCommand(), "SSET");
    EXPECT_EQ(link.EntryMode(), 1542);
    EXPECT_EQ(link.CommandData(), "PM");
    EXPECT_EQ(link.PortNumber(), 1);
}

TEST_F(SerlinkPortTest, ProgramsAScannerThatIsWokenByACommand) {
    SerlinkPort link({}, {}, Patient);
    SetUpBySset(link);
    std::thread scanner([this] {
        EXPECT_EQ(device_.ReceiveUntil("\r"), "SSET\r");
        device_.Send("\x06\x06");
        EXPECT_EQ(device_.ReceiveUntil("\r"), "PM\r");
        device_.Send(Reply);
        EXPECT_EQ(device_.ReceiveUntil("\r"), "APM00FF\r");
        device_.Send("\x06");
    });
    link.SendCommand();
    EXPECT_TRUE(link.ReceiveReply());
    EXPECT_EQ(link.CommandData(), ReplyText);
    link.CommandData("APM00FF");
    link.SendCommand();
    EXPECT_TRUE(link.CommandSucceeded());
    EXPECT_EQ(link.Failure(), SerlinkFailure::None);
    EXPECT_EQ(link.FailureText(), "");
    scanner.join();
}

TEST_F(SerlinkPortTest, SendsNothingBeforeAScannerThatIsSwitchedOnByHandAnnouncesItself) {
    bool announced = false;
    SerlinkPort link(
        [&] {
            if (!std::exchange(announced, true)) {
                EXPECT_EQ(device_.Receive(1, 20ms), "");
                device_.Send("f");
            }
        },
        {}, Patient);
    SetUpByHand(link);
    link.SendCommand();
    EXPECT_TRUE(announced);
    EXPECT_EQ(device_.Receive(3), "PM\r");
}

TEST_F(SerlinkPortTest, AcceptsAnAnnouncementThatCameBeforeTheSession) {
    SerlinkPort link({}, {}, Patient);
    Enter(link);
}

TEST_F(SerlinkPortTest, AcceptsAnAnnouncementInPiecesAndBehindNoise) {
    int turn = 0;
    SerlinkPort link(
        [&] {
            ++turn;
            if (turn == 1) {
                EXPECT_EQ(device_.ReceiveUntil("\r"), "SSET\r");
                device_.Send("\xFF\x06noise\x06");
            } else if (turn == 3) {
                device_.Send("\x06");
            }
        },
        {}, Patient);
    SetUpBySset(link);
    link.SendCommand();
    EXPECT_EQ(link.Failure(), SerlinkFailure::None) << link.FailureText();
    EXPECT_EQ(device_.Receive(3), "PM\r");
}

TEST_F(SerlinkPortTest, AwaitsBothBytesOfAnAnnouncementHighByteFirst) {
    for (const char* announcement : {"A", "B", "BA", "AB"}) {
        SerlinkPort link({}, {}, Short);
        SetUpByHand(link);
        link.EntryMode(0x4142); // "AB"
        device_.Send(announcement);
        link.SendCommand();
        const bool expected = announcement == std::string("AB");
        EXPECT_EQ(link.Failure() == SerlinkFailure::None, expected) << announcement;
    }
    EXPECT_EQ(device_.Receive(3), "PM\r");
}

TEST_F(SerlinkPortTest, DoesNotTakeAnAnnouncementOutOfALabel) {
    SerlinkPort link({}, {}, Short);
    SetUpByHand(link);
    device_.Send("shelf 12\r");
    ASSERT_TRUE(device_.WaitUntilReadable());
    link.SendCommand();
    EXPECT_EQ(link.Failure(), SerlinkFailure::NoAnnouncement);
}

TEST_F(SerlinkPortTest, ReceivesAConfigurationThatFollowsTheAnnouncementAtOnce) {
    SerlinkPort link({}, {}, Patient);
    SetUpBySset(link);
    link.CommandData("");
    std::thread scanner([this] {
        EXPECT_EQ(device_.ReceiveUntil("\r"), "SSET\r");
        device_.Send("\x06\x06" + Reply);
    });
    link.SendCommand();
    EXPECT_TRUE(link.ReceiveReply());
    EXPECT_EQ(link.CommandData(), ReplyText);
    scanner.join();
    EXPECT_EQ(device_.Receive(1, 20ms), "") << "an empty command is not sent";
}

TEST_F(SerlinkPortTest, WithNothingToEnterByCommandsAtOnce) {
    SerlinkPort link({}, {}, Short);
    link.CommandData("PM");
    link.PortNumber(1);
    link.SendCommand();
    EXPECT_EQ(device_.Receive(3), "PM\r");
    device_.Send(Reply);
    EXPECT_TRUE(link.ReceiveReply());
}

TEST_F(SerlinkPortTest, WithAnEntryCommandButNoModeAwaitsNoAnnouncement) {
    SerlinkPort link({}, {}, Short);
    link.EntryCommand("SSET");
    link.CommandData("PM");
    link.PortNumber(1);
    link.SendCommand();
    EXPECT_EQ(device_.Receive(8), "SSET\rPM\r");
}

TEST_F(SerlinkPortTest, DropsWhatCameBeforeTheEntryCommand) {
    SerlinkPort link({}, {}, Short);
    SetUpBySset(link);
    device_.Send("\x06\x06");
    ASSERT_TRUE(device_.WaitUntilReadable());
    link.SendCommand();
    EXPECT_EQ(link.Failure(), SerlinkFailure::NoAnnouncement);
}

TEST_F(SerlinkPortTest, WithoutACommandHasNoReply) {
    SerlinkPort link;
    link.PortNumber(1);
    EXPECT_FALSE(link.ReceiveReply());
    EXPECT_FALSE(link.CommandSucceeded());
    EXPECT_NE(link.FailureText(), "");
}

TEST_F(SerlinkPortTest, EntersOnceInASession) {
    SerlinkPort link({}, {}, Patient);
    Enter(link);
    link.EntryCommand("SSET");
    link.SendCommand();
    EXPECT_EQ(device_.Receive(3), "PM\r");
}

TEST_F(SerlinkPortTest, ALaterCommandDropsWhatIsUnread) {
    SerlinkPort link({}, {}, Short);
    Enter(link);
    device_.Send("\x06");
    ASSERT_TRUE(device_.WaitUntilReadable());
    link.SendCommand();
    EXPECT_FALSE(link.CommandSucceeded());
    EXPECT_EQ(link.Failure(), SerlinkFailure::NotAcknowledged);
}

TEST_F(SerlinkPortTest, ALaterCommandDropsWhatCameWithTheReply) {
    SerlinkPort link({}, {}, Short);
    Enter(link);
    device_.Send("\x02"
                 "00123456\x03\x06");
    ASSERT_TRUE(link.ReceiveReply());
    link.SendCommand();
    EXPECT_FALSE(link.CommandSucceeded());
    EXPECT_EQ(link.Failure(), SerlinkFailure::NotAcknowledged);
}

TEST_F(SerlinkPortTest, ALaterCommandIsSentEvenWhenItIsEmpty) {
    SerlinkPort link({}, {}, Patient);
    Enter(link);
    link.CommandData("");
    link.SendCommand();
    EXPECT_EQ(device_.Receive(1), "\r");
}

TEST_F(SerlinkPortTest, AnAcknowledgementCountsBehindOtherBytes) {
    SerlinkPort link({}, {}, Patient);
    Enter(link);
    device_.Send("ok\x06");
    EXPECT_TRUE(link.CommandSucceeded());
}

TEST_F(SerlinkPortTest, OpensThePortWithTheFirstCommandAndClosesItAtTheEnd) {
    BlockingSerialLine other;
    {
        SerlinkPort link({}, {}, Patient);
        SetUpByHand(link);
        other.Open(1);
        other.Close();
        Enter(link);
        EXPECT_THROW(other.Open(1), SerialError);
    }
    EXPECT_NO_THROW(other.Open(1));
}

TEST_F(SerlinkPortTest, AnotherPortIsAnotherSession) {
    const PseudoTerminal next(ports_, 2);
    SerlinkPort link({}, {}, Patient);
    Enter(link);
    link.PortNumber(2);
    next.Send("f");
    link.SendCommand();
    EXPECT_EQ(next.Receive(3), "PM\r");
}

TEST_F(SerlinkPortTest, ReportsWhatItIsDoing) {
    std::vector<SerlinkProgress> seen;
    SerlinkPort link(
        {}, [&seen](const SerlinkProgress& progress) { seen.push_back(progress); }, Patient);
    Enter(link);
    device_.Send(Reply);
    ASSERT_TRUE(link.ReceiveReply());
    link.CommandData(std::string(1000, '0'));
    link.SendCommand();
    device_.Send("\x06");
    ASSERT_TRUE(link.CommandSucceeded());

    std::vector<SerlinkStep> steps;
    for (const SerlinkProgress& progress : seen) {
        if (steps.empty() || steps.back() != progress.step) {
            steps.push_back(progress.step);
        }
        EXPECT_TRUE(progress.expected == 0 || progress.done <= progress.expected);
    }
    EXPECT_EQ(steps, (std::vector{SerlinkStep::Opening, SerlinkStep::AwaitingPowerUp, SerlinkStep::Sending,
                                  SerlinkStep::Receiving, SerlinkStep::Sending, SerlinkStep::AwaitingAcknowledgement}));
    EXPECT_EQ(seen.back().done, 1U);
    const auto sent = std::find_if(seen.begin(), seen.end(), [](const auto& p) { return p.done == 1001; });
    EXPECT_NE(sent, seen.end());
}
