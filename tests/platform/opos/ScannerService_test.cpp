// Scanners on a pseudo terminal, and everything that can happen to their line.
#include "platform/opos/EventQueue.h"
#include "platform/opos/LineSplitter.h"
#include "platform/opos/OposSite.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include <unistd.h>

namespace {

class Scanners : public ::testing::Test {
protected:
    Scanners() {
        site_.SaveScanner("Lane", 1);
        scanner_->Open("Lane");
        scanner_->ClaimDevice(0);
        scanner_->DeviceEnabled(true);
        EXPECT_EQ(scanner_->ResultCode(), 0);
        scanner_->OnDataEvent([this](std::int32_t) {
            labels_.push_back(scanner_->ScanData());
            scanner_->DataEventEnabled(true);
        });
        scanner_->OnErrorEvent(
            [this](std::int32_t code, std::int32_t, std::int32_t, std::int32_t&) { errors_.push_back(code); });
    }

    bool RunUntil(const std::function<bool()>& condition) { return site_.dispatcher.RunUntil(condition); }
    // Waits until the program has taken all that was sent.
    bool ExpectLabel(const std::string& label) {
        line_->Send(label + "\r");
        return RunUntil([&] { return !labels_.empty() && labels_.back() == label; });
    }
    std::string Statistic(const std::string& name) {
        std::string buffer = name;
        scanner_->RetrieveStatistics(buffer);
        const auto start = buffer.find("<Value>") + 7;
        return buffer.substr(start, buffer.find("</Value>") - start);
    }

    OposSite site_;
    std::unique_ptr<PseudoTerminal> line_ = std::make_unique<PseudoTerminal>(site_.ports, 1);
    std::unique_ptr<OPOSScanner> scanner_ = site_.controls->CreateScanner();
    std::vector<std::string> labels_;
    std::vector<std::int32_t> errors_;
};

std::string LabelNumber(int number) {
    return "LABEL" + std::to_string(number);
}

} // namespace

TEST_F(Scanners, LoseAndRepeatNoneOfTenThousandLabels) {
    constexpr int Count = 10000;
    scanner_->DataEventEnabled(true);
    std::jthread device([this] {
        for (int number = 0; number < Count; ++number)
            line_->Send(LabelNumber(number) + (number % 2 == 0 ? "\r" : "\r\n"));
    });
    ASSERT_TRUE(RunUntil([this] { return labels_.size() == Count; }));
    for (int number = 0; number < Count; ++number)
        ASSERT_EQ(labels_[static_cast<std::size_t>(number)], LabelNumber(number));
    EXPECT_EQ(Statistic("GoodScanCount"), std::to_string(Count));
    EXPECT_TRUE(errors_.empty());
}

TEST_F(Scanners, ReportOnceThatTheyWereUnpluggedAndComeBack) {
    scanner_->DataEventEnabled(true);
    ASSERT_TRUE(ExpectLabel("BEFORE"));
    scanner_->DataEventEnabled(true);
    line_->Unplug();
    ASSERT_TRUE(RunUntil([this] { return !errors_.empty(); }));
    EXPECT_EQ(errors_, std::vector<std::int32_t>{OposResult::Offline});
    EXPECT_EQ(scanner_->State(), OposState::Idle);
    EXPECT_TRUE(scanner_->DeviceEnabled());
    std::int32_t data = -1;
    std::string text;
    EXPECT_EQ(scanner_->DirectIO(1, data, text), 0);
    EXPECT_EQ(data, 0);

    site_.ports.Remove(1);
    line_ = std::make_unique<PseudoTerminal>(site_.ports, 1);
    ASSERT_TRUE(RunUntil([&] { return scanner_->DirectIO(1, data, text) == 0 && data == 1; }));
    EXPECT_TRUE(ExpectLabel("AFTER"));
    EXPECT_EQ(errors_.size(), 1U);
}

TEST_F(Scanners, CannotBeEnabledWithoutTheirDevice) {
    scanner_->DeviceEnabled(false);
    line_->Unplug();
    scanner_->DeviceEnabled(true);
    EXPECT_EQ(scanner_->ResultCode(), OposResult::NoHardware);
    EXPECT_FALSE(scanner_->DeviceEnabled());
}

TEST_F(Scanners, ReportAnEndlessLineOnceAndGoOnBehindIt) {
    scanner_->DataEventEnabled(true);
    std::jthread device([this] {
        for (int count = 0; count < 200; ++count)
            line_->Send(std::string(1000, static_cast<char>('a' + count % 26)));
        line_->Send("\rGOOD\r");
    });
    ASSERT_TRUE(RunUntil([this] { return labels_.size() == 1; }));
    EXPECT_EQ(labels_[0], "GOOD");
    EXPECT_EQ(errors_, std::vector<std::int32_t>{OposResult::Failure});
    EXPECT_EQ(Statistic("CommunicationErrorCount"), "1");
}

TEST_F(Scanners, PassOverFramingWithoutContent) {
    scanner_->DataEventEnabled(true);
    line_->Send("\r\r\n\x02\r\x02\x03\r]E0\r\n\n");
    ASSERT_TRUE(ExpectLabel("GOOD"));
    EXPECT_EQ(labels_.size(), 1U);
}

TEST_F(Scanners, SurviveNoiseOfAllBytes) {
    scanner_->DecodeData(true);
    scanner_->DataEventEnabled(true);
    std::string noise;
    for (int count = 0; count < 4096; ++count)
        noise += static_cast<char>((count * 37 + count / 7) % 256);
    line_->Send(noise + "\r");
    EXPECT_TRUE(ExpectLabel("GOOD"));
}

TEST_F(Scanners, RefuseWhatAFloodPilesUpAndTellOfIt) {
    std::jthread device([this] {
        std::string block;
        for (std::size_t count = 0; count < EventQueue::MostEvents + 100; ++count)
            block += "A\r";
        for (std::size_t from = 0; from < block.size(); from += 1024)
            line_->Send(block.substr(from, 1024));
    });
    ASSERT_TRUE(RunUntil([this] { return Statistic("DiscardedLabelCount") == "100"; }));
    EXPECT_EQ(scanner_->DataCount(), static_cast<std::int32_t>(EventQueue::MostEvents));
    EXPECT_EQ(scanner_->State(), OposState::Error);
    scanner_->DataEventEnabled(true);
    ASSERT_TRUE(RunUntil([this] { return scanner_->DataCount() == 0 && errors_.size() == 2; }));
    EXPECT_EQ(labels_.size(), EventQueue::MostEvents);
    EXPECT_EQ(errors_, (std::vector<std::int32_t>{OposResult::Failure, OposResult::Failure}));
    EXPECT_EQ(scanner_->State(), OposState::Idle);
}

TEST_F(Scanners, DropTheQueuedLabelsWhenTheHandlerClearsTheError) {
    line_->Send("FIRST\r" + std::string(LineSplitter::LongestLine + 1, 'x') + "\r");
    ASSERT_TRUE(RunUntil([this] { return scanner_->State() == OposState::Error; }));
    std::int32_t locus = 0;
    scanner_->OnErrorEvent([&](std::int32_t, std::int32_t, std::int32_t where, std::int32_t& response) {
        locus = where;
        EXPECT_EQ(response, OposErrorResponse::ContinueInput);
        response = OposErrorResponse::Clear;
    });
    scanner_->DataEventEnabled(true);
    EXPECT_EQ(locus, OposErrorLocus::InputData);
    EXPECT_EQ(scanner_->DataCount(), 0);
    EXPECT_EQ(scanner_->State(), OposState::Idle);
    EXPECT_TRUE(labels_.empty());
}

TEST_F(Scanners, StopReadingAfterAutoDisable) {
    scanner_->AutoDisable(true);
    scanner_->OnDataEvent([this](std::int32_t) { labels_.push_back(scanner_->ScanData()); });
    line_->Send("FIRST\rSECOND\r");
    ASSERT_TRUE(RunUntil([this] { return scanner_->DataCount() == 1; }));
    scanner_->DataEventEnabled(true);
    EXPECT_EQ(labels_, std::vector<std::string>{"FIRST"});
    std::string statistics;
    EXPECT_EQ(scanner_->RetrieveStatistics(statistics), OposResult::Disabled);
    scanner_->DeviceEnabled(true);
    scanner_->DataEventEnabled(true);
    ASSERT_TRUE(ExpectLabel("THIRD"));
    EXPECT_EQ(labels_.size(), 2U);
}

TEST_F(Scanners, TellTheLastLineToDirectCommands) {
    line_->Send("\x02]C0AB\r");
    ASSERT_TRUE(RunUntil([this] { return scanner_->DataCount() == 1; }));
    std::int32_t data = 0;
    std::string text;
    EXPECT_EQ(scanner_->DirectIO(2, data, text), 0);
    EXPECT_EQ(data, 6);
    EXPECT_EQ(text, "025D43304142");
}

TEST_F(Scanners, KeepTheirStatisticsAcrossRestarts) {
    scanner_->DataEventEnabled(true);
    ASSERT_TRUE(ExpectLabel("A"));
    scanner_->Close();
    const auto other = site_.controls->CreateScanner();
    other->Open("Lane");
    other->ClaimDevice(0);
    other->DeviceEnabled(true);
    std::string buffer = "GoodScanCount";
    EXPECT_EQ(other->RetrieveStatistics(buffer), 0);
    EXPECT_NE(buffer.find("<Value>1</Value>"), std::string::npos);
    EXPECT_NE(buffer.find("<ModelName>Pelerin/3172</ModelName>"), std::string::npos);
}

TEST_F(Scanners, AreEnabledAgainWhileTheHandlerRuns) {
    scanner_->AutoDisable(true);
    scanner_->OnDataEvent([this](std::int32_t) {
        labels_.push_back(scanner_->ScanData());
        scanner_->DeviceEnabled(true);
        scanner_->DataEventEnabled(true);
    });
    scanner_->DataEventEnabled(true);
    ASSERT_TRUE(ExpectLabel("FIRST"));
    ASSERT_TRUE(ExpectLabel("SECOND"));
    EXPECT_TRUE(scanner_->DeviceEnabled());
}
