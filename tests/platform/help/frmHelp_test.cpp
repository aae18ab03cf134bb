#include "platform/help/HelpBrowser.h"
#include "platform/help/frmHelp.h"
#include "support_widgets/Controls.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSet>
#include <QTabWidget>
#include <QTest>
#include <QTextBlock>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace {

class HelpWindowShown : public ::testing::Test {
protected:
    HelpWindowShown() {
        window_.show();
        if (!QTest::qWaitForWindowExposed(&window_))
            throw std::runtime_error("the help window does not show itself");
    }

    template<typename T>
    T& Part(const QString& name) {
        return Control<T>(window_, name);
    }
    HelpBrowser& Topic() { return Part<HelpBrowser>("txtTopic"); }
    QString Shown() { return Topic().source().fileName(); }
    void Type(const QString& box, const QString& text) {
        Part<QLineEdit>(box).clear();
        QTest::keyClicks(&Part<QLineEdit>(box), text);
    }
    QStringList Texts(const QString& name) {
        QStringList texts;
        const auto& list = Part<QListWidget>(name);
        for (int i = 0; i < list.count(); ++i)
            if (!list.item(i)->isHidden())
                texts << list.item(i)->text();
        return texts;
    }

    frmHelp window_;
};

} // namespace

TEST_F(HelpWindowShown, BeginsAtTheFirstTopicWithEveryTopicInTheContents) {
    EXPECT_EQ(Shown(), "welcome.html");
    int items = 0;
    for (QTreeWidgetItemIterator item(&Part<QTreeWidget>("treContents")); *item != nullptr; ++item)
        ++items;
    EXPECT_EQ(items, static_cast<int>(HelpBook().Topics().size()));
}

TEST_F(HelpWindowShown, ReachesEveryTopicFromTheContentsByKey) {
    auto& tree = Part<QTreeWidget>("treContents");
    QTest::keyClick(&tree, Qt::Key_Home);
    const HelpBook book;
    for (const HelpBook::Topic& topic : book.Topics()) {
        EXPECT_EQ(Shown(), topic.id + ".html");
        EXPECT_TRUE(window_.windowTitle().startsWith(topic.title));
        EXPECT_TRUE(Topic().toPlainText().startsWith(topic.title)) << topic.id.toStdString();
        QTest::keyClick(&tree, Qt::Key_Down);
    }
}

TEST_F(HelpWindowShown, GoesBackForwardAndHome) {
    EXPECT_FALSE(Part<QPushButton>("cmdBack").isEnabled());
    window_.ShowTopic("models");
    window_.ShowTopic("cabling");
    Click(Part<QPushButton>("cmdBack"));
    EXPECT_EQ(Shown(), "models.html");
    EXPECT_EQ(Part<QTreeWidget>("treContents").currentItem()->text(0), "Scanner models");
    Click(Part<QPushButton>("cmdForward"));
    EXPECT_EQ(Shown(), "cabling.html");
    Click(Part<QPushButton>("cmdHome"));
    EXPECT_EQ(Shown(), "welcome.html");
}

TEST_F(HelpWindowShown, FollowsALinkByKeyboard) {
    window_.ShowTopic("welcome");
    QTest::keyClick(&Topic(), Qt::Key_Tab);
    QTest::keyClick(&Topic(), Qt::Key_Return);
    EXPECT_EQ(Shown(), "getting-started.html");
}

TEST_F(HelpWindowShown, ShowsTheFirstTopicForOneThatIsNotThere) {
    window_.ShowTopic("models");
    window_.ShowTopic("nonsense");
    EXPECT_EQ(Shown(), "welcome.html");
}

TEST_F(HelpWindowShown, GoesToThePlaceInATopic) {
    window_.ShowTopic("messages#error-loading");
    EXPECT_EQ(Topic().source().fragment(), "error-loading");
    QTextCursor place = Topic().document()->find("Error loading [name]");
    place.movePosition(QTextCursor::StartOfBlock);
    const QRect heading = Topic().cursorRect(place);
    EXPECT_GT(heading.top(), 0);
    const QScrollBar& bar = *Topic().verticalScrollBar();
    constexpr int BorderPx = 30; // or the last screenful of the topic is shown
    EXPECT_TRUE(heading.top() < BorderPx || bar.maximum() - bar.value() < BorderPx) << heading.top();
}

TEST_F(HelpWindowShown, IndexIsFilteredAndOpensTheFirstEntryLeft) {
    window_.ShowIndex();
    EXPECT_TRUE(Part<QLineEdit>("txtIndexFilter").hasFocus());
    EXPECT_GT(Texts("lstIndex").size(), 100);
    Type("txtIndexFilter", "ravlin-r");
    EXPECT_EQ(Texts("lstIndex"), QStringList("ravlin-reg"));
    QTest::keyClick(&Part<QLineEdit>("txtIndexFilter"), Qt::Key_Return);
    EXPECT_EQ(Shown(), "registry.html");
}

TEST_F(HelpWindowShown, IndexEntriesDiffer) {
    QSet<QString> seen;
    for (const QString& entry : Texts("lstIndex")) {
        EXPECT_FALSE(seen.contains(entry.toLower())) << entry.toStdString();
        seen << entry.toLower();
    }
}

TEST_F(HelpWindowShown, SearchListsTopicsWithAllTheWordsAndMarksThem) {
    Part<QTabWidget>("tabHelp").setCurrentIndex(2);
    Type("txtSearch", "firmware 40191");
    EXPECT_EQ(Texts("lstHits"), QStringList("Programming classes"));
    EXPECT_EQ(Part<QLabel>("lblHits").text(), "1 topic");
    QTest::keyClick(&Part<QLineEdit>("txtSearch"), Qt::Key_Return);
    EXPECT_EQ(Shown(), "programming-classes.html");
    QStringList marked;
    for (const QTextEdit::ExtraSelection& mark : Topic().extraSelections())
        marked << mark.cursor.selectedText().toLower();
    EXPECT_TRUE(marked.contains("firmware") && marked.contains("40191"));
}

TEST_F(HelpWindowShown, SearchPutsTopicsFirstThatAreAboutTheWords) {
    Type("txtSearch", "glossary");
    ASSERT_FALSE(Texts("lstHits").isEmpty());
    EXPECT_EQ(Texts("lstHits").front(), "Glossary");
    Type("txtSearch", "zero weight"); // elsewhere "Zero Scale" and "Read Weight"
    EXPECT_EQ(Texts("lstHits").front(), "Global configuration");
}

TEST_F(HelpWindowShown, SearchSaysWhenNothingIsFound) {
    Type("txtSearch", "xyzzy");
    EXPECT_TRUE(Texts("lstHits").isEmpty());
    EXPECT_EQ(Part<QLabel>("lblHits").text(), "No topic holds all these words.");
    QTest::keyClick(&Part<QLineEdit>("txtSearch"), Qt::Key_Return);
    EXPECT_EQ(Shown(), "welcome.html");
}

TEST_F(HelpWindowShown, MarksAreGoneOnATopicThatIsOpenedOtherwise) {
    Type("txtSearch", "firmware");
    QTest::keyClick(&Part<QLineEdit>("txtSearch"), Qt::Key_Return);
    ASSERT_FALSE(Topic().extraSelections().isEmpty());
    window_.ShowTopic("programming-classes");
    EXPECT_TRUE(Topic().extraSelections().isEmpty());
}

TEST_F(HelpWindowShown, FindsOnThePageForwardBackwardAndAround) {
    window_.ShowTopic("result-codes");
    QTest::keyClick(&window_, Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(WaitUntil([this] { return Part<QLineEdit>("txtFind").hasFocus(); }));
    Type("txtFind", "Claim");
    QTest::keyClick(&Part<QLineEdit>("txtFind"), Qt::Key_Return);
    const int first = Topic().textCursor().selectionStart();
    Click(Part<QPushButton>("cmdFindNext"));
    EXPECT_GT(Topic().textCursor().selectionStart(), first);
    Click(Part<QPushButton>("cmdFindPrevious"));
    EXPECT_EQ(Topic().textCursor().selectionStart(), first);
    Click(Part<QPushButton>("cmdFindPrevious"));
    EXPECT_GT(Topic().textCursor().selectionStart(), first);
    Type("txtFind", "xyzzy");
    Click(Part<QPushButton>("cmdFindNext"));
    EXPECT_TRUE(Part<QLabel>("lblFound").isVisible());
    Type("txtFind", "Claim");
    EXPECT_FALSE(Part<QLabel>("lblFound").isVisible());
}

TEST_F(HelpWindowShown, EscapeClosesIt) {
    QTest::keyClick(&window_, Qt::Key_Escape);
    EXPECT_TRUE(WaitUntil([this] { return !window_.isVisible(); }));
}

TEST_F(HelpWindowShown, FollowsAChangeOfTheTheme) {
    window_.ShowTopic("glossary");
    const QString light = Topic().document()->defaultStyleSheet();
    QPalette dark = window_.palette();
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    window_.setPalette(dark);
    EXPECT_NE(Topic().document()->defaultStyleSheet(), light);
    EXPECT_EQ(Shown(), "glossary.html");
}

TEST_F(HelpWindowShown, EveryControlIsReachedByTabAndNamed) {
    for (QWidget* control : window_.findChildren<QWidget*>())
        if (control->objectName().startsWith("txt") || control->objectName().startsWith("lst") ||
            control->objectName().startsWith("tre")) {
            EXPECT_TRUE(control->focusPolicy() & Qt::TabFocus) << control->objectName().toStdString();
            EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
        }
}
