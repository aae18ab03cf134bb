// Scanners that are silent, refuse, talk nonsense or are unplugged.
#include "SerlinkPortFixture.h"

#include <thread>

using namespace std::chrono_literals;

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

TEST_F(SerlinkPortTest, EntersAgainAfterAMissedAnnouncement) {
    SerlinkPort link({}, {}, Short);
    SetUpBySset(link);
    link.SendCommand();
    EXPECT_EQ(device_.Receive(5), "SSET\r");
    link.SendCommand();
    EXPECT_EQ(device_.Receive(5), "SSET\r");
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
