#include "wizard/frmConfigScale.h"

#include "profiles/CAveryScale.h"
#include "profiles/CScale2.h"
#include "support/TemporaryRegistry.h"
#include "support_widgets/BoxWatcher.h"
#include "support_widgets/Controls.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class ConfigScale : public ::testing::Test {
protected:
    explicit ConfigScale(const QString& ports = "0103122064")
        : dialog_({registry_, ports, "RS232\rFull Speed USB\rPOS USB"}) {
        dialog_.show();
    }

    DropDownList& List(const QString& name) { return Control<DropDownList>(dialog_, name); }
    QLineEdit& Name() { return Control<QLineEdit>(dialog_, "txtScaleName"); }
    void Create() { Click(Control<QPushButton>(dialog_, "cmdCreate")); }

    TemporaryRegistry registry_;
    frmConfigScale dialog_;
};

class ConfigScaleWithoutPorts : public ConfigScale {
protected:
    ConfigScaleWithoutPorts() : ConfigScale("") {}
};

} // namespace

TEST_F(ConfigScale, IsFilledWhenItIsLoaded) {
    EXPECT_EQ(dialog_.windowTitle(), "Configure Scale");
    EXPECT_EQ(
        Control<QLabel>(dialog_, "lblPrompt").text(),
        "Do you wish to create a profile for the scale as well?  This will allow you to use the scanner and scale "
        "with OPOS at the same time.");
    EXPECT_EQ(Items(List("lstScaleType")), QStringList({"Single-Cable", "Dual-Cable"}));
    EXPECT_EQ(Items(List("lstInterface")), QStringList({"RS232", "Full Speed USB", "POS USB"}));
    EXPECT_EQ(Items(List("lstSerialPort")), QStringList({"COM1", "COM3", "COM12", "COM20", "COM64"}));
    EXPECT_EQ(Items(List("lstWeightUnit")), QStringList({"English", "Metric"}));
    EXPECT_EQ(Items(List("lstDisplay")), QStringList({"No", "Yes"}));
    EXPECT_EQ(List("lstInterface").ListIndex(), 0);
    EXPECT_EQ(List("lstWeightUnit").ListIndex(), 0);
    EXPECT_EQ(List("lstDisplay").ListIndex(), 0);
    EXPECT_FALSE(dialog_.ScaleProfile());
}

TEST_F(ConfigScale, LabelsNameTheControlsThatFollowThem) {
    const std::vector<std::array<const char*, 3>> labels = {
        {"lblScaleName", "Scale &Name:", "txtScaleName"},        {"lblScaleType", "Scale &Type:", "lstScaleType"},
        {"lblInterface", "&Interface:", "lstInterface"},         {"lblSerialPort", "&Serial Port:", "lstSerialPort"},
        {"lblWeightUnit", "&Unit of Measure:", "lstWeightUnit"}, {"lblDisplay", "&Display:", "lstDisplay"},
    };
    for (const auto& [label, text, buddy] : labels) {
        EXPECT_EQ(Control<QLabel>(dialog_, label).text(), text);
        EXPECT_EQ(Control<QLabel>(dialog_, label).buddy()->objectName(), buddy);
    }
    EXPECT_EQ(Control<QPushButton>(dialog_, "cmdCreate").text(), "&Create Profile");
    EXPECT_EQ(Control<QPushButton>(dialog_, "cmdCancel").text(), "Cancel");
}

TEST_F(ConfigScale, TakesOverTheChoicesOfASingleCableScale) {
    dialog_.ScaleParams("Lane 1", 2, 0, 1, 1, 1);
    EXPECT_EQ(Name().text(), "Lane 1");
    EXPECT_EQ(Name().selectedText(), "Lane 1");
    EXPECT_EQ(List("lstScaleType").ListIndex(), 0);
    EXPECT_EQ(List("lstInterface").ListIndex(), 1);
    EXPECT_TRUE(List("lstInterface").isEnabled());
    EXPECT_EQ(List("lstSerialPort").Text(), "COM12") << "the port is a position, not a number";
    EXPECT_TRUE(List("lstSerialPort").isEnabled());
    EXPECT_EQ(List("lstWeightUnit").ListIndex(), 1);
    EXPECT_EQ(List("lstDisplay").ListIndex(), 1);
}

TEST_F(ConfigScale, ADualCableScaleIgnoresPortAndInterface) {
    dialog_.ScaleParams("Lane 1", 2, 1, 1, 0, 0);
    EXPECT_EQ(List("lstScaleType").ListIndex(), 1);
    EXPECT_EQ(List("lstInterface").ListIndex(), 0);
    EXPECT_FALSE(List("lstInterface").isEnabled());
    EXPECT_EQ(List("lstSerialPort").ListIndex(), 0);
    EXPECT_TRUE(List("lstWeightUnit").isEnabled());
    EXPECT_TRUE(List("lstDisplay").isEnabled());
}

TEST_F(ConfigScale, ThePortIsAskedForOnlyForInterfacesAfterTheFirst) {
    dialog_.ScaleParams("Lane 1", 0, 0, 0, 0, 0);
    Choose(List("lstInterface"), 2);
    EXPECT_TRUE(List("lstSerialPort").isEnabled());
    EXPECT_EQ(List("lstSerialPort").ListIndex(), 0);
    Choose(List("lstInterface"), 0);
    EXPECT_FALSE(List("lstSerialPort").isEnabled());
    EXPECT_EQ(List("lstSerialPort").ListIndex(), -1);
}

TEST_F(ConfigScale, ATypeThatLocksTheInterfaceUnlocksItAgain) {
    dialog_.ScaleParams("Lane 1", 0, 0, 2, 0, 0);
    Choose(List("lstScaleType"), "Dual-Cable");
    EXPECT_FALSE(List("lstInterface").isEnabled());
    EXPECT_EQ(List("lstInterface").ListIndex(), 0);
    Choose(List("lstScaleType"), "Single-Cable");
    EXPECT_TRUE(List("lstInterface").isEnabled());
}

TEST_F(ConfigScale, CreatingNeedsAName) {
    auto& create = Control<QPushButton>(dialog_, "cmdCreate");
    EXPECT_FALSE(create.isEnabled());
    Name().setText(" ");
    EXPECT_TRUE(create.isEnabled()) << "a blank is a name here";
    Name().clear();
    EXPECT_FALSE(create.isEnabled());
}

TEST_F(ConfigScale, CreatesTheProfileOfASingleCableScale) {
    dialog_.ScaleParams("Lane 1", 2, 0, 1, 1, 1);
    Create();
    EXPECT_FALSE(dialog_.isVisible());
    const auto scale = dialog_.ScaleProfile();
    ASSERT_TRUE(scale);
    EXPECT_EQ(scale->ClassName(), "CScale2");
    EXPECT_EQ(scale->DeviceName(), "Lane 1");
    EXPECT_EQ(scale->SerialPort(), 12);
    EXPECT_EQ(scale->WeightUnit(), 1);
    EXPECT_EQ(scale->Display(), 1);
    EXPECT_TRUE(registry_.SubKeys("SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scale").empty()) << "the dialog stores nothing";
}

TEST_F(ConfigScale, TheFirstInterfaceGivesNoPort) {
    dialog_.ScaleParams("Lane 1", 2, 0, 0, 0, 0);
    Create();
    EXPECT_EQ(dialog_.ScaleProfile()->SerialPort(), 0);
}

TEST_F(ConfigScale, CreatesTheProfileOfADualCableScale) {
    dialog_.ScaleParams("Lane 1", 2, 1, 1, 1, 0);
    Create();
    EXPECT_EQ(dialog_.ScaleProfile()->ClassName(), "CAveryScale");
    EXPECT_EQ(dialog_.ScaleProfile()->SerialPort(), 0);
}

TEST_F(ConfigScale, CancellingLeavesNoProfile) {
    dialog_.ScaleParams("Lane 1", 0, 0, 0, 0, 0);
    Click(Control<QPushButton>(dialog_, "cmdCancel"));
    EXPECT_FALSE(dialog_.isVisible());
    EXPECT_FALSE(dialog_.ScaleProfile());
}

TEST_F(ConfigScaleWithoutPorts, ReportsThatThereIsNoPortAndStays) {
    Name().setText("Lane 1");
    Choose(List("lstScaleType"), 0);
    Choose(List("lstInterface"), 1);
    const ExpectBox box("Ravlin", "Invalid procedure call or argument (\"\" is not a port)\r\n\r\nError Number: 5");
    Create();
    EXPECT_TRUE(dialog_.isVisible());
    EXPECT_FALSE(dialog_.ScaleProfile());
}
