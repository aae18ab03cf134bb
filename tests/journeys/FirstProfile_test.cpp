// The main job: somebody describes a scanner with a scale built in on a fresh machine and finds both profiles
// everywhere.
#include "support_app/MainWindow.h"

#include "support/TemporaryRegistry.h"
#include "support_widgets/BoxWatcher.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr const char* Families[] = {"lstExistingDeviceName", "lstSimpleDeviceName", "lstDetailedDeviceName",
                                    "lstInfoDeviceName"};

} // namespace

TEST(FirstProfile, IsFoundInTheStoreAndInAllListsAlsoAfterARestart) {
    TemporaryRegistry registry;
    WithoutWizard(registry);
    {
        MainWindow window(registry);
        Choose(window.List("lstNewModelNumber"), "Pelerin/3172");
        Choose(window.List("lstNewScale"), "Single-Cable");
        Choose(window.List("lstNewScaleWeightUnit_0"), "Metric");
        QTest::keyClicks(&Control<QLineEdit>(*window, "txtNewDeviceName"), "Lane 1");
        const WhenShown scaleDialog("frmConfigScale",
                                    [](QWidget& dialog) { Click(Control<QPushButton>(dialog, "cmdCreate")); });
        const ExpectBox created("Ravlin", "Device profile created successfully.");
        const ExpectBox question(
            "Program Scanner?",
            "You must reprogram your scanner before it will work\r\nwith the Tavrin OPOS drivers.  "
            "Do you wish to\r\nreprogram your scanner now?\r\n\r\nYou can reprogram your scanner at a "
            "later time by\r\nclicking the Program button in the Modify Profile section.",
            QMessageBox::No);
        Click(Control<QPushButton>(*window, "cmdNewSave"));
        for (const QString family : Families)
            for (const QString element : {"_0", "_1"})
                EXPECT_EQ(Items(window.List(family + element)), QStringList("Lane 1")) << family.toStdString();
        window.Close();
    }

    const std::string folder = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\";
    EXPECT_EQ(registry.Text(folder + "Scanner\\Lane 1", ""), "Tavrin.Opos.Scanner");
    EXPECT_EQ(registry.Text(folder + "Scanner\\Lane 1", "Model"), "Pelerin/3172");
    EXPECT_EQ(registry.Text(folder + "Scanner\\Lane 1", "Scanner Version"), "0");
    EXPECT_EQ(registry.Text(folder + "Scanner\\Lane 1", "ScaleType"), "1");
    EXPECT_EQ(registry.Text(folder + "Scale\\Lane 1", ""), "Tavrin.Opos.Scale");
    EXPECT_EQ(registry.Text(folder + "Scale\\Lane 1", "WeightUnit"), "1");

    const std::unique_ptr<Registry> reopened = registry.OtherProgram();
    MainWindow window(*reopened);
    for (const QString family : Families)
        for (const QString element : {"_0", "_1"})
            EXPECT_EQ(Items(window.List(family + element)), QStringList("Lane 1")) << family.toStdString();
}
