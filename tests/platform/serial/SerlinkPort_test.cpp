#include "platform/serial/SerlinkPort.h"

#include "support/PseudoTerminal.h"

#include <thread>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

// Long where the device answers, short where it is silent.
constexpr SerlinkLimits Patient{.commandEntry = 5s, .powerUpEntry = 5s, .replyByte = 5s, .acknowledge = 5s};
constexpr SerlinkLimits Short{
    .commandEntry = 50ms, .powerUpEntry = 50ms, .replyByte = 50ms, .reply = 500ms, .acknowledge = 50ms, .write = 1s};

const std::string Reply = "\x02"
                          "00112233 40200\x03";
const std::string ReplyText = "00112233 40200";

class SerlinkPortTest : public testing::Test {
protected:
    TemporaryPorts ports_;
    PseudoTerminal device_{ports_, 1};

    // The session that wakes the scanner by a command.
    static void SetUpBySset(SerlinkPort& link) {
        link.EntryCommand("SSET");
        link.EntryMode(1542);
        link.CommandData("PM");
        link.PortNumber(1);
    }
    // The session with a scanner that is switched on by hand.
    static void SetUpByHand(SerlinkPort& link) {
        link.EntryMode(102);
        link.CommandData("PM");
        link.PortNumber(1);
    }
    // Brings the link to the state behind its first SendCommand.
    void Enter(SerlinkPort& link) {
        SetUpByHand(link);
        device_.Send("f");
        link.SendCommand();
        EXPECT_EQ(device_.Receive(3), "PM\r");
        EXPECT_EQ(link.Failure(), SerlinkFailure::None) << link.FailureText();
    }
};

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

TEST_F(SerlinkPortTest, WithoutAnAnnouncementSendsNothingMore) {
    for (const bool byHand : {false, true}) {
        SerlinkPort link({}, {}, Short);
        byHand ? SetUpByHand(link) : SetUpBySset(link);
        link.SendCommand();
        EXPECT_EQ(link.Failure(), SerlinkFailure::NoAnnouncement);
        EXPECT_NE(link.FailureText().find("COM1"), std::string::npos);
        EXPECT_FALSE(link.ReceiveReply());
        EXPECT_FALSE(link.CommandSucceeded());
        EXPECT_EQ(link.Failure(), SerlinkFailure::NoAnnouncement);
        EXPECT_EQ(device_.Receive(20, 30ms), byHand ? "" : "SSET\r");
    }
}

TEST_F(SerlinkPortTest, WithoutACommandHasNoReply) {
    SerlinkPort link;
    link.PortNumber(1);
    EXPECT_FALSE(link.ReceiveReply());
    EXPECT_FALSE(link.CommandSucceeded());
    EXPECT_NE(link.FailureText(), "");
}

TEST_F(SerlinkPortTest, EntersAgainAfterAMissedAnnouncement) {
    SerlinkPort link({}, {}, Short);
    SetUpBySset(link);
    link.SendCommand();
    EXPECT_EQ(device_.Receive(5), "SSET\r");
    link.SendCommand();
    EXPECT_EQ(device_.Receive(5), "SSET\r");
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

TEST_F(SerlinkPortTest, ALaterCommandIsSentEvenWhenItIsEmpty) {
    SerlinkPort link({}, {}, Patient);
    Enter(link);
    link.CommandData("");
    link.SendCommand();
    EXPECT_EQ(device_.Receive(1), "\r");
}

TEST_F(SerlinkPortTest, IsRefusedByNak) {
    SerlinkPort link({}, {}, Patient);
    Enter(link);
    device_.Send("\x15");
    EXPECT_FALSE(link.ReceiveReply());
    EXPECT_EQ(link.Failure(), SerlinkFailure::Refused);
    EXPECT_EQ(link.CommandData(), "PM");
    link.SendCommand();
    EXPECT_EQ(device_.Receive(3), "PM\r");
    device_.Send("\x15");
    EXPECT_FALSE(link.CommandSucceeded());
    EXPECT_EQ(link.Failure(), SerlinkFailure::Refused);
    EXPECT_NE(link.FailureText(), "");
}

TEST_F(SerlinkPortTest, ASilentScannerHasNoReply) {
    SerlinkPort link({}, {}, Short);
    Enter(link);
    EXPECT_FALSE(link.ReceiveReply());
    EXPECT_EQ(link.Failure(), SerlinkFailure::NoReply);
    device_.Send("\x02"
                 "0011");
    EXPECT_FALSE(link.ReceiveReply());
    EXPECT_EQ(link.Failure(), SerlinkFailure::NoReply);
}

TEST_F(SerlinkPortTest, ATextOfAnotherFormIsNoReply) {
    SerlinkPort link({}, {}, Patient);
    Enter(link);
    device_.Send("\x02"
                 "not hexadecimal at all\x03");
    EXPECT_FALSE(link.ReceiveReply());
    EXPECT_EQ(link.Failure(), SerlinkFailure::MalformedReply);
    EXPECT_EQ(link.CommandData(), "PM");
}

TEST_F(SerlinkPortTest, AFloodEndsAtTheSizeLimit) {
    SerlinkLimits limits = Patient;
    limits.replySize = 2000;
    SerlinkPort link({}, {}, limits);
    Enter(link);
    std::thread scanner([this] { device_.Send('\x02' + std::string(2500, '0')); });
    EXPECT_FALSE(link.ReceiveReply());
    EXPECT_EQ(link.Failure(), SerlinkFailure::MalformedReply);
    scanner.join();
}

TEST_F(SerlinkPortTest, ABabblingDeviceEndsAtTheTimeLimit) {
    SerlinkLimits limits = Patient;
    limits.reply = 100ms;
    SerlinkPort link([this] { device_.Send("x"); }, {}, limits);
    SetUpByHand(link);
    link.EntryMode(0);
    link.SendCommand();
    EXPECT_FALSE(link.ReceiveReply());
    EXPECT_EQ(link.Failure(), SerlinkFailure::NoReply);
}

TEST_F(SerlinkPortTest, AnAcknowledgementCountsBehindOtherBytes) {
    SerlinkPort link({}, {}, Patient);
    Enter(link);
    device_.Send("ok\x06");
    EXPECT_TRUE(link.CommandSucceeded());
}

TEST_F(SerlinkPortTest, ATextThatOutlivesTheAcknowledgementWaitIsNone) {
    SerlinkLimits limits = Patient;
    limits.acknowledge = 60ms;
    SerlinkPort link([this] { device_.Send("x"); }, {}, limits);
    SetUpByHand(link);
    link.EntryMode(0);
    link.SendCommand();
    EXPECT_FALSE(link.CommandSucceeded());
    EXPECT_EQ(link.Failure(), SerlinkFailure::NotAcknowledged);
}

TEST_F(SerlinkPortTest, TellsWhyThePortCannotBeUsed) {
    SerlinkPort link({}, {}, Short);
    SetUpByHand(link);
    link.PortNumber(9);
    EXPECT_THROW(link.SendCommand(), NumberedError);
    EXPECT_EQ(link.Failure(), SerlinkFailure::PortMissing);
    EXPECT_NE(link.FailureText().find("COM9 does not exist."), std::string::npos);
    EXPECT_FALSE(link.ReceiveReply());
    EXPECT_EQ(link.Failure(), SerlinkFailure::PortMissing);

    BlockingSerialLine other;
    other.Open(1);
    link.PortNumber(1);
    EXPECT_THROW(link.SendCommand(), NumberedError);
    EXPECT_EQ(link.Failure(), SerlinkFailure::PortBusy);
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

TEST_F(SerlinkPortTest, ALostScannerEndsEveryWaitAtOnce) {
    SerlinkPort entering([this] { device_.Unplug(); });
    SetUpByHand(entering);
    EXPECT_THROW(entering.SendCommand(), SerialError);
    EXPECT_EQ(entering.Failure(), SerlinkFailure::Unplugged);

    for (const bool reply : {true, false}) {
        const int port = reply ? 2 : 3;
        PseudoTerminal scanner(ports_, port);
        bool unplug = false;
        SerlinkPort link([&] {
            if (unplug) {
                scanner.Unplug();
            }
        });
        SetUpByHand(link);
        link.PortNumber(static_cast<std::int16_t>(port));
        scanner.Send("f");
        link.SendCommand();
        unplug = true;
        EXPECT_FALSE(reply ? link.ReceiveReply() : link.CommandSucceeded());
        EXPECT_EQ(link.Failure(), SerlinkFailure::Unplugged);
        EXPECT_NE(link.FailureText().find("was lost"), std::string::npos);
    }
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

} // namespace
