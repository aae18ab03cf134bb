#include "support_app/MainWindow.h"

#include "profiles/CScale2.h"
#include "profiles/CScanner2.h"
#include "profiles/RegistryPaths.h"
#include "support/FailingRegistry.h"
#include "support/TemporaryRegistry.h"
#include "support_widgets/BoxWatcher.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class Main : public ::testing::Test {
protected:
    Main() { PutSetting("StartupWizard", "1"); }

    void PutSetting(const std::string& name, const std::string& text) {
        registry_.Put(RegistryPaths::Settings, name, text, RegistryRoot::CurrentUser);
    }
    std::string Setting(const std::string& name) {
        return registry_.Text(RegistryPaths::Settings, name, RegistryRoot::CurrentUser);
    }
    void PutLogLevel(const std::string& text) { registry_.Put(RegistryPaths::DriverOptions, "LogVerbosity", text); }
    std::string LogLevel() { return registry_.Text(RegistryPaths::DriverOptions, "LogVerbosity"); }
    void PutScanner(const std::string& name) {
        CScanner2 scanner(registry_);
        scanner.DeviceName(name);
        scanner.Model("7346");
        scanner.SaveDevice(false);
    }
    void PutScale(const std::string& name) {
        CScale2 scale(registry_);
        scale.DeviceName(name);
        scale.SaveDevice(false);
    }

    TemporaryRegistry registry_;
};

QStringList Entries(const QMenu& menu) {
    QStringList texts;
    for (const QAction* action : menu.actions())
        texts << (action->isSeparator() ? "-" : action->objectName() + '=' + action->text());
    return texts;
}

} // namespace

TEST_F(Main, IsCaptionedWithTheVersion) {
    MainWindow window(registry_);
    EXPECT_EQ(window->windowTitle(), "Ravlin Administrator v2.0.0");
}

TEST_F(Main, HasItsMenusInOrder) {
    MainWindow window(registry_);
    EXPECT_EQ(Control<QMenu>(*window, "mnuFile").title(), "&File");
    EXPECT_EQ(Control<QMenu>(*window, "mnuTest").title(), "&Device");
    EXPECT_EQ(Control<QMenu>(*window, "mnuHelp").title(), "&Help");
    EXPECT_EQ(
        Entries(Control<QMenu>(*window, "mnuFile")),
        QStringList({"mnuGlobalConfig=&Global Configuration", "-", "mnuFileNew=New Profile",
                     "mnuFileOpen=Modify Profile", "-", "mnuFileWizard=Profile Wizard", "-", "mnuFileQuit=Quit"}));
    EXPECT_EQ(Entries(Control<QMenu>(*window, "mnuTest")),
              QStringList({"mnuTestSimple=Simple Test", "mnuTestDetailed=Detailed Test", "mnuTestInfo=Information"}));
    EXPECT_EQ(Entries(Control<QMenu>(*window, "mnuHelp")),
              QStringList({"mnuHelpContents=Contents", "mnuHelpIndex=Index", "-", "mnuHelpAbout=About"}));
}

TEST_F(Main, ListsItsFiveViews) {
    MainWindow window(registry_);
    const auto& bar = Control<QListWidget>(*window, "ListBar");
    QStringList items;
    for (int i = 0; i < bar.count(); ++i)
        items << bar.item(i)->data(Qt::UserRole).toString() + ' ' + bar.item(i)->text();
    EXPECT_EQ(items, QStringList({"A New Profile", "B Modify Profile", "C Simple Test", "D Detailed Test",
                                  "E Device Information"}));
    EXPECT_EQ(Control<QLabel>(*window, "lblListBar").text(), "Ravlin");
    for (int i = 0; i < 5; ++i) {
        EXPECT_FALSE(bar.item(i)->icon().isNull());
        EXPECT_NO_THROW((void)Control<QWidget>(*window, QStringLiteral("fraOption_%1").arg(i)));
    }
}

TEST_F(Main, StartsCentredWithItsFirstView) {
    MainWindow window(registry_);
    EXPECT_EQ(window.View(), 0);
    const QSize room = window->screen()->geometry().size() - window->size();
    EXPECT_LE((window->pos() - QPoint(room.width() / 2, room.height() / 2)).manhattanLength(), 2);
    EXPECT_EQ(window.List("lstLogLevel").Text(), "None");
}

TEST_F(Main, AStoredPositionOfZeroIsCentredToo) {
    PutSetting("Left", "0");
    PutSetting("Top", "0");
    MainWindow window(registry_);
    EXPECT_NE(window->pos(), QPoint(0, 0));
}

TEST_F(Main, APositionAtOneEdgeOnlyIsNotCentred) {
    PutSetting("Left", "0");
    PutSetting("Top", "12");
    MainWindow window(registry_);
    EXPECT_EQ(window->pos(), QPoint(0, 12));
}

TEST_F(Main, ReturnsToItsPositionEvenOffTheScreen) {
    PutSetting("Left", "-3000");
    PutSetting("Top", "12");
    MainWindow window(registry_);
    EXPECT_EQ(window->pos(), QPoint(-3000, 12));
}

TEST_F(Main, KeepsPositionAndViewForTheNextStart) {
    {
        MainWindow window(registry_);
        window->move(77, 55);
        window.Menu("mnuTestDetailed");
        window.Menu("mnuFileQuit");
        EXPECT_FALSE(window->isVisible());
    }
    EXPECT_EQ(Setting("Left"), "77");
    EXPECT_EQ(Setting("Top"), "55");
    EXPECT_EQ(Setting("ListBar"), "3");
    MainWindow window(registry_);
    EXPECT_EQ(window->pos(), QPoint(77, 55));
    EXPECT_EQ(window.View(), 3);
    EXPECT_EQ(Control<QListWidget>(*window, "ListBar").currentRow(), 3);
}

TEST_F(Main, StartsWithTheFirstItemOfEveryOption) {
    MainWindow window(registry_);
    QStringList lists = {"lstNewDeviceType",      "lstNewInterface",        "lstNewComPort",
                         "lstNewScaleType",       "lstNewModelNumber",      "lstExistingScaleType",
                         "lstExistingDeviceType", "lstExistingModelNumber", "lstDetailedDeviceType",
                         "lstInfoDeviceType"};
    for (const QString page : {"lstNew", "lstExisting"})
        for (const char* option :
             {"Scale", "ScaleWeightUnit_0", "ScaleWeightUnit_1", "ScaleDisplay_0", "ScaleDisplay_1"})
            lists << page + option;
    for (const QString& list : lists)
        EXPECT_EQ(window.List(list).ListIndex(), 0) << list.toStdString();
    EXPECT_EQ(Items(window.List("lstExistingInterface")), QStringList({"RS232", "Full Speed USB", "POS USB"}));
    EXPECT_EQ(window.List("lstExistingInterface").ListIndex(), -1) << "there is no profile to show";
}

TEST_F(Main, MenusAndListBarSwitchTheView) {
    MainWindow window(registry_);
    auto& bar = Control<QListWidget>(*window, "ListBar");
    const QStringList menus = {"mnuFileNew", "mnuFileOpen", "mnuTestSimple", "mnuTestDetailed", "mnuTestInfo"};
    for (const int view : {4, 1, 3, 2, 0}) {
        window.Menu(menus[view]);
        EXPECT_EQ(window.View(), view);
        EXPECT_EQ(bar.currentRow(), view);
        EXPECT_EQ(bar.property("Tag").toString(), QString::number(view));
    }
    for (const int view : {2, 4, 0, 1, 3}) {
        QTest::mouseClick(bar.viewport(), Qt::LeftButton, {}, bar.visualItemRect(bar.item(view)).center());
        EXPECT_EQ(window.View(), view);
    }
}

TEST_F(Main, AViewStartsAtItsFirstList) {
    MainWindow window(registry_);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&*window));
    const QStringList first = {"lstNewDeviceType", "lstExistingDeviceType", "lstSimpleDeviceName_0",
                               "lstDetailedDeviceType", "lstInfoDeviceType"};
    for (const int view : {1, 2, 3, 4, 0}) {
        window->ShowView(view);
        EXPECT_EQ(window->focusWidget()->objectName(), first[view]);
    }
}

TEST_F(Main, TheCurrentViewIsNotShownAgain) {
    MainWindow window(registry_);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&*window));
    auto& name = Control<QWidget>(*window, "txtNewDeviceName");
    name.setFocus();
    window.Menu("mnuFileNew");
    EXPECT_EQ(window->focusWidget(), &name);
}

TEST_F(Main, AViewThatDoesNotExistIsAnErrorAndTheProgramGoesOn) {
    PutSetting("ListBar", "5");
    const ExpectBox box("Ravlin", "Subscript out of range (there is no view 5)\r\n\r\nError Number: 9");
    MainWindow window(registry_);
    EXPECT_EQ(window.View(), 0);
}

TEST_F(Main, ShowsTheLogLevelsOnlyWhenAskedTo) {
    {
        MainWindow window(registry_, false);
        EXPECT_FALSE(IsShown(window.List("lstLogLevel")));
        EXPECT_FALSE(IsShown(Control<QLabel>(*window, "lblLogLevel")));
    }
    MainWindow window(registry_, true);
    EXPECT_TRUE(IsShown(window.List("lstLogLevel")));
    EXPECT_TRUE(IsShown(Control<QLabel>(*window, "lblLogLevel")));
    EXPECT_EQ(Items(window.List("lstLogLevel")),
              QStringList({"None", "Errors", "Warnings", "Information", "Function Trace", "Function Data"}));
}

TEST_F(Main, LoadsTheStoredLogLevelAndLeavesItAlone) {
    PutScanner("Lane 1");
    PutScale("Lane 1");
    for (const auto& [stored, shown] :
         {std::pair{"-1", "None"}, {"0", "Errors"}, {"2", "Information"}, {"4", "Function Data"}}) {
        PutLogLevel(stored);
        MainWindow window(registry_);
        EXPECT_EQ(window.List("lstLogLevel").Text(), shown);
        EXPECT_EQ(LogLevel(), stored);
    }
}

TEST_F(Main, ChoosingALogLevelStoresItAtOnce) {
    MainWindow window(registry_, true);
    EXPECT_EQ(LogLevel(), "") << "showing the list stores nothing";
    Choose(window.List("lstLogLevel"), "Errors");
    EXPECT_EQ(LogLevel(), "0");
    Choose(window.List("lstLogLevel"), "Function Data");
    EXPECT_EQ(LogLevel(), "4");
    Choose(window.List("lstLogLevel"), "None");
    EXPECT_EQ(LogLevel(), "-1");
}

TEST_F(Main, ALogLevelThatTheListDoesNotHaveIsReportedAndKept) {
    PutLogLevel("9");
    const ExpectBox box("Ravlin", "Invalid property value (lstLogLevel has no item 10)\r\n\r\nError Number: 380");
    MainWindow window(registry_);
    EXPECT_EQ(LogLevel(), "9");
}

TEST_F(Main, HoldsEveryStoredProfileInAllItsLists) {
    PutScanner("B");
    PutScanner("A");
    PutScale("A");
    registry_.Put("SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scanner\\Foreign", "", "Other.Scanner");
    MainWindow window(registry_);
    EXPECT_EQ(Items(window.List("lstExistingDeviceName_0")), QStringList({"A", "B"}));
    for (const char* family : {"lstSimpleDeviceName", "lstDetailedDeviceName", "lstInfoDeviceName"}) {
        EXPECT_EQ(Items(window.List(QString(family) + "_0")), QStringList({"A", "B", "Foreign"}));
        EXPECT_EQ(Items(window.List(QString(family) + "_1")), QStringList("A"));
    }
    EXPECT_EQ(window.List("lstSimpleDeviceName_0").Text(), "A");
    EXPECT_EQ(window.List("lstSimpleDeviceName_1").Text(), "A");
}

TEST_F(Main, AScaleFolderThatCannotBeReadIsReportedAndTheScannersAreListed) {
    PutScanner("Lane 1");
    PutScale("Lane 1");
    FailingRegistry failing(registry_);
    failing.FailAt(RegistryOperation::SubKeyName, 2, RegistryErrorNumber::ReadKey);
    const ExpectBox box("Ravlin", "The disk is gone.\r\n\r\nError Number: -2147220988");
    MainWindow window(failing);
    EXPECT_EQ(Items(window.List("lstSimpleDeviceName_0")), QStringList("Lane 1"));
    EXPECT_EQ(window.List("lstSimpleDeviceName_1").ListCount(), 0);
}

TEST_F(Main, AddDeviceListsANewProfileAndSelectsItWhereItIsTheOnlyOne) {
    PutScanner("First");
    MainWindow window(registry_);
    const auto scanner = std::make_shared<CScanner2>(registry_);
    scanner->DeviceName("Second");
    window->AddDevice(scanner);
    const auto scale = std::make_shared<CScale2>(registry_);
    scale->DeviceName("Only");
    window->AddDevice(scale);
    for (const char* family :
         {"lstExistingDeviceName", "lstSimpleDeviceName", "lstDetailedDeviceName", "lstInfoDeviceName"}) {
        EXPECT_EQ(Items(window.List(QString(family) + "_0")), QStringList({"First", "Second"}));
        EXPECT_EQ(window.List(QString(family) + "_0").Text(), "First");
        EXPECT_EQ(window.List(QString(family) + "_1").Text(), "Only");
    }
    const auto replacement = std::make_shared<CScanner2>(registry_);
    replacement->DeviceName("SECOND");
    window->AddDevice(replacement);
    EXPECT_EQ(Items(window.List("lstSimpleDeviceName_0")), QStringList({"First", "Second"}));
}

TEST_F(Main, TellsItsPortsAndInterfaces) {
    MainWindow window(registry_);
    EXPECT_EQ(window->AvailableComPorts().size(), 128);
    EXPECT_EQ(window->AvailableComPorts().left(6), "010203");
    EXPECT_EQ(window->AvailableInterfaces(), "RS232\rFull Speed USB\rPOS USB");
}

TEST_F(Main, ComesForwardFromAnIcon) {
    MainWindow window(registry_);
    window->showMinimized();
    window->ComeForward();
    EXPECT_FALSE(window->isMinimized());
    EXPECT_TRUE(window->isVisible());
}

TEST_F(Main, AboutShowsTheAboutBox) {
    MainWindow window(registry_);
    const WhenShown about("frmAbout", [](QWidget& box) { box.close(); });
    window.Menu("mnuHelpAbout");
}
