#include "dialogs/frmRetrieveStatistics.h"

#include "support_opos/ScriptedControls.h"
#include "support_widgets/Controls.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class Statistics : public ::testing::Test {
protected:
    Statistics() {
        QObject::connect(&dialog_, &frmRetrieveStatistics::ResultCodeChanged, &dialog_,
                         [this](const QString& name) { shown_ << name; });
        dialog_.show();
    }

    QPlainTextEdit& Buffer() { return Control<QPlainTextEdit>(dialog_, "txtStatBuffString"); }
    QString Result() { return Control<QLabel>(dialog_, "lblResultCode").text(); }
    void Retrieve() { Click(Control<QPushButton>(dialog_, "cmdRetrieveStatistics")); }

    ScriptedScanner scanner_;
    ScriptedScale scale_;
    frmRetrieveStatistics dialog_{{scanner_, scale_}};
    QStringList shown_;
};

} // namespace

TEST_F(Statistics, ReplacesTheRequestByTheIndentedReplyOfTheScanner) {
    scanner_.reply = "<UPOSStat xmlns=\"x\"><Event><Parameter><Value>1</Value></Parameter></Event></UPOSStat>";
    QTest::keyClicks(&Buffer(), "U_,M_");
    Retrieve();
    EXPECT_EQ(scanner_.request, "U_,M_");
    EXPECT_EQ(Buffer().toPlainText().toStdString(), "<UPOSStat xmlns=\"x\">\n   <Event>\n      <Parameter>\n"
                                                    "         <Value>1</Value>\n      </Parameter>\n   </Event>\n"
                                                    "   </UPOSStat>\n   ");
    EXPECT_EQ(Buffer().blockCount(), 8) << "each bare carriage return begins a line";
    EXPECT_EQ(shown_, QStringList{"Success (0)"});
    EXPECT_EQ(Result(), "Success (0)");
}

TEST_F(Statistics, AsksTheScaleWhereThatIsTheDevice) {
    dialog_.DeviceTypeIndex(1);
    scale_.reply = "reply";
    Retrieve();
    EXPECT_TRUE(scanner_.calls.empty());
    EXPECT_EQ(Buffer().toPlainText(), "reply");
}

TEST_F(Statistics, ShowsAFailureAsItsNameAndIndentsWhatTheBufferHolds) {
    scanner_.results["RetrieveStatistics"] = OposResult::Closed;
    Buffer().setPlainText("<Event>a");
    Retrieve();
    EXPECT_EQ(Result(), "Closed (101)");
    EXPECT_EQ(shown_, QStringList{"Closed (101)"});
    EXPECT_EQ(Buffer().toPlainText(), "<Event>\n   a");
}

TEST_F(Statistics, AnEmptyReplyGivesAnEmptyBox) {
    Buffer().setPlainText("nothing");
    Retrieve();
    EXPECT_EQ(Buffer().toPlainText(), "");
    EXPECT_EQ(Result(), "Success (0)");
}

TEST_F(Statistics, CloseClosesTheDialog) {
    Click(Control<QPushButton>(dialog_, "cmdClose"));
    EXPECT_FALSE(dialog_.isVisible());
}
