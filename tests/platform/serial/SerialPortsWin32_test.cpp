// The ports of Windows are the system's own.
#include "platform/serial/BlockingSerialLine.h"
#include "platform/serial/SerialPorts.h"

#include <gtest/gtest.h>

TEST(SerialPorts, AreOpenedByTheNameThatAlsoHoldsBeyondNine) {
    EXPECT_EQ(SerialPortDevice(1), "\\\\.\\COM1");
    EXPECT_EQ(SerialPortDevice(12), "\\\\.\\COM12");
}

TEST(SerialPorts, HaveNoDirectory) {
    EXPECT_TRUE(SerialPortDirectories().empty());
    EXPECT_EQ(UserSerialPortDirectory(), std::nullopt);
}

TEST(SerialPorts, ThatDoNotExistAreNamedWithTheWayOut) {
    BlockingSerialLine line;
    try {
        line.Open(199);
        FAIL() << "no error was raised";
    } catch (const SerialError& error) {
        EXPECT_EQ(error.Fault(), SerialFault::NoSuchPort);
        EXPECT_EQ(error.Port(), 199);
        EXPECT_NE(error.Description().find("device manager"), std::string::npos) << error.Description();
    }
}
