#include "dialogs/frmGlobalConfig.h"

#include "profiles/RegistryPaths.h"
#include "support/FailingRegistry.h"
#include "support/TemporaryRegistry.h"
#include "support_app/MainWindow.h"
#include "support_widgets/BoxWatcher.h"

#include <QAction>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class GlobalConfig : public ::testing::Test {
protected:
    void Store(const std::string& name, const std::string& text) {
        registry_.Put(RegistryPaths::DriverOptions, name, text);
    }
    std::string Stored(const std::string& name) { return registry_.Text(RegistryPaths::DriverOptions, name); }
    bool IsChosen(const QString& button) { return Control<QRadioButton>(dialog_, button).isChecked(); }
    void Open() {
        dialog_.Form_Load();
        dialog_.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog_));
    }

    TemporaryRegistry registry_;
    frmGlobalConfig dialog_{registry_};
};

} // namespace

TEST_F(GlobalConfig, NamesItsOptions) {
    EXPECT_EQ(dialog_.windowTitle(), "Ravlin Global Configuration");
    const std::vector<std::array<const char*, 3>> options = {
        {"fraZeroWeightReject", "optZeroWeightNo", "Do not allow zero (0) weight from Single-Cable Scale"},
        {"fraZeroWeightReject", "optZeroWeightYes", "Allow zero (0) weight from Single-Cable Scale"},
        {"fraRX415Handling", "optEnableRX415Handling", "Enable special RX415 Handling"},
        {"fraRX415Handling", "optDisableRX415Handling", "Disable special RX415 Handling"},
        {"fraVendorEnforcement", "optAllowAll", "Allow compatible Non-Tavrin as well as Tavrin FS USB devices"},
        {"fraVendorEnforcement", "optTavrinOnly", "Allow FS USB devices from Tavrin only"},
    };
    for (const auto& [frame, button, caption] : options) {
        auto& option = Control<QRadioButton>(dialog_, button);
        EXPECT_EQ(option.text(), caption);
        EXPECT_EQ(option.parentWidget()->objectName(), frame);
    }
    EXPECT_EQ(Control<QGroupBox>(dialog_, "fraZeroWeightReject").title(),
              "Zero Weight Suppression (Single-Cable Scale)");
    EXPECT_EQ(Control<QGroupBox>(dialog_, "fraRX415Handling").title(), "RX415 Handling");
    EXPECT_EQ(Control<QGroupBox>(dialog_, "fraVendorEnforcement").title(), "Full Speed USB Vendor ID");
}

TEST_F(GlobalConfig, MissingOptionsShowAndStoreTheirDefaults) {
    Open();
    EXPECT_TRUE(IsChosen("optTavrinOnly"));
    EXPECT_TRUE(IsChosen("optDisableRX415Handling"));
    EXPECT_TRUE(IsChosen("optZeroWeightYes"));
    EXPECT_EQ(Stored("VendorEnforcement"), "1");
    EXPECT_EQ(Stored("RX415Handling"), "0");
    EXPECT_EQ(Stored("ZeroWeightReject"), "0");
}

TEST_F(GlobalConfig, StoredNumbersChooseTheButtonsAndAreStoredPlainly) {
    Store("VendorEnforcement", "2");
    Store("RX415Handling", "07");
    Store("ZeroWeightReject", "1");
    Store("LogVerbosity", "3");
    Open();
    EXPECT_TRUE(IsChosen("optTavrinOnly"));
    EXPECT_FALSE(IsChosen("optAllowAll"));
    EXPECT_TRUE(IsChosen("optEnableRX415Handling"));
    EXPECT_TRUE(IsChosen("optZeroWeightNo"));
    EXPECT_EQ(Stored("VendorEnforcement"), "2");
    EXPECT_EQ(Stored("RX415Handling"), "7");
    EXPECT_EQ(Stored("ZeroWeightReject"), "1");
    EXPECT_EQ(Stored("LogVerbosity"), "3");
}

TEST_F(GlobalConfig, AnEmptyTextCountsAsNought) {
    for (const char* name : {"VendorEnforcement", "RX415Handling", "ZeroWeightReject"})
        Store(name, "");
    Open();
    EXPECT_TRUE(IsChosen("optAllowAll"));
    EXPECT_TRUE(IsChosen("optDisableRX415Handling"));
    EXPECT_TRUE(IsChosen("optZeroWeightYes"));
    for (const char* name : {"VendorEnforcement", "RX415Handling", "ZeroWeightReject"})
        EXPECT_EQ(Stored(name), "0");
}

TEST_F(GlobalConfig, ANameWithBlanksAroundItIsFoundButNotRead) {
    Store("a", "b");
    Store(" VendorEnforcement ", "7");
    Open();
    EXPECT_TRUE(IsChosen("optAllowAll")) << "the value of the exact name is missing, which reads as nought";
    EXPECT_EQ(Stored("VendorEnforcement"), "0");
    EXPECT_EQ(Stored(" VendorEnforcement "), "7");
}

TEST_F(GlobalConfig, ANameOfAnotherCaseIsNotFound) {
    Store("vendorenforcement", "0");
    Open();
    EXPECT_TRUE(IsChosen("optTavrinOnly"));
    EXPECT_EQ(Stored("VendorEnforcement"), "1");
}

TEST_F(GlobalConfig, ChoosingAnOptionStoresItAtOnce) {
    Open();
    const std::vector<std::array<const char*, 3>> choices = {
        {"optZeroWeightNo", "ZeroWeightReject", "1"},     {"optZeroWeightYes", "ZeroWeightReject", "0"},
        {"optEnableRX415Handling", "RX415Handling", "1"}, {"optDisableRX415Handling", "RX415Handling", "0"},
        {"optAllowAll", "VendorEnforcement", "0"},        {"optTavrinOnly", "VendorEnforcement", "1"},
    };
    for (const auto& [button, name, number] : choices) {
        Store(name, "9");
        Click(Control<QRadioButton>(dialog_, button));
        EXPECT_TRUE(IsChosen(button));
        EXPECT_EQ(Stored(name), number) << button;
    }
}

TEST_F(GlobalConfig, TheKeyboardChoosesToo) {
    Open();
    dialog_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog_));
    auto& no = Control<QRadioButton>(dialog_, "optZeroWeightNo");
    no.setFocus();
    QTest::keyClick(&no, Qt::Key_Space);
    EXPECT_EQ(Stored("ZeroWeightReject"), "1");
    QTest::keyClick(&no, Qt::Key_Down);
    EXPECT_EQ(Stored("ZeroWeightReject"), "0");
}

TEST_F(GlobalConfig, ClosingStoresNothing) {
    Open();
    Store("VendorEnforcement", "5");
    Click(Control<QPushButton>(dialog_, "cmdClose"));
    EXPECT_FALSE(dialog_.isVisible());
    EXPECT_EQ(Stored("VendorEnforcement"), "5");
}

TEST_F(GlobalConfig, EscapeCloses) {
    Open();
    QTest::keyClick(&dialog_, Qt::Key_Escape);
    EXPECT_FALSE(dialog_.isVisible());
}

TEST(GlobalConfigOnABadDay, AFailingStoreIsReportedOnceAndTheDialogGoesOn) {
    TemporaryRegistry disk;
    FailingRegistry registry(disk);
    frmGlobalConfig dialog(registry);
    dialog.Form_Load();
    dialog.show();
    registry.FailAt(RegistryOperation::WriteValue, 1, RegistryErrorNumber::WriteValue);
    {
        const ExpectBox error("Ravlin", "The disk is gone.\r\n\r\nError Number: -2147220985");
        Click(Control<QRadioButton>(dialog, "optAllowAll"));
    }
    EXPECT_EQ(disk.Text(RegistryPaths::DriverOptions, "VendorEnforcement"), "1");
    Click(Control<QRadioButton>(dialog, "optAllowAll"));
    EXPECT_EQ(disk.Text(RegistryPaths::DriverOptions, "VendorEnforcement"), "0");
}

namespace {

// The dialog as the main window opens it.
class GlobalConfigOfTheMainWindow : public ::testing::Test {
protected:
    GlobalConfigOfTheMainWindow() {
        registry_.Put(RegistryPaths::Settings, "StartupWizard", "1", RegistryRoot::CurrentUser);
        window_ = std::make_unique<MainWindow>(registry_);
    }
    // Through the event loop, where the program's menu commands come from.
    void ChooseFromMenu() {
        auto* action = (*window_)->findChild<QAction*>("mnuGlobalConfig");
        ASSERT_NE(action, nullptr);
        QMetaObject::invokeMethod(action, &QAction::trigger, Qt::QueuedConnection);
        QCoreApplication::processEvents();
    }
    frmGlobalConfig* Dialog() { return (*window_)->findChild<frmGlobalConfig*>(); }
    void ExpectNoDialog() {
        EXPECT_TRUE(WaitUntil([this] { return Dialog() == nullptr; }));
    }

    TemporaryRegistry registry_;
    std::unique_ptr<MainWindow> window_;
};

} // namespace

TEST_F(GlobalConfigOfTheMainWindow, LeavesTheMainWindowUsable) {
    ChooseFromMenu();
    ASSERT_NE(Dialog(), nullptr);
    EXPECT_TRUE(Dialog()->isVisible());
    EXPECT_FALSE(Dialog()->isModal());
    EXPECT_EQ(Dialog()->parentWidget(), &**window_);
}

TEST_F(GlobalConfigOfTheMainWindow, ComesForwardWhenItIsChosenAgain) {
    ChooseFromMenu();
    frmGlobalConfig* dialog = Dialog();
    (*window_)->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&**window_));
    ChooseFromMenu();
    EXPECT_EQ((*window_)->findChildren<frmGlobalConfig*>().size(), 1);
    EXPECT_EQ(Dialog(), dialog);
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
}

TEST_F(GlobalConfigOfTheMainWindow, ReadsAfreshWhenItIsOpenedAgain) {
    ChooseFromMenu();
    ASSERT_NE(Dialog(), nullptr);
    Click(Control<QPushButton>(*Dialog(), "cmdClose"));
    ExpectNoDialog();
    registry_.Put(RegistryPaths::DriverOptions, "ZeroWeightReject", "1");
    ChooseFromMenu();
    ASSERT_NE(Dialog(), nullptr);
    EXPECT_TRUE(Control<QRadioButton>(*Dialog(), "optZeroWeightNo").isChecked());
}

TEST_F(GlobalConfigOfTheMainWindow, ClosesWithTheMainWindow) {
    ChooseFromMenu();
    ASSERT_NE(Dialog(), nullptr);
    window_->Close();
    ExpectNoDialog();
}

TEST_F(GlobalConfigOfTheMainWindow, DoesNotOpenOnTextThatIsNoNumber) {
    registry_.Put(RegistryPaths::DriverOptions, "RX415Handling", "yes");
    {
        const ExpectBox error("Ravlin", "Type mismatch (\"0yes\" is not a number)\r\n\r\nError Number: 13");
        ChooseFromMenu();
    }
    EXPECT_EQ(Dialog(), nullptr);
    EXPECT_EQ(registry_.Text(RegistryPaths::DriverOptions, "RX415Handling"), "yes");
    registry_.Put(RegistryPaths::DriverOptions, "RX415Handling", "1");
    ChooseFromMenu();
    ASSERT_NE(Dialog(), nullptr);
    EXPECT_TRUE(Control<QRadioButton>(*Dialog(), "optEnableRX415Handling").isChecked());
}
