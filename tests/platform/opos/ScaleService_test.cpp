// The conversation with real scales, on a pseudo terminal.
#include "platform/opos/OposSite.h"
#include "platform/opos/SimulatedScale.h"
#include "profiles/RegistryPaths.h"

#include <gtest/gtest.h>

#include <atomic>
#include <vector>

namespace {

using Simulated = SimulatedScale;

class Scales : public ::testing::Test {
protected:
    void Enable() {
        if (scale_->State() == OposState::Closed) {
            site_.SaveScale("Scale", 1);
            scale_->Open("Scale");
            scale_->ClaimDevice(0);
        }
        scale_->DeviceEnabled(true);
        ASSERT_EQ(scale_->ResultCode(), 0);
    }
    std::int32_t Read(std::int32_t timeout) { return scale_->ReadWeight(weight_, timeout); }
    // Gives the answers one after the other, the last for ever.
    Simulated::Answer OneByOne(std::vector<std::string> answers) {
        return [this, answers = std::move(answers)](char) {
            const std::size_t index = asked_++;
            return answers[std::min(index, answers.size() - 1)];
        };
    }
    void RejectZero(const std::string& option) {
        site_.registry.Put(RegistryPaths::DriverOptions, "ZeroWeightReject", option);
    }
    std::string Statistic(const std::string& name) {
        std::string buffer = name;
        scale_->RetrieveStatistics(buffer);
        const auto start = buffer.find("<Value>") + 7;
        return buffer.substr(start, buffer.find("</Value>") - start);
    }

    OposSite site_;
    PseudoTerminal line_{site_.ports, 1};
    std::atomic<std::size_t> asked_ = 0;
    Simulated device_{line_, [](char) { return Simulated::Frame("01.235"); }};
    std::unique_ptr<OPOSScale> scale_ = site_.controls->CreateScale();
    std::int32_t weight_ = -1;
};

} // namespace

TEST_F(Scales, AreAskedAgainUntilTheyAreStable) {
    device_.AnswerWith(OneByOne({Simulated::Status(1), Simulated::Status(4), Simulated::Frame("02.500")}));
    Enable();
    EXPECT_EQ(Read(-1), 0);
    EXPECT_EQ(weight_, 2500);
    EXPECT_EQ(asked_, 3U);
}

TEST_F(Scales, AreAskedOnceWithoutTime) {
    device_.AnswerWith(OneByOne({Simulated::Status(1), Simulated::Frame("02.500")}));
    Enable();
    EXPECT_EQ(Read(0), OposResult::Timeout);
    EXPECT_EQ(asked_, 1U);
}

TEST_F(Scales, AreAskedOnceMoreWhenTheAnswerCannotBeRead) {
    device_.AnswerWith(OneByOne({Simulated::Frame("0#.235"), Simulated::Frame("02.500")}));
    Enable();
    EXPECT_EQ(Read(1000), 0);
    EXPECT_EQ(Statistic("UnreadableReplyCount"), "1");
}

TEST_F(Scales, AreAskedOnceMoreInEveryRead) {
    const std::string unreadable = Simulated::Frame("0#.235");
    const std::string readable = Simulated::Frame("02.500");
    device_.AnswerWith(OneByOne({unreadable, readable, unreadable, readable}));
    Enable();
    EXPECT_EQ(Read(-1), 0);
    EXPECT_EQ(Read(-1), 0);
    EXPECT_EQ(asked_, 4U);
}

TEST_F(Scales, AreGivenTheirTimeAfterAReadThatTimedOut) {
    Enable();
    device_.AnswerWith([](char) { return Simulated::Status(1); });
    EXPECT_EQ(Read(20), OposResult::Timeout);
    device_.AnswerWith([](char) { return Simulated::Status(16); });
    EXPECT_EQ(scale_->ZeroScale(), 0);
    device_.AnswerWith([](char) { return Simulated::Status(1); });
    EXPECT_EQ(Read(20), OposResult::Timeout);
    std::int32_t data = 0;
    std::string text = "W";
    EXPECT_EQ(scale_->DirectIO(2, data, text), 0);
    EXPECT_EQ(text, "3F61");
}

TEST_F(Scales, FailWhenTwoAnswersCannotBeRead) {
    device_.AnswerWith(OneByOne({Simulated::Frame("0#.235"), Simulated::Frame("rubbish"), Simulated::Frame("02.500")}));
    Enable();
    EXPECT_EQ(Read(-1), OposResult::Failure);
    EXPECT_EQ(weight_, 0);
    EXPECT_EQ(asked_, 2U);
}

TEST_F(Scales, AreOverloadedBeyondTheirMaximum) {
    device_.AnswerWith(OneByOne({Simulated::Frame("30.000"), Simulated::Frame("30.001")}));
    Enable();
    EXPECT_EQ(Read(0), 0);
    EXPECT_EQ(weight_, 30000);
    EXPECT_EQ(Read(0), OposResult::Extended);
    EXPECT_EQ(scale_->ResultCodeExtended(), OposScaleExtended::OverWeight);
    EXPECT_EQ(weight_, 0);
}

TEST_F(Scales, ReportAZeroWeightWhereTheOptionAllowsIt) {
    Enable();
    device_.AnswerWith(OneByOne({Simulated::Status(16), Simulated::Frame("00.000")}));
    EXPECT_EQ(Read(0), 0);
    EXPECT_EQ(weight_, 0);
    EXPECT_EQ(Read(0), 0);
    EXPECT_EQ(weight_, 0);
}

TEST_F(Scales, DoNotReportAZeroWeightWhereTheOptionForbidsIt) {
    RejectZero("1");
    Enable();
    device_.AnswerWith(OneByOne({Simulated::Status(16), Simulated::Frame("00.000")}));
    EXPECT_EQ(Read(0), OposResult::Timeout);
    EXPECT_EQ(Read(0), OposResult::Timeout);
}

TEST_F(Scales, FollowTheOptionFromTheNextEnablingOn) {
    device_.AnswerWith([](char) { return Simulated::Status(16); });
    RejectZero("2");
    Enable();
    EXPECT_EQ(Read(0), OposResult::Timeout);
    scale_->DeviceEnabled(false);
    RejectZero("none");
    Enable();
    EXPECT_EQ(Read(0), 0);
}

TEST_F(Scales, OfTheOtherMakerNeverReportAZeroWeight) {
    site_.SaveScaleAs<CAveryScale>("Avery", 1);
    scale_->Open("Avery");
    scale_->ClaimDevice(0);
    Enable();
    device_.AnswerWith([](char) { return Simulated::Status(16); });
    EXPECT_EQ(Read(0), OposResult::Timeout);
    device_.AnswerWith([](char) { return Simulated::Frame("01.25"); });
    EXPECT_EQ(Read(0), 0);
    EXPECT_EQ(weight_, 1250);
}

TEST_F(Scales, AreSetToZeroByTheirZeroCommand) {
    std::atomic<char> command = ' ';
    device_.AnswerWith([&command](char byte) {
        command = byte;
        return Simulated::Status(16);
    });
    Enable();
    EXPECT_EQ(scale_->ZeroScale(), 0);
    EXPECT_EQ(command, 'Z');
}

TEST_F(Scales, RefuseZeroWhileLoadedOrMoving) {
    Enable();
    for (const unsigned status : {1U, 2U, 4U, 8U}) {
        device_.AnswerWith([status](char) { return Simulated::Status(status); });
        EXPECT_EQ(scale_->ZeroScale(), OposResult::Failure) << status;
    }
}

TEST_F(Scales, SayWhatTheyCountedAfterARestart) {
    Enable();
    EXPECT_EQ(Read(1000), 0);
    EXPECT_EQ(Read(1000), 0);
    scale_.reset();
    scale_ = site_.controls->CreateScale();
    Enable();
    EXPECT_EQ(Read(1000), 0);
    EXPECT_EQ(Statistic("GoodWeightReadCount"), "3");
}

TEST_F(Scales, AreOfflineAtOnceWhenUnplugged) {
    device_.AnswerWith([](char) { return std::string(); });
    Enable();
    site_.dispatcher.Post([this] {
        device_.Stop();
        line_.Unplug();
    });
    EXPECT_EQ(Read(-1), OposResult::Offline);
    EXPECT_EQ(Read(-1), OposResult::Offline);
}

TEST_F(Scales, AnswerDirectCommands) {
    Enable();
    std::int32_t data = -5;
    std::string text;
    EXPECT_EQ(scale_->DirectIO(3, data, text), 0);
    EXPECT_EQ(data, -1);
    text = "W";
    EXPECT_EQ(scale_->DirectIO(2, data, text), 0);
    EXPECT_EQ(text, "30312E323335"); // 01.235
    device_.AnswerWith([](char) { return Simulated::Status(9); });
    text = "Z";
    EXPECT_EQ(scale_->DirectIO(2, data, text), 0);
    EXPECT_EQ(scale_->DirectIO(3, data, text), 0);
    EXPECT_EQ(data, 9);
    EXPECT_EQ(scale_->DirectIO(1, data, text), 0);
    EXPECT_EQ(data, 1);
    EXPECT_EQ(text, "COM1");
    for (const char* command : {"", "w", "WW", "X"}) {
        text = command;
        EXPECT_EQ(scale_->DirectIO(2, data, text), OposResult::Illegal) << command;
    }
}

TEST_F(Scales, TakeNoDirectCommandWhileTheyRead) {
    device_.AnswerWith([](char) { return Simulated::Status(1); });
    Enable();
    scale_->AsyncMode(true);
    EXPECT_EQ(Read(-1), 0);
    std::int32_t data = 0;
    std::string text = "W";
    EXPECT_EQ(scale_->DirectIO(2, data, text), OposResult::Busy);
}

TEST_F(Scales, TakeNoDirectCommandUnlessEnabled) {
    site_.SaveScale("Scale", 1);
    std::int32_t data = 0;
    std::string text = "W";
    scale_->Open("Scale");
    EXPECT_EQ(scale_->DirectIO(2, data, text), OposResult::NotClaimed);
    scale_->ClaimDevice(0);
    EXPECT_EQ(scale_->DirectIO(2, data, text), OposResult::Disabled);
}
