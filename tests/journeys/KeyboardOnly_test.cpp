// Somebody without a mouse makes a profile and deletes it again.
#include "support_app/MainWindow.h"

#include "support/TemporaryRegistry.h"
#include "support_widgets/BoxWatcher.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr const char* ScannerKey = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scanner\\Lane 1";
constexpr const char* ScaleKey = "SOFTWARE\\OLEForRetail\\ServiceOPOS\\Scale\\Lane 1";

QString Focus() {
    return QApplication::focusWidget() != nullptr ? QApplication::focusWidget()->objectName() : QString();
}

void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    if (QApplication::focusWidget() == nullptr)
        throw std::runtime_error("nothing has the focus");
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

void Type(const QString& text) {
    QTest::keyClicks(QApplication::focusWidget(), text);
}

// Where no window manager does it.
void Activate(QWidget& window) {
    window.activateWindow();
    if (!WaitUntil([&window] { return QApplication::activeWindow() == &window; }))
        throw std::runtime_error((window.objectName() + " does not become active").toStdString());
}

class KeyboardOnly : public ::testing::Test {
protected:
    KeyboardOnly() { Activate(*window_); }

    // Describes a scanner with a scale built in and saves both profiles.
    void MakeProfiles() {
        Press(Qt::Key_M, Qt::AltModifier);
        EXPECT_EQ(Focus(), "lstNewModelNumber");
        Press(Qt::Key_Down);
        Press(Qt::Key_Tab);
        EXPECT_EQ(Focus(), "lstNewScale");
        Type("Single");
        Press(Qt::Key_N, Qt::AltModifier);
        Type("Lane 1");

        const WhenShown scale("frmConfigScale", [](QWidget& dialog) {
            Activate(dialog);
            Press(Qt::Key_Return);
        });
        const ExpectBox created("Ravlin", "Device profile created successfully.", ExpectBox::Enter);
        const ExpectBox question(
            "Program Scanner?",
            "You must reprogram your scanner before it will work\r\nwith the Tavrin OPOS drivers.  "
            "Do you wish to\r\nreprogram your scanner now?\r\n\r\nYou can reprogram your scanner at a "
            "later time by\r\nclicking the Program button in the Modify Profile section.",
            ExpectBox::Escape);
        Press(Qt::Key_S, Qt::AltModifier);
        EXPECT_TRUE(WaitUntil([this, &question] {
            return question.Shown() && Control<QLineEdit>(*window_, "txtNewDeviceName").text().isEmpty();
        }));
    }

    TemporaryRegistry registry_;
    MainWindow window_{WithoutWizard(registry_)};
};

} // namespace

TEST_F(KeyboardOnly, MakesAProfileAndDeletesItAgain) {
    MakeProfiles();
    EXPECT_EQ(registry_.Text(ScannerKey, "Model"), "Pelerin/3172");
    EXPECT_TRUE(registry_.HasKey(ScaleKey));

    Activate(*window_);
    Press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(window_.View(), 1);
    Press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(Focus(), "lstExistingDeviceName_0");
    Press(Qt::Key_Down);
    EXPECT_EQ(window_.List("lstExistingDeviceName_0").Text(), "Lane 1");
    const ExpectBox sure("Delete Profile?", "Are you sure you wish to delete this profile (Lane 1)?", ExpectBox::Enter);
    const ExpectBox deleted("Profile Deleted", "Device profile successfully deleted.", ExpectBox::Enter);
    Press(Qt::Key_L, Qt::AltModifier);
    EXPECT_TRUE(WaitUntil(
        [this, &deleted] { return deleted.Shown() && window_.List("lstExistingDeviceName_0").count() == 0; }));
    EXPECT_FALSE(registry_.HasKey(ScannerKey));
    EXPECT_TRUE(registry_.HasKey(ScaleKey));
}

TEST_F(KeyboardOnly, GoesThroughTheViewsByTheListBar) {
    auto& views = Control<QListWidget>(*window_, "ListBar");
    views.setFocus(Qt::TabFocusReason);
    for (int view = 1; view < views.count(); ++view) {
        Press(Qt::Key_Down);
        Press(Qt::Key_Return);
        EXPECT_EQ(window_.View(), view);
        Press(Qt::Key_Backtab); // back out of the view
        while (Focus() != "ListBar")
            Press(Qt::Key_Backtab);
    }
}

TEST_F(KeyboardOnly, HasAShortcutForEveryView) {
    for (int view = 4; view >= 0; --view) {
        QTest::keyClick(&*window_, static_cast<Qt::Key>(Qt::Key_1 + view), Qt::ControlModifier);
        EXPECT_EQ(window_.View(), view);
    }
}

TEST_F(KeyboardOnly, GoesInTurnToThoseWhoShareALetter) {
    window_.List("lstNewModelNumber").SetListIndex(1);
    window_.List("lstNewScale").SetListIndex(1);
    Control<QWidget>(*window_, "lstNewScale").setFocus();
    QStringList reached;
    for (int i = 0; i < 3; ++i) {
        Press(Qt::Key_P, Qt::AltModifier);
        reached << Focus();
    }
    EXPECT_TRUE(reached.contains("lstNewScaleDisplay_0")) << reached.join(' ').toStdString();
    EXPECT_TRUE(reached.contains("cmdNewProgram")) << reached.join(' ').toStdString();
}
