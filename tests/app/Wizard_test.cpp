// How the main window opens the configuration wizard and takes what it stores.
#include "profiles/CScanner2.h"
#include "profiles/RegistryPaths.h"
#include "support/TemporaryRegistry.h"
#include "support_app/MainWindow.h"
#include "support_widgets/BoxWatcher.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

class MainWizard : public ::testing::Test {
protected:
    void PutSetting(const std::string& text) {
        registry_.Put(RegistryPaths::Settings, "StartupWizard", text, RegistryRoot::CurrentUser);
    }
    static QTimer& Timer(MainWindow& window) {
        auto* timer = window->findChild<QTimer*>("tmrWizard");
        if (timer == nullptr)
            throw std::runtime_error("no timer tmrWizard");
        return *timer;
    }

    TemporaryRegistry registry_;
};

// Goes through the wizard with a USB scanner, which nothing has to be connected for.
void StoreUsbScanner(QWidget& wizard, const QString& name) {
    const auto next = [&wizard] { Click(Control<QPushButton>(wizard, "cmdNext")); };
    next();
    next();
    QTest::keyClicks(&Control<QLineEdit>(wizard, "txtScannerName_0"), name);
    Choose(Control<DropDownList>(wizard, "lstInterface_0"), "Full Speed USB");
    const ExpectBox notice("Kalder Information",
                           "If not already configured for use with Ravlin, your IBM OEM USB scanner must be configured "
                           "by the scanning of a bar code or a menu of bar codes.  Please contact a Tavrin "
                           "representative if you require assistance with that.");
    next();
    next();
    Click(Control<QPushButton>(wizard, "cmdFinish"));
}

} // namespace

TEST_F(MainWizard, OpensModallyAtTheFirstStart) {
    const WhenShown opened("frmWizard", [](QWidget& wizard) {
        EXPECT_TRUE(wizard.isModal());
        EXPECT_EQ(wizard.parentWidget()->objectName(), "frmMain");
        EXPECT_TRUE(wizard.parentWidget()->isVisible());
        wizard.close();
    });
    MainWindow window(registry_);
    EXPECT_EQ(Timer(window).interval(), 1);
    EXPECT_TRUE(WaitUntil([&] { return !Timer(window).isActive(); }));
}

TEST_F(MainWizard, OpensOncePerStart) {
    PutSetting("0");
    const WhenShown opened("frmWizard", [](QWidget& wizard) { wizard.close(); });
    MainWindow window(registry_);
    EXPECT_TRUE(WaitUntil([&] { return !Timer(window).isActive(); }));
    QTest::qWait(50); // a second one would fail the test: nobody would close it
    EXPECT_EQ(window->findChild<QDialog*>("frmWizard"), nullptr);
}

TEST_F(MainWizard, StaysAwayWhereTheUserSaidSo) {
    for (const char* text : {"1", "01", "2", "32767"}) {
        PutSetting(text);
        MainWindow window(registry_);
        EXPECT_FALSE(Timer(window).isActive()) << text;
    }
}

TEST_F(MainWizard, SettingThatIsNoNumberIsReportedAndOpensNothing) {
    PutSetting("yes");
    const ExpectBox error("Ravlin", "Type mismatch (\"0yes\" is not a number)\r\n\r\nError Number: 13");
    MainWindow window(registry_);
    EXPECT_FALSE(Timer(window).isActive());
}

TEST_F(MainWizard, OpensFromTheMenu) {
    PutSetting("1");
    MainWindow window(registry_);
    for (int i = 0; i < 2; ++i) {
        const WhenShown opened("frmWizard", [](QWidget& wizard) {
            EXPECT_TRUE(wizard.isModal());
            EXPECT_EQ(Control<DropDownList>(wizard, "lstScannerComPort_0").ListCount(), 64);
            EXPECT_EQ(Items(Control<DropDownList>(wizard, "lstInterface_0")),
                      QStringList({"RS232", "Full Speed USB", "POS USB"}));
            wizard.close();
        });
        window.Menu("mnuFileWizard");
    }
}

TEST_F(MainWizard, StoredProfilesAreListedAtOnce) {
    PutSetting("1");
    MainWindow window(registry_);
    const WhenShown opened("frmWizard", [](QWidget& wizard) { StoreUsbScanner(wizard, "Lane"); });
    window.Menu("mnuFileWizard");
    for (const char* list :
         {"lstExistingDeviceName_0", "lstSimpleDeviceName_0", "lstDetailedDeviceName_0", "lstInfoDeviceName_0"})
        EXPECT_EQ(Items(window.List(list)), QStringList("Lane")) << list;
    EXPECT_EQ(registry_.Text(RegistryPaths::ScannerFolder + std::string("Lane"), "Scanner Version"), "2");
}

TEST_F(MainWizard, ReplacedProfileStaysListedOnce) {
    PutSetting("1");
    CScanner2 scanner(registry_);
    scanner.DeviceName("Lane");
    scanner.Model("7346");
    scanner.SaveDevice(false);
    MainWindow window(registry_);
    const WhenShown opened("frmWizard", [](QWidget& wizard) { StoreUsbScanner(wizard, "Lane"); });
    window.Menu("mnuFileWizard");
    EXPECT_EQ(Items(window.List("lstExistingDeviceName_0")), QStringList("Lane"));
    EXPECT_EQ(registry_.Text(RegistryPaths::ScannerFolder + std::string("Lane"), "Model"), "Vanta/2315");
}
