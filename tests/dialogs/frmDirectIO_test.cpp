#include "dialogs/frmDirectIO.h"

#include "dialogs/DigitsBox.h"
#include "support_opos/ScriptedControls.h"
#include "support_widgets/BoxWatcher.h"
#include "support_widgets/Controls.h"

#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class DirectIO : public ::testing::Test {
protected:
    DirectIO() {
        QObject::connect(&dialog_, &frmDirectIO::ResultCodeChanged, &dialog_,
                         [this](const QString& name) { shown_ << name; });
        dialog_.show();
        dialog_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog_));
    }

    DigitsBox& EventNumber() { return Control<DigitsBox>(dialog_, "txtEventNumber"); }
    DigitsBox& Data() { return Control<DigitsBox>(dialog_, "txtData"); }
    QLineEdit& String() { return Control<QLineEdit>(dialog_, "txtString"); }
    void Send() { Click(Control<QPushButton>(dialog_, "cmdSend")); }

    ScriptedScanner detailScan_;
    ScriptedScale detailScale_;
    ScriptedScale simpleScale_;
    frmDirectIO dialog_{{detailScan_, detailScale_, simpleScale_}};
    QStringList shown_;
};

} // namespace

TEST_F(DirectIO, SendsTheCommandToTheScannerShowsItsResultAndCloses) {
    detailScan_.results["DirectIO"] = OposResult::Illegal;
    QTest::keyClicks(&EventNumber(), "12");
    QTest::keyClicks(&Data(), "2147483647");
    String().setText(QString::fromUtf8("abc \xC3\xA4"));
    Send();
    EXPECT_EQ(detailScan_.calls, std::vector<std::string>{"DirectIO"});
    EXPECT_EQ(detailScan_.command, 12);
    EXPECT_EQ(detailScan_.commandData, 2147483647);
    EXPECT_EQ(detailScan_.commandText, "abc \xC3\xA4");
    EXPECT_EQ(shown_, QStringList{"Illegal (106)"});
    EXPECT_FALSE(dialog_.isVisible());
}

TEST_F(DirectIO, ShowsForAScaleTheResultOfTheSimpleTestsScale) {
    dialog_.DeviceTypeIndex(1);
    detailScale_.results["DirectIO"] = OposResult::Illegal;
    simpleScale_.results["Open"] = OposResult::NoExist;
    simpleScale_.Open("x");
    Send();
    EXPECT_EQ(detailScale_.calls, std::vector<std::string>{"DirectIO"});
    EXPECT_TRUE(detailScan_.calls.empty());
    EXPECT_EQ(shown_, QStringList{"No Exist (109)"});
}

TEST_F(DirectIO, CancelSendsNothing) {
    Click(Control<QPushButton>(dialog_, "cmdCancel"));
    EXPECT_TRUE(detailScan_.calls.empty());
    EXPECT_TRUE(shown_.empty());
    EXPECT_FALSE(dialog_.isVisible());
}

TEST_F(DirectIO, TakesDigitsAndBackspaceOnlyInItsNumbers) {
    for (DigitsBox* box : {&EventNumber(), &Data()}) {
        QTest::keyClicks(box, "1a-+ 2.e3");
        EXPECT_EQ(box->text(), "123");
        QTest::keyClick(box, Qt::Key_Backspace);
        EXPECT_EQ(box->text(), "12");
    }
}

TEST_F(DirectIO, TakesNoOtherTextFromTheClipboard) {
    EventNumber().setFocus();
    for (const char* text : {"-5", "12 ", "1e3", "\xD9\xA3"}) { // the last is an Arabic digit
        QApplication::clipboard()->setText(text);
        EventNumber().paste();
        EXPECT_EQ(EventNumber().text(), "");
    }
    QApplication::clipboard()->setText("42");
    EventNumber().paste();
    EXPECT_EQ(EventNumber().text(), "42");
}

TEST_F(DirectIO, MakesAnEmptyNumberZeroWhenItIsLeft) {
    Data().setFocus();
    EXPECT_EQ(Data().text(), "");
    QTest::keyClick(&Data(), Qt::Key_Tab);
    EXPECT_EQ(Data().text(), "0");
    EXPECT_TRUE(String().hasFocus());
}

TEST_F(DirectIO, LeavesAnEmptyNumberAloneWhileAMenuOrAnotherProgramHasTheKeyboard) {
    for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
        QFocusEvent leave(QEvent::FocusOut, reason);
        QCoreApplication::sendEvent(&Data(), &leave);
        EXPECT_EQ(Data().text(), "");
    }
}

TEST_F(DirectIO, SendsEmptyNumbersAsZeroAlsoByTheEnterKey) {
    EventNumber().setFocus();
    QTest::keyClick(&EventNumber(), Qt::Key_Return);
    EXPECT_EQ(detailScan_.calls, std::vector<std::string>{"DirectIO"});
    EXPECT_EQ(detailScan_.command, 0);
    EXPECT_EQ(detailScan_.commandData, 0);
}

TEST_F(DirectIO, SelectsTheWholeNumberThatBecomesActive) {
    EventNumber().setText("123");
    Data().setText("456");
    String().setFocus();
    Data().setFocus();
    EXPECT_EQ(Data().selectedText(), "456");
    EventNumber().setFocus();
    Data().deselect();
    QTest::keyClick(&EventNumber(), Qt::Key_Tab);
    EXPECT_EQ(Data().selectedText(), "456");
    QCoreApplication::processEvents();
    EventNumber().deselect();
    QTest::mouseClick(&EventNumber(), Qt::LeftButton, {}, QPoint(8, EventNumber().height() / 2));
    EXPECT_TRUE(WaitUntil([this] { return EventNumber().selectedText() == "123"; }));
}

TEST_F(DirectIO, RefusesANumberTooLargeForACommandAndStays) {
    const QString limit = ".\r\nPlease enter a number from 0 to 2147483647.";
    QTest::keyClicks(&EventNumber(), "2147483648");
    {
        const ExpectBox box("Ravlin", "The event number is too large" + limit);
        Send();
    }
    EXPECT_EQ(dialog_.focusWidget(), &EventNumber());
    EXPECT_EQ(EventNumber().selectedText(), "2147483648");
    EventNumber().setText("7");
    Data().setText("99999999999999999999");
    {
        const ExpectBox box("Ravlin", "The data is too large" + limit);
        Send();
    }
    EXPECT_TRUE(detailScan_.calls.empty());
    EXPECT_TRUE(dialog_.isVisible());
    Data().setText("0000000000000000000008");
    Send();
    EXPECT_EQ(detailScan_.commandData, 8);
}
