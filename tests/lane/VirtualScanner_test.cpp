#include "lane/VirtualScanner.h"

#include "lane/LaneError.h"

#include <array>

#include <gtest/gtest.h>

namespace {

const std::string Announced = "\x06\x06";
const std::string PoweredUp = "\x66";
const std::string Ack = "\x06";
const std::string Nak = "\x15";

// A scanner whose line and clock are in the test's hand.
struct Bench {
    std::string sent;
    std::vector<std::string> events;
    VirtualScanner::Clock::time_point now{};
    VirtualScanner scanner;

    explicit Bench(int programmingClass, const std::string& firmware = "")
        : scanner(programmingClass, firmware,
                  {.send = [this](const std::string& bytes) { sent += bytes; },
                   .report = [this](const std::string& event) { events.push_back(event); },
                   .now = [this] { return now; },
                   .preparation = std::chrono::milliseconds(4500)}) {}

    // What the scanner answers to the bytes.
    std::string Ask(const std::string& bytes) {
        sent.clear();
        for (const char byte : bytes) {
            scanner.Receive(byte);
        }
        return sent;
    }
    std::string Power() {
        sent.clear();
        scanner.Power();
        return sent;
    }
};

// The line protocol of each class, written down once more.
struct ClassProtocol {
    int programmingClass;
    const char* firmware;
    const char* entryCommand; // empty: switched on by hand
    const char* announcement;
    const char* readCommand; // nothing: sent at once
    std::size_t blockSize;
    const char* writePrefix;
};

constexpr std::array Protocols{
    ClassProtocol{1, "", "", "\x66", "PM\r", 32, "APM"},
    ClassProtocol{2, "", "", "\x66", "PM\r", 32, "!@#3,APM"},
    ClassProtocol{3, "", "SSET\r", "\x06\x06", "PM\r", 512, "!@#3,APM"},
    ClassProtocol{4, "", "SSET\r", "\x06\x06", "PM\r", 512, "APM"},
    ClassProtocol{16, "", "SSET\r", "\x06\x06", "PM\r", 512, "APM"},
    ClassProtocol{31, "40100", "SSET\r", "\x06\x06", "PM\r", 512, "APM"},
    ClassProtocol{32, "", "SSET\r", "\x06\x06", "PM\r", 512, "APM"},
    ClassProtocol{32, "39999", "SSET\r", "\x06\x06", "PM\r", 512, "APM"},
    ClassProtocol{33, "40000", "SSET\r", "\x06\x06", "PM\r", 512, ""},
    ClassProtocol{47, "40191", "SSET\r", "\x06\x06", "PM\r", 512, ""},
    ClassProtocol{47, "40192", "SSET\r", "\x06\x06", "PM\r", 512, "APM"},
};

class VirtualScannerOfClass : public testing::TestWithParam<ClassProtocol> {
protected:
    ClassProtocol protocol_ = GetParam();
    Bench bench_{protocol_.programmingClass, protocol_.firmware};

    std::string Enter() {
        const std::string command = protocol_.entryCommand;
        return command.empty() ? bench_.Power() : bench_.Ask(command);
    }
    [[nodiscard]] std::string NewBlock() const { return std::string(protocol_.blockSize * 2 - 1, '0') + "F"; }
};

TEST_P(VirtualScannerOfClass, AnnouncesItselfAndSendsItsConfiguration) {
    EXPECT_EQ(Enter(), protocol_.announcement);
    const std::string reply = bench_.Ask(protocol_.readCommand);
    ASSERT_EQ(reply.size(), protocol_.blockSize * 2 + 8);
    EXPECT_EQ(reply.front(), '\x02');
    EXPECT_EQ(reply.back(), '\x03');
    EXPECT_EQ(reply.substr(1, protocol_.blockSize * 2), bench_.scanner.Block());
    EXPECT_EQ(bench_.scanner.Block().find_first_not_of("0123456789ABCDEF"), std::string::npos);
    EXPECT_TRUE(reply.substr(reply.size() - 7, 6).ends_with(bench_.scanner.Firmware()));
    if (*protocol_.firmware != '\0') {
        EXPECT_EQ(bench_.scanner.Firmware(), protocol_.firmware);
    }
}

TEST_P(VirtualScannerOfClass, StoresAConfigurationOfItsForm) {
    Enter();
    EXPECT_EQ(bench_.Ask(protocol_.writePrefix + NewBlock() + "\r"), Ack);
    EXPECT_EQ(bench_.scanner.Block(), NewBlock());
    Enter();
    EXPECT_EQ(bench_.Ask(protocol_.readCommand).substr(1, NewBlock().size()), NewBlock());
}

TEST_P(VirtualScannerOfClass, RefusesAConfigurationOfAnotherForm) {
    const std::string former = bench_.scanner.Block();
    const std::string prefix = protocol_.writePrefix;
    std::string lowerCase = NewBlock();
    lowerCase.back() = 'f';
    Enter();
    for (const std::string& command :
         {"X" + prefix + NewBlock(), prefix + NewBlock() + "00", prefix + NewBlock().substr(2),
          prefix + NewBlock().substr(1), prefix + lowerCase, prefix + " " + NewBlock().substr(1), prefix, std::string{},
          "apm" + NewBlock(), "!@#" + prefix + NewBlock(), std::string(5000, '0')}) {
        EXPECT_EQ(bench_.Ask(command + "\r"), Nak) << command.substr(0, 20);
    }
    for (const std::string other : {"", "APM", "!@#3,", "!@#3,APM"}) {
        if (other != prefix) {
            EXPECT_EQ(bench_.Ask(other + NewBlock() + "\r"), Nak) << other;
        }
    }
    EXPECT_EQ(bench_.scanner.Block(), former);
    EXPECT_EQ(bench_.Ask(prefix + NewBlock() + "\r"), Ack) << "it is still in programming mode";
}

TEST_P(VirtualScannerOfClass, RefusesOneConfigurationWhenTold) {
    Enter();
    bench_.scanner.RefuseNext();
    EXPECT_EQ(bench_.Ask(protocol_.writePrefix + NewBlock() + "\r"), Nak);
    EXPECT_EQ(bench_.Ask(protocol_.writePrefix + NewBlock() + "\r"), Ack);
}

TEST_P(VirtualScannerOfClass, IgnoresCommandsOutsideProgrammingMode) {
    EXPECT_EQ(bench_.Ask(protocol_.readCommand), "");
    EXPECT_EQ(bench_.Ask(protocol_.writePrefix + NewBlock() + "\r"), "");
    Enter();
    bench_.Ask(protocol_.writePrefix + NewBlock() + "\r");
    EXPECT_EQ(bench_.Ask(protocol_.readCommand), "") << "a configuration that was taken ends programming mode";
}

TEST_P(VirtualScannerOfClass, IsWokenInItsOwnWayOnly) {
    const bool byHand = *protocol_.entryCommand == '\0';
    EXPECT_EQ(bench_.Power(), byHand ? protocol_.announcement : "");
    EXPECT_EQ(bench_.Ask("sset\r"), byHand ? Nak : "");
    EXPECT_EQ(bench_.Ask("SSET\r"), byHand ? Nak : protocol_.announcement);
}

INSTANTIATE_TEST_SUITE_P(Each, VirtualScannerOfClass, testing::ValuesIn(Protocols), [](const auto& test) {
    return std::to_string(test.param.programmingClass) + "Firmware" + test.param.firmware;
});

class VirtualScannerOfClass6 : public testing::Test {
protected:
    Bench bench_{6};
    const std::string block_ = std::string(1023, '0') + "F";

    // Through to the confirmation of what was read.
    void EnterAndConfirm() {
        const std::string reply = bench_.Ask("SSET\r");
        EXPECT_EQ(bench_.Ask(reply.substr(3, reply.size() - 4) + "\r"), "");
    }
};

TEST_F(VirtualScannerOfClass6, SendsItsConfigurationByItself) {
    const std::string reply = bench_.Ask("SSET\r");
    EXPECT_EQ(reply, Announced + "\x02" + bench_.scanner.Block() + " " + bench_.scanner.Firmware() + "\x03");
    EXPECT_EQ(bench_.scanner.Block().size(), 1024U);
    EXPECT_EQ(bench_.Ask("PM\r"), Nak);
}

TEST_F(VirtualScannerOfClass6, TakesAConfigurationOncePrepared) {
    EnterAndConfirm();
    bench_.now += std::chrono::seconds(5);
    EXPECT_EQ(bench_.Ask(block_ + "\r"), Ack);
    EXPECT_EQ(bench_.scanner.Block(), block_);
}

TEST_F(VirtualScannerOfClass6, RefusesAConfigurationThatComesTooEarly) {
    EnterAndConfirm();
    bench_.now += std::chrono::seconds(4);
    EXPECT_EQ(bench_.Ask(block_ + "\r"), Nak);
    bench_.now += std::chrono::seconds(1);
    EXPECT_EQ(bench_.Ask(block_ + "\r"), Ack);
}

TEST_F(VirtualScannerOfClass6, RefusesAConfigurationWithoutTheConfirmation) {
    bench_.Ask("SSET\r");
    bench_.now += std::chrono::seconds(5);
    EXPECT_EQ(bench_.Ask(block_ + "\r"), Nak);
}

TEST_F(VirtualScannerOfClass6, RefusesTheApmCommand) {
    EnterAndConfirm();
    bench_.now += std::chrono::seconds(5);
    EXPECT_EQ(bench_.Ask("APM" + block_ + "\r"), Nak);
}

TEST(VirtualScanner, SendsLabelsWithACarriageReturn) {
    Bench bench(33);
    bench.scanner.Scan("]E05018374827715");
    EXPECT_EQ(bench.sent, "]E05018374827715\r");
}

TEST(VirtualScanner, LeavesProgrammingModeWhenSomethingIsScanned) {
    Bench bench(1);
    bench.Power();
    bench.scanner.Scan("1");
    EXPECT_EQ(bench.Ask("PM\r"), "");
}

TEST(VirtualScanner, LeavesProgrammingModeWhenSwitchedOff) {
    Bench bench(3);
    EXPECT_EQ(bench.Ask("SSET\r"), Announced);
    EXPECT_EQ(bench.Power(), "");
    EXPECT_EQ(bench.Ask("PM\r"), "");
}

TEST(VirtualScanner, ForgetsAHalfCommandWhenSwitchedOff) {
    Bench bench(2);
    bench.Ask("garbage");
    EXPECT_EQ(bench.Power(), PoweredUp);
    EXPECT_EQ(bench.Ask("PM\r").size(), 72U);
}

TEST(VirtualScanner, PassesOverALineWithoutEnd) {
    Bench bench(16);
    bench.Ask(std::string(100'000, 'x'));
    EXPECT_EQ(bench.Ask("SSET\r"), "") << "still the same line";
    EXPECT_EQ(bench.Ask("SSET\r"), Announced);
}

TEST(VirtualScanner, TellsWhatItDidNotLike) {
    Bench bench(16);
    bench.Ask("SSET\rAPM00ff\r");
    EXPECT_NE(bench.events.back().find("other characters"), std::string::npos);
}

TEST(VirtualScanner, ExistsForTheProgrammingClassesOnly) {
    for (const int programmingClass : {-1, 0, 15, 48, 1000}) {
        EXPECT_THROW(Bench{programmingClass}, LaneError) << programmingClass;
    }
    EXPECT_THROW(Bench(16, "1234567"), LaneError);
    EXPECT_THROW(Bench(16, "1\x01"), LaneError);
    EXPECT_NO_THROW(Bench(16, "123456"));
}

} // namespace
