#include "lane/window/frmLane.h"

#include "platform/serial/BlockingSerialLine.h"
#include "support/PseudoTerminal.h"
#include "support_widgets/Controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QtTest/QTest>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

class LaneWindow : public testing::Test {
protected:
    TemporaryPorts ports_;
    LaneEvents events_;
    LaneOptions options_{.directory = ports_.Directory()};
    LaneRunner lane_{options_, [this](const std::string& event) { emit events_.Happened(event.c_str()); }};
    frmLane window_{lane_, events_, options_};

    void SetUp() override { window_.show(); }

    template<typename T>
    T& At(const char* name) {
        return Control<T>(window_, name);
    }
    void Press(const char* name) { Click(At<QPushButton>(name)); }
    void PutScanner(int port, int programmingClass) {
        At<QSpinBox>("spnPort").setValue(port);
        auto& classes = At<QComboBox>("lstClass");
        classes.setCurrentIndex(classes.findData(programmingClass));
        Press("cmdScanner");
    }
    LanePortState State(std::size_t row = 0) { return lane_.State().at(row); }
    QString Row(int row = 0) { return At<QListWidget>("lstPorts").item(row)->text(); }
};

TEST_F(LaneWindow, OffersNothingWithoutAPort) {
    EXPECT_FALSE(At<QGroupBox>("fraScanner").isEnabled());
    EXPECT_FALSE(At<QGroupBox>("fraScale").isEnabled());
    EXPECT_FALSE(At<QPushButton>("cmdUnplug").isEnabled());
    EXPECT_TRUE(At<QLabel>("lblDirectory").text().contains(ports_.Directory().c_str()));
}

TEST_F(LaneWindow, PutsAScannerAndAScaleOnAPort) {
    At<QLineEdit>("txtFirmware").setText("40100");
    PutScanner(3, 6);
    EXPECT_EQ(State().port, 3);
    EXPECT_EQ(State().scannerClass, 6);
    EXPECT_EQ(State().firmware, "40100");
    EXPECT_TRUE(At<QGroupBox>("fraScanner").isEnabled());
    EXPECT_FALSE(At<QGroupBox>("fraScale").isEnabled());
    Press("cmdScale");
    EXPECT_TRUE(At<QGroupBox>("fraScale").isEnabled());
    EXPECT_EQ(Row(), "COM3\nVanta/2315 (class 6, firmware 40100)\nScale: 0.000 kg");
}

TEST_F(LaneWindow, ScansThePresetLabels) {
    PutScanner(1, 16);
    BlockingSerialLine line;
    line.Open(1);
    auto& presets = At<QComboBox>("lstPreset");
    ASSERT_GT(presets.count(), 5);
    for (int index = 0; index < presets.count(); ++index) {
        presets.setCurrentIndex(index);
        emit presets.activated(index);
        EXPECT_EQ(At<QLineEdit>("txtLabel").text(), presets.itemData(index).toString());
        Press("cmdScan");
        EXPECT_EQ(line.Read(5s), presets.itemData(index).toString().toStdString() + "\r");
    }
    At<QLineEdit>("txtLabel").setText("typed");
    QTest::keyClick(&At<QLineEdit>("txtLabel"), Qt::Key_Return);
    EXPECT_EQ(line.Read(5s), "typed\r");
}

TEST_F(LaneWindow, LaysWeightsOnTheScale) {
    Press("cmdScale");
    At<QLineEdit>("txtWeight").setText("1.235");
    Press("cmdWeigh");
    EXPECT_EQ(State().weight, "1.235 kg");
    auto& units = At<QComboBox>("lstUnit");
    At<QLineEdit>("txtWeight").setText("2.5");
    units.setCurrentText("lb");
    emit units.activated(units.currentIndex());
    EXPECT_EQ(State().weight, "2.50 lb");
    At<QSlider>("sldWeight").setValue(1250);
    EXPECT_EQ(State().weight, "12.50 lb");
    QTest::mouseClick(&At<QCheckBox>("chkUnstable"), Qt::LeftButton, {},
                      {8, At<QCheckBox>("chkUnstable").height() / 2});
    EXPECT_TRUE(State().unstable);
    QTest::mouseClick(&At<QCheckBox>("chkUnstable"), Qt::LeftButton, {},
                      {8, At<QCheckBox>("chkUnstable").height() / 2});
    EXPECT_FALSE(State().unstable);
}

TEST_F(LaneWindow, TellsWhatCannotBeDone) {
    Press("cmdScale");
    At<QLineEdit>("txtWeight").setText("heavy");
    Press("cmdWeigh");
    EXPECT_TRUE(At<QLabel>("lblAnswer").text().contains("is not a weight"));
    At<QLineEdit>("txtWeight").setText("1");
    Press("cmdWeigh");
    EXPECT_EQ(At<QLabel>("lblAnswer").text(), "");
}

TEST_F(LaneWindow, UnplugsAndPlugsInAgain) {
    PutScanner(1, 3);
    Press("cmdUnplug");
    EXPECT_FALSE(State().pluggedIn);
    EXPECT_TRUE(Row().startsWith("COM1 (unplugged)\n")) << Row().toStdString();
    EXPECT_FALSE(At<QGroupBox>("fraScanner").isEnabled());
    EXPECT_EQ(At<QPushButton>("cmdUnplug").text(), "Plug &In Again");
    Press("cmdUnplug");
    EXPECT_TRUE(State().pluggedIn);
    EXPECT_EQ(At<QPushButton>("cmdUnplug").text(), "Un&plug");
}

TEST_F(LaneWindow, WorksOnTheChosenPort) {
    PutScanner(2, 3);
    PutScanner(1, 4);
    At<QListWidget>("lstPorts").setCurrentRow(1);
    auto& mute = At<QCheckBox>("chkMute");
    QTest::mouseClick(&mute, Qt::LeftButton, {}, {8, mute.height() / 2});
    EXPECT_FALSE(State(0).muted);
    EXPECT_TRUE(State(1).muted);
    At<QListWidget>("lstPorts").setCurrentRow(0);
    EXPECT_FALSE(mute.isChecked());
}

TEST_F(LaneWindow, ShowsWhatHappens) {
    PutScanner(1, 1);
    Press("cmdPower");
    Press("cmdRefuse");
    Press("cmdBlock");
    auto& events = At<QPlainTextEdit>("txtEvents");
    ASSERT_TRUE(WaitUntil([&events] { return events.toPlainText().contains("will refuse the next configuration"); }));
    EXPECT_TRUE(events.toPlainText().contains("COM1: entered programming mode"));
    EXPECT_TRUE(events.toPlainText().contains(lane_.Execute("block 1").substr(3).c_str()));
}

TEST_F(LaneWindow, PacesTheLines) {
    PutScanner(1, 16);
    auto& pace = At<QCheckBox>("chkPace");
    QTest::mouseClick(&pace, Qt::LeftButton, {}, {8, pace.height() / 2});
    BlockingSerialLine line;
    line.Open(1);
    At<QLineEdit>("txtLabel").setText(QString(600, 'x'));
    Press("cmdScan");
    EXPECT_LT(line.Read(5s).size(), 600U) << "it comes bit by bit";
}

} // namespace
