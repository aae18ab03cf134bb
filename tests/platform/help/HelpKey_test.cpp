// F1 and the menu entries, from the real main window into the real help window.
#include "support/TemporaryRegistry.h"
#include "support_app/MainWindow.h"
#include "support_widgets/BoxWatcher.h"
#include "support_widgets/Controls.h"
#include "widgets/MessageBox.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QRegularExpression>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QWhatsThis>
#include <QWindow>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

QWidget* HelpWindow() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == "frmHelp" && window->isVisible())
            return window;
    return nullptr;
}

QString ShownTopic() {
    QWidget* window = HelpWindow();
    if (window == nullptr)
        return "no help is shown";
    const QUrl url = Control<QTextBrowser>(*window, "txtTopic").source();
    return url.fileName().section('.', 0, 0) + (url.hasFragment() ? '#' + url.fragment() : QString());
}

class HelpFromTheProgram : public ::testing::Test {
protected:
    QString TopicAt(const QString& control) {
        QTest::keyClick(&Control<QWidget>(*window_, control), Qt::Key_F1);
        return ShownTopic();
    }

    TemporaryRegistry registry_;
    MainWindow window_{WithoutWizard(registry_)};
};

} // namespace

TEST_F(HelpFromTheProgram, F1OpensTheTopicOfTheControl) {
    EXPECT_EQ(TopicAt("lstNewModelNumber"), "models");
    EXPECT_EQ(TopicAt("txtNewDeviceName"), "profiles");
    EXPECT_EQ(TopicAt("lstNewDeviceType"), "new-profile");
    EXPECT_EQ(TopicAt("lstNewScaleDisplay_0"), "new-profile#scanner");
    EXPECT_EQ(TopicAt("ListBar"), "main-window");
}

TEST_F(HelpFromTheProgram, F1OpensTheTopicOfTheView) {
    const QStringList topics = {"new-profile", "modify-profile", "simple-test", "detailed-test", "device-information"};
    for (int view = 0; view < topics.size(); ++view)
        EXPECT_EQ(TopicAt("fraOption_" + QString::number(view)), topics[view]);
}

TEST_F(HelpFromTheProgram, F1InAnOpenListIsThatOfTheList) {
    auto& list = Control<DropDownList>(*window_, "lstNewModelNumber");
    list.showPopup();
    QTest::keyClick(static_cast<QWidget*>(list.view()), Qt::Key_F1);
    EXPECT_EQ(ShownTopic(), "models");
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(HelpFromTheProgram, F1OnAMenuEntryOpensItsTopic) {
    auto& menu = Control<QMenu>(*window_, "mnuFile");
    menu.popup(window_->pos());
    menu.setActiveAction(window_->findChild<QAction*>("mnuFileWizard"));
    QTest::keyClick(&menu, Qt::Key_F1);
    EXPECT_EQ(ShownTopic(), "wizard");
}

TEST_F(HelpFromTheProgram, F1InAMessageBoxExplainsIt) {
    // Worked before it is answered.
    const ExpectBox box("Delete Profile?", "Sure?", QMessageBox::Yes);
    QTimer::singleShot(0, &*window_, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_F1); });
    MsgBox(&*window_, "Sure?", MsgBoxButtons::YesNo, "Delete Profile?");
    EXPECT_EQ(ShownTopic(), "messages#delete");
}

TEST_F(HelpFromTheProgram, F1InTheWizardOpensTheTopicOfThePage) {
    const WhenShown wizard("frmWizard", [](QWidget& window) {
        QTest::keyClick(&Control<QWidget>(window, "cmdNext"), Qt::Key_F1);
        EXPECT_EQ(ShownTopic(), "wizard");
        QTest::keyClick(&Control<QWidget>(window, "fraWizard_1"), Qt::Key_F1);
        EXPECT_EQ(ShownTopic(), "wizard#model");
        QTest::keyClick(&Control<QWidget>(window, "txtScannerName_0"), Qt::Key_F1);
        EXPECT_EQ(ShownTopic(), "wizard#options");
        for (const QWidget* control : window.findChildren<QWidget*>(QRegularExpression("^(lst|txt|cmd|chk)")))
            if (control->isVisible()) {
                EXPECT_NE(control->whatsThis(), "") << control->objectName().toStdString();
            }
        window.close();
    });
    window_.Menu("mnuFileWizard");
}

TEST_F(HelpFromTheProgram, StaysUsableBesideAModalDialog) {
    QDialog dialog(&*window_);
    dialog.setObjectName("frmConfigScale");
    QTimer::singleShot(0, &dialog, [&dialog] {
        QTest::keyClick(&dialog, Qt::Key_F1);
        EXPECT_EQ(ShownTopic(), "scale-profile");
        auto& tab = Control<QTabWidget>(*HelpWindow(), "tabHelp");
        QTest::mouseClick(HelpWindow()->windowHandle(), Qt::LeftButton, {},
                          tab.tabBar()->mapTo(HelpWindow(), tab.tabBar()->tabRect(1).center()));
        EXPECT_EQ(tab.currentIndex(), 1);
        dialog.reject();
    });
    dialog.exec();
    EXPECT_EQ(TopicAt("lstNewModelNumber"), "models"); // and after it
}

TEST_F(HelpFromTheProgram, StaysUsableWhenAskedForInAnOpenListOfAModalDialog) {
    QDialog dialog(&*window_);
    DropDownList list(&dialog);
    list.addItem("item");
    QTimer::singleShot(0, &dialog, [&] {
        list.showPopup();
        QTest::keyClick(static_cast<QWidget*>(list.view()), Qt::Key_F1);
        ASSERT_NE(HelpWindow(), nullptr);
        EXPECT_EQ(HelpWindow()->windowHandle()->transientParent(), dialog.windowHandle());
        dialog.reject();
    });
    dialog.exec();
}

TEST_F(HelpFromTheProgram, ContentsAndIndexOpenThoseTabs) {
    window_.Menu("mnuHelpContents");
    ASSERT_NE(HelpWindow(), nullptr);
    EXPECT_EQ(Control<QTabWidget>(*HelpWindow(), "tabHelp").currentWidget()->objectName(), "pagContents");
    window_.Menu("mnuHelpIndex");
    EXPECT_EQ(Control<QTabWidget>(*HelpWindow(), "tabHelp").currentWidget()->objectName(), "pagIndex");
}

TEST_F(HelpFromTheProgram, ClosesWithTheMainWindow) {
    window_.Menu("mnuHelpContents");
    ASSERT_NE(HelpWindow(), nullptr);
    window_.Close();
    EXPECT_EQ(HelpWindow(), nullptr);
}

TEST_F(HelpFromTheProgram, ControlsThatAreShownSayWhatTheyAre) {
    EXPECT_FALSE(Control<QWidget>(*window_, "lstNewModelNumber").whatsThis().isEmpty());
    EXPECT_EQ(Control<QWidget>(*window_, "lblNewModelNumber").whatsThis(),
              Control<QWidget>(*window_, "lstNewModelNumber").whatsThis());
    auto& menu = Control<QMenu>(*window_, "mnuHelp");
    menu.ensurePolished();
    for (const QAction* entry : menu.actions())
        EXPECT_TRUE(entry->isSeparator() || !entry->whatsThis().isEmpty()) << entry->text().toStdString();
}

TEST_F(HelpFromTheProgram, EveryControlOfEveryViewSaysWhatItIs) {
    for (int view = 0; view < 5; ++view) {
        window_->ShowView(view);
        int controls = 0;
        for (const QWidget* control : window_->findChildren<QWidget*>(QRegularExpression("^(lst|txt|cmd|chk|opt)")))
            if (control->isVisible()) {
                ++controls;
                EXPECT_FALSE(control->whatsThis().isEmpty()) << control->objectName().toStdString();
            }
        EXPECT_GT(controls, 1) << view;
    }
}

TEST_F(HelpFromTheProgram, ShiftF1SaysWhatTheControlIs) {
    for (const char* name : {"lstNewModelNumber", "txtNewDeviceName", "cmdNewClear", "ListBar"}) {
        QTest::keyClick(&Control<QWidget>(*window_, name), Qt::Key_F1, Qt::ShiftModifier);
        const bool shown = std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget* window) {
            return window->inherits("QWhatsThat") && window->isVisible();
        });
        EXPECT_TRUE(shown) << name;
        QWhatsThis::hideText();
        EXPECT_EQ(HelpWindow(), nullptr);
    }
}

TEST_F(HelpFromTheProgram, EveryMenuEntryHasAnIcon) {
    for (const char* name : {"mnuFile", "mnuTest", "mnuHelp"})
        for (const QAction* entry : Control<QMenu>(*window_, name).actions())
            EXPECT_TRUE(entry->isSeparator() || !entry->icon().isNull()) << entry->text().toStdString();
}

TEST_F(HelpFromTheProgram, DialogsHaveAQuestionMarkUnlessTheyChoseTheirButtonsThemselves) {
    QDialog dialog(&*window_);
    dialog.ensurePolished();
    EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
    EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    QDialog own(&*window_, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    own.ensurePolished();
    EXPECT_FALSE(own.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
}
