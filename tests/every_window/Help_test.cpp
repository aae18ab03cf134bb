// F1 and Shift+F1 have an answer in every window.
#include "EveryWindow.h"

#include "platform/help/ControlHelp.h"
#include "platform/help/HelpBook.h"

#include <QDirIterator>
#include <QFile>
#include <QMenu>
#include <QRegularExpression>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

// The question mark asks a control, then what it is a part of.
QString WhatIsSaidOf(const QWidget& control) {
    for (const QWidget* asked = &control; asked != nullptr && !asked->isWindow(); asked = asked->parentWidget())
        if (!asked->whatsThis().isEmpty())
            return asked->whatsThis();
    return {};
}

Findings Unexplained(QWidget& window) {
    Findings findings;
    for (const QWidget* control : window.findChildren<QWidget*>())
        if (control->isVisible() && control->window() == &window && (control->focusPolicy() & Qt::TabFocus) != 0 &&
            WhatIsSaidOf(*control).isEmpty())
            findings << Place(*control) + " is not explained by Shift+F1";
    if (const auto* menu = qobject_cast<const QMenu*>(&window))
        for (const QAction* entry : menu->actions())
            if (!entry->isSeparator() && entry->whatsThis().isEmpty())
                findings << Place(*entry) + " is not explained by Shift+F1";
    return findings;
}

Findings WithoutTopic(QWidget& window) {
    static const ControlHelp help;
    static const HelpBook book;
    Findings findings;
    const QString topic = help.TopicOf(&window).section('#', 0, 0);
    if (!book.Contains(topic) || topic == book.Topics().front().id)
        if (qobject_cast<const QMenu*>(&window) == nullptr) // its entries have topics
            findings << Place(window) + " has no topic of its own for F1";
    return findings;
}

// As the forms name them.
QStringList AllWindows() {
    static const QRegularExpression window("<class>(frm\\w+)</class>");
    QStringList names;
    QDirIterator forms(RAVLIN_SOURCES "/src", {"*.ui"}, QDir::Files, QDirIterator::Subdirectories);
    while (forms.hasNext()) {
        QFile file(forms.next());
        if (file.open(QFile::ReadOnly))
            if (const auto match = window.match(QString::fromUtf8(file.readAll())); match.hasMatch())
                names << match.captured(1);
    }
    return names;
}

} // namespace

TEST(Help, SaysOfEveryControlWhatItIs) {
    EXPECT_EQ(FindingsOfEveryWindow(Unexplained), "");
}

TEST(Help, HasATopicForEveryWindow) {
    EXPECT_EQ(FindingsOfEveryWindow(WithoutTopic), "");
}

// What is checked here of every window is checked of a new one too.
TEST(WayThroughTheWindows, ForgetsNone) {
    const QStringList shown = WindowsOnTheWay();
    const QStringList all = AllWindows();
    EXPECT_GE(all.size(), 10);
    for (const QString& name : all)
        EXPECT_TRUE(shown.contains(name)) << name.toStdString() << " is not on the way of tests/window_tour";
}
