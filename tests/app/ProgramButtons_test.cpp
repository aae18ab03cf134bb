// What the main window does around a programming session.
#include "profiles/CScanner2.h"
#include "support/PseudoTerminal.h"
#include "support/TemporaryRegistry.h"
#include "support_app/MainWindow.h"
#include "support_widgets/BoxWatcher.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class ProgramButtons : public ::testing::Test {
protected:
    ProgramButtons() {
        WithoutWizard(registry_);
        CScanner2 scanner(registry_);
        scanner.DeviceName("Lane 1");
        scanner.Model("7346");
        scanner.ScannerType(1);
        scanner.SerialPort(2);
        scanner.SaveDevice(false);
    }

    TemporaryRegistry registry_;
    TemporaryPorts ports_;
};

QWidget& ProgrammingWindow(frmMain& window) {
    return Control<QWidget>(window, "frmProgram");
}

} // namespace

TEST_F(ProgramButtons, AreDisabledWhileAScannerIsProgrammedAndGetTheirStatesBack) {
    PseudoTerminal scanner(ports_, 1);
    MainWindow window(registry_);
    auto& newProgram = Control<QPushButton>(*window, "cmdNewProgram");
    auto& existingProgram = Control<QPushButton>(*window, "cmdExistingProgram");
    ASSERT_TRUE(newProgram.isEnabled());
    ASSERT_TRUE(existingProgram.isEnabled());
    {
        const WhenShown session("frmProgram", [&](QWidget& program) {
            EXPECT_FALSE(newProgram.isEnabled());
            EXPECT_FALSE(existingProgram.isEnabled());
            EXPECT_FALSE(program.isModal());
            EXPECT_EQ(program.parentWidget(), &*window);
            scanner.Unplug();
        });
        Click(newProgram);
    }
    EXPECT_TRUE(newProgram.isEnabled());
    EXPECT_TRUE(existingProgram.isEnabled());
    EXPECT_TRUE(IsShown(Control<QWidget>(ProgrammingWindow(*window), "fraFailure")));
    Click(Control<QPushButton>(ProgrammingWindow(*window), "cmdClose"));
    EXPECT_TRUE(WaitUntil([&] { return window->findChild<QWidget*>("frmProgram") == nullptr; }));
}

TEST_F(ProgramButtons, ADisabledButtonStaysDisabledAfterASession) {
    MainWindow window(registry_); // there is no COM1: the session fails at once
    Choose(window.List("lstExistingInterface"), 1);
    auto& existingProgram = Control<QPushButton>(*window, "cmdExistingProgram");
    ASSERT_FALSE(existingProgram.isEnabled());
    Click(Control<QPushButton>(*window, "cmdNewProgram"));
    auto& newProgram = Control<QPushButton>(*window, "cmdNewProgram");
    EXPECT_TRUE(newProgram.isEnabled());
    EXPECT_FALSE(existingProgram.isEnabled());

    Choose(window.List("lstNewInterface"), 1);
    Choose(window.List("lstExistingDeviceName_0"), "Lane 1");
    Click(existingProgram);
    EXPECT_FALSE(newProgram.isEnabled());
    EXPECT_TRUE(existingProgram.isEnabled());
}

TEST_F(ProgramButtons, ASecondSessionReplacesTheWindowOfTheFirst) {
    MainWindow window(registry_);
    for (int session = 0; session < 2; ++session)
        Click(Control<QPushButton>(*window, "cmdNewProgram"));
    EXPECT_TRUE(WaitUntil([&] { return window->findChildren<QWidget*>("frmProgram").size() == 1; }));
    EXPECT_TRUE(ProgrammingWindow(*window).isVisible());
}

TEST_F(ProgramButtons, TheStoredProfileIsProgrammedOverItsOwnPort) {
    const PseudoTerminal scanner(ports_, 2);
    MainWindow window(registry_);
    Click(Control<QPushButton>(*window, "cmdExistingProgram")); // the scanner does not answer
    EXPECT_EQ(scanner.Receive(5), "SSET\r");
}

TEST_F(ProgramButtons, SavingWithYesProgramsTheNewScanner) {
    MainWindow window(registry_);
    QTest::keyClicks(&Control<QLineEdit>(*window, "txtNewDeviceName"), "Lane 2");
    const ExpectBox created("Ravlin", "Device profile created successfully.");
    const ExpectBox question(
        "Program Scanner?",
        "You must reprogram your scanner before it will work\r\nwith the Tavrin OPOS drivers.  Do "
        "you wish to\r\nreprogram your scanner now?\r\n\r\nYou can reprogram your scanner at a later "
        "time by\r\nclicking the Program button in the Modify Profile section.",
        QMessageBox::Yes);
    Click(Control<QPushButton>(*window, "cmdNewSave"));
    EXPECT_TRUE(IsShown(Control<QWidget>(ProgrammingWindow(*window), "fraFailure"))) << "there is no COM1";
}
