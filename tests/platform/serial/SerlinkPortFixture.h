// A Serlink over a pseudo terminal, and the sessions that it has with a scanner.
#pragma once

#include "platform/serial/SerlinkPort.h"

#include "support/PseudoTerminal.h"

#include <gtest/gtest.h>

#include <chrono>

class SerlinkPortTest : public testing::Test {
protected:
    static constexpr std::chrono::milliseconds Long{5000};
    static constexpr std::chrono::milliseconds Brief{50};
    // Long where the device answers, short where it is silent.
    static constexpr SerlinkLimits Patient{
        .commandEntry = Long, .powerUpEntry = Long, .replyByte = Long, .acknowledge = Long};
    static constexpr SerlinkLimits Short{.commandEntry = Brief,
                                         .powerUpEntry = Brief,
                                         .replyByte = Brief,
                                         .reply = 10 * Brief,
                                         .acknowledge = Brief,
                                         .write = Long};

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
