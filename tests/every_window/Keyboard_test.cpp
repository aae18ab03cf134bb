// Every window can be worked without a mouse.
#include "EveryWindow.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTextBrowser>

#include <gtest/gtest.h>

#include <map>

namespace {

constexpr int MostTabs = 120; // more than there are controls and links in any window

bool IsStop(const QWidget& control) {
    return control.isVisible() && control.isEnabled() && (control.focusPolicy() & Qt::TabFocus) == Qt::TabFocus &&
           control.focusProxy() == nullptr;
}

QList<QWidget*> Stops(QWidget& window) {
    QList<QWidget*> stops;
    for (QWidget* control : window.findChildren<QWidget*>())
        if (control->window() == &window && IsStop(*control))
            stops << control;
    return stops;
}

// While a scanner is programmed, no window takes input.
bool TakesInput(QWidget& window) {
    if (qobject_cast<QMenu*>(&window) != nullptr || Stops(window).isEmpty())
        return false;
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

void Press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QWidget* focus = window.focusWidget();
    QTest::keyClick(focus != nullptr ? focus : &window, key, modifiers);
}

// Gives the focus back to where it was.
class FocusKept {
public:
    explicit FocusKept(QWidget& window) : focus_(window.focusWidget()) {}
    ~FocusKept() {
        if (focus_ != nullptr)
            focus_->setFocus();
    }
    FocusKept(const FocusKept&) = delete;
    FocusKept& operator=(const FocusKept&) = delete;

private:
    QWidget* focus_;
};

// The controls in the order in which the key reaches them, from the first one until it comes round.
QList<QWidget*> Way(QWidget& window, Qt::Key key) {
    const FocusKept kept(window);
    Stops(window).first()->setFocus(Qt::TabFocusReason);
    QList<QWidget*> way;
    for (int i = 0; i < MostTabs; ++i) {
        QWidget* focus = window.focusWidget();
        if (!way.isEmpty() && focus == way.first() && way.size() > 1)
            return way;
        if (way.isEmpty() || way.last() != focus)
            way << focus;
        Press(window, key);
    }
    return way;
}

Findings OutOfReach(QWidget& window) {
    if (!TakesInput(window))
        return {};
    Findings findings;
    const QList<QWidget*> forward = Way(window, Qt::Key_Tab);
    QList<QWidget*> backward = Way(window, Qt::Key_Backtab);
    const QList<QWidget*> stops = Stops(window);
    for (QWidget* stop : stops) {
        if (!forward.contains(stop))
            findings << Place(*stop) + " is not reached by Tab";
        if (!backward.contains(stop))
            findings << Place(*stop) + " is not reached by Shift+Tab";
    }
    if (forward.size() > stops.size())
        findings << "Tab does not come round from " + Place(*forward.last());
    std::ranges::reverse(backward);
    backward.prepend(backward.takeLast());
    if (findings.isEmpty() && backward != forward)
        findings << "Shift+Tab does not go the way of Tab in " + Place(window);
    return findings;
}

QRect Area(const QWidget& control, const QWidget& window) {
    return {control.mapTo(&window, QPoint()), control.size()};
}

// The two owners, side by side in one parent, that the controls stand in.
std::pair<const QWidget*, const QWidget*> SideBySide(const QWidget& a, const QWidget& b) {
    const QWidget* left = &a;
    while (!left->parentWidget()->isAncestorOf(&b))
        left = left->parentWidget();
    const QWidget* right = &b;
    while (right->parentWidget() != left->parentWidget())
        right = right->parentWidget();
    return {left, right};
}

// Text is read from left to right and from top to bottom, and so is a window, group by group.
Findings OutOfOrder(QWidget& window) {
    if (!TakesInput(window))
        return {};
    Findings findings;
    const QList<QWidget*> way = Way(window, Qt::Key_Tab);
    for (int i = 1; i < way.size(); ++i) {
        const auto [left, right] = SideBySide(*way[i - 1], *way[i]);
        const QRect before = Area(*left, window);
        const QRect after = Area(*right, window);
        const bool below = after.center().y() > before.bottom() || after.top() >= before.center().y();
        const bool beside = after.left() >= before.right();
        if (!below && !beside)
            findings << Place(*way[i]) + " comes behind " + Place(*way[i - 1]);
    }
    return findings;
}

Findings WithoutVisibleFocus(QWidget& window) {
    if (!TakesInput(window))
        return {};
    Findings findings;
    const FocusKept kept(window);
    Stops(window).first()->setFocus(Qt::TabFocusReason);
    for (QWidget* stop : Way(window, Qt::Key_Tab)) {
        stop->setFocus(Qt::TabFocusReason);
        const QImage with = window.grab().toImage();
        stop->clearFocus();
        const auto* button = qobject_cast<const QPushButton*>(stop);
        const bool marked = button != nullptr && button->isDefault(); // as one that has the focus
        if (!marked && window.grab().toImage() == with)
            findings << Place(*stop) + " looks the same with and without the focus";
    }
    return findings;
}

// What the letter behind the "&" leads to.
std::multimap<QString, QString> Mnemonics(const QWidget& window) {
    std::multimap<QString, QString> mnemonics;
    const auto note = [&mnemonics](const QString& text) {
        const QKeySequence keys = QKeySequence::mnemonic(text);
        if (!keys.isEmpty())
            mnemonics.emplace(keys.toString(), text);
    };
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        if (!control->isVisible() || !control->isEnabled() || control->window() != &window)
            continue;
        if (const auto* label = qobject_cast<const QLabel*>(control); label != nullptr && label->buddy() != nullptr)
            note(label->text());
        else if (const auto* button = qobject_cast<const QAbstractButton*>(control))
            note(button->text());
        else if (const auto* tabs = qobject_cast<const QTabBar*>(control))
            for (int i = 0; i < tabs->count(); ++i)
                note(tabs->tabText(i));
        else if (const auto* bar = qobject_cast<const QMenuBar*>(control))
            for (const QAction* menu : bar->actions())
                note(menu->text());
        else if (const auto* group = qobject_cast<const QGroupBox*>(control))
            note(group->title());
    }
    return mnemonics;
}

// Two captions that are what they are: their letter leads to each of them in turn.
bool ShareTheirLetterByRight(const QStringList& captions) {
    static const QList<QStringList> known = {
        {"&Program", "Dis&play:"},     // of the profile pages
        {"&Device", "&Device Class:"}, // the menu and the New Profile page
    };
    QStringList sorted = captions;
    sorted.sort();
    return known.contains(sorted);
}

Findings SharedMnemonics(QWidget& window) {
    Findings findings;
    const auto mnemonics = Mnemonics(window);
    for (auto first = mnemonics.begin(); first != mnemonics.end(); first = mnemonics.upper_bound(first->first)) {
        QStringList captions;
        for (auto at = first; at != mnemonics.upper_bound(first->first); ++at)
            captions << at->second;
        if (captions.size() > 1 && !ShareTheirLetterByRight(captions))
            findings << first->first + " is the key of " + captions.join(" and ");
    }
    return findings;
}

// Alt and the letter of a caption put the focus into its field; of those who share a letter, into one after the other.
Findings DeadMnemonics(QWidget& window) {
    if (!TakesInput(window))
        return {};
    Findings findings;
    const FocusKept kept(window);
    const auto mnemonics = Mnemonics(window);
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        const QKeySequence keys = QKeySequence::mnemonic(label->text());
        if (keys.isEmpty() || label->buddy() == nullptr || !label->isVisible() || !label->buddy()->isEnabled() ||
            mnemonics.count(keys.toString()) > 1)
            continue;
        Press(window, keys[0].key(), Qt::AltModifier);
        if (window.focusWidget() != label->buddy() && window.focusWidget() != label->buddy()->focusProxy())
            findings << keys.toString() + " does not lead to " + Place(*label->buddy());
    }
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>())
        if (button->isVisible() && button->shortcut() != QKeySequence::mnemonic(button->text()))
            findings << Place(*button) + " does not hear its letter";
    return findings;
}

// A dialog has a button for Enter, and one that Escape stands for; those without are closed by Escape all the same.
Findings WithoutDefaultButton(QWidget& window) {
    if (qobject_cast<QDialog*>(&window) == nullptr)
        return {};
    const QList<QPushButton*> buttons = window.findChildren<QPushButton*>();
    const bool has = std::ranges::any_of(
        buttons, [](const QPushButton* button) { return button->isVisible() && button->isDefault(); });
    const bool ready = std::ranges::any_of(
        buttons, [](const QPushButton* button) { return button->isVisible() && button->isEnabled(); });
    return has || !ready ? Findings() : Findings{Place(window) + " has no button for Enter"};
}

Findings WithoutKeysInMenus(QWidget& window) {
    Findings findings;
    if (const auto* bar = window.findChild<QMenuBar*>())
        for (const QAction* menu : bar->actions())
            if (QKeySequence::mnemonic(menu->text()).isEmpty())
                findings << menu->text() + " has no letter";
    return findings;
}

} // namespace

TEST(Keyboard, ReachesEveryControlAndIsTrappedByNone) {
    EXPECT_EQ(FindingsOfEveryWindow(OutOfReach), "");
}

TEST(Keyboard, GoesThroughTheWindowAsItIsRead) {
    EXPECT_EQ(FindingsOfEveryWindow(OutOfOrder), "");
}

TEST(Keyboard, ShowsWhereTheFocusIs) {
    EXPECT_EQ(FindingsOfEveryWindow(WithoutVisibleFocus), "");
}

TEST(Keyboard, HasALetterForOneControlOnly) {
    EXPECT_EQ(FindingsOfEveryWindow(SharedMnemonics), "");
}

TEST(Keyboard, LeadsFromTheLetterToTheControl) {
    EXPECT_EQ(FindingsOfEveryWindow(DeadMnemonics), "");
}

TEST(Keyboard, AnswersDialogsByEnter) {
    EXPECT_EQ(FindingsOfEveryWindow(WithoutDefaultButton), "");
}

TEST(Keyboard, OpensMenus) {
    EXPECT_EQ(FindingsOfEveryWindow(WithoutKeysInMenus), "");
}
