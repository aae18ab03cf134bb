#include "platform/serial/SerialLine.h"

#include "support/PseudoTerminal.h"

#include <cerrno>
#include <fstream>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

SerialFault FaultOfOpening(int port, const SerialSettings& settings = {}) {
    asio::io_context context;
    SerialLine line(context);
    try {
        line.Open(port, settings);
    } catch (const SerialError& error) {
        EXPECT_EQ(error.Port(), port);
        EXPECT_NE(error.Description().find("COM" + std::to_string(port)), std::string::npos);
        return error.Fault();
    }
    ADD_FAILURE() << "COM" << port << " was opened";
    return SerialFault::Other;
}

// Runs work as the user nobody where the tests run as root, whom no permission stops; its result is the exit status.
template<typename Work>
int InChild(bool asNobody, Work work) {
    const pid_t child = ::fork();
    if (child == 0) {
        constexpr uid_t Nobody = 65534;
        if (asNobody && ::getuid() == 0 && (::setgid(Nobody) != 0 || ::setuid(Nobody) != 0)) {
            ::_exit(99);
        }
        ::_exit(work());
    }
    int status = -1;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Runs the loop until done() holds; false after 5 s.
template<typename Condition>
bool RunUntil(asio::io_context& context, Condition done) {
    const auto deadline = std::chrono::steady_clock::now() + 5s;
    while (!done() && std::chrono::steady_clock::now() < deadline) {
        context.restart();
        context.run_one_for(50ms);
    }
    return done();
}

termios SettingsOf(const PseudoTerminal& terminal) {
    const int descriptor = ::open(terminal.Device().c_str(), O_RDWR | O_NOCTTY);
    termios settings{};
    EXPECT_EQ(::tcgetattr(descriptor, &settings), 0);
    ::close(descriptor);
    return settings;
}

struct Collected {
    std::string bytes;
    std::vector<SerialFault> faults;

    void From(SerialLine& line) {
        line.Read([this](const std::string& more) { bytes += more; },
                  [this](const SerialError& error) { faults.push_back(error.Fault()); });
    }
};

TEST(SerialLine, CarriesBytesUnchangedBothWays) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    asio::io_context context;
    SerialLine line(context);
    line.Open(1);
    std::string all;
    for (int value = 0; value < 256; ++value) {
        all += static_cast<char>(value);
    }
    Collected received;
    received.From(line);
    device.Send(all);
    ASSERT_TRUE(RunUntil(context, [&] { return received.bytes.size() >= all.size(); }));
    EXPECT_EQ(received.bytes, all);
    bool written = false;
    line.Write(all, 1s, [&written] { written = true; });
    ASSERT_TRUE(RunUntil(context, [&] { return written; }));
    EXPECT_EQ(device.Receive(all.size()), all);
}

TEST(SerialLine, SendsMessagesInTheirOrder) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    asio::io_context context;
    SerialLine line(context);
    line.Open(1);
    int written = 0;
    line.Write("W", 1s, [&written] { ++written; });
    line.Write("Z", 1s, [&written] { ++written; });
    ASSERT_TRUE(RunUntil(context, [&] { return written == 2; }));
    EXPECT_EQ(device.Receive(2), "WZ");
}

TEST(SerialLine, AppliesRateAndStopBits) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    asio::io_context context;
    SerialLine line(context);
    line.Open(1, {.baudRate = 19200, .stopBits = 2});
    // Root may look at an exclusive device; others see what the line left behind.
    const termios settings = ::getuid() == 0 ? SettingsOf(device) : (line.Close(), SettingsOf(device));
    EXPECT_EQ(::cfgetospeed(&settings), static_cast<speed_t>(B19200));
    EXPECT_NE(settings.c_cflag & CSTOPB, 0U);
    EXPECT_EQ(settings.c_cflag & CRTSCTS, 0U);
    EXPECT_EQ(settings.c_lflag & (ICANON | ECHO | ISIG), 0U);
    EXPECT_EQ(settings.c_iflag & (IXON | IXOFF | ICRNL | ISTRIP), 0U);
}

TEST(SerialLine, OpensAPseudoTerminalAtScaleSettings) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    asio::io_context context;
    SerialLine line(context);
    EXPECT_NO_THROW(line.Open(1, {.dataBits = 7, .parity = SerialParity::Even}));
    EXPECT_TRUE(line.IsOpen());
}

TEST(SerialLine, OpensAPseudoTerminalAtScaleSettingsAgain) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    asio::io_context context;
    SerialLine line(context);
    for (int times = 0; times < 2; ++times) {
        line.Open(1, {.dataBits = 7, .parity = SerialParity::Even});
        EXPECT_TRUE(line.IsOpen());
    }
}

TEST(SerialLine, RefusesSettingsThatNoLineHas) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    EXPECT_EQ(FaultOfOpening(1, {.baudRate = 12345}), SerialFault::Other);
    EXPECT_EQ(FaultOfOpening(1, {.dataBits = 9}), SerialFault::Other);
    EXPECT_EQ(FaultOfOpening(1, {.stopBits = 3}), SerialFault::Other);
}

TEST(SerialLine, TellsOfAPortThatDoesNotExist) {
    const TemporaryPorts ports;
    EXPECT_EQ(FaultOfOpening(3), SerialFault::NoSuchPort);
    EXPECT_EQ(FaultOfOpening(0), SerialFault::NoSuchPort);
    EXPECT_EQ(FaultOfOpening(-1), SerialFault::NoSuchPort);
    const std::string text = SerialError::NoSuchPort(3).Description();
    EXPECT_NE(text.find("COM3 does not exist."), std::string::npos);
    EXPECT_NE(text.find(ports.Directory().string()), std::string::npos);
    EXPECT_NE(text.find("RAVLIN_PORTS"), std::string::npos);
}

TEST(SerialLine, TellsOfALinkThatLeadsNowhere) {
    const TemporaryPorts ports;
    ports.Link(1, ports.Directory() / "unplugged");
    EXPECT_EQ(FaultOfOpening(1), SerialFault::NoSuchPort);
}

TEST(SerialLine, RefusesWhatIsNotASerialDevice) {
    const TemporaryPorts ports;
    std::ofstream(ports.Entry(1)) << "a file";
    std::filesystem::create_directory(ports.Entry(2));
    ASSERT_EQ(::mkfifo(ports.Entry(3).c_str(), 0600), 0);
    ports.Link(4, "/dev/null");
    ports.Link(5, "COM5");
    for (const int port : {1, 2, 3, 4}) {
        EXPECT_EQ(FaultOfOpening(port), SerialFault::Other) << port;
    }
    EXPECT_EQ(FaultOfOpening(5), SerialFault::NoSuchPort);
}

TEST(SerialLine, IsNotSharedWithinTheProgram) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    asio::io_context context;
    SerialLine line(context);
    line.Open(1);
    EXPECT_EQ(FaultOfOpening(1), SerialFault::Busy);
    ports.Link(2, device.Device());
    EXPECT_EQ(FaultOfOpening(2), SerialFault::Busy) << "the same device by another port";
    line.Close();
    EXPECT_NO_THROW(line.Open(1));
}

TEST(SerialLine, IsNotSharedWithAnotherProgram) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    asio::io_context context;
    SerialLine line(context);
    line.Open(1);
    // A process of its own, with a device it opened itself: locks of the parent are not inherited that way.
    EXPECT_EQ(InChild(false, [] { return FaultOfOpening(1) == SerialFault::Busy ? 0 : 1; }), 0);
}

TEST(SerialLine, KeepsOtherUsersOutByTheExclusiveMode) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    std::filesystem::permissions(ports.Directory(), std::filesystem::perms::all);
    ASSERT_EQ(::chmod(device.Device().c_str(), 0666), 0);
    const auto openedByStranger = [&device] {
        return InChild(true, [&device] {
            return ::open(device.Device().c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK) >= 0 ? 0 : errno;
        });
    };
    asio::io_context context;
    SerialLine line(context);
    line.Open(1);
    EXPECT_EQ(openedByStranger(), EBUSY);
    line.Close();
    EXPECT_EQ(openedByStranger(), 0);
}

TEST(SerialLine, TellsOfAMissingPermission) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    std::filesystem::permissions(ports.Directory(), std::filesystem::perms::all);
    ASSERT_EQ(::chmod(device.Device().c_str(), 0), 0);
    EXPECT_EQ(InChild(true, [] { return FaultOfOpening(1) == SerialFault::NotPermitted ? 0 : 1; }), 0);
}

TEST(SerialLine, ReportsOnceThatItWasUnplugged) {
    const TemporaryPorts ports;
    PseudoTerminal device(ports, 1);
    asio::io_context context;
    SerialLine line(context);
    line.Open(1);
    Collected received;
    received.From(line);
    context.poll();
    device.Unplug();
    ASSERT_TRUE(RunUntil(context, [&] { return !received.faults.empty(); }));
    EXPECT_EQ(received.faults, std::vector{SerialFault::Lost});
    EXPECT_FALSE(line.IsOpen());
    context.restart();
    context.poll();
    EXPECT_EQ(received.faults.size(), 1U);
}

TEST(SerialLine, CannotBeOpenedWhileUnplugged) {
    const TemporaryPorts ports;
    PseudoTerminal device(ports, 1);
    device.Unplug();
    EXPECT_EQ(FaultOfOpening(1), SerialFault::NoSuchPort);
}

TEST(SerialLine, ReportsADeviceThatTakesNothing) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    asio::io_context context;
    SerialLine line(context);
    line.Open(1);
    Collected received;
    received.From(line);
    line.Write(std::string(1'000'000, 'x'), 50ms);
    ASSERT_TRUE(RunUntil(context, [&] { return !received.faults.empty(); }));
    EXPECT_EQ(received.faults, std::vector{SerialFault::TimedOut});
}

TEST(SerialLine, MayBeDestroyedByItsOwnHandlers) {
    const TemporaryPorts ports;
    PseudoTerminal device(ports, 1);
    asio::io_context context;
    auto line = std::make_unique<SerialLine>(context);
    line->Open(1);
    line->Read([&line](const std::string&) { line.reset(); }, [](const SerialError&) { FAIL() << "closed by itself"; });
    device.Send("x");
    ASSERT_TRUE(RunUntil(context, [&line] { return line == nullptr; }));
    device.Unplug();
    context.restart();
    context.poll();

    PseudoTerminal next(ports, 2);
    line = std::make_unique<SerialLine>(context);
    line->Open(2);
    line->Read([](const std::string&) {}, [&line](const SerialError&) { line.reset(); });
    next.Unplug();
    EXPECT_TRUE(RunUntil(context, [&line] { return line == nullptr; }));
}

TEST(SerialLine, GivesUpWhatCameBeforeWhenAsked) {
    const TemporaryPorts ports;
    const PseudoTerminal device(ports, 1);
    device.Send("stale");
    ASSERT_TRUE(device.WaitUntilReadable());
    asio::io_context context;
    SerialLine line(context);
    line.Open(1);
    line.DropUnreadInput();
    Collected received;
    received.From(line);
    device.Send("fresh");
    ASSERT_TRUE(RunUntil(context, [&] { return received.bytes.size() >= 5; }));
    EXPECT_EQ(received.bytes, "fresh");
}

TEST(SerialLine, IgnoresWhatIsAskedOfItWhileClosed) {
    asio::io_context context;
    SerialLine line(context);
    Collected received;
    received.From(line);
    line.Write("x", 1s);
    line.DropUnreadInput();
    line.Close();
    context.poll();
    EXPECT_FALSE(line.IsOpen());
    EXPECT_TRUE(received.faults.empty());
}

} // namespace
