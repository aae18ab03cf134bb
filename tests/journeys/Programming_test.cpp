// Scanners programmed through the programming window over real serial lines, with the virtual lane's scanners at their
// other end.
#include "lane/LaneRunner.h"
#include "platform/serial/SerlinkPort.h"
#include "profiles/CScanner1.h"
#include "profiles/CScanner2.h"
#include "programming/BoxesSeen.h"
#include "programming/ExpectedConfiguration.h"
#include "programming/ProgrammedDevice.h"
#include "programming/ScannerConfiguration.h"
#include "programming/frmProgram.h"
#include "support/PseudoTerminal.h"
#include "support/TemporaryRegistry.h"
#include "support_widgets/BoxWatcher.h"
#include "support_widgets/Controls.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPaintEvent>
#include <QWidget>

using namespace std::chrono_literals;

namespace {

constexpr std::int16_t Port = 3;

constexpr SerlinkLimits Patient;
// For scanners that do not answer from the start, and for those that fall silent at the end.
constexpr SerlinkLimits ImpatientAtEntry{.commandEntry = 200ms, .powerUpEntry = 200ms};
constexpr SerlinkLimits ImpatientAtEnd{.acknowledge = 200ms};

class PaintCounter : public QWidget {
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        ++paints;
        update();
    }
};

class ProgrammingJourney : public testing::Test {
protected:
    // What the lane answers to a command; fails the test where that is an error.
    std::string Lane(const std::string& command) {
        const std::string answer = lane_.Execute(command);
        EXPECT_TRUE(answer.starts_with("ok")) << command << ": " << answer;
        return answer.size() > 3 ? answer.substr(3) : std::string();
    }
    std::string OnPort(const std::string& command) { return Lane(command + ' ' + std::to_string(Port)); }
    void PutScanner(std::int32_t configurationType, const std::string& firmware = {}) {
        Lane("scanner " + std::to_string(Port) + ' ' + std::to_string(configurationType) + ' ' + firmware);
    }

    // What the scanner on the port must hold after it was programmed.
    std::string ExpectedBlock(std::int32_t configurationType) {
        const auto stored = DecodeReply(OnPort("block") + "000000").block;
        return EncodeBlock(ExpectedConfiguration(configurationType, stored));
    }

    bool Program(const CDevice& device, const SerlinkLimits& limits = Patient) {
        frmProgram::Services services;
        services.makeSerlink = [this, limits](const SerlinkObserver& observer) {
            return std::make_unique<SerlinkPort>(
                observer.idle,
                [this, observer](const SerlinkProgress& progress) {
                    observer.bytesMoved(progress.done, progress.expected);
                    if (onProgress_)
                        onProgress_(progress);
                },
                limits);
        };
        services.wait = [this](std::chrono::milliseconds time) { waited_ += time; };
        frmProgram window(std::move(services));
        window.show();
        const bool programmed = window.ProgramDevice(device);
        EXPECT_EQ(IsShown(Control<QWidget>(window, "fraSuccess")), programmed);
        EXPECT_EQ(IsShown(Control<QWidget>(window, "fraFailure")), !programmed);
        cause_ = Control<QLabel>(window, "lblFailureDetail").text().toStdString();
        return programmed;
    }

    // Programs a scanner of the class, and switches it off and on where the window asks for that.
    bool ProgramByHand(const CDevice& device, const SerlinkLimits& limits = Patient) {
        if (!ExpectedExchangeOf(device.ConfigurationType()).wokenByPower)
            return Program(device, limits);
        const ExpectBox box("Ravlin", "You must recycle power to enter programming mode for this scanner.");
        const BoxesSeen hand([this] { OnPort("power"); });
        return Program(device, limits);
    }

    void ExpectFailure(const std::string& causePart) {
        EXPECT_NE(cause_.find(causePart), std::string::npos) << cause_;
        EXPECT_NE(cause_.find("COM"), std::string::npos) << cause_;
    }

    TemporaryPorts ports_;
    LaneRunner lane_{{.directory = ports_.Directory(), .preparation = 0ms}, [](const std::string&) {}};
    std::function<void(const SerlinkProgress&)> onProgress_;
    bool realWait_ = false;
    std::chrono::milliseconds waited_{0};
    std::string cause_;
};

std::vector<std::int32_t> ProgrammingClasses() {
    std::vector<std::int32_t> classes = {1, 2, 3, 4, 6};
    for (std::int32_t type = 16; type < 48; ++type)
        classes.push_back(type);
    return classes;
}

} // namespace

TEST_F(ProgrammingJourney, ScannerOfEveryClassHoldsExactlyItsConfigurationAfterwards) {
    for (const std::int32_t type : ProgrammingClasses()) {
        PutScanner(type);
        const std::string before = OnPort("block");
        const std::string expected = ExpectedBlock(type);
        EXPECT_TRUE(ProgramByHand(ProgrammedScanner(type, Port))) << "class " << type << ": " << cause_;
        EXPECT_EQ(OnPort("block"), expected) << "class " << type;
        EXPECT_NE(expected, before);
    }
    EXPECT_EQ(waited_, 5000ms);
}

TEST_F(ProgrammingJourney, ProgrammingAScannerAgainChangesNothing) {
    PutScanner(31);
    ASSERT_TRUE(Program(ProgrammedScanner(31, Port)));
    const std::string block = OnPort("block");
    EXPECT_TRUE(Program(ProgrammedScanner(31, Port)));
    EXPECT_EQ(OnPort("block"), block);
}

TEST_F(ProgrammingJourney, StoredProfilesOfBothGenerationsAreProgrammed) {
    TemporaryRegistry registry;
    CScanner2 pelerin(registry);
    pelerin.Model("Pelerin/3172");
    pelerin.SerialPort(Port);
    pelerin.SScaleType(2);
    pelerin.SWeightUnit(1);
    pelerin.SDisplay(1);
    CScanner1 handmount(registry);
    handmount.Model("Handmount(5427/5438)");
    handmount.SerialPort(Port);
    const std::vector<std::pair<const CDevice*, std::int32_t>> profiles = {{&pelerin, 31}, {&handmount, 1}};
    for (const auto& [profile, type] : profiles) {
        PutScanner(type);
        const std::string expected = ExpectedBlock(type);
        EXPECT_TRUE(ProgramByHand(*profile)) << cause_;
        EXPECT_EQ(OnPort("block"), expected);
    }
}

TEST_F(ProgrammingJourney, FirmwareThatKnowsNoWriteCommandTakesTheBlockAlone) {
    for (const char* firmware : {"39999", "40000", "40100", "40191", "40192"}) {
        PutScanner(35, firmware);
        const std::string expected = ExpectedBlock(35);
        EXPECT_TRUE(Program(ProgrammedScanner(35, Port))) << firmware << ": " << cause_;
        EXPECT_EQ(OnPort("block"), expected) << firmware;
    }
}

TEST_F(ProgrammingJourney, FirmwareThatIsNoNumberLeavesTheScannerAsItWas) {
    PutScanner(35, "4X191");
    const std::string before = OnPort("block");
    EXPECT_FALSE(Program(ProgrammedScanner(35, Port)));
    EXPECT_NE(cause_.find("Type mismatch"), std::string::npos) << cause_;
    EXPECT_EQ(OnPort("block"), before);
}

TEST_F(ProgrammingJourney, ScannerThatRefusesIsAFailure) {
    PutScanner(3);
    const std::string before = OnPort("block");
    OnPort("refuse");
    EXPECT_FALSE(Program(ProgrammedScanner(3, Port)));
    ExpectFailure("refused");
    EXPECT_EQ(OnPort("block"), before);
}

TEST_F(ProgrammingJourney, ScannerOfAnotherModelRefuses) {
    PutScanner(3);
    const std::string before = OnPort("block");
    EXPECT_FALSE(Program(ProgrammedScanner(4, Port)));
    ExpectFailure("Check the model number");
    EXPECT_EQ(OnPort("block"), before);
}

TEST_F(ProgrammingJourney, MuteScannerDoesNotEnterProgrammingMode) {
    for (const std::int32_t type : {1, 3, 6, 16}) {
        PutScanner(type);
        OnPort("mute");
        EXPECT_FALSE(ProgramByHand(ProgrammedScanner(type, Port), ImpatientAtEntry));
        ExpectFailure("did not enter programming mode");
        Lane("mute " + std::to_string(Port) + " off");
    }
}

TEST_F(ProgrammingJourney, ScannerThatFallsSilentBeforeItConfirmsIsAFailure) {
    PutScanner(3);
    onProgress_ = [this](const SerlinkProgress& progress) {
        if (progress.step == SerlinkStep::Sending && progress.expected > 1000 && progress.done == 0)
            OnPort("mute");
    };
    EXPECT_FALSE(Program(ProgrammedScanner(3, Port), ImpatientAtEnd));
    ExpectFailure("did not confirm");
}

TEST_F(ProgrammingJourney, ScannerThatIsUnpluggedInTheMiddleOfItsReplyKeepsItsConfiguration) {
    Lane("pace on");
    PutScanner(3);
    const std::string before = OnPort("block");
    onProgress_ = [this, unplugged = false](const SerlinkProgress& progress) mutable {
        if (progress.step == SerlinkStep::Receiving && progress.done > 0 && !std::exchange(unplugged, true))
            OnPort("unplug");
    };
    EXPECT_FALSE(Program(ProgrammedScanner(3, Port)));
    ExpectFailure("was lost");
    OnPort("plug");
    EXPECT_EQ(OnPort("block"), before);
}

TEST_F(ProgrammingJourney, ScannerThatIsUnpluggedWhileItIsWrittenIsAFailure) {
    PutScanner(16);
    onProgress_ = [this, unplugged = false](const SerlinkProgress& progress) mutable {
        if (progress.step == SerlinkStep::Sending && progress.done > 100 && !std::exchange(unplugged, true))
            OnPort("unplug");
    };
    EXPECT_FALSE(Program(ProgrammedScanner(16, Port)));
    ExpectFailure("was lost");
}

TEST_F(ProgrammingJourney, MissingPortIsNamed) {
    EXPECT_FALSE(Program(ProgrammedScanner(3, 9)));
    ExpectFailure("COM9");
}

TEST_F(ProgrammingJourney, BusyPortIsNamed) {
    PutScanner(3);
    BlockingSerialLine other;
    other.Open(Port);
    EXPECT_FALSE(Program(ProgrammedScanner(3, Port)));
    ExpectFailure("COM3");
    other.Close();
    EXPECT_TRUE(Program(ProgrammedScanner(3, Port))) << cause_;
}

TEST_F(ProgrammingJourney, WindowsStayPaintedWhileAReplyPassesASlowLine) {
    Lane("pace on");
    PutScanner(3);
    PaintCounter other;
    other.show();
    int paintsBefore = 0;
    int paintsBehind = 0;
    onProgress_ = [&](const SerlinkProgress& progress) {
        if (progress.step == SerlinkStep::Receiving)
            (progress.done == 0 ? paintsBefore : paintsBehind) = other.paints;
    };
    EXPECT_TRUE(Program(ProgrammedScanner(3, Port))) << cause_;
    EXPECT_GT(paintsBehind, paintsBefore + 10);
}

// With the real pause of 5 s and a scanner that insists on it.
TEST(ProgrammingPause, ScannerThatNeedsTimeGetsItWithItsWindowsAlive) {
    const TemporaryPorts ports;
    LaneRunner lane({.directory = ports.Directory()}, [](const std::string&) {});
    ASSERT_EQ(lane.Execute("scanner 3 6"), "ok");
    PaintCounter other;
    other.show();
    frmProgram window(
        {.makeSerlink = [](const SerlinkObserver& observer) { return std::make_unique<SerlinkPort>(observer.idle); }});
    window.show();
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_TRUE(window.ProgramDevice(ProgrammedScanner(6, 3)))
        << Control<QLabel>(window, "lblFailureDetail").text().toStdString();
    EXPECT_GE(std::chrono::steady_clock::now() - begin, 5s);
    EXPECT_GT(other.paints, 10);
}
