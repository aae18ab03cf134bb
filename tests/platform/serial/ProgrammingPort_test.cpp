// A programming session through a serial port of the system. It needs a simulated scanner of class 3 at COM1, which
// script/windows-test puts there.
#include "platform/serial/SerialPorts.h"
#include "platform/serial/SerlinkPort.h"
#include "programming/ProgrammedDevice.h"
#include "programming/ProgrammingSession.h"

#include <algorithm>
#include <thread>

#include <gtest/gtest.h>

namespace {

ProgrammingOutcome Program(std::int16_t port) {
    SerlinkPort line;
    ProgrammingSession session(line, {.showRecyclePower = [] {},
                                      .processPendingEvents = [] {},
                                      .wait = [](std::chrono::milliseconds time) { std::this_thread::sleep_for(time); },
                                      .stepBegins = [](ProgrammingStep) {}});
    return session.ProgramDevice(ProgrammedScanner(3, port));
}

} // namespace

TEST(ProgrammingPort, IsListed) {
    const auto ports = SerialPortNumbers();
    EXPECT_NE(std::ranges::find(ports, 1), ports.end());
}

TEST(ProgrammingPort, ReadsPatchesAndWritesTheScannersConfiguration) {
    const ProgrammingOutcome outcome = Program(1);
    EXPECT_TRUE(outcome.succeeded) << outcome.reason;
}

TEST(ProgrammingPort, IsFreeAgainAfterASession) {
    EXPECT_TRUE(Program(1).succeeded);
    EXPECT_TRUE(Program(1).succeeded);
}

TEST(ProgrammingPort, ThatDoesNotExistIsNamed) {
    const ProgrammingOutcome outcome = Program(77);
    EXPECT_FALSE(outcome.succeeded);
    EXPECT_NE(outcome.reason.find("COM77 does not exist"), std::string::npos) << outcome.reason;
}
