#include "lane/HeadlessLane.h"
#include "lane/LaneArguments.h"
#include "lane/LaneCommands.h"
#include "lane/LaneError.h"
#include "lane/LaneRunner.h"

#include "platform/serial/BlockingSerialLine.h"
#include "platform/serial/SerialPorts.h"
#include "support/PseudoTerminal.h"

#include <algorithm>
#include <mutex>
#include <sstream>
#include <thread>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <gtest/gtest.h>

using namespace std::chrono_literals;
namespace fs = std::filesystem;

namespace {

// Events come from the lane's thread.
class Events {
public:
    void Add(const std::string& event) {
        const std::lock_guard guard(mutex_);
        all_ += event + "\n";
    }
    [[nodiscard]] std::string All() const {
        const std::lock_guard guard(mutex_);
        return all_;
    }

private:
    mutable std::mutex mutex_;
    std::string all_;
};

class LaneTest : public testing::Test {
protected:
    TemporaryPorts ports_;
    Events events_;
    LaneRunner lane_{{.directory = ports_.Directory()}, [this](const std::string& event) { events_.Add(event); }};

    void Do(const std::string& command) { EXPECT_EQ(lane_.Execute(command), "ok") << command; }
    void Refuses(const std::string& command, const std::string& reason) {
        const std::string answer = lane_.Execute(command);
        EXPECT_TRUE(answer.starts_with("error ")) << command << " -> " << answer;
        EXPECT_NE(answer.find(reason), std::string::npos) << command << " -> " << answer;
        EXPECT_EQ(answer.find_first_of("\r\n"), std::string::npos);
    }
};

std::string ReadCount(BlockingSerialLine& line, std::size_t count) {
    std::string received;
    while (received.size() < count) {
        const std::string more = line.Read(5s);
        if (more.empty()) {
            break;
        }
        received += more;
    }
    return received;
}

TEST_F(LaneTest, OffersItsPortsToPrograms) {
    Do("scanner 1 33");
    Do("scale COM12");
    EXPECT_EQ(SerialPortNumbers(), (std::vector{1, 12}));
    BlockingSerialLine line;
    line.Open(1);
    Do("scan 1 ]E05018374827715");
    EXPECT_EQ(ReadCount(line, 17), "]E05018374827715\r");
    line.Open(12, {.dataBits = 7, .parity = SerialParity::Even});
    Do("weight 12 1.235 kg");
    line.Write("W", 1s);
    EXPECT_EQ(ReadCount(line, 8), "\x02"
                                  "01.235\r");
}

TEST_F(LaneTest, LinesCarryEveryByteAsItIsBeforeAnyProgramSetsThemUp) {
    Do("scanner 1 3");
    const int descriptor = ::open(ports_.Entry(1).c_str(), O_RDWR | O_NOCTTY);
    termios line{};
    ASSERT_EQ(::tcgetattr(descriptor, &line), 0);
    ::close(descriptor);
    EXPECT_EQ(line.c_lflag & (ECHO | ECHONL | ICANON | ISIG | IEXTEN), 0U);
    EXPECT_EQ(line.c_iflag & (ICRNL | INLCR | IGNCR | ISTRIP | IXON), 0U);
    EXPECT_EQ(line.c_oflag & OPOST, 0U);
    EXPECT_EQ(line.c_cflag & CSIZE, static_cast<tcflag_t>(CS8));
    EXPECT_EQ(::cfgetospeed(&line), static_cast<speed_t>(B9600));
}

TEST_F(LaneTest, SharesOneLineBetweenScannerAndScale) {
    Do("scanner 1 33");
    Do("scale 1");
    Do("weight 1 2.50 lb");
    BlockingSerialLine line;
    line.Open(1);
    line.Write("W", 1s);
    EXPECT_EQ(ReadCount(line, 8), "\x02"
                                  "002.50\r");
    Do("scan 1 123");
    EXPECT_EQ(ReadCount(line, 4), "123\r");
    line.Write("SSET\r", 1s);
    EXPECT_EQ(ReadCount(line, 2), "\x06\x06");
}

TEST_F(LaneTest, ScannersWithAScaleBuiltInWeighOnTheirOwnLine) {
    for (const char* programmingClass : {"16", "17", "31", "32", "47"}) {
        Do(std::string("scanner 1 ") + programmingClass);
        BlockingSerialLine line;
        line.Open(1);
        Do("weight 1 1.235 kg");
        line.Write("W", 1s);
        EXPECT_EQ(ReadCount(line, 8), "\x02"
                                      "01.235\r");
    }
}

TEST_F(LaneTest, BuiltInScaleGoesWithItsScannerAndOneOfItsOwnStays) {
    Do("scanner 1 17");
    Do("scanner 1 3");
    Refuses("weight 1 1 kg", "no scale at COM1");
    Do("scale 1");
    Do("weight 1 1 kg");
    Do("scanner 1 17");
    Do("scanner 1 3");
    EXPECT_EQ(lane_.State().at(0).weight, "1.000 kg");
}

TEST_F(LaneTest, SendsLabelsAsTheyAreGiven) {
    Do("scanner 1 16");
    BlockingSerialLine line;
    line.Open(1);
    Do("scan 1  two  blanks ");
    EXPECT_EQ(ReadCount(line, 13), " two  blanks \r");
    Refuses("scan 1", "no label");
    Refuses("scan 1 ", "no label");
}

TEST_F(LaneTest, PrintsTheStoredBlock) {
    Do("scanner 1 1");
    const std::string answer = lane_.Execute("block 1");
    ASSERT_EQ(answer.size(), 3U + 64U);
    EXPECT_EQ(answer.substr(0, 3), "ok ");
    EXPECT_EQ(answer.find_first_not_of("0123456789ABCDEF", 3), std::string::npos);
}

TEST_F(LaneTest, TakesAPortAwayAtOnce) {
    Do("scanner 1 16");
    BlockingSerialLine line;
    line.Open(1);
    Do("unplug 1");
    EXPECT_THROW(static_cast<void>(line.Read(50s)), SerialError);
    EXPECT_EQ(SerialPortDevice(1), std::nullopt);
    Refuses("scan 1 x", "COM1 is unplugged");
    Refuses("unplug 1", "COM1 is unplugged");
    Refuses("power 1", "COM1 is unplugged");
}

TEST_F(LaneTest, PlugsTheSameDevicesInAgain) {
    Do("scanner 1 3 123456");
    Do("scale 1");
    Do("unplug 1");
    Do("plug 1");
    const auto state = lane_.State();
    ASSERT_EQ(state.size(), 1U);
    EXPECT_TRUE(state[0].pluggedIn);
    EXPECT_EQ(state[0].firmware, "123456");
    EXPECT_TRUE(state[0].hasScale);
    Refuses("plug 1", "plugged in already");
    Refuses("plug 2", "nothing was ever plugged in");
}

TEST_F(LaneTest, PlugsAnotherDeviceInWhereOneWasUnplugged) {
    Do("scanner 1 3");
    Do("unplug 1");
    Do("scale 1");
    Do("weight 1 1 kg");
    Refuses("scan 1 x", "no scanner at COM1");
    EXPECT_EQ(SerialPortNumbers(), std::vector{1});
}

TEST_F(LaneTest, ReplacesAScannerWithoutUnplugging) {
    Do("scanner 1 3");
    BlockingSerialLine line;
    line.Open(1);
    Do("scanner 1 4");
    EXPECT_EQ(lane_.State().at(0).scannerClass, 4);
    Do("scan 1 x");
    EXPECT_EQ(ReadCount(line, 2), "x\r");
}

TEST_F(LaneTest, KeepsSilentWhileMuted) {
    Do("scanner 1 1");
    Do("scale 1");
    BlockingSerialLine line;
    line.Open(1);
    Do("mute 1");
    Do("power 1");
    Do("scan 1 x");
    line.Write("W", 1s);
    Do("weight 1 1 kg");
    EXPECT_EQ(line.Read(50ms), "");
    Do("mute 1 off");
    Do("scan 1 y");
    EXPECT_EQ(ReadCount(line, 2), "y\r");
    Refuses("mute 1 maybe", "neither on nor off");
}

TEST_F(LaneTest, AnnouncesAScannerThatIsSwitchedOnBeforeAProgramListens) {
    Do("scanner 1 2");
    Do("power 1");
    BlockingSerialLine line;
    line.Open(1);
    EXPECT_EQ(line.Read(5s), "f");
}

TEST_F(LaneTest, DropsLabelsThatNobodyReads) {
    Do("scanner 1 16");
    const std::string label(2000, 'x');
    for (int count = 0; count < 50; ++count) {
        Do("scan 1 " + label);
    }
    EXPECT_NE(events_.All().find("since nobody reads them"), std::string::npos);
}

TEST_F(LaneTest, KeepsThePaceOfALine) {
    Do("scanner 1 16");
    Do("pace on");
    BlockingSerialLine line;
    line.Open(1);
    const auto start = std::chrono::steady_clock::now();
    Do("scan 1 " + std::string(95, 'x'));
    EXPECT_EQ(ReadCount(line, 96), std::string(95, 'x') + "\r");
    // 96 bytes need 100 ms on the line; nothing can make them faster.
    EXPECT_GE(std::chrono::steady_clock::now() - start, 99ms);
    Do("scan 1 " + std::string(2000, 'y'));
    Do("pace off");
    EXPECT_EQ(ReadCount(line, 2001).size(), 2001U);
}

TEST_F(LaneTest, DropsWhatIsOnItsWayWhenSwitchedOff) {
    Do("scanner 1 1");
    Do("pace on");
    BlockingSerialLine line;
    line.Open(1);
    Do("scan 1 " + std::string(2000, 'x'));
    Do("power 1");
    std::string received;
    while (!received.ends_with('f')) {
        const std::string more = line.Read(5s);
        ASSERT_FALSE(more.empty());
        received += more;
    }
    EXPECT_LT(received.size(), 2000U);
}

TEST_F(LaneTest, AnswersBadCommands) {
    Refuses("", "there is no command \"\"");
    Refuses("dance 1", "there is no command \"dance\"");
    Refuses("scanner", "the port is missing");
    Refuses("scanner 1", "the programming class is missing");
    Refuses("scanner 1 x", "\"x\" is not a programming class");
    Refuses("scanner 1 5", "no programming class 5");
    Refuses("scanner 1 33 1234567", "at most six");
    Refuses("scanner 1 33 1 2", "\"2\" is too much");
    Refuses("scanner 0 33", "COM1 to COM256");
    Refuses("scanner 257 33", "COM1 to COM256");
    Refuses("scanner COM 33", "not a port");
    Refuses("scanner 99999999999999 33", "not a port");
    Refuses("scan 1 x", "nothing at COM1");
    Refuses("quit now", "too much");
    EXPECT_TRUE(lane_.State().empty());
    Do("scanner 1 3");
    Refuses("weight 1 1 kg", "no scale at COM1");
    Refuses("unstable 1", "no scale at COM1");
    Do("scale 1");
    Refuses("weight 1", "the weight is missing");
    Refuses("weight 1 1", "the unit");
    Refuses("weight 1 1 oz", "not a unit");
    Refuses("weight 1 x kg", "not a weight");
    for (const char* command : {"scale 1", "weight 1 1 kg", "unstable 1", "power 1", "mute 1 on", "refuse 1", "block 1",
                                "unplug 1", "plug 1", "pace on"})
        Refuses(std::string(command) + " 2", "\"2\" is too much");
    Refuses("we\tird\x01", "there is no command");
    Do("scale 2");
    Refuses("power 2", "no scanner at COM2");
    Refuses("block 2", "no scanner at COM2");
    Refuses("refuse 2", "no scanner at COM2");
}

TEST_F(LaneTest, LeavesARealDeviceInItsPlace) {
    ports_.Link(1, "/dev/null");
    Refuses("scanner 1 33", "set up for a real device");
    EXPECT_EQ(fs::read_symlink(ports_.Entry(1)), "/dev/null");
    EXPECT_TRUE(lane_.State().empty());
}

TEST_F(LaneTest, LeavesThePortsOfAnotherLane) {
    Do("scanner 1 33");
    LaneRunner other({.directory = ports_.Directory()}, [](const std::string&) {});
    EXPECT_NE(other.Execute("scale 1").find("belongs to another lane"), std::string::npos);
    EXPECT_EQ(other.Execute("scale 2"), "ok");
    Do("scan 1 x");
}

TEST_F(LaneTest, ForgetsTheExclusiveModeOfAProgramThatWasKilled) {
    Do("scanner 1 33");
    const int descriptor = ::open(ports_.Entry(1).c_str(), O_RDWR | O_NOCTTY);
    ASSERT_EQ(::ioctl(descriptor, TIOCEXCL), 0);
    const auto deadline = std::chrono::steady_clock::now() + 5s;
    int exclusive = 1;
    while (exclusive != 0 && std::chrono::steady_clock::now() < deadline) {
        ASSERT_EQ(::ioctl(descriptor, TIOCGEXCL, &exclusive), 0);
        std::this_thread::yield();
    }
    ::close(descriptor);
    EXPECT_EQ(exclusive, 0);
}

TEST_F(LaneTest, ReplacesThePortOfALaneThatHasDied) {
    const PseudoTerminal somebodyElse;
    ports_.Link(1, somebodyElse.Device());
    ports_.Link(2, "/dev/pts/987654");
    Do("scanner 1 33");
    Do("scanner 2 33");
    EXPECT_NE(fs::read_symlink(ports_.Entry(1)), somebodyElse.Device());
    EXPECT_NE(fs::read_symlink(ports_.Entry(2)), "/dev/pts/987654");
}

TEST(Lane, TakesItsPortsAwayAtTheEnd) {
    const TemporaryPorts ports;
    {
        LaneRunner lane({.directory = ports.Directory() / "made" / "too"}, [](const std::string&) {});
        EXPECT_EQ(lane.Execute("scanner 1 33"), "ok");
        EXPECT_TRUE(fs::is_symlink(ports.Directory() / "made" / "too" / "COM1"));
    }
    EXPECT_TRUE(fs::is_empty(ports.Directory() / "made" / "too"));
}

TEST(Lane, TellsOfADirectoryThatCannotBeMade) {
    LaneRunner lane({.directory = "/dev/null/ports"}, [](const std::string&) {});
    EXPECT_NE(lane.Execute("scanner 1 33").find("cannot be made"), std::string::npos);
}

TEST(HeadlessLane, AnswersEachLine) {
    const TemporaryPorts ports;
    LaneRunner lane({.directory = ports.Directory()}, [](const std::string&) {});
    std::istringstream input("scanner 1 33\r\n\nscan 2 x\n" + std::string(100'000, 'x') +
                             "\nscan 1 end\nquit now\n quit \nscan 1 x\n");
    std::ostringstream output;
    RunHeadlessLane(lane, input, output);
    EXPECT_EQ(output.str(), "ok\nerror there is no command \"\"\nerror there is nothing at COM2\nerror the line is too "
                            "long\nok\nerror \"now\" is too much\nok\n");
}

TEST(LaneArguments, NameThePortDirectory) {
    const TemporaryPorts ports;
    EXPECT_EQ(ParseLaneArguments({}).options.directory, ports.Directory());
    const LaneArguments arguments = ParseLaneArguments(
        {"--headless", "--ports", "/somewhere", "--pace", "--verbose", "--do", "scale 1", "--do", "scale 2"});
    EXPECT_EQ(arguments.options.directory, "/somewhere");
    EXPECT_TRUE(arguments.headless);
    EXPECT_TRUE(arguments.options.paced);
    EXPECT_TRUE(arguments.verbose);
    EXPECT_EQ(arguments.commands, (std::vector<std::string>{"scale 1", "scale 2"}));
    EXPECT_THROW(static_cast<void>(ParseLaneArguments({"--ports"})), LaneError);
    EXPECT_THROW(static_cast<void>(ParseLaneArguments({"--ports", ""})), LaneError);
    EXPECT_THROW(static_cast<void>(ParseLaneArguments({"--dance"})), LaneError);
}

TEST(LaneUsage, NamesEveryCommand) {
    const std::string usage = LaneUsage();
    for (const char* name : {"scanner", "scale", "scan ", "weight", "unstable", "power", "mute", "refuse", "block",
                             "unplug", "plug ", "pace", "quit", "--ports", "--headless", "--do"}) {
        EXPECT_NE(usage.find(name), std::string::npos) << name;
    }
}

} // namespace
