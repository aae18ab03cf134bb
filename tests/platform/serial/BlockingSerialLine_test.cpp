#include "platform/serial/BlockingSerialLine.h"

#include "support/PseudoTerminal.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;

template<typename Work>
SerialFault FaultOf(Work work) {
    try {
        work();
    } catch (const SerialError& error) {
        return error.Fault();
    }
    ADD_FAILURE() << "no error";
    return SerialFault::Other;
}

TEST(BlockingSerialLine, ReadsWhatHasCome) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    BlockingSerialLine line;
    line.Open(1);
    device.Send("label");
    std::string received;
    while (received.size() < 5) {
        const std::string more = line.Read(5s);
        ASSERT_FALSE(more.empty());
        received += more;
    }
    EXPECT_EQ(received, "label");
}

TEST(BlockingSerialLine, ReadsNothingWhenTheLimitHasPassed) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    BlockingSerialLine line;
    line.Open(1);
    EXPECT_EQ(line.Read(30ms), "");
    EXPECT_EQ(line.Read(0ms), "");
}

TEST(BlockingSerialLine, SendsAtOnce) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    BlockingSerialLine line;
    line.Open(1);
    line.Write("SSET\r", 1s);
    EXPECT_EQ(device.Receive(5), "SSET\r");
}

TEST(BlockingSerialLine, CallsTheIdleFunctionWhileItWaits) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    int calls = 0;
    BlockingSerialLine line([&calls] { ++calls; });
    line.Open(1);
    EXPECT_EQ(line.Read(200ms), "");
    EXPECT_GE(calls, 5) << "the window would not be repainted";
}

TEST(BlockingSerialLine, StaysUsableAfterAnErrorOfTheIdleFunction) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    bool raise = true;
    BlockingSerialLine line([&raise] {
        if (std::exchange(raise, false)) {
            throw std::runtime_error("cancelled");
        }
    });
    line.Open(1);
    EXPECT_THROW(static_cast<void>(line.Read(5s)), std::runtime_error);
    device.Send("x");
    EXPECT_EQ(line.Read(5s), "x");
}

TEST(BlockingSerialLine, RaisesAtOnceWhenItIsUnpluggedDuringAWait) {
    const TemporaryPorts ports;
    PseudoTerminal device(ports, 1);
    BlockingSerialLine line([&device] { device.Unplug(); });
    line.Open(1);
    const auto start = Clock::now();
    EXPECT_EQ(FaultOf([&line] { static_cast<void>(line.Read(50s)); }), SerialFault::Lost);
    EXPECT_LT(Clock::now() - start, 25s) << "the limit was waited for";
    EXPECT_FALSE(line.IsOpen());
    EXPECT_EQ(FaultOf([&line] { line.Write("x", 1s); }), SerialFault::Lost);
    EXPECT_EQ(FaultOf([&line] { line.DropUnreadInput(); }), SerialFault::Lost);
}

TEST(BlockingSerialLine, RaisesWhenItIsUnpluggedBeforeItSends) {
    const TemporaryPorts ports;
    PseudoTerminal device(ports, 1);
    BlockingSerialLine line;
    line.Open(1);
    device.Unplug();
    EXPECT_EQ(FaultOf([&line] { line.Write("x", 5s); }), SerialFault::Lost);
}

TEST(BlockingSerialLine, HandsOverWhatCameBeforeItWasUnplugged) {
    const TemporaryPorts ports;
    PseudoTerminal device(ports, 1);
    BlockingSerialLine line;
    line.Open(1);
    device.Send("last");
    EXPECT_EQ(line.Read(5s), "last");
    device.Unplug();
    EXPECT_EQ(FaultOf([&line] { static_cast<void>(line.Read(5s)); }), SerialFault::Lost);
}

TEST(BlockingSerialLine, RaisesWhenTheDeviceTakesNothing) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    BlockingSerialLine line;
    line.Open(1);
    EXPECT_EQ(FaultOf([&line] { line.Write(std::string(1'000'000, 'x'), 50ms); }), SerialFault::TimedOut);
    EXPECT_FALSE(line.IsOpen());
}

TEST(BlockingSerialLine, DropsWhatHasCome) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    BlockingSerialLine line;
    line.Open(1);
    device.Send("stale");
    ASSERT_TRUE(device.WaitUntilReadable());
    line.DropUnreadInput();
    device.Send("fresh");
    EXPECT_EQ(line.Read(5s), "fresh");
}

TEST(BlockingSerialLine, CanBeOpenedAgainAfterALoss) {
    const TemporaryPorts ports;
    PseudoTerminal first(ports, 1);
    BlockingSerialLine line;
    line.Open(1);
    first.Unplug();
    EXPECT_EQ(FaultOf([&line] { static_cast<void>(line.Read(5s)); }), SerialFault::Lost);
    std::filesystem::remove(ports.Entry(1));
    const PseudoTerminal second(ports, 1);
    line.Open(1);
    second.Send("x");
    EXPECT_EQ(line.Read(5s), "x");
}

} // namespace
