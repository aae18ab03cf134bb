#include "programming/ProgrammingSession.h"

#include "ExpectedConfiguration.h"
#include "ProgrammedDevice.h"
#include "ScriptedSerlink.h"
#include "profiles/NumberedError.h"
#include "programming/ScannerConfiguration.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using Log = std::vector<std::string>;

const std::vector<std::uint8_t> Stored(512, 0xA5);

std::string ReplyOf(const std::vector<std::uint8_t>& block, const std::string& trailer) {
    return EncodeBlock(block) + trailer;
}

std::string Quoted(const std::string& text) {
    return '"' + text + '"';
}

// One session of a scripted line; everything it used and asked for is in log, in order.
struct SessionRun {
    Log log;
    std::vector<ProgrammingStep> steps;
    ProgrammingOutcome outcome;
};

SessionRun Program(const CDevice& device, ScriptedSerlink::Script script) {
    SessionRun run;
    ScriptedSerlink serlink(std::move(script), run.log);
    ProgrammingSession session(
        serlink,
        {.showRecyclePower = [&run] { run.log.emplace_back("recycle power"); },
         .processPendingEvents = [&run] { run.log.emplace_back("pending events"); },
         .wait = [&run](std::chrono::milliseconds time) { run.log.push_back("wait " + std::to_string(time.count())); },
         .stepBegins = [&run](ProgrammingStep step) { run.steps.push_back(step); }});
    run.outcome = session.ProgramDevice(device);
    return run;
}

SessionRun Program(std::int32_t configurationType, const std::string& trailer = "123456") {
    return Program(ProgrammedScanner(configurationType), {.reply = ReplyOf(Stored, trailer)});
}

// The use of the line's members that a session of the class must show, where its block is written behind the text.
Log ExpectedLog(std::int32_t type, const std::string& writtenBehind, const std::string& trailer = "123456") {
    const ExpectedExchange exchange = ExpectedExchangeOf(type);
    const std::string reply = ReplyOf(Stored, trailer);
    const std::string written = writtenBehind + EncodeBlock(ExpectedConfiguration(type, Stored));
    Log log;
    if (exchange.wokenBySset)
        log = {"EntryCommand = \"SSET\"", "EntryMode = 1542"};
    if (exchange.wokenByPower)
        log = {"EntryCommand = \"\"", "EntryMode = 102", "recycle power"};
    const Log reading = {"PortNumber = 4", "CommandData = " + Quoted(exchange.request),
                         "SendCommand " + Quoted(exchange.request), "ReceiveReply", "CommandData read"};
    log.insert(log.end(), reading.begin(), reading.end());
    if (type == 6) {
        const Log echo = {"SendCommand " + Quoted(reply), "pending events", "wait 5000"};
        log.insert(log.end(), echo.begin(), echo.end());
    }
    const Log writing = {"CommandData = " + Quoted(written), "SendCommand " + Quoted(written), "CommandSucceeded"};
    log.insert(log.end(), writing.begin(), writing.end());
    return log;
}

std::string WrittenBy(const SessionRun& run) {
    return run.log.at(run.log.size() - 2);
}

} // namespace

TEST(ProgrammingSession, UsesTheLineInTheOrderOfItsClass) {
    for (const std::int32_t type : InterestingClasses()) {
        const SessionRun run = Program(type);
        EXPECT_EQ(run.log, ExpectedLog(type, ExpectedExchangeOf(type).writtenBehind)) << "class " << type;
        EXPECT_TRUE(run.outcome.succeeded);
        EXPECT_EQ(run.outcome.reason, "");
    }
}

TEST(ProgrammingSession, TellsEachStepAsItBegins) {
    using enum ProgrammingStep;
    const std::vector usual = {EnteringProgrammingMode, ReadingConfiguration, WritingConfiguration,
                               AwaitingAcknowledgement};
    const std::vector waiting = {EnteringProgrammingMode, ReadingConfiguration, WaitingForScanner, WritingConfiguration,
                                 AwaitingAcknowledgement};
    EXPECT_EQ(Program(3).steps, usual);
    EXPECT_EQ(Program(6).steps, waiting);
}

TEST(ProgrammingSession, FirmwareFrom40000To40191TakesTheBlockWithoutCommand) {
    for (const std::int32_t type : {32, 33, 47, 64}) {
        for (const char* trailer : {" 40000", "40100 ", "040191", "40191\r", "\r40000"})
            EXPECT_EQ(Program(type, trailer).log, ExpectedLog(type, "", trailer)) << type << trailer;
        for (const char* trailer : {" 39999", "040192", "000000", "999999", "-40000"})
            EXPECT_EQ(Program(type, trailer).log, ExpectedLog(type, "APM", trailer)) << type << trailer;
    }
}

TEST(ProgrammingSession, FirmwareThatIsNoNumberFailsWhereItDecides) {
    for (const char* trailer : {"4O191X", "      ", "\r\r\r\r\r\r", "40 191"}) {
        const SessionRun run = Program(33, trailer);
        EXPECT_FALSE(run.outcome.succeeded);
        EXPECT_NE(run.outcome.reason.find("Type mismatch"), std::string::npos) << run.outcome.reason;
        EXPECT_EQ(run.log.back(), "CommandData read");
    }
}

TEST(ProgrammingSession, FirmwareDoesNotMatterBelowClass32) {
    for (const std::int32_t type : {0, 1, 2, 3, 4, 6, 16, 17, 31})
        for (const char* trailer : {"ABCXYZ", " 40100", "      "})
            EXPECT_TRUE(Program(type, trailer).outcome.succeeded) << type << trailer;
    EXPECT_EQ(WrittenBy(Program(31, " 40100")).substr(0, 16), "SendCommand \"APM");
}

TEST(ProgrammingSession, EmptyBlockIsWrittenAsTheCommandAlone) {
    for (const std::int32_t type : ClassesWithoutPatches()) {
        const SessionRun run = Program(ProgrammedScanner(type), {.reply = "123456"});
        EXPECT_TRUE(run.outcome.succeeded);
        EXPECT_EQ(WrittenBy(run), "SendCommand \"APM\"");
    }
}

TEST(ProgrammingSession, PortIsTakenFromAScaleProfileToo) {
    const SessionRun run = Program(ProgrammedScale(7), {.reply = "123456"});
    EXPECT_EQ(run.log.front(), "PortNumber = 7");
    EXPECT_TRUE(run.outcome.succeeded);
}

TEST(ProgrammingSession, PortIsLeftAloneForAnyOtherDeviceType) {
    const SessionRun run = Program(ProgrammedScanner(0, 4, 2), {.reply = "123456"});
    EXPECT_EQ(run.log.front(), "CommandData = \"PM\"");
    EXPECT_TRUE(run.outcome.succeeded);
}

TEST(ProgrammingSession, ProfileThatIsNotOfItsDeviceTypeFailsBeforeAnythingIsSent) {
    const SessionRun run = Program(ProgrammedScale(7, DeviceClass::Scanner), {});
    EXPECT_FALSE(run.outcome.succeeded);
    EXPECT_EQ(run.log, Log{});
    EXPECT_NE(run.outcome.reason.find("Type mismatch"), std::string::npos) << run.outcome.reason;
}

TEST(ProgrammingSession, WithoutReplySendsNothingFurther) {
    const SessionRun run = Program(ProgrammedScanner(3),
                                   {.receiveReply = [] { return false; }, .failureText = "The scanner kept silent."});
    EXPECT_FALSE(run.outcome.succeeded);
    EXPECT_EQ(run.log.back(), "ReceiveReply");
    EXPECT_EQ(run.outcome.reason, "The scanner kept silent.");
}

TEST(ProgrammingSession, WithoutAcknowledgementFails) {
    const SessionRun run = Program(ProgrammedScanner(3), {.commandSucceeded = [] { return false; },
                                                          .reply = ReplyOf(Stored, "123456"),
                                                          .failureText = "The scanner refused."});
    EXPECT_FALSE(run.outcome.succeeded);
    EXPECT_EQ(run.log.back(), "CommandSucceeded");
    EXPECT_EQ(run.outcome.reason, "The scanner refused.");
}

TEST(ProgrammingSession, ReplyTooShortForItsClassIsNotWrittenBack) {
    const SessionRun run = Program(ProgrammedScanner(3), {.reply = "0102123456"});
    EXPECT_FALSE(run.outcome.succeeded);
    EXPECT_EQ(run.log.back(), "CommandData read");
    EXPECT_NE(run.outcome.reason.find("Subscript out of range"), std::string::npos) << run.outcome.reason;
}

TEST(ProgrammingSession, ReplyWithoutFirmwareNumberFails) {
    const SessionRun run = Program(ProgrammedScanner(0), {.reply = "01"});
    EXPECT_FALSE(run.outcome.succeeded);
    EXPECT_EQ(run.log.back(), "CommandData read");
}

TEST(ProgrammingSession, ErrorOfTheLineAtAnyStepEndsAsFailureWithItsText) {
    const auto fail = []() -> bool { throw NumberedError(57U, "COM4 was unplugged."); };
    const std::string reply = ReplyOf(Stored, "123456");
    const std::vector<ScriptedSerlink::Script> scripts = {
        {.receiveReply = fail, .reply = reply},
        {.commandSucceeded = fail, .reply = reply},
        {.sendCommand = fail, .reply = reply},
        {.sendCommand = [calls = 0, fail]() mutable { return ++calls == 2 && fail(); }, .reply = reply},
        {.sendCommand = [calls = 0, fail]() mutable { return ++calls == 3 && fail(); }, .reply = reply},
    };
    for (const auto& script : scripts) {
        const SessionRun run = Program(ProgrammedScanner(6), script);
        EXPECT_FALSE(run.outcome.succeeded);
        EXPECT_EQ(run.outcome.reason, "COM4 was unplugged.");
    }
}
