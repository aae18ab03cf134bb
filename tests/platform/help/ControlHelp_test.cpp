// What the help says of a control.
#include "WhatsThisText.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

TEST(ControlHelp, TellsControlsOfTheSameNameApartByTheirWindow) {
    const ControlHelp help;
    EXPECT_NE(WhatsThisOf(help, "frmProgram", "cmdClose"), WhatsThisOf(help, "frmGlobalConfig", "cmdClose"));
    EXPECT_EQ(WhatsThisOf(help, "frmElsewhere", "cmdClose"), "");
}

TEST(ControlHelp, SaysTheSameOfEveryElementOfAnArray) {
    const ControlHelp help;
    EXPECT_FALSE(WhatsThisOf(help, "frmMain", "lstNewScaleDisplay_0").isEmpty());
    EXPECT_EQ(WhatsThisOf(help, "frmMain", "lstNewScaleDisplay_0"),
              WhatsThisOf(help, "frmMain", "lstNewScaleDisplay_1"));
    EXPECT_NE(WhatsThisOf(help, "frmMain", "lstSimpleDeviceName_0"),
              WhatsThisOf(help, "frmMain", "lstSimpleDeviceName_1"));
}

TEST(ControlHelp, SaysOfALabelWhatItSaysOfTheControlItNames) {
    const ControlHelp help;
    QDialog dialog;
    dialog.setObjectName("frmConfigScale");
    auto* name = new QLineEdit(&dialog);
    name->setObjectName("txtScaleName");
    auto* label = new QLabel(&dialog);
    label->setObjectName("lblScaleName");
    label->setBuddy(name);
    EXPECT_EQ(help.WhatsThis(*label), help.WhatsThis(*name));
    EXPECT_EQ(WhatsThisOf(help, "frmMain", "lblSimpleScanDataCaption"),
              WhatsThisOf(help, "frmMain", "lblSimpleScanData"));
}

TEST(ControlHelp, TakesTheTopicOfTheNearestOwnerThatHasOne) {
    const ControlHelp help;
    QDialog dialog;
    dialog.setObjectName("frmGlobalConfig");
    auto* frame = new QWidget(&dialog);
    frame->setObjectName("fraRX415Handling");
    auto* inFrame = new QPushButton(frame);
    inFrame->setObjectName("optEnableRX415Handling");
    auto* outside = new QPushButton(&dialog);
    EXPECT_EQ(help.TopicOf(inFrame), "global-configuration#rx415");
    EXPECT_EQ(help.TopicOf(outside), "global-configuration");
}

TEST(ControlHelp, KnowsMessageBoxesByTheirTitle) {
    const ControlHelp help;
    QMessageBox box(QMessageBox::NoIcon, "Delete Error", "text", QMessageBox::Ok);
    EXPECT_EQ(help.TopicOf(box.button(QMessageBox::Ok)), "messages#delete-error");
    box.setWindowTitle("Error loading [Lane 1]");
    EXPECT_EQ(help.TopicOf(&box), "messages#error-loading");
}

TEST(ControlHelp, SaysWhatTheButtonsOfAMessageBoxDo) {
    const ControlHelp help;
    const QMessageBox box(QMessageBox::NoIcon, "Delete Error", "text", QMessageBox::Ok);
    EXPECT_FALSE(help.WhatsThis(*box.button(QMessageBox::Ok)).isEmpty());
}

TEST(ControlHelp, BeginsAtTheFirstTopicWhereNothingIsKnown) {
    const ControlHelp help;
    QWidget unknown;
    EXPECT_EQ(help.TopicOf(&unknown), "welcome");
    EXPECT_EQ(help.TopicOf(nullptr), "welcome");
}
