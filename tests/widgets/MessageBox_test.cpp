#include "widgets/MessageBox.h"

#include "support_widgets/BoxWatcher.h"
#include "support_widgets/Controls.h"

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

TEST(MessageBox, AnswersWithTheButtonThatWasPressed) {
    {
        const ExpectBox box("Ravlin", "Done.");
        EXPECT_EQ(MsgBox(nullptr, "Done."), MsgBoxResult::Ok);
    }
    for (const auto& [button, result] :
         {std::pair{QMessageBox::Yes, MsgBoxResult::Yes}, {QMessageBox::No, MsgBoxResult::No}}) {
        const ExpectBox box("Sure?", "Really?", button);
        EXPECT_EQ(MsgBox(nullptr, "Really?", MsgBoxButtons::YesNo, "Sure?"), result);
    }
    for (const auto& [button, result] :
         {std::pair{QMessageBox::Retry, MsgBoxResult::Retry}, {QMessageBox::Cancel, MsgBoxResult::Cancel}}) {
        const ExpectBox box("Ravlin", "Again?", button);
        EXPECT_EQ(MsgBox(nullptr, "Again?", MsgBoxButtons::RetryCancel), result);
    }
}

TEST(MessageBox, EscapeIsTheCautiousAnswer) {
    const auto escape = [](MsgBoxButtons buttons) {
        const ExpectBox box("Sure?", "Really?", ExpectBox::Escape);
        return MsgBox(nullptr, "Really?", buttons, "Sure?");
    };
    EXPECT_EQ(escape(MsgBoxButtons::Ok), MsgBoxResult::Ok);
    EXPECT_EQ(escape(MsgBoxButtons::YesNo), MsgBoxResult::No);
    EXPECT_EQ(escape(MsgBoxButtons::RetryCancel), MsgBoxResult::Cancel);
}

TEST(MessageBox, ShowsItsTextAsItStands) {
    const ExpectBox box("Ravlin", "<b>Lane</b> & \"more\"");
    QTimer::singleShot(0, qApp, [] {
        const auto* shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(shown, nullptr);
        EXPECT_EQ(shown->textFormat(), Qt::PlainText);
        EXPECT_EQ(shown->icon(), QMessageBox::NoIcon);
    });
    MsgBox(nullptr, "<b>Lane</b> & \"more\"");
}

TEST(MessageBox, WarnsWithAnIconOnlyWhereItIsAskedTo) {
    const ExpectBox box("Ravlin", "Careful.");
    QTimer::singleShot(0, qApp, [] {
        EXPECT_EQ(qobject_cast<QMessageBox*>(QApplication::activeModalWidget())->icon(), QMessageBox::Warning);
    });
    MsgBox(nullptr, "Careful.", MsgBoxButtons::Ok, {}, MsgBoxIcon::Exclamation);
}
